#include "simulator/gateway_play.h"

#include "base/date_text.h"
#include "base/environment.h"

#include <QHash>

#include <nlohmann/json.hpp>
#include <pugixml.hpp>

#include <sstream>

using namespace Qt::StringLiterals;
using Json = nlohmann::ordered_json;

namespace {

HttpAnswer plain(const QString& text) { return {200, "text/plain; charset=utf-8", text.toUtf8()}; }

HttpAnswer jsonAnswer(Json response) {
  return {200, "application/json; charset=utf-8", QByteArray::fromStdString(Json{{"Response", std::move(response)}}.dump())};
}

HttpAnswer jsonRefusal(const QString& code, const QString& description) {
  return jsonAnswer({{"Status", {{"Code", code.toStdString()}, {"Description", description.toStdString()}}}});
}

const Json accepted{{"Code", 200}, {"Description", "OK"}};

QString textIn(const Json& object, const char* name) {
  return object.is_object() && object.contains(name) && object[name].is_string()
             ? QString::fromStdString(object[name].get<std::string>())
             : QString();
}

QHash<QString, QString> formFields(const QByteArray& body) {
  QHash<QString, QString> fields;
  for (QByteArray pair : body.split('&')) {
    pair.replace('+', ' ');
    const qsizetype mark = pair.indexOf('=');
    fields[QString::fromUtf8(QByteArray::fromPercentEncoding(pair.left(mark)))] =
        QString::fromUtf8(QByteArray::fromPercentEncoding(pair.mid(mark + 1)));
  }
  return fields;
}

QString messageLine(const QString& sender, const QString& numbers, const QString& text) {
  return u"%1 -> %2: %3"_s.arg(sender, numbers, text);
}

}  // namespace

bool GatewayPlay::pay(qsizetype recipients) {
  if (recipients > credit) return false;
  credit -= int(recipients);
  ++messages_;
  return true;
}

GatewayPlay::Reply GatewayPlay::reply(Service service, const QString& path, const QByteArray& body,
                                      const std::optional<QString>& refusal) {
  switch (service) {
    case Service::Json: return replyJson(path, body, refusal);
    case Service::Form: return replyForm(body, refusal);
    case Service::Xml: return replyXml(path, body, refusal);
    default: return refusal ? Reply{{404, {}, {}}, path, u"yok"_s} : replyRates();
  }
}

GatewayPlay::Reply GatewayPlay::replyJson(const QString& path, const QByteArray& body, const std::optional<QString>& refusal) {
  const QString operation = path.mid(path.lastIndexOf(u'/') + 1);
  if (!path.startsWith(u"/v1/json/syncreply/"_s)) return {{404, {}, {}}, path, u"yok"_s};
  const auto refuse = [&operation](const QString& code, const QString& why) {
    return Reply{jsonRefusal(code, why), operation, code + u" - "_s + why};
  };
  const Json request = Json::parse(body.begin(), body.end(), nullptr, false);
  if (!request.is_object() || !request.contains("Credential")) return refuse(u"400"_s, u"Istek okunamadi"_s);
  if (refusal) return refuse(refusal->isEmpty() ? u"500"_s : *refusal, u"Istek reddedildi"_s);
  const Json& credential = request["Credential"];
  if (textIn(credential, "Username") != user || textIn(credential, "Password") != password)
    return refuse(u"401"_s, u"Kullanici adi ya da parola hatali"_s);
  if (operation == u"GetSenders"_s) {
    Json list = Json::array();
    for (const QString& sender : senders) list.push_back({{"Value", sender.toStdString()}});
    return {jsonAnswer({{"Status", accepted}, {"Senders", list}}), operation, u"tamam"_s};
  }
  if (operation == u"GetBalance"_s)
    return {jsonAnswer({{"Status", accepted}, {"Balance", {{"Main", credit}}}}), operation, QString::number(credit)};
  if (operation != u"Submit"_s) return refuse(u"404"_s, u"Islem yok"_s);
  if (!request.contains("To") || !request["To"].is_array()) return refuse(u"400"_s, u"Alici yok"_s);
  QStringList numbers;
  for (const Json& number : request["To"]) numbers += number.is_string() ? QString::fromStdString(number.get<std::string>()) : QString();
  const Json header = request.value("Header", Json::object());
  if (!pay(numbers.size())) return refuse(u"402"_s, u"Kontor yetersiz"_s);
  return {jsonAnswer({{"Status", accepted}, {"MessageId", 1000 + messages_}}), operation,
          messageLine(textIn(header, "From"), numbers.join(u','), textIn(request, "Message"))};
}

GatewayPlay::Reply GatewayPlay::replyForm(const QByteArray& body, const std::optional<QString>& refusal) {
  const auto fields = formFields(body);
  const QString operation = u"islem="_s + fields.value(u"islem"_s);
  const bool isKnown = !refusal && fields.value(u"user"_s) == user && fields.value(u"pass"_s) == password;
  if (operation == u"islem=3"_s)
    return {plain(u"DONUS|BASLiKLAR|"_s + (isKnown ? senders.join(u';') : QString())), operation, isKnown ? u"tamam"_s : u"ret"_s};
  if (operation == u"islem=2"_s)
    return {plain(u"DONUS|ORJiNLi(%1)"_s.arg(isKnown ? QString::number(credit) : u"0"_s)), operation, QString::number(credit)};
  if (operation != u"islem=1"_s || !isKnown || !pay(fields.value(u"numaralar"_s).split(u',').size()))
    return {plain(u"DONUS|HATA"_s), operation, u"ret"_s};
  return {plain(u"DONUS|OK|%1"_s.arg(1000 + messages_)), operation,
          messageLine(fields.value(u"baslik"_s), fields.value(u"numaralar"_s), fields.value(u"mesaj"_s))};
}

GatewayPlay::Reply GatewayPlay::replyXml(const QString& path, const QByteArray& body, const std::optional<QString>& refusal) {
  const QString operation = path.mid(path.lastIndexOf(u'/') + 1);
  const auto refuse = [&operation](const QString& code) { return Reply{plain(code), operation, code}; };
  pugi::xml_document document;
  if (!document.load_buffer(body.constData(), size_t(body.size()))) return refuse(u"20"_s);
  if (refusal) return refuse(refusal->isEmpty() ? u"23"_s : *refusal);
  const pugi::xml_node root = document.document_element();
  if (QString::fromUtf8(root.attribute("ka").value()) != user || QString::fromUtf8(root.attribute("pwd").value()) != password)
    return refuse(u"23"_s);
  if (operation == u"gtorgex"_s) return {plain(senders.join(u'\t')), operation, u"tamam"_s};
  if (operation == u"gtcrdtex"_s) return {plain(u"$%1.0"_s.arg(credit)), operation, QString::number(credit)};
  if (operation != u"sndblkex"_s) return refuse(u"20"_s);
  const QString sender = QString::fromUtf8(root.attribute("org").value());
  const pugi::xml_node message = root.child("mesaj");
  const QString numbers = QString::fromUtf8(message.child("nums").text().get());
  if (!senders.contains(sender)) return refuse(u"21"_s);
  if (!pay(numbers.split(u',').size())) return refuse(u"22"_s);
  return {plain(u"$%1"_s.arg(1000 + messages_)), operation,
          messageLine(sender, numbers, QString::fromUtf8(message.child("metin").text().get()))};
}

GatewayPlay::Reply GatewayPlay::replyRates() {
  pugi::xml_document document;
  pugi::xml_node root = document.append_child("DOVIZ");
  const auto row = [&root](const char* code, const QString& buying, const char* selling) {
    pugi::xml_node node = root.append_child("KUR");
    node.append_child("ADI").text() = code;
    node.append_child("ALIS").text() = buying.toUtf8().constData();
    node.append_child("SATIS").text() = selling;
  };
  row("TARIH", DateText::date(environment().today()).replace(u'.', u'/'), "");
  row("USD", u"41.1000"_s, "41.2500");
  row("EUR", u"47.9000"_s, "48.1250");
  row("GBP", u"54.6000"_s, "54.9375");
  std::ostringstream text;
  document.save(text, "  ", pugi::format_default, pugi::encoding_utf8);
  return {{200, "text/xml; charset=utf-8", QByteArray::fromStdString(text.str())}, u"doviz.xml"_s, u"tamam"_s};
}
