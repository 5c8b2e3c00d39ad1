#pragma once

#include <QByteArrayView>
#include <QHash>
#include <QString>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

class Value;
struct FieldInfo;

enum class FilterOperator {
  Contains,
  StartsWith,
  Equal,
  NotEqual,
  Greater,
  GreaterOrEqual,
  Less,
  LessOrEqual,
  Between,   ///< both ends belong to it
  Empty,     ///< NULL, the empty text or the zero date
  NotEmpty,
};

/// What a grid is narrowed by: conditions on columns, joined by and, or, not. Texts compare without regard to case by the
/// Turkish rules. One tree is evaluated in memory, sent to the server, or shown.
class FilterExpression {
 public:
  static FilterExpression condition(const QString& column, FilterOperator comparison);
  static FilterExpression condition(const QString& column, FilterOperator comparison, const Value& value);
  static FilterExpression condition(const QString& column, FilterOperator comparison, const Value& value, const Value& upperValue);
  /// True when all parts are; an empty list is always true.
  static FilterExpression all(std::vector<FilterExpression> parts);
  /// True when one part is; an empty list is never true.
  static FilterExpression any(std::vector<FilterExpression> parts);
  static FilterExpression negated(FilterExpression part);

  /// Gives the bytes of a field's cell in the row to be tested; nothing is NULL. The view lives as long as the row.
  using CellReader = std::function<std::optional<QByteArrayView>(int field)>;
  using RowTest = std::function<bool(const CellReader& row)>;
  /// The test for rows of these fields. Values are converted once, here: throws EConvertError for a value that does not
  /// fit its column, EDatabaseError for a column that the fields lack.
  RowTest compiled(const std::vector<FieldInfo>& fields) const;

  /// The tree as an SQL condition whose values are parameters named F1, F2, …; the values go to parameters as they are
  /// and so must be of their columns' types.
  QString asSql(QHash<QString, Value>& parameters) const;

  /// The parts that must all be true; one that is no such list is its own only part.
  std::vector<FilterExpression> conjuncts() const;
  /// Column of a single condition; empty for anything else.
  const QString& column() const;
  /// How a single condition compares; without meaning for anything else.
  FilterOperator comparison() const;

  /// The tree in words, columns by the captions that captionOf gives.
  QString asText(const std::function<QString(const QString& column)>& captionOf) const;

 private:
  struct Node;
  explicit FilterExpression(Node node);
  std::shared_ptr<const Node> node_;
};
