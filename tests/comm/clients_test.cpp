// The clients against the simulator: what goes over the wire and what a badly behaved counterpart comes to.
#include "base/guard.h"
#include "comm/http_client.h"
#include "comm/mail_sequences.h"
#include "comm/sms_gateways.h"
#include "comm/smtp_client.h"
#include "simulator/practice.h"
#include "simulator/simulator.h"
#include "simulator/telephone_monitor.h"
#include "tests/support/screen_test.h"
#include "toolkit/shell/waiting_run.h"

namespace {

QByteArray header(const HttpHeard& heard, const QByteArray& name) {
  for (const auto& [key, value] : heard.headers)
    if (key.toLower() == name) return value;
  return "-";
}

class Clients : public testing::Test {
 protected:
  Clients() {
    qputenv("http_proxy", "http://127.0.0.1:1");  // must not be asked
    addresses.certificateFile = folder.filePath(u"own.pem"_s);
    put(addresses.certificateFile, simulator.certificate());
  }

  QString refusal(Mood mood, const QString& code = {}) {
    simulator.behave(Service::Form, {mood, code, 0});
    try {
      (mood == Mood::Silent ? impatient : client).exchange(FormSms::sendersRequest(addresses, account));
      return {};
    } catch (const ENetworkError& error) {
      return error.message();
    }
  }

  QTemporaryDir folder;
  Simulator simulator;
  HttpClient client{20'000};
  HttpClient impatient{500};
  ServiceAddresses addresses{simulator.hostOf(Service::Json), simulator.hostOf(Service::Form), simulator.hostOf(Service::Xml), {}, {}};
  SmsAccount account{u"deneme"_s, u"1234"_s};
};

}  // namespace

TEST_F(Clients, NineExchangesWithTheThreeGateways) {
  const QStringList names{u"TORVANE"_s, u"TEKNIK SERVIS"_s};
  EXPECT_EQ(JsonSms::readSenders(client.exchange(JsonSms::sendersRequest(addresses, account))).names, names);
  EXPECT_EQ(FormSms::readSenders(client.exchange(FormSms::sendersRequest(addresses, account))).names, names);
  EXPECT_EQ(XmlSms::readSenders(client.exchange(XmlSms::sendersRequest(addresses, account)), true).names, names);
  const SmsMessage message{u"TORVANE"_s, u"05001112233,05001112244"_s, u"A & B <ç>"_s};
  SmsMessage quoted = message;
  quoted.recipients = uR"("05001112233","05001112244")"_s;
  EXPECT_EQ(JsonSms::readReceipt(client.exchange(JsonSms::submitRequest(addresses, account, quoted))).messageId, u"1001"_s);
  EXPECT_TRUE(FormSms::readReceipt(client.exchange(FormSms::submitRequest(addresses, account, message))).accepted);
  EXPECT_TRUE(XmlSms::readReceipt(client.exchange(XmlSms::submitRequest(addresses, account, message, true))).accepted);
  EXPECT_EQ(JsonSms::readBalance(client.exchange(JsonSms::balanceRequest(addresses, account))).credit, u"1244"_s);
  EXPECT_EQ(FormSms::readBalance(client.exchange(FormSms::balanceRequest(addresses, account))).credit, u"1244"_s);
  EXPECT_EQ(XmlSms::readBalance(client.exchange(XmlSms::balanceRequest(addresses, account))).credit, u"1244"_s);

  const auto heard = simulator.requests();
  ASSERT_EQ(heard.size(), 9u);
  EXPECT_EQ(header(heard[0].http, "accept"), "text/html, */*");
  EXPECT_EQ(header(heard[0].http, "user-agent"), "Mozilla/3.0 (compatible; Quendrine)");
  EXPECT_EQ(header(heard[0].http, "content-type"), "application/json; charset=utf-8");
  EXPECT_EQ(header(heard[0].http, "cookie"), "-");
  EXPECT_EQ(header(heard[1].http, "cookie"), "oturum=1");
  EXPECT_EQ(header(heard[2].http, "cookie"), "-");
  EXPECT_EQ(header(heard[2].http, "content-type"), "application/soap+xml; charset=utf-8");
  EXPECT_EQ(heard[5].http.body, XmlSms::submitRequest(addresses, account, message, true).body);
}

TEST_F(Clients, WrongAccountIsRefusedInEachProtocol) {
  account.password = u"x"_s;
  EXPECT_FALSE(JsonSms::readSenders(client.exchange(JsonSms::sendersRequest(addresses, account))).accepted);
  EXPECT_FALSE(FormSms::readSenders(client.exchange(FormSms::sendersRequest(addresses, account))).accepted);
  EXPECT_TRUE(XmlSms::readSenders(client.exchange(XmlSms::sendersRequest(addresses, account)), true).words.contains(u"(23)"_s));
}

TEST_F(Clients, BadlyBehavedGatewayIsAnErrorInTime) {
  QElapsedTimer clock;
  clock.start();
  EXPECT_TRUE(refusal(Mood::Silent).startsWith(u"Sunucu süresinde yanıt vermedi"_s));
  EXPECT_LT(clock.elapsed(), 5000);
  EXPECT_TRUE(refusal(Mood::Cut).startsWith(u"Bağlantı yarıda kesildi"_s));
  EXPECT_TRUE(refusal(Mood::Status, u"503"_s).startsWith(u"Sunucu isteği geri çevirdi (HTTP 503)"_s));
  EXPECT_FALSE(refusal(Mood::Status, u"400"_s).isEmpty());
  EXPECT_EQ(refusal(Mood::Status, u"201"_s), QString());
  EXPECT_FALSE(refusal(Mood::Rubbish, u"1"_s).isEmpty());
  EXPECT_EQ(refusal(Mood::Normal), QString());
  const QString host = addresses.form;
  addresses.form = u"127.0.0.1:1"_s;
  EXPECT_TRUE(refusal(Mood::Normal).startsWith(u"Sunucuya bağlanılamadı"_s));
  addresses.form = host;
  // Of the third gateway any other status is a failure, and so is a certificate of nobody's.
  simulator.behave(Service::Xml, {Mood::Status, u"201"_s, 0});
  EXPECT_THROW(client.exchange(XmlSms::sendersRequest(addresses, account)), ENetworkError);
  simulator.behave(Service::Xml, {});
  addresses.certificateFile.clear();
  const size_t before = simulator.requests().size();
  EXPECT_THROW(client.exchange(XmlSms::sendersRequest(addresses, account)), ENetworkError);
  EXPECT_EQ(simulator.requests().size(), before);
}

TEST_F(Clients, MailGoesOutOrItsReasonIsLogged) {
  MailSettings settings{u"127.0.0.1"_s, u"deneme"_s, u"1234"_s, simulator.portOf(Service::Mail), 1, u"s@torvane.example"_s, u"Konu ş"_s};
  QStringList log;
  long patience = 20'000;
  const auto send = [&](const QString& recipients) {
    return MailSequences::send(settings, u"Gövde\n.\nson"_s, recipients, QDateTime(QDate(2026, 2, 1), QTime(1, 2)), u"k"_s,
                               [&patience](const MailSettings& to, const MailMessage& message) { SmtpClient::send(to, message, patience); },
                               [&log](const QString& context, const Exception& error) { log += context + u'|' + error.message(); });
  };
  EXPECT_TRUE(send(u"a@b.example;c@d.example"_s)) << log.join(u'\n').toStdString();
  ASSERT_EQ(simulator.mails().size(), 1u);
  const MailHeard mail = simulator.mails()[0];
  EXPECT_TRUE(mail.signedIn);
  EXPECT_EQ(mail.sender, "s@torvane.example");
  EXPECT_EQ(mail.recipients, (QList<QByteArray>{"a@b.example", "c@d.example"}));
  EXPECT_EQ(mail.text, composeMail({settings.owner, u"a@b.example;c@d.example"_s, settings.subject, u"Gövde\n.\nson"_s,
                                    QDateTime(QDate(2026, 2, 1), QTime(1, 2)), u"k"_s}).text);
  settings.authMode = 0;
  EXPECT_TRUE(send(u"a@b.example"_s));
  EXPECT_FALSE(simulator.mails().back().signedIn);
  settings.authMode = 1;
  EXPECT_EQ(log, QStringList());

  const QString inSend = u"SMTP e-posta gönderim hatası"_s;
  const QList<std::pair<QString, QString>> steps{{u"selam"_s, settings.server}, {u"giris"_s, inSend}, {u"alici"_s, inSend}, {u"veri"_s, inSend}};
  for (const auto& [step, context] : steps) {
    simulator.behave(Service::Mail, {Mood::Refuse, step, 0});
    EXPECT_FALSE(send(u"a@b.example"_s)) << step.toStdString();
    EXPECT_EQ(log.takeLast().section(u'|', 0, 0), context) << step.toStdString();
  }
  simulator.behave(Service::Mail, {Mood::Cut, {}, 0});
  EXPECT_FALSE(send(u"a@b.example"_s));
  EXPECT_EQ(log.takeLast().section(u'|', 0, 0), inSend);
  patience = 500;
  for (const Mood mood : {Mood::Rubbish, Mood::Silent}) {
    QElapsedTimer clock;
    clock.start();
    simulator.behave(Service::Mail, {mood, u"7"_s, 0});
    EXPECT_FALSE(send(u"a@b.example"_s));
    EXPECT_EQ(log.takeLast().section(u'|', 0, 0), settings.server);
    EXPECT_LT(clock.elapsed(), 5000);
  }
  EXPECT_FALSE(send(u"a@b.example\r\nRCPT TO:<x@y.example>"_s));
  settings.port = 1;
  EXPECT_FALSE(send(u"a@b.example"_s));
  EXPECT_EQ(log.takeLast().section(u'|', 0, 0), settings.server);
  EXPECT_EQ(simulator.mails().size(), 2u);
  for (const QString& line : log) EXPECT_FALSE(line.contains(u"1234"_s));
}

TEST_F(Clients, WindowPaintsDuringAnExchange) {
  QWidget window;
  EventCounter paintings(QEvent::Paint);
  paintings.watch(&window);
  window.show();
  if (!QTest::qWaitForWindowActive(&window)) ADD_FAILURE();
  simulator.behave(Service::Form, {Mood::Normal, {}, 200});
  const int painted = paintings.count;
  QTimer::singleShot(50, &window, [&window] { window.update(); });
  bool hasRun = false;
  postGuarded(&window, [&hasRun] { hasRun = true; });
  const HttpAnswer answer = resultWhileWaiting([&] { return client.exchange(FormSms::sendersRequest(addresses, account)); });
  EXPECT_EQ(answer.status, 200);
  EXPECT_GT(paintings.count, painted);
  EXPECT_FALSE(hasRun);
  EXPECT_TRUE(QTest::qWaitFor([&] { return hasRun; }, 5000));
  EXPECT_THROW(runWhileWaiting([] { throw ENetworkError(u"x"_s); }), ENetworkError);
}

TEST(Practice, CommandsInWords) {
  const auto command = Practice::commandIn(u" xml  ret 24 "_s);
  ASSERT_TRUE(command);
  EXPECT_EQ(command->service, Service::Xml);
  EXPECT_EQ(command->behaviour.mood, Mood::Refuse);
  EXPECT_EQ(command->behaviour.code, u"24"_s);
  EXPECT_EQ(Practice::commandIn(u"posta yavas 3"_s)->behaviour.delayMs, 3000);
  EXPECT_EQ(Practice::commandIn(u"ara 05321112233"_s)->number, u"05321112233"_s);
  for (const char16_t* odd : {u"", u"xml", u"ara", u"xml durum", u"kontor x", u"yardim"}) EXPECT_FALSE(Practice::commandIn(QString::fromUtf16(odd)));
  EXPECT_EQ(TelephoneMonitor::datagram(QDateTime(QDate(2026, 2, 1), QTime(10, 15)), 1, u"05"_s, u"17"_s, u"Öz"_s),
            u"01.02.2026|10:15|1|05|17|Öz|"_s.toUtf8());
}
