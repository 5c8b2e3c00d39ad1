#include "cards/card_rules.h"

using namespace Qt::StringLiterals;

bool CardRules::isDuplicate(const QString& className, const QString& message) {
  return className == u"EMyError"_s && message.contains(u"#23000Duplicate entry"_s);
}

CardFailure CardRules::failureOf(const QString& className, const QString& message, const QString& uniqueColumn) {
  using enum CardFailure;
  if (className == u"EDatabaseError"_s && message == u"Update failed. Found 0 records"_s) return AskWhetherRowIsThere;
  if (className == u"EDatabaseError"_s && message == u"Refresh failed. Found 0 records"_s) return TellDeleted;
  if (isDuplicate(className, message) && message.contains(uniqueColumn)) return TellDuplicate;
  return SayNothing;
}

QString CardRules::joinedNumbers(const std::vector<QString>& numbers) {
  QString joined;
  for (const QString& number : numbers) joined += number + u',';
  joined.chop(1);
  return joined;
}
