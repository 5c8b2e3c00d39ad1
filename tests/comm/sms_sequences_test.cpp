// What each screen does with each outcome, step by step: requests, banners, pauses and words in their order.
#include "base/data/value.h"
#include "comm/sms_sequences.h"

#include "comm/sms_text.h"
#include "tests/support/test.h"

#include <deque>

namespace {

const QString dead = u"dead"_s;

/// Writes down what it is told to do; requests get the given answers one after the other, "dead" is a connection that fails.
class Transcript : public SmsSession {
 public:
  explicit Transcript(const QStringList& given) : answers_(given.begin(), given.end()) {}
  QStringList steps;
  QStringList noted;

  HttpAnswer exchange(const HttpRequest& request) override {
    steps += u"send "_s + request.address.section(u'/', 3) + u' ' + QString::fromUtf8(request.body.left(7)).simplified();
    if (request.body.contains("turkishlock")) steps.last() += u" locked"_s;
    if (answers_.empty()) throw std::logic_error("one request too many");
    const QString answer = answers_.front();
    answers_.pop_front();
    if (answer == dead) throw ENetworkError(dead);
    return {200, {}, answer.toUtf8()};
  }
  void errorMessage(const QString& text) override { steps += u"error "_s + text; }
  void note(const Exception& cause) override { noted += cause.message(); }
  void plainMessage(const QString& text) override { steps += u"plain "_s + text; }
  void confirm(const QString& text) override { steps += u"confirm "_s + text; }
  void setBanner(const QString& text) override { steps += u"banner "_s + text; }
  void showBanner(bool isShown) override { steps += isShown ? u"show"_s : u"hide"_s; }
  void runMessageLoop() override { steps += u"loop"_s; }
  void pause(int milliseconds) override { steps += u"pause %1"_s.arg(milliseconds); }
  void showSenders(const QStringList& names) override { steps += u"senders "_s + names.join(u'/'); }
  void showBalance(const QString& line) override { steps += u"balance "_s + line; }
  void showRecipients(const QString& text) override { steps += u"recipients "_s + text; }

 private:
  std::deque<QString> answers_;
};

SmsSettings settings(int provider) {
  return {provider, {u"ali"_s, u"gizli"_s}, u"TORVANE"_s, u"metin"_s, {u"j.test"_s, u"f.test"_s, u"x.test"_s, {}, {}}};
}

QString json(const QString& more, const QString& code = u"200"_s) {
  return uR"({"Response":{"Status":{"Code":%1,"Description":"Olmaz"}%2}})"_s.arg(code, more);
}

const QString connecting = u"banner Lütfen bekleyin, bağlantı kuruluyor..."_s;
const QString asking = u"banner Lütfen bekleyin, Kontör Sorgulanıyor..."_s;
const QString jsonSenders = json(uR"(,"Senders":[{"Value":"A B"},{"Value":"C"}])"_s);
const QString spent = u"error Gönderim için köntörünüz bulunmamaktadır! Lütfen sağlayıcıdan temin ediniz."_s;
const QString missing = u"error SMS gönderebilmek için ayarlar bölümünden sms tanımlarını yapmalısınız."_s;
const QString noSubmit = u"error SMS Servis sağlayıcı ile bağlantı kurulamadı."_s;
const QString noCredit = u"error SMS Hatası: Gönderim yapılamadı, kontör miktarını kontrol ediniz."_s;
const QString noConnection = u"error Servis sağlayıcı ile bağlantı kurulamadı"_s;
const QString onRequest = u"plain Error on request:\r\n"_s;
const QString jsonPath = u"send v1/json/syncreply/"_s;

struct Case {
  int provider;
  QStringList answers;
  QStringList steps;
};

}  // namespace

TEST(SmsSequences, SignIn) {
  const QStringList begin{connecting, u"show"_s, u"loop"_s};
  const QStringList paused{connecting, u"show"_s, u"loop"_s, u"pause 1000"_s};
  const QStringList balance{asking, u"show"_s, u"loop"_s, u"pause 1000"_s};
  const QString askJson = jsonPath + u"GetSenders {\"Crede"_s;
  const QString askJsonBalance = jsonPath + u"GetBalance {\"Crede"_s;
  const QString askXml = u"send smsgw-ws/gtorgex <?xml v"_s;
  const QString askXmlBalance = u"send smsgw-ws/gtcrdtex <?xml v"_s;
  const std::vector<Case> table{
      {JsonSmsProvider,
       {jsonSenders, json(uR"(,"Balance":{"Main":"12"})"_s)},
       begin + QStringList{askJson, u"hide"_s, u"senders A B/C"_s} + balance +
           QStringList{askJsonBalance, u"hide"_s, u"balance Kontör Miktarı: 12"_s, u"hide"_s}},
      {JsonSmsProvider, {json({}, u"401"_s)}, begin + QStringList{askJson, u"hide"_s, u"error 401 - Olmaz"_s, u"hide"_s}},
      {JsonSmsProvider, {dead}, begin + QStringList{askJson, onRequest + dead, u"hide"_s}},
      {JsonSmsProvider,
       {jsonSenders, dead},
       begin + QStringList{askJson, u"hide"_s, u"senders A B/C"_s} + balance + QStringList{askJsonBalance, onRequest + dead, u"hide"_s}},
      {FormSmsProvider,
       {u"DONUS|BASLiKLAR|A B;C"_s, u"DONUS|ORJiNLi(0)"_s},
       paused + QStringList{u"send  islem=3"_s, u"hide"_s, u"senders A B/C"_s} + balance +
           QStringList{u"send  islem=2"_s, u"hide"_s, u"balance Kalan Kontör: 0"_s, u"hide"_s}},
      {FormSmsProvider,
       {u"DONUS|BASLiKLAR|"_s},
       paused + QStringList{u"send  islem=3"_s, u"hide"_s, u"error Hata : Kullanıcı ya da parola hatalı."_s, u"hide"_s}},
      {XmlSmsProvider,
       {u"A B\tC"_s, u"$12.0"_s},
       paused + QStringList{askXml, u"hide"_s, u"senders A B/C"_s} + balance +
           QStringList{askXmlBalance, u"hide"_s, u"balance Kontör Miktarı: 12"_s, u"hide"_s}},
      {XmlSmsProvider, {u"23"_s}, paused + QStringList{askXml, u"hide"_s, u"error Hata Kodu: (23) Kullanıcı adı ya da parolanız hatalı."_s, u"hide"_s}},
      {XmlSmsProvider, {u"77"_s}, paused + QStringList{askXml, u"hide"_s, u"hide"_s}},
      {XmlSmsProvider,
       {dead, dead},
       paused + QStringList{askXml, u"hide"_s, noConnection} + balance + QStringList{askXmlBalance, u"hide"_s, noConnection, u"hide"_s}},
  };
  for (const Case& expected : table) {
    Transcript screen(expected.answers);
    SmsSequences::signIn(settings(expected.provider), screen);
    EXPECT_EQ(screen.steps, expected.steps) << screen.steps.join(u'\n').toStdString();
    EXPECT_EQ(screen.noted, QStringList(screen.steps.filter(u"kurulamadı"_s).size(), dead)) << "what the words do not tell";
  }
  Transcript screen({dead});
  EXPECT_THROW(SmsSequences::signIn(settings(FormSmsProvider), screen), ENetworkError);
  EXPECT_EQ(screen.steps.last(), u"hide"_s);
}

TEST(SmsSequences, BulkOpening) {
  const QStringList begin{connecting, u"show"_s, u"loop"_s, u"pause 1000"_s};
  const QString askJson = jsonPath + u"GetSenders {\"Crede"_s;
  const QString askJsonBalance = jsonPath + u"GetBalance {\"Crede"_s;
  const QString collecting = u"banner Lütfen bekleyin, Gönderi bilgileri alınıyor..."_s;
  struct Opening : Case {
    bool isOpen;
  };
  const std::vector<Opening> table{
      {{JsonSmsProvider,
        {jsonSenders, json(uR"(,"Balance":{"Main":0})"_s)},
        {askJson, collecting, u"senders A B/C"_s, asking, u"loop"_s, askJsonBalance, u"hide"_s,
         u"banner Alıcı Sayısı:  / Mevcut Kontör: 0"_s, spent, u"show"_s}},
       true},
      {{JsonSmsProvider, {json({}, u"5"_s)}, {askJson, collecting, u"banner 5 - Olmaz"_s}}, false},
      {{JsonSmsProvider,
        {jsonSenders, json({}, u"5"_s)},
        {askJson, collecting, u"senders A B/C"_s, asking, u"loop"_s, askJsonBalance, u"hide"_s, u"banner 5 - Olmaz"_s}},
       false},
      {{JsonSmsProvider,
        {dead, dead},
        {askJson, u"banner Error on request:\r\ndead"_s, askJsonBalance, u"banner Error on request:\r\ndead"_s, u"show"_s}},
       true},
      {{FormSmsProvider,
        {u"DONUS|BASLiKLAR|A B"_s, u"DONUS|ORJiNLi(7)"_s},
        {u"send  islem=3"_s, u"senders A B"_s, asking, u"loop"_s, u"pause 1000"_s, u"send  islem=2"_s, u"banner Kalan Kontör: 7"_s,
         u"loop"_s}},
       true},
      {{FormSmsProvider,
        {u"DONUS|BASLiKLAR|"_s},
        {u"send  islem=3"_s, u"error Hata : Kullanıcı ya da parola hatalı."_s}},
       false},
      {{XmlSmsProvider,
        {u"A B\tC"_s, u"$7.0"_s},
        {u"send smsgw-ws/gtorgex <?xml v"_s, u"senders A/B/C"_s, asking, u"loop"_s, u"pause 1000"_s,
         u"send smsgw-ws/gtcrdtex <?xml v"_s, u"banner Kontör Miktarı: 7"_s}},
       true},
      {{XmlSmsProvider, {u"99"_s}, {u"send smsgw-ws/gtorgex <?xml v"_s}}, false},
      {{XmlSmsProvider,
        {dead, u"20"_s},
        {u"send smsgw-ws/gtorgex <?xml v"_s, noConnection, asking, u"loop"_s, u"pause 1000"_s, u"send smsgw-ws/gtcrdtex <?xml v"_s,
         u"error Hata Kodu: (20) Post edilen xml eksik veya hatalı."_s}},
       true},
  };
  for (const Opening& expected : table) {
    Transcript screen(expected.answers);
    BulkMemory memory;
    EXPECT_EQ(SmsSequences::openBulk(settings(expected.provider), memory, screen), expected.isOpen);
    EXPECT_EQ(screen.steps, begin + expected.steps) << screen.steps.join(u'\n').toStdString();
  }
  BulkMemory memory{{}, u"40"_s};
  EXPECT_EQ(SmsSequences::recipientsLeft(settings(JsonSmsProvider), memory, u"1,2"_s), u"Alıcı Sayısı: 2 / Mevcut Kontör: 40"_s);
  EXPECT_FALSE(SmsSequences::recipientsLeft(settings(FormSmsProvider), memory, u"1,2"_s));
}

TEST(SmsSequences, SendingInBulkAndTheNoticeOfASlip) {
  const QString sendJson = jsonPath + u"Submit {\"Crede"_s;
  const QString sendForm = u"send  islem=1"_s;
  const QString sendXml = u"send smsgw-ws/sndblkex <?xml v"_s;
  const QString done = u"confirm"_s;
  const struct {
    int provider;
    QString answer;
    QStringList steps;
    bool closes;  ///< the bulk form
    bool goesOn;  ///< the slip's save
  } table[] = {
      {JsonSmsProvider, json(u",\"MessageId\":9"_s), {sendJson, done}, true, true},
      {JsonSmsProvider, json({}, u"5"_s), {sendJson, u"error 5 - Olmaz"_s}, true, false},
      {JsonSmsProvider, json({}), {sendJson, onRequest + u"Sunucunun yanıtı anlaşılamadı."_s}, true, true},
      {JsonSmsProvider, dead, {sendJson, onRequest + dead}, true, true},
      {FormSmsProvider, u"DONUS|OK"_s, {sendForm, done}, true, true},
      {FormSmsProvider, u"DONUS|HATA"_s, {sendForm, noCredit}, true, true},
      {FormSmsProvider, dead, {sendForm, noSubmit, noCredit}, true, true},
      {XmlSmsProvider, u"$1"_s, {sendXml, done}, true, true},
      {XmlSmsProvider, u"21"_s, {sendXml, u"error SMS Hatası: (21) Kullanılan originatöre sahip değilsiniz."_s}, true, true},
      {XmlSmsProvider, u"77"_s, {sendXml}, true, true},
      {XmlSmsProvider, dead, {sendXml, noSubmit}, false, true},
  };
  for (const auto& expected : table) {
    const bool isJson = expected.provider == JsonSmsProvider;
    const QString noticeDone = u"confirm SMS ile bilgilendirme yapıldı."_s + (isJson ? u" Id: 9"_s : QString());
    const QString bulkDone = isJson ? u"confirm SMS Mesajı servis sağlayıcıya iletilmiştir. Id: 9"_s : u"confirm SMS ile bilgilendirme yapılmıştır."_s;
    QStringList steps = expected.steps;
    Transcript notice({expected.answer});
    EXPECT_EQ(SmsSequences::notifyCustomer(settings(expected.provider), u"<CİHAZ ADI>"_s, SmsText::markers(), {{}, u"ACER"_s}, u"05"_s, notice),
              expected.goesOn);
    EXPECT_EQ(notice.steps, steps.replaceInStrings(done, noticeDone));
    Transcript bulk({expected.answer});
    EXPECT_EQ(SmsSequences::sendBulk(settings(expected.provider), u"1,2"_s, u"m"_s, bulk), expected.closes);
    steps = expected.steps;
    if (isJson) steps.prepend(uR"(recipients "1","2")"_s);
    steps.replaceInStrings(sendXml, sendXml + u" locked"_s);
    EXPECT_EQ(bulk.steps, steps.replaceInStrings(done, bulkDone));
    EXPECT_EQ(bulk.noted, QStringList(bulk.steps.filter(u"kurulamadı"_s).size(), dead));
  }
  Transcript screen({});
  EXPECT_FALSE(SmsSequences::sendBulk(settings(JsonSmsProvider), u" "_s, u"m"_s, screen));
  SmsSettings noTemplate = settings(JsonSmsProvider);
  noTemplate.intakeTemplate.clear();
  EXPECT_FALSE(SmsSequences::sendBulk(noTemplate, u"1"_s, u"m"_s, screen));
  EXPECT_TRUE(SmsSequences::bulkMayOpen(noTemplate, screen));
  noTemplate.sender.clear();
  EXPECT_FALSE(SmsSequences::bulkMayOpen(noTemplate, screen));
  EXPECT_TRUE(SmsSequences::notifyCustomer(settings(JsonSmsProvider), {}, {}, {}, u"05"_s, screen));
  EXPECT_EQ(screen.steps, (QStringList{u"error SMS gönderebilmek için alıcı telefonlarını yazmalısınız."_s, missing, missing, missing}));
}
