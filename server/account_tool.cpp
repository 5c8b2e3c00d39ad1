// kvtk-account HOST…: reads a typed name and a typed password, a line each, from the standard input and prints the SQL
// text that makes that login an account of the database for each of the hosts. Nothing of it is stored or logged.

#include "app/data/latin5.h"
#include "app/exceptions.h"
#include "app/login_rules.h"

#include <QFile>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

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

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2) {
    std::fputs("usage: kvtk-account HOST... < name-and-password\n", stderr);
    return 2;
  }
  try {
    QFile input;
    if (!input.open(stdin, QIODevice::ReadOnly)) return 1;
    const QString typedName = line(input);
    const QString typedPassword = line(input);
    if (typedName.isEmpty() || typedPassword.isEmpty()) throw Exception(u"the name or the password is empty"_s);
    const QByteArray name = quoted(LoginRules::account(typedName), u"Kullanıcı Adı"_s);
    const QByteArray password = quoted(LoginRules::password(typedPassword), u"Kullanıcı Parolası"_s);
    std::puts("SET NAMES latin5;");
    for (int i = 1; i < argc; ++i) {
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
