#pragma once

#include <QString>

/// How what is typed at the login becomes a database account.
namespace LoginRules {

/// Name of the account; an empty one becomes the tick counter's text, which matches no account.
QString account(const QString& typedName);

/// True for the account that may do everything, in any case of its ASCII letters; other letters are never taken for them.
bool isMaster(const QString& account);

/// Password of the account; an empty one likewise. A password typed with Turkish letters and one typed with their nearest
/// ASCII letters are the same.
QString password(const QString& typedPassword);

/// The server to connect to: the computer's own name in place of "localhost", "127.0.0.1" and blanks.
QString server(const QString& typedServer, const QString& computerName);

}  // namespace LoginRules
