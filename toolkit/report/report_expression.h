#pragma once

#include "toolkit/report/report_data.h"

#include <optional>

/// Where in a data set an evaluation stands, and over which of its rows it counts.
struct RowPlace {
  int row = -1;  ///< -1: at none
  int first = 0;
  int behind = 0;
};

/// What an evaluation sees. Everything may be left out.
struct EvaluationContext {
  const ReportData* data = nullptr;
  const std::vector<RowPlace>* places = nullptr;  ///< one per data set of data
  int page = 0;                                   ///< from 1
  int pageCount = 0;
  QDateTime now;
  /// What is left for all evaluations of a run, in steps; each one takes from it. Null: no bound but that of one evaluation.
  qint64* stepsLeft = nullptr;
};

/// A small language without side effects: names, numbers, quoted texts, arithmetic, comparison, joining, choice, sums and
/// counts over rows, formats. docs/SABLON.md tells it. Depth and steps are bounded and every fault is a value.
class Expression {
 public:
  explicit Expression(const QString& text);

  ReportValue evaluate(const EvaluationContext& context) const;
  /// True when the value hangs on the number of all pages.
  bool usesPageCount() const { return usesPageCount_; }
  /// What is wrong with its names, whether or not an evaluation comes to them: nobody knows them.
  QStringList unknownNames(const ReportData& data) const;
  /// Text of the fault that makes every evaluation fail; empty when it could be read.
  const QString& fault() const { return fault_; }

  enum class Operation {
    Literal, Name, Field, Or, And, Not, Negate, Equal, Unequal, Less, LessOrEqual, Greater, GreaterOrEqual,
    Join, Add, Subtract, Multiply, Divide, Remainder, Function,
  };
  struct Node {
    Operation operation = Operation::Literal;
    ReportValue literal = {};
    QString name = {};   ///< folded; of a field, its data set
    QString field = {};  ///< folded
    QString shown = {};  ///< the name as it was written
    int function = 0;
    std::vector<int> arguments = {};
    int depth = 1;
  };

 private:
  std::vector<Node> nodes_;
  int root_ = -1;
  QString fault_;
  bool usesPageCount_ = false;
};

/// A text in which expressions stand between brackets; "[[" is a bracket.
class ExpressionText {
 public:
  ExpressionText() = default;
  explicit ExpressionText(const QString& text);

  struct Result {
    QString text;
    QStringList faults;
  };
  /// A fault leaves nothing in the text and its reason in the list. The format goes for numbers and dates.
  Result evaluate(const EvaluationContext& context, const QString& format) const;
  bool usesPageCount() const;
  /// What is wrong with the expressions whatever the data are: unknown names, and what cannot be read.
  QStringList faults(const ReportData& data) const;

  /// A text that evaluates to itself.
  static QString literal(const QString& text);

 private:
  struct Part {
    QString text;
    std::optional<Expression> expression;
  };
  std::vector<Part> parts_;
};
