#include "comm/list_text.h"
#include "comm/sms_gateways.h"

using namespace Qt::StringLiterals;

namespace {

using Fields = std::vector<std::pair<QByteArray, QString>>;

/// As HTML forms are encoded: letters, digits and "*-._" stand for themselves, a blank is "+".
QByteArray encoded(const QString& text) { return text.toUtf8().toPercentEncoding(" *", "~").replace(' ', '+'); }

HttpRequest request(const ServiceAddresses& addresses, const char* operation, const SmsAccount& account, const Fields& more = {}) {
  Fields fields = {{"islem", QString::fromLatin1(operation)}, {"user", account.user}, {"pass", account.password}};
  fields.insert(fields.end(), more.begin(), more.end());
  HttpRequest request;
  request.address = addresses.formAddress();
  request.headers = {{"Accept", "text/html, */*"},
                     {"User-Agent", "Mozilla/3.0 (compatible; Quendrine)"},
                     {"Content-Type", "application/x-www-form-urlencoded"}};
  for (const auto& [name, value] : fields) request.body += (request.body.isEmpty() ? "" : "&") + name + '=' + encoded(value);
  request.certificateFile = addresses.certificateFile;
  return request;
}

QString answerWithout(const HttpAnswer& answer, const QString& prefix) {
  return ListText::without(ListText::asLines(answerText(answer)), prefix);
}

}  // namespace

HttpRequest FormSms::sendersRequest(const ServiceAddresses& addresses, const SmsAccount& account) {
  return request(addresses, "3", account);
}

HttpRequest FormSms::balanceRequest(const ServiceAddresses& addresses, const SmsAccount& account) {
  return request(addresses, "2", account);
}

HttpRequest FormSms::submitRequest(const ServiceAddresses& addresses, const SmsAccount& account, const SmsMessage& message) {
  return request(addresses, "1", account, {{"mesaj", message.text}, {"numaralar", message.recipients}, {"baslik", message.sender}});
}

SmsSenders FormSms::readSenders(const HttpAnswer& answer) {
  const QString rest = answerWithout(answer, u"DONUS|BASLiKLAR|"_s);
  if (rest.trimmed().isEmpty()) return {{false, u"Hata : Kullanıcı ya da parola hatalı."_s}, {}};
  return {{true, {}}, ListText::splitKeepingBlanks(rest, u';')};
}

SmsBalance FormSms::readBalance(const HttpAnswer& answer) {
  const QString rest = answerWithout(answer, u"DONUS|ORJiNLi("_s).remove(u')');
  return {{true, {}}, rest.trimmed(), rest == u"0"_s};
}

SmsReceipt FormSms::readReceipt(const HttpAnswer& answer) {
  if (answerWithout(answer, u"DONUS|"_s).startsWith(u"OK"_s)) return {{true, {}}, {}};
  return {{false, u"SMS Hatası: Gönderim yapılamadı, kontör miktarını kontrol ediniz."_s}, {}};
}
