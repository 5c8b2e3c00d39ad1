#include "comm/sms_gateways.h"

#include <nlohmann/json.hpp>

using namespace Qt::StringLiterals;
using Json = nlohmann::ordered_json;

namespace {

/// Parsed and written again, compact. The library's own messages quote what they read, so none of them leaves.
QByteArray serialized(const QString& text) {
  Json body = Json::parse(text.toStdString(), nullptr, false);
  if (body.is_discarded()) throw EWireError(u"Kullanıcı adı, parola, gönderici adı ya da alıcılar isteği bozuyor."_s);
  return QByteArray::fromStdString(body.dump());
}

QString quoted(const QString& text) { return QString::fromStdString(Json(text.toStdString()).dump()); }

QString credential(const SmsAccount& account) {
  return uR"("Credential":{"Username":"%1","Password":"%2"})"_s.arg(account.user, account.password);
}

HttpRequest request(const ServiceAddresses& addresses, const QString& operation, const QString& body) {
  HttpRequest request;
  request.address = addresses.jsonAddress(u"/v1/json/syncreply/"_s + operation);
  request.headers = {{"Accept", "text/html, */*"},
                     {"User-Agent", "Mozilla/3.0 (compatible; Quendrine)"},
                     {"Content-Type", "application/json; charset=utf-8"}};
  request.body = serialized(body);
  request.certificateFile = addresses.certificateFile;
  return request;
}

[[noreturn]] void refuse() { throw EWireError(u"Sunucunun yanıtı anlaşılamadı."_s); }

const Json& member(const Json& object, const char* name) {
  if (!object.is_object()) refuse();
  const auto found = object.find(name);
  if (found == object.end()) refuse();
  return *found;
}

/// A text or a plain value, as text.
QString textOf(const Json& value) {
  if (value.is_string()) return QString::fromStdString(value.get_ref<const std::string&>());
  if (value.is_structured() || value.is_null()) refuse();
  return QString::fromStdString(value.dump());
}

struct Reading {
  Json answer;
  const Json* response = nullptr;

  explicit Reading(const HttpAnswer& http) : answer(Json::parse(http.body.begin(), http.body.end(), nullptr, false)) {
    if (answer.is_discarded()) refuse();
    response = &member(answer, "Response");
  }

  SmsVerdict verdict() const {
    const Json& status = member(*response, "Status");
    const QString code = textOf(member(status, "Code"));
    if (code == u"200"_s) return {true, {}};
    return {false, code + u" - "_s + textOf(member(status, "Description"))};
  }
};

}  // namespace

HttpRequest JsonSms::sendersRequest(const ServiceAddresses& addresses, const SmsAccount& account) {
  return request(addresses, u"GetSenders"_s, u'{' + credential(account) + u'}');
}

HttpRequest JsonSms::balanceRequest(const ServiceAddresses& addresses, const SmsAccount& account) {
  return request(addresses, u"GetBalance"_s, u'{' + credential(account) + u'}');
}

HttpRequest JsonSms::submitRequest(const ServiceAddresses& addresses, const SmsAccount& account, const SmsMessage& message) {
  const QString body = u'{' + credential(account) + uR"(,"DataCoding":"Default","Header":{"From":")"_s + message.sender +
                       uR"(","ValidityPeriod":0},"Message":)"_s + quoted(message.text) + uR"(,"To":[)"_s + message.recipients +
                       u"]}"_s;
  return request(addresses, u"Submit"_s, body);
}

SmsSenders JsonSms::readSenders(const HttpAnswer& answer) {
  const Reading reading(answer);
  SmsSenders senders{reading.verdict(), {}};
  if (!senders.accepted) return senders;
  const Json& list = member(*reading.response, "Senders");
  if (!list.is_array()) refuse();
  for (const Json& sender : list) senders.names += textOf(member(sender, "Value"));
  return senders;
}

SmsBalance JsonSms::readBalance(const HttpAnswer& answer) {
  const Reading reading(answer);
  SmsBalance balance{reading.verdict(), {}, false};
  if (!balance.accepted) return balance;
  // Anything that is no whole number counts as 0, whatever it is.
  const Json& main = member(member(*reading.response, "Balance"), "Main");
  const int credit = main.is_structured() || main.is_null() ? 0 : textOf(main).toInt();
  balance.credit = QString::number(credit);
  balance.isSpent = credit == 0;
  return balance;
}

SmsReceipt JsonSms::readReceipt(const HttpAnswer& answer) {
  const Reading reading(answer);
  SmsReceipt receipt{reading.verdict(), {}};
  if (receipt.accepted) receipt.messageId = textOf(member(*reading.response, "MessageId"));
  return receipt;
}
