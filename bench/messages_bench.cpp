// kvtk-bench-messages: gateways and calls, on the server in KVTK_COMPUTER_NAME. Times are the fastest of the rounds.
//   sms_exchange_overhead_ms   one submit to a gateway of the simulator in this process, through the waiting runner, less the time
//                              that a bare client of the same library takes for the same bytes
//   sms_exchange_ms            that submit as a whole, for each gateway: json, form, xml with its TLS handshake
//   datagram_to_balloon_ms     from a call's datagram to the painted notice
//   call_list_rows_100k_ms     all of 100,000 calls with 20,000 customers, from the statement to the rows at the client
//   call_list_rows_today_ms    those of one day

#include "app/call_listener.h"
#include "app/look.h"
#include "base/data/my_query.h"
#include "bench/measuring.h"
#include "comm/call_store.h"
#include "comm/http_client.h"
#include "comm/sms_gateways.h"
#include "simulator/simulator.h"
#include "simulator/telephone_monitor.h"
#include "toolkit/shell/passing_notice.h"
#include "toolkit/shell/waiting_run.h"

#include <QApplication>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QWidget>

#include <curl/curl.h>

#include <algorithm>

using namespace Qt::StringLiterals;
using Measuring::best;
using Measuring::figure;

namespace {

constexpr int rounds = 30;

size_t drop(char*, size_t size, size_t count, void*) { return size * count; }

/// The same request by the library alone.
void bareExchange(CURL* handle, const HttpRequest& request) {
  curl_slist* headers = nullptr;
  for (const auto& [name, value] : request.headers) headers = curl_slist_append(headers, (name + ": " + value).constData());
  curl_easy_setopt(handle, CURLOPT_URL, request.address.toUtf8().constData());
  curl_easy_setopt(handle, CURLOPT_PROXY, "");
  curl_easy_setopt(handle, CURLOPT_HTTPHEADER, headers);
  curl_easy_setopt(handle, CURLOPT_COPYPOSTFIELDS, request.body.constData());
  curl_easy_setopt(handle, CURLOPT_WRITEFUNCTION, drop);
  if (curl_easy_perform(handle) != CURLE_OK) qFatal("the gateway does not answer");
  curl_slist_free_all(headers);
}

void measureExchanges() {
  Simulator simulator;
  simulator.setCredit(1'000'000);
  QTemporaryDir folder;
  ServiceAddresses addresses{simulator.hostOf(Service::Json), simulator.hostOf(Service::Form), simulator.hostOf(Service::Xml), {},
                             folder.filePath(u"own.pem"_s)};
  QFile certificate(addresses.certificateFile);
  if (!certificate.open(QIODevice::WriteOnly) || certificate.write(simulator.certificate()) <= 0) qFatal("no certificate");
  certificate.close();
  const SmsAccount account{u"deneme"_s, u"1234"_s};
  const SmsMessage message{u"TORVANE"_s, u"05001112233"_s, u"Cihaziniz hazir."_s};
  const SmsMessage quoted{message.sender, u"\"05001112233\""_s, message.text};
  HttpClient client;
  const auto submit = [&](auto make, auto read) {
    if (!read(resultWhileWaiting([&] { return client.exchange(make()); })).accepted) qFatal("refused");
  };
  const auto json = [&] { submit([&] { return JsonSms::submitRequest(addresses, account, quoted); }, JsonSms::readReceipt); };
  CURL* bare = curl_easy_init();
  const HttpRequest request = JsonSms::submitRequest(addresses, account, quoted);
  double ours = 1e9, theirs = 1e9;
  for (int round = 0; round < rounds; ++round) {  // by turns
    theirs = std::min(theirs, Measuring::milliseconds([&] { bareExchange(bare, request); }));
    ours = std::min(ours, Measuring::milliseconds(json));
  }
  curl_easy_cleanup(bare);
  figure(u"sms_exchange_overhead_ms"_s, ours - theirs, "ms");
  figure(u"sms_exchange_json_ms"_s, ours, "ms");
  figure(u"sms_exchange_form_ms"_s,
         best([&] { submit([&] { return FormSms::submitRequest(addresses, account, message); }, FormSms::readReceipt); }, rounds), "ms");
  figure(u"sms_exchange_xml_ms"_s,
         best([&] { submit([&] { return XmlSms::submitRequest(addresses, account, message, true); }, XmlSms::readReceipt); }, rounds), "ms");
}

void measureDatagram() {
  QWidget window;
  window.show();
  PassingNotice notice(&window, nullptr);
  constexpr quint16 port = 18904;
  CallListener listener([&notice](const CallerText::Notice& call) { notice.show(call.title, call.body, 10000); }, nullptr);
  listener.start(port);
  double fastest = 1e9;
  for (int round = 0; round < rounds; ++round) {
    fastest = std::min(fastest, Measuring::milliseconds([&] {
                         TelephoneMonitor::announce(u"01.02.2026|10:15|1|%1|7|MÜŞTERİ|"_s.arg(2120000000 + round).toUtf8(), port);
                         if (!QTest::qWaitFor([&] { return notice.isUp(); }, 5000)) qFatal("no notice");
                         QCoreApplication::processEvents();
                       }));
    QTest::mouseClick(notice.panel(), Qt::LeftButton);
    QTest::qWait(150);  // the listener's rest
  }
  figure(u"datagram_to_balloon_ms"_s, fastest, "ms");
}

void measureCallList() {
  TMyConnection connection;
  Measuring::open(connection);
  for (const char* statement :
       {"DELETE FROM callerid", "DELETE FROM teknikservis", "DELETE FROM caricihaz", "DELETE FROM sozlesme", "DELETE FROM cari",
        "INSERT INTO cari (CA_NO, CA_AD, CA_CEP, CA_TEL, CA_TEL2) SELECT CONCAT('C', seq), CONCAT('M ', MD5(seq)), CONCAT('0532', "
        "LPAD(seq, 7, '0')), CONCAT('0212', LPAD(seq, 7, '0')), CONCAT('0216', LPAD(seq, 7, '0')) FROM seq_1_to_20000",
        "INSERT INTO callerid (cid_tarih, cid_saat, cid_hat, cid_telefon) SELECT DATE('2026-01-01') + INTERVAL MOD(seq, 330) DAY, "
        "SEC_TO_TIME(28800 + MOD(CRC32(seq), 36000)), 1, CONCAT(ELT(1 + MOD(seq, 4), '0532', '0212', '0216', '0999'), "
        "LPAD(1 + MOD(seq * 7, 20000), 7, '0')) FROM seq_1_to_100000"})
    connection.execute(statement);
  TMyQuery calls(connection, u"qCaller"_s);
  const auto open = [&calls](std::optional<QDate> day) {
    CallStore::setListStatement(calls, day);
    calls.Open();
  };
  figure(u"call_list_rows_100k_ms"_s, best([&] { open(std::nullopt); }), "ms");
  figure(u"call_list_rows_today_ms"_s, best([&] { open(QDate(2026, 3, 3)); }), "ms");
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  applyLook(application, wantedColors());
  measureExchanges();
  measureDatagram();
  measureCallList();
  return 0;
}
