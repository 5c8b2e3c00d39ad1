// kvtk-bench-messages: gateways and calls, on the server in KVTK_COMPUTER_NAME. Times are the fastest of the rounds.
//   sms_exchange_overhead_ms   one submit to a gateway of the simulator in this process, through the waiting runner, less the time
//                              that a bare client of the same library takes for the same bytes
//   sms_exchange_ms            that submit as a whole, for each gateway: json, form, xml with its TLS handshake
//   datagram_to_balloon_ms     from a call's datagram to the painted notice
//   save_ms, save_with_sms_ms  the save of a slip whose customer is not told, and is told by SMS at once; save_sms_overhead_ms is the
//                              difference less the bare client's time
//   call_list_open_ms          from the command to the painted calls of today, with 100,000 calls and 20,000 customers
//   call_list_all_ms           from the filter's end to the painted list of all of them

#include "app/application.h"
#include "app/call_listener.h"
#include "app/dmUnit.h"
#include "app/kvbankUnit.h"
#include "app/look.h"
#include "app/parameters.h"
#include "app/ports.h"
#include "app/quendUtils.h"
#include "app/Unit14.h"
#include "base/platform/time_zone.h"
#include "bench/measuring.h"
#include "bench/paint_watch.h"
#include "comm/fGelenAramalarUnit.h"
#include "comm/http_client.h"
#include "comm/smsUnit.h"
#include "comm/sms_gateways.h"
#include "reminders/fhatirlat_unit.h"
#include "service/ffoto_unit.h"
#include "service/fservisfis_unit.h"
#include "simulator/practice.h"
#include "simulator/simulator.h"
#include "simulator/telephone_monitor.h"
#include "toolkit/edits/edit_box.h"
#include "toolkit/edits/text_edit.h"
#include "toolkit/grid/table_content.h"
#include "toolkit/shell/passing_notice.h"
#include "toolkit/shell/waiting_run.h"

#include <QAction>
#include <QApplication>
#include <QDir>
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

/// Milliseconds that a bare client needs for one submit.
double measureExchanges() {
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
  return theirs;
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

/// One slip of a customer who is told at intake; saved with and without the message, by turns.
void measureSave(const Simulator& simulator, double gateway) {
  for (const char* statement :
       {"DELETE FROM teknikservis", "INSERT INTO teknikservis (TS_ID, TS_NO, TS_MUSTERI, TS_CEP, TS_C_AD, TS_C_SERINO, TS_TURU) VALUES "
                                    "(1, '100', 'AYSE', '05001112233', 'CIHAZ', 'SERI', 'ARIZA KABUL')"})
    DM->MySQL.execute(statement);
  const QString switches = QuendUtil->programFolder + u"Parametreler.dat"_s;
  ports().openSlip(1);
  QCoreApplication::processEvents();
  const auto save = [] { fServisFis->aKaydet->trigger(); };
  double silent = 1e9, told = 1e9;
  for (int round = 0; round < rounds; ++round)
    for (const bool tells : {false, true}) {
      auto items = ParameterFiles::defaultSwitches();
      if (tells) items[ParameterFiles::NotifyBySms].state = ParameterFiles::CheckState::Checked;
      ParameterFiles::save(switches, ParameterFiles::writeCheckList(items));
      fParametreler->Load();
      fServisFis->findChild<EditBox*>(u"TS_ACIKLAMA"_s)->setText(QString::number(round));
      double& fastest = tells ? told : silent;
      fastest = std::min(fastest, Measuring::milliseconds(save));
      QCoreApplication::processEvents();
    }
  if (simulator.requests().size() < rounds) qFatal("not every save told the customer");
  fServisFis->parentWidget()->close();
  figure(u"save_ms"_s, silent, "ms");
  figure(u"save_with_sms_ms"_s, told, "ms");
  figure(u"save_sms_overhead_ms"_s, told - silent - gateway, "ms");
}

void makeCalls() {
  for (const char* statement :
       {"DELETE FROM callerid", "DELETE FROM teknikservis", "DELETE FROM caricihaz", "DELETE FROM sozlesme", "DELETE FROM cari",
        "INSERT INTO cari (CA_NO, CA_AD, CA_CEP, CA_TEL, CA_TEL2) SELECT CONCAT('C', seq), CONCAT('M ', MD5(seq)), CONCAT('0532', "
        "LPAD(seq, 7, '0')), CONCAT('0212', LPAD(seq, 7, '0')), CONCAT('0216', LPAD(seq, 7, '0')) FROM seq_1_to_20000",
        "INSERT INTO callerid (cid_tarih, cid_saat, cid_hat, cid_telefon) SELECT CURDATE() - INTERVAL MOD(seq, 330) DAY, "
        "SEC_TO_TIME(28800 + MOD(CRC32(seq), 36000)), 1, CONCAT(ELT(1 + MOD(seq, 4), '0532', '0212', '0216', '0999'), "
        "LPAD(1 + MOD(seq * 7, 20000), 7, '0')) FROM seq_1_to_100000",
        "ANALYZE TABLE cari, callerid"})
    DM->MySQL.execute(statement);
}

void measureCallList() {
  makeCalls();
  TfGelenAramalar calls(fKvb);
  PaintWatch watch(*calls.grid());
  double opened = 1e9, all = 1e9;
  constexpr int openings = 7;
  for (int round = 0; round < openings; ++round) {
    opened = std::min(opened, watch.painted([&] { calls.Giris(); }));
    if (calls.grid()->content(false)->rowCount() < 100) qFatal("not the calls of today");
    all = std::min(all, watch.painted([&] { calls.grid()->clearFilter(); }));
    if (calls.grid()->content(false)->rowCount() != 100'000) qFatal("not all calls");
    calls.close();
  }
  figure(u"call_list_open_ms"_s, opened, "ms");
  figure(u"call_list_all_ms"_s, all, "ms");
}

}  // namespace

int main(int argc, char** argv) {
  nameTimeZone();
  QApplication application(argc, argv);
  applyLook(application, wantedColors());
  const QTemporaryDir folder;  // settings and places go there
  QDir::setCurrent(folder.path());
  fillPorts();
  TfKvb workspace;
  QuendUtil->programFolder = folder.path() + u'/';
  TDM dataModule;
  TfParametreler parameters;
  TfHatirlat reminder;
  TfFoto photo;
  TLogin_Form login;
  login.Kullanici->setText(u"QUEND"_s);
  Measuring::open(DM->MySQL);
  workspace.show();
  workspace.Timer1->stop();
  const double gateway = measureExchanges();
  Simulator simulator;
  simulator.setCredit(1'000'000);
  Practice::prepare(simulator, QuendUtil->programFolder);
  TfSMS settings;
  settings.LoadParams();
  measureSave(simulator, gateway);
  measureDatagram();
  measureCallList();
  return 0;
}
