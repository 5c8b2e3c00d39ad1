#include "app/login_rules.h"

#include "base/environment.h"
#include "base/text_tools.h"

using namespace Qt::StringLiterals;

namespace {

const QString masterWord = u"QUEND"_s;
const QString suffix = u"@Kp-7H4n"_s;

QString orTickCounter(const QString& typed) { return typed.isEmpty() ? QString::number(environment().tickCount()) : typed; }

/// Capitals of the ASCII letters only.
QString plainUpper(QString text) {
  for (QChar& letter : text)
    if (letter >= u'a' && letter <= u'z') letter = QChar(letter.unicode() - u'a' + u'A');
  return text;
}

}  // namespace

QString LoginRules::account(const QString& typedName) { return TextTools::LoginTrBuyukHarf(orTickCounter(typedName)); }

bool LoginRules::isMaster(const QString& account) { return plainUpper(account) == masterWord; }

QString LoginRules::password(const QString& typedPassword) {
  const QString typed = orTickCounter(typedPassword);
  if (TextTools::LoginTrBuyukHarf(typed) == masterWord) return plainUpper(typed) + suffix;
  return TextTools::LoginTrPassword(typed + suffix);
}

QString LoginRules::server(const QString& typedServer, const QString& computerName) {
  const QString upper = plainUpper(typedServer);
  const bool own = typedServer.trimmed().isEmpty() || upper == "LOCALHOST"_L1 || upper == "127.0.0.1"_L1;
  return own ? computerName : typedServer;
}
