// kvtk-account HOST…: reads a typed name and a typed password, a line each, from the standard input and prints the SQL
// text that makes that login an account of the database for each of the hosts. Nothing of it is stored or logged.
// kvtk-account --user HOST…: the same for one user more. The master account is refused, and so is a name of other letters
// than those that go through every file and script: after the login's rules A to Z, digits, "_", "-" and ".".
// No name is longer than what a slip keeps of it.

#include "base/data/latin5.h"
#include "base/exceptions.h"
#include "app/login_rules.h"
#include "base/turkish_text.h"

#include <QFile>

#include <algorithm>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

/// Every saved slip carries the name in TS_USER, which holds no more.
constexpr int longestUserName = 15;

/// Quoted for the server's own mode, in which a backslash escapes.
QByteArray quoted(const QString& text, const QString& what) {
  QByteArray bytes = Latin5::encode(text, what);
  bytes.replace('\\', "\\\\").replace('\'', "\\'");
  return '\'' + bytes + '\'';
}

QString line(QFile& input) {
  QByteArray bytes = input.readLine();
  while (bytes.endsWith('\n') || bytes.endsWith('\r')) bytes.chop(1);
  return QString::fromUtf8(bytes);
}

void needUserName(const QString& account) {
  const bool plain = std::ranges::all_of(account, [](QChar c) {
    return (c >= u'A' && c <= u'Z') || (c >= u'0' && c <= u'9') || c == u'_' || c == u'-' || c == u'.';
  });
  if (!plain) throw Exception(u"a user's name has letters, digits, \"_\", \"-\" and \".\" only"_s);
  if (LoginRules::isMaster(account)) throw Exception(u"that is the master account, which is there already"_s);
}

}  // namespace

int main(int argc, char** argv) {
  const bool user = argc > 1 && QByteArrayView(argv[1]) == "--user";
  const int firstHost = user ? 2 : 1;
  if (argc <= firstHost) {
    std::fputs("usage: kvtk-account [--user] HOST... < name-and-password\n", stderr);
    return 2;
  }
  try {
    QFile input;
    if (!input.open(stdin, QIODevice::ReadOnly)) return 1;
    // In capitals, as the login form types them.
    const QString typedName = TurkishText::upper(line(input));
    const QString typedPassword = TurkishText::upper(line(input));
    if (typedName.isEmpty() || typedPassword.isEmpty()) throw Exception(u"the name or the password is empty"_s);
    if (LoginRules::account(typedName).size() > longestUserName)
      throw Exception(u"a name has %1 letters at most: slips are saved with it and keep no more"_s.arg(longestUserName));
    if (user) needUserName(LoginRules::account(typedName));
    const QByteArray name = quoted(LoginRules::account(typedName), u"Kullanıcı Adı"_s);
    const QByteArray password = quoted(LoginRules::password(typedPassword), u"Kullanıcı Parolası"_s);
    std::puts("SET NAMES latin5;");
    for (int i = firstHost; i < argc; ++i) {
      const QByteArray account = name + '@' + quoted(QString::fromLocal8Bit(argv[i]), u"host"_s);
      std::printf("CREATE USER IF NOT EXISTS %s;\n", account.constData());
      std::printf("ALTER USER %s IDENTIFIED BY %s;\n", account.constData(), password.constData());
      std::printf("GRANT SELECT, INSERT, UPDATE, DELETE ON kvtk.* TO %s;\n", account.constData());
    }
  } catch (const Exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  }
  return 0;
}
