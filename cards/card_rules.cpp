#include "cards/card_rules.h"

using namespace Qt::StringLiterals;

QString CardRules::joinedNumbers(const std::vector<QString>& numbers) {
  QString joined;
  for (const QString& number : numbers) joined += number + u',';
  joined.chop(1);
  return joined;
}
