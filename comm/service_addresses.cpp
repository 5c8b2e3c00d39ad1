#include "comm/service_addresses.h"

#include "base/ini_file.h"
#include "comm/http_exchange.h"

#include <QUrl>

using namespace Qt::StringLiterals;

namespace {

const QString fileName = u"Sunucular.ini"_s;

enum class Scheme { HttpUnlessTold, HttpsOnly };

QString checked(const QString& section, const QString& key, const QString& value, Scheme scheme, const QString& path) {
  const QString place = u"%1 dosyasının [%2] bölümündeki %3 değeri"_s.arg(fileName, section, key);
  if (value.isEmpty()) throw ENetworkError(place + u" boş."_s);
  const QString usual = scheme == Scheme::HttpsOnly ? u"https://"_s : u"http://"_s;
  QString address = value.contains(u"://"_s) ? value : usual + value;
  while (address.endsWith(u'/')) address.chop(1);
  const QUrl url(address, QUrl::StrictMode);
  const bool hasScheme = url.scheme() == u"https"_s || (scheme == Scheme::HttpUnlessTold && url.scheme() == u"http"_s);
  if (!url.isValid() || !hasScheme || url.host().isEmpty() || !url.userInfo().isEmpty() || url.hasQuery() || url.hasFragment())
    throw ENetworkError(place + u" bir sunucu adresi değil."_s);
  return url.toString(QUrl::FullyEncoded) + path;
}

}  // namespace

ServiceAddresses ServiceAddresses::load(const QString& programFolder) {
  const auto value = [file = programFolder + fileName](const QString& section, const QString& key) {
    return IniFile::read(file, section, key, {}).trimmed();
  };
  return {value(u"Sms"_s, u"JsonSmsProvider"_s), value(u"Sms"_s, u"FormSmsProvider"_s), value(u"Sms"_s, u"XmlSmsProvider"_s),
          value(u"Kur"_s, u"Adres"_s), value(u"Sms"_s, u"SertifikaDosyasi"_s)};
}

QString ServiceAddresses::jsonAddress(const QString& path) const {
  return checked(u"Sms"_s, u"JsonSmsProvider"_s, json, Scheme::HttpUnlessTold, path);
}

QString ServiceAddresses::formAddress() const {
  return checked(u"Sms"_s, u"FormSmsProvider"_s, form, Scheme::HttpUnlessTold, {});
}

QString ServiceAddresses::xmlAddress(const QString& path) const {
  return checked(u"Sms"_s, u"XmlSmsProvider"_s, xml, Scheme::HttpsOnly, path);
}

QString ServiceAddresses::ratesAddress(const QString& path) const {
  return checked(u"Kur"_s, u"Adres"_s, rates, Scheme::HttpUnlessTold, path);
}
