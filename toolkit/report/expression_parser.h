#pragma once

#include "toolkit/report/report_expression.h"

/// Reads one expression. Faults leave parse as ExpressionFault.
class ExpressionParser {
 public:
  explicit ExpressionParser(const QString& text) : text_(text) {}

  /// Place of the root among the nodes.
  int parse();
  std::vector<Expression::Node> takeNodes() { return std::move(nodes_); }

  /// Place of the bracket that closes an expression beginning at from, brackets in quotes left aside; the text's end when
  /// there is none.
  static qsizetype closingBracket(const QString& text, qsizetype from);

 private:
  using Operation = Expression::Operation;
  struct Token {
    enum class Kind { End, Number, Text, Name, Sign } kind = Kind::End;
    QString text = {};
    double number = 0;
  };

  void next();
  void readNumber();
  void readText(QChar quote);
  bool isSign(QStringView sign) const { return token_.kind == Token::Kind::Sign && token_.text == sign; }
  bool isWord(QStringView folded) const;
  bool takeSign(QStringView sign);
  void expectSign(QStringView sign);

  int add(Expression::Node node);
  int binary(int level);
  std::optional<Operation> operationAt(int level) const;
  int unary();
  int primary();
  int named();
  int function(const QString& shown);

  const QString& text_;
  qsizetype at_ = 0;
  qsizetype quoted_ = 0;  ///< letters before at_ that stand in quotes
  Token token_;
  int open_ = 0;
  std::vector<Expression::Node> nodes_;
};
