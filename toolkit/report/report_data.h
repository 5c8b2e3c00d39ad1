#pragma once

#include "toolkit/report/report_value.h"

#include <QHash>
#include <QStringList>

#include <memory>
#include <vector>

/// Rows that a report prints: what a screen puts before a query or a list.
class ReportRows {
 public:
  virtual ~ReportRows() = default;
  /// Names of the fields, as templates write them behind the data set's name and a dot.
  virtual QStringList fields() const = 0;
  virtual int rowCount() const = 0;
  /// field is a place in fields().
  virtual ReportValue value(int row, int field) const = 0;
};

struct ReportVariable {
  QString name;
  QString explanation;  ///< Turkish, for whoever designs
  ReportValue value = {};
};

struct ReportDataSet {
  QString name;
  QString explanation;
  std::shared_ptr<ReportRows> rows;
  QHash<QString, int> fields;  ///< folded name to place
};

/// Everything that a report can name. Names are found without regard to case and to the dots and hooks of Turkish letters.
class ReportData {
 public:
  /// Makes a name known; it is not set until setExpression gives it a value.
  void declareVariable(const QString& name, const QString& explanation);
  /// Sets a variable, known before or not, to what an expression comes to: a number "12.5", a text by quoted().
  void setExpression(const QString& name, const QString& expression);
  /// All variables stay known and are not set any more.
  void clearValues();
  void addRows(const QString& name, std::shared_ptr<ReportRows> rows, const QString& explanation = {});

  const std::vector<ReportVariable>& variables() const { return variables_; }
  const std::vector<ReportDataSet>& dataSets() const { return dataSets_; }
  /// Places in the lists above by folded name; -1 when nobody knows it.
  int findVariable(const QString& foldedName) const { return variablePlaces_.value(foldedName, -1); }
  int findRows(const QString& foldedName) const { return rowPlaces_.value(foldedName, -1); }

  /// Form in which names are compared.
  static QString folded(const QString& name);
  /// A text as a literal of the expressions: in quotes, and those inside doubled.
  static QString quoted(const QString& text);

 private:
  ReportVariable& variable(const QString& name);

  std::vector<ReportVariable> variables_;
  std::vector<ReportDataSet> dataSets_;
  QHash<QString, int> variablePlaces_;
  QHash<QString, int> rowPlaces_;
};
