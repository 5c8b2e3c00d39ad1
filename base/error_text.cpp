#include "base/error_text.h"

#include "base/exceptions.h"
#include "base/log_file.h"

using namespace Qt::StringLiterals;

namespace {

/// Numbers of the client library for a server that is not there or no longer there.
bool meansNoServer(unsigned code) { return code == 2002 || code == 2003 || code == 2005 || code == 2006 || code == 2013; }

}  // namespace

QString shownText(const std::exception& error) {
  const QString message = LogFile::messageOf(error);
  const auto* server = dynamic_cast<const EMyError*>(&error);
  if (server == nullptr) return message;
  if (meansNoServer(server->code()))
    return u"Veritabanı sunucusuna ulaşılamıyor. Bağlantıyı denetleyip programı yeniden açın.\r\n\r\n"_s + message;
  return u"Veritabanı sunucusu işlemi kabul etmedi.\r\n\r\n"_s + message;
}
