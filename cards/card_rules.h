#pragma once

#include <QString>

#include <vector>

/// What to do after a card could not be written.
enum class CardFailure {
  AskWhetherRowIsThere,  ///< the row was not found: changed or deleted meanwhile
  TellDeleted,
  TellDuplicate,
  SayNothing,
};

/// Decisions of the card screens; plain values in and out.
namespace CardRules {

/// The three tests of a card's conflict handler, in their order. uniqueColumn: the column that no two cards may share.
CardFailure failureOf(const QString& className, const QString& message, const QString& uniqueColumn);

/// True for the server's refusal of a value that another row has, whichever column clashed.
bool isDuplicate(const QString& className, const QString& message);

/// Numbers as one text, joined by ","; an empty one leaves its place empty.
QString joinedNumbers(const std::vector<QString>& numbers);

}  // namespace CardRules
