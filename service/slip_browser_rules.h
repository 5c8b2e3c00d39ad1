#pragma once

#include "base/data/filter_expression.h"

#include <QStringList>

#include <optional>
#include <vector>

/// Rules of the list of slips: order, narrowing and the words of its questions.
namespace SlipBrowserRules {

/// One key of the list's order.
struct SortColumn {
  QString field;
  bool descending = false;
};

/// The order clause of these keys, first to last; empty for none. Slip numbers, which are texts, sort by their length first,
/// so that "99" comes before "100".
QString orderText(const std::vector<SortColumn>& keys);

/// A filter in two parts that must both be true; nothing is no condition.
struct SplitFilter {
  std::optional<FilterExpression> atServer;  ///< on the slip date, by its order: the server fetches no other rows
  std::optional<FilterExpression> inMemory;
};
SplitFilter split(const std::optional<FilterExpression>& filter);

/// True when one of the parts that must all be true is a condition on that column.
bool hasCondition(const std::optional<FilterExpression>& filter, const QString& column);

/// What is asked before slips with these numbers are deleted.
QString deletionQuestion(const QStringList& numbers);
QString deletionFailed();

/// Path of a command's right, by the command's caption.
QString rightPath(const QString& caption);

}  // namespace SlipBrowserRules
