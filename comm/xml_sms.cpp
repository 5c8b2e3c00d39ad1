#include "comm/list_text.h"
#include "comm/sms_gateways.h"

using namespace Qt::StringLiterals;

namespace {

const QString heading = uR"(<?xml version="1.0" encoding="utf-8"?>)"_s;

HttpRequest request(const ServiceAddresses& addresses, const QString& path, const QString& document) {
  HttpRequest request;
  request.address = addresses.xmlAddress(u"/smsgw-ws/"_s + path);
  request.headers = {{"Content-Type", "application/soap+xml; charset=utf-8"}};
  request.body = (document + u"\r\n"_s).toUtf8();
  request.keepsCookies = false;
  request.acceptsOnly200 = true;
  request.certificateFile = addresses.certificateFile;
  return request;
}

QString credential(const SmsAccount& account) { return uR"(ka="%1" pwd="%2")"_s.arg(account.user, account.password); }

QString escaped(QString text) {
  return text.replace(u'&', u"&amp;"_s).replace(u'<', u"&lt;"_s).replace(u'>', u"&gt;"_s);
}

/// The words for a code; none for one that is not known, or not known in this exchange.
QString wordsFor(const QString& code, bool isSubmit) {
  static const QList<std::pair<QString, QString>> table = {
      {u"20"_s, u") Post edilen xml eksik veya hatalı."_s},
      {u"21"_s, u") Kullanılan originatöre sahip değilsiniz."_s},
      {u"22"_s, u") Kontörünüz yetersiz."_s},
      {u"23"_s, u") Kullanıcı adı ya da parolanız hatalı."_s},
      {u"24"_s, u") Şu anda size ait başka bir işlem aktif."_s},
      {u"25"_s, u") İşlemi 1-2 dk sonra tekrar deneyiniz."_s},
  };
  for (const auto& [known, words] : table)
    if (code == known && (isSubmit || code == u"20"_s || code == u"23"_s))
      return (isSubmit ? u"SMS Hatası: ("_s : u"Hata Kodu: ("_s) + code + words;
  return {};
}

}  // namespace

HttpRequest XmlSms::sendersRequest(const ServiceAddresses& addresses, const SmsAccount& account) {
  return request(addresses, u"gtorgex"_s, heading + u"<smsorig "_s + credential(account) + u" />"_s);
}

HttpRequest XmlSms::balanceRequest(const ServiceAddresses& addresses, const SmsAccount& account) {
  return request(addresses, u"gtcrdtex"_s, heading + u"<smskredi "_s + credential(account) + u" />"_s);
}

HttpRequest XmlSms::submitRequest(const ServiceAddresses& addresses, const SmsAccount& account, const SmsMessage& message,
                                  bool turkishLock) {
  const QString document = heading + u"<smspack "_s + (turkishLock ? uR"(charset="turkishlock" )"_s : QString()) +
                           credential(account) + uR"( org=")"_s + message.sender + uR"("><mesaj><metin>)"_s +
                           escaped(message.text) + u"</metin><nums>"_s + message.recipients + u"</nums></mesaj></smspack>"_s;
  return request(addresses, u"sndblkex"_s, document);
}

SmsSenders XmlSms::readSenders(const HttpAnswer& answer, bool keepsBlanks) {
  const QString text = answerText(answer);
  if (text.size() == 2) return {{false, wordsFor(text, false)}, {}};
  return {{true, {}}, keepsBlanks ? ListText::splitKeepingBlanks(text, u'\t') : ListText::split(text, u'\t')};
}

SmsBalance XmlSms::readBalance(const HttpAnswer& answer) {
  const QString text = answerText(answer);
  if (!text.contains(u'$')) return {{false, wordsFor(text, false)}, {}, false};
  // "$", the number, two more characters.
  bool isNumber = false;
  const int credit = text.mid(1, qMax<qsizetype>(0, text.size() - 3)).toInt(&isNumber);
  if (!isNumber) throw EConvertError(u"Kontör miktarı bir tam sayı değil."_s);
  return {{true, {}}, QString::number(credit), false};
}

SmsReceipt XmlSms::readReceipt(const HttpAnswer& answer) {
  const QString text = answerText(answer);
  if (text.contains(u'$')) return {{true, {}}, {}};
  return {{false, wordsFor(text, true)}, {}};
}
