#include "demo/messages_road.h"

#include "app/call_listener.h"
#include "app/dmUnit.h"
#include "app/kvbankUnit.h"
#include "app/parameters.h"
#include "base/data/my_query.h"
#include "comm/fEpostaUnit.h"
#include "comm/fGelenAramalarUnit.h"
#include "comm/smsGonderUnit.h"
#include "comm/smsUnit.h"
#include "demo/screen_hands.h"
#include "service/fservisfis_unit.h"
#include "simulator/simulator.h"
#include "simulator/telephone_monitor.h"
#include "toolkit/edits/combo_edit.h"
#include "toolkit/edits/text_edit.h"
#include "toolkit/shell/passing_notice.h"

#include <QApplication>
#include <QGroupBox>
#include <QLabel>

using namespace Qt::StringLiterals;

namespace {

/// Places in the menu "Ayarlar".
enum Setting { Parameters = 2, Sms, Mail };

bool workspaceIsInFront() { return QApplication::activeModalWidget() == nullptr && QApplication::activeWindow() == fKvb; }

void openSetting(ScreenHands& hands, Setting setting, const QString& title) {
  hands.click(u"dxBarSubItem1"_s);
  hands.waitFor(u"menu of the settings"_s, [] { return QApplication::activePopupWidget() != nullptr; });
  for (int place = 0; place < setting; ++place) hands.press({u"Down"_s});
  hands.press({u"Return"_s});
  hands.waitFor(title, [title] { return isInFront(title); });
}

bool saysInFront(const QString& text) {
  const QWidget* dialog = QApplication::activeModalWidget();
  if (dialog == nullptr) return false;
  const auto labels = dialog->findChildren<QLabel*>();
  return std::any_of(labels.begin(), labels.end(), [&](const QLabel* label) { return label->text().contains(text); });
}

void ring(const QString& number) { TelephoneMonitor::ring(DM->MySQL, 1, number, fKvb->UDPCallerID->port()); }

}  // namespace

void MessagesRoad::signIn(ScreenHands& hands, const Simulator& simulator) {
  openSetting(hands, Sms, u"SMS Ayarları"_s);
  for (const QString& account : {u"deneme"_s, u"1234"_s}) {
    hands.press({u"Home"_s, u"shift+End"_s});
    hands.type(account);
    hands.press({u"Return"_s});
  }
  hands.click(u"SpeedButton1"_s);
  hands.waitFor(u"gateway asked"_s, [&] { return !simulator.requests().empty() && fSMS->uyariPan->isVisible(); });
  hands.picture(u"sms-oturum"_s);
  hands.waitFor(u"balance"_s, [] { return fSMS->mevcutKontor->text().startsWith(u"Kontör Miktarı: "_s) && fSMS->uyariPan->isHidden(); });
  hands.picture(u"sms-ayarlari"_s);
  hands.click(u"btnPost"_s);
  hands.waitFor(u"SMS settings saved"_s, workspaceIsInFront);
}

void MessagesRoad::sendToMany(ScreenHands& hands, const Simulator& simulator) {
  hands.click(u"dxBarSubItem7"_s);
  hands.waitFor(u"menu of the cards"_s, [] { return QApplication::activePopupWidget() != nullptr; });
  hands.press({u"Down"_s, u"Return"_s});
  hands.waitFor(u"customers"_s, [] { return isInFront(u"Müşteri Listesi"_s); });
  hands.press({u"F11"_s});
  hands.waitFor(u"bulk SMS asks the gateway"_s, [] { return isInFront(u"SMS Gönder"_s) && !smsYollaForm->uyariPan->text().isEmpty(); });
  hands.picture(u"toplu-sms-bekleyin"_s);
  hands.waitFor(u"bulk SMS ready"_s, [] { return smsYollaForm->cxGroupBox1->isEnabled(); });
  hands.type(u"Bakim kampanyamiz basladi. Bilgi: 0216 123 45 67"_s);
  hands.picture(u"toplu-sms"_s);
  hands.click(u"btnPost"_s);
  hands.waitFor(u"bulk SMS sent"_s, [] { return saysInFront(u"SMS Mesajı servis sağlayıcıya iletilmiştir. Id: "_s); });
  hands.picture(u"toplu-sms-iletildi"_s);
  if (!simulator.requests().back().http.body.contains("05321234567")) throw StationMissed("the number did not go out");
  hands.press({u"Return"_s});
  hands.waitFor(u"customers in front"_s, [] { return isInFront(u"Müşteri Listesi"_s); });
  hands.press({u"Escape"_s});
  hands.waitFor(u"customers closed"_s, workspaceIsInFront);
}

void MessagesRoad::tryMailAccount(ScreenHands& hands, const Simulator& simulator) {
  openSetting(hands, Mail, u"E-Posta Ayarları"_s);
  const QString server = simulator.hostOf(Service::Mail).section(u':', 0, 0);
  const QString port = QString::number(simulator.portOf(Service::Mail));
  for (const QString& text : {server, u"deneme"_s, u"1234"_s, port, QString(), u"servis@torvane.example"_s, u"cihazınız hazır"_s}) {
    if (!text.isEmpty()) {
      hands.press({u"Home"_s, u"shift+End"_s});
      hands.type(text);
    }
    hands.press({u"Return"_s});
  }
  hands.waitFor(u"mail account typed"_s, [] { return fEPOSTA->eSubject->text() == u"cihazınız hazır"_s && !fEPOSTA->eSMTPPassword->text().isEmpty(); });
  hands.picture(u"eposta-ayarlari"_s);
  hands.click(u"SpeedButton1"_s);
  hands.waitFor(u"address asked for"_s, [] { return isInFront(u"Test E-Posta"_s); });
  hands.type(u"sahip@torvane.example"_s);
  hands.press({u"Return"_s});
  hands.waitFor(u"test mail sent"_s, [&] { return saysInFront(u"E-Posta başarıyla gönderildi."_s) && simulator.mails().size() == 1; });
  hands.picture(u"eposta-denemesi"_s);
  hands.press({u"Return"_s});
  hands.waitFor(u"mail settings in front"_s, [] { return isInFront(u"E-Posta Ayarları"_s); });
  hands.click(u"btnPost"_s);
  hands.waitFor(u"mail settings saved"_s, workspaceIsInFront);
}

void MessagesRoad::tellTheCustomer(ScreenHands& hands, const Simulator& simulator) {
  openSetting(hands, Parameters, u"Parametreler"_s);
  hands.press({u"Home"_s});  // on the heading, where the list may have stood elsewhere
  for (int index = 0; index < ParameterFiles::NotifyBySms; ++index) hands.press({u"Down"_s});
  hands.press({u"space"_s});
  hands.waitFor(u"notices by SMS"_s, [] { return fParametreler->isChecked(ParameterFiles::NotifyBySms); });
  hands.press({u"Return"_s});
  hands.waitFor(u"parameters saved"_s, workspaceIsInFront);

  const size_t before = simulator.requests().size();
  hands.click(u"dxBarLargeButton1"_s);
  for (const auto& [box, text] : {std::pair(u"TS_MUSTERI"_s, u"çiğdem öztürk"_s), {u"TS_C_AD"_s, u"lazer yazıcı"_s}, {u"TS_C_SERINO"_s, u"sn55012"_s}}) {
    hands.click(box);
    hands.type(text);
    hands.press({u"Return"_s});
  }
  hands.waitFor(u"mobile number of the card"_s, [] { return fServisFis != nullptr && fServisFis->text(u"TS_CEP"_s) == u"05321234567"_s; });
  hands.press({u"F2"_s});
  hands.waitFor(u"customer told"_s, [&] { return simulator.requests().size() == before + 1 && fServisFis->EditorMode == TfServisFis::Mode::Edit; });
  hands.picture(u"musteriye-sms"_s);
}

void MessagesRoad::takeCalls(ScreenHands& hands) {
  const auto call = [&hands](const QString& number) {
    hands.ask<bool>([&number] {
      ring(number);
      return true;
    });
    hands.waitFor(u"call of "_s + number, [] { return fKvb->callNotice()->isUp(); });
  };
  call(u"02165550011"_s);
  hands.picture(u"gelen-cagri"_s);
  hands.pause(300);  // the listener's rest
  call(u"05321234567"_s);
  hands.pause(300);
  hands.picture(u"musteri-ariyor"_s);
  hands.click(u"calls"_s);
  hands.waitFor(u"calls of today"_s, [] { return QApplication::activeWindow() == fGelenAramalar && fGelenAramalar->qCaller.RecordCount() == 2; });
  call(u"02321234567"_s);
  hands.waitFor(u"third call in the list"_s, [] { return fGelenAramalar->qCaller.RecordCount() == 3; });
  hands.picture(u"gelen-aramalar"_s);
  hands.press({u"alt+F4"_s});
  hands.waitFor(u"calls closed"_s, [] { return !fGelenAramalar->isVisible() && workspaceIsInFront(); });
}
