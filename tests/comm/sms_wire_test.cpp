// The gateways' requests byte for byte, and what their answers come to.
#include "base/data/value.h"
#include "comm/sms_gateways.h"
#include "tests/support/test.h"

namespace {

const ServiceAddresses addresses{u"json.test:81"_s, u"http://form.test/api/"_s, u"xml.test"_s, {}, u"/own.pem"_s};
const SmsAccount account{u"ali"_s, u"g&z=1 ş"_s};

HttpAnswer answer(const QByteArray& body, const QByteArray& type = {}) { return {200, type, body}; }

struct Wire {
  HttpRequest request;
  QString address;
  QByteArray body;
};

}  // namespace

TEST(SmsWire, NineRequestsAsBytes) {
  const SmsMessage message{u"TORVANE"_s, uR"("05001112233","05001112244")"_s, uR"(A "b" \ <c> & ç)"_s};
  const SmsMessage listed{u"TORVANE"_s, u"05001112233,05001112244"_s, message.text};
  const QByteArray credential = R"({"Credential":{"Username":"ali","Password":"g&z=1 ş"})";
  const QByteArray formAccount = "user=ali&pass=g%26z%3D1+%C5%9F";
  const QByteArray heading = R"(<?xml version="1.0" encoding="utf-8"?>)";
  const QByteArray rest =
      R"(ka="ali" pwd="g&z=1 ş" org="TORVANE"><mesaj><metin>A "b" \ &lt;c&gt; &amp; ç</metin><nums>05001112233,05001112244</nums></mesaj></smspack>)"
      "\r\n";
  const std::vector<Wire> table{
      {JsonSms::sendersRequest(addresses, account), u"http://json.test:81/v1/json/syncreply/GetSenders"_s, credential + "}"},
      {JsonSms::balanceRequest(addresses, account), u"http://json.test:81/v1/json/syncreply/GetBalance"_s, credential + "}"},
      {JsonSms::submitRequest(addresses, account, message), u"http://json.test:81/v1/json/syncreply/Submit"_s,
       credential + R"(,"DataCoding":"Default","Header":{"From":"TORVANE","ValidityPeriod":0},"Message":"A \"b\" \\ <c> & ç",)"
                    R"("To":["05001112233","05001112244"]})"},
      {FormSms::sendersRequest(addresses, account), u"http://form.test/api"_s, "islem=3&" + formAccount},
      {FormSms::balanceRequest(addresses, account), u"http://form.test/api"_s, "islem=2&" + formAccount},
      {FormSms::submitRequest(addresses, account, listed), u"http://form.test/api"_s,
       "islem=1&" + formAccount + "&mesaj=A+%22b%22+%5C+%3Cc%3E+%26+%C3%A7&numaralar=05001112233%2C05001112244&baslik=TORVANE"},
      {XmlSms::sendersRequest(addresses, account), u"https://xml.test/smsgw-ws/gtorgex"_s,
       heading + R"(<smsorig ka="ali" pwd="g&z=1 ş" />)" + "\r\n"},
      {XmlSms::balanceRequest(addresses, account), u"https://xml.test/smsgw-ws/gtcrdtex"_s,
       heading + R"(<smskredi ka="ali" pwd="g&z=1 ş" />)" + "\r\n"},
      {XmlSms::submitRequest(addresses, account, listed, true), u"https://xml.test/smsgw-ws/sndblkex"_s,
       heading + R"(<smspack charset="turkishlock" )" + rest},
      {XmlSms::submitRequest(addresses, account, listed, false), u"https://xml.test/smsgw-ws/sndblkex"_s,
       heading + "<smspack " + rest},
  };
  for (const Wire& wire : table) {
    EXPECT_EQ(wire.request.address, wire.address);
    EXPECT_EQ(wire.request.body, wire.body) << wire.request.body.constData();
    EXPECT_EQ(wire.request.method, "POST");
    const bool isXml = wire.address.startsWith(u"https"_s);
    const bool isJson = wire.address.contains(u"json"_s);
    const std::vector<std::pair<QByteArray, QByteArray>> browser{
        {"Accept", "text/html, */*"},
        {"User-Agent", "Mozilla/3.0 (compatible; Quendrine)"},
        {"Content-Type", isJson ? "application/json; charset=utf-8" : "application/x-www-form-urlencoded"}};
    const std::vector<std::pair<QByteArray, QByteArray>> bare{{"Content-Type", "application/soap+xml; charset=utf-8"}};
    EXPECT_EQ(wire.request.headers, isXml ? bare : browser);
    EXPECT_EQ(wire.request.keepsCookies, !isXml);
    EXPECT_EQ(wire.request.acceptsOnly200, isXml);
    EXPECT_EQ(wire.request.certificateFile, u"/own.pem"_s);
  }
}

TEST(SmsWire, QuoteInAPasswordBreaksTheRequestWithoutShowingIt) {
  try {
    JsonSms::sendersRequest(addresses, {u"ali"_s, u"gi\"zli"_s});
    FAIL();
  } catch (const EWireError& error) {
    EXPECT_FALSE(error.message().contains(u"zli"_s));
  }
}

TEST(SmsWire, AddressesOfTheServices) {
  const auto json = [](const QString& value) { return ServiceAddresses{value, {}, value, {}, {}}.jsonAddress(u"/p"_s); };
  EXPECT_EQ(json(u"a.test/x/"_s), u"http://a.test/x/p"_s);
  EXPECT_EQ(json(u"https://a.test"_s), u"https://a.test/p"_s);
  EXPECT_EQ(json(u"[::1]:80"_s), u"http://[::1]:80/p"_s);
  for (const char16_t* odd : {u"", u"-1 x", u"ftp://a.test", u"http://ali:1@a.test", u"a.test?x", u"a b", u"http://", u":80"})
    EXPECT_THROW(json(QString::fromUtf16(odd)), ENetworkError) << QString::fromUtf16(odd).toStdString();
  EXPECT_THROW((ServiceAddresses{{}, {}, u"http://a.test"_s, {}, {}}.xmlAddress({})), ENetworkError);
}

TEST(SmsWire, JsonAnswers) {
  const auto senders = JsonSms::readSenders(
      answer(R"({"Response":{"Status":{"Code":200},"Senders":[{"Value":"B b"},{"Value":"A"}]}})"));
  EXPECT_TRUE(senders.accepted);
  EXPECT_EQ(senders.names, (QStringList{u"B b"_s, u"A"_s}));
  const auto balance = [](const QByteArray& main) {
    return JsonSms::readBalance(answer(R"({"Response":{"Status":{"Code":"200"},"Balance":{"Main":)" + main + "}}}"));
  };
  EXPECT_EQ(balance("\"1250\"").credit, u"1250"_s);
  EXPECT_EQ(balance("\"1250.5\"").credit, u"0"_s);
  EXPECT_EQ(balance("\"yok\"").credit, u"0"_s);
  EXPECT_TRUE(balance("0").isSpent);
  EXPECT_FALSE(balance("7").isSpent);
  const auto refusal = JsonSms::readReceipt(answer(R"({"Response":{"Status":{"Code":401,"Description":"Olmaz ç"}}})"));
  EXPECT_FALSE(refusal.accepted);
  EXPECT_EQ(refusal.words, u"401 - Olmaz ç"_s);
  EXPECT_EQ(JsonSms::readReceipt(answer(R"({"Response":{"Status":{"Code":"200"},"MessageId":77}})")).messageId, u"77"_s);
  for (const char* odd : {"", "{", "[]", "1", R"({"Response":1})", R"({"Response":{"Status":{}}})", "\xff",
                          R"({"Response":{"Status":{"Code":"200"}}})", R"({"Response":{"Status":{"Code":500}}})",
                          R"({"Response":{"Status":{"Code":"200"},"MessageId":null}})"})
    EXPECT_THROW(JsonSms::readReceipt(answer(odd)), EWireError) << odd;
}

TEST(SmsWire, FormAnswers) {
  const auto names = [](const QByteArray& body) { return FormSms::readSenders(answer(body)).names; };
  EXPECT_EQ(names("DONUS|BASLiKLAR|TORVANE;TEKNIK SERVIS;"), (QStringList{u"TORVANE"_s, u"TEKNIK SERVIS"_s}));
  EXPECT_EQ(names("donus|basliklar|A~B;C"), (QStringList{u"A B"_s, u"C"_s}));
  for (const char* empty : {"DONUS|BASLiKLAR|", "DONUS|BASLIKLAR|\r\n", ""}) {
    EXPECT_FALSE(FormSms::readSenders(answer(empty)).accepted);
    EXPECT_EQ(FormSms::readSenders(answer(empty)).words, u"Hata : Kullanıcı ya da parola hatalı."_s);
  }
  EXPECT_EQ(FormSms::readBalance(answer("DONUS|ORJiNLi(1250)")).credit, u"1250"_s);
  EXPECT_EQ(FormSms::readBalance(answer("DONUS|ORJINLI(0)")).credit, u"0"_s);
  EXPECT_FALSE(FormSms::readBalance(answer("DONUS|ORJiNLi(0)")).isSpent);
  EXPECT_TRUE(FormSms::readReceipt(answer("DONUS|OK|12")).accepted);
  EXPECT_TRUE(FormSms::readReceipt(answer("OK")).accepted);
  for (const char* failed : {"DONUS|ok", "DONUS|HATA", "DONUS| OK", ""})
    EXPECT_EQ(FormSms::readReceipt(answer(failed)).words,
              u"SMS Hatası: Gönderim yapılamadı, kontör miktarını kontrol ediniz."_s);
}

TEST(SmsWire, XmlAnswers) {
  EXPECT_EQ(XmlSms::readSenders(answer("TORVANE\tTEKNIK SERVIS"), true).names, (QStringList{u"TORVANE"_s, u"TEKNIK SERVIS"_s}));
  EXPECT_EQ(XmlSms::readSenders(answer("TORVANE\tTEKNIK SERVIS"), false).names,
            (QStringList{u"TORVANE"_s, u"TEKNIK"_s, u"SERVIS"_s}));
  EXPECT_EQ(XmlSms::readSenders(answer("20"), true).words, u"Hata Kodu: (20) Post edilen xml eksik veya hatalı."_s);
  for (const char* code : {"21", "99"}) {
    EXPECT_FALSE(XmlSms::readSenders(answer(code), true).accepted);
    EXPECT_EQ(XmlSms::readSenders(answer(code), true).words, u""_s);
    EXPECT_EQ(XmlSms::readBalance(answer(code)).words, u""_s);
  }
  EXPECT_EQ(XmlSms::readBalance(answer("$1250.0")).credit, u"1250"_s);
  for (const char* odd : {"$", "$12,5.0", "x$"}) EXPECT_THROW(XmlSms::readBalance(answer(odd)), EConvertError) << odd;
  EXPECT_TRUE(XmlSms::readReceipt(answer("$1001")).accepted);
  const QList<std::pair<const char*, QString>> table{
      {"20", u"SMS Hatası: (20) Post edilen xml eksik veya hatalı."_s},
      {"21", u"SMS Hatası: (21) Kullanılan originatöre sahip değilsiniz."_s},
      {"22", u"SMS Hatası: (22) Kontörünüz yetersiz."_s},
      {"23", u"SMS Hatası: (23) Kullanıcı adı ya da parolanız hatalı."_s},
      {"24", u"SMS Hatası: (24) Şu anda size ait başka bir işlem aktif."_s},
      {"25", u"SMS Hatası: (25) İşlemi 1-2 dk sonra tekrar deneyiniz."_s},
      {"26", {}},
      {"20\r\n", {}},
  };
  for (const auto& [code, words] : table) {
    EXPECT_FALSE(XmlSms::readReceipt(answer(code)).accepted);
    EXPECT_EQ(XmlSms::readReceipt(answer(code)).words, words);
  }
}

TEST(SmsWire, AnswersInAnyCharset) {
  EXPECT_EQ(answerText(answer("\xfe", "text/plain; charset=ISO-8859-9")), u"ş"_s);
  EXPECT_EQ(answerText(answer("\xfe")), u"ş"_s);
  EXPECT_EQ(answerText(answer("ş")), u"ş"_s);
  EXPECT_EQ(answerText(answer("\xfe", "text/plain; charset=iso-8859-1")), u"þ"_s);
}
