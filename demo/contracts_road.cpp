#include "demo/contracts_road.h"

#include "app/dmUnit.h"
#include "app/kvbankUnit.h"
#include "base/data/my_query.h"
#include "base/date_text.h"
#include "base/environment.h"
#include "contracts/contract_list.h"
#include "demo/screen_hands.h"
#include "reminders/reminder_window.h"
#include "toolkit/edits/lookup_edit.h"

#include <QApplication>
#include <QTabWidget>

using namespace Qt::StringLiterals;

namespace {

bool workspaceIsInFront() { return QApplication::activeModalWidget() == nullptr && QApplication::activeWindow() == fKvb; }

QString daysFromNow(int days) { return DateText::date(environment().today().addDays(days)); }

void type(ScreenHands& hands, const QString& box, const QString& text) {
  hands.click(box);
  hands.press({u"ctrl+a"_s});
  hands.type(text);
  hands.press({u"Return"_s});
}

/// What other workstations have written.
void addWhatIsDue(ScreenHands& hands) {
  hands.ask<bool>([] {
    for (const QString& statement :
         {u"insert into teknikservis (TS_NO, TS_TARIH, TS_TURU, TS_MUSTERI, TS_C_AD, TS_C_SERINO, TS_HATIRLATMA_TARIH, TS_HATIRLATMA_SAAT, "
          u"TS_HATIRLATMA_NOTU) values ('310', CURDATE() - interval 9 day, 'PARÇA BEKLİYOR', 'HASAN YILMAZ', 'LAZER YAZICI', 'SN20417', "
          u"CURDATE(), '10:30', 'PARÇA GELDİ Mİ, SOR'), ('311', CURDATE() - interval 3 day, 'TESLİM EDİLDİ', 'IŞIL KAYA', 'TABLET', "
          u"'SN20418', CURDATE(), '15:00', 'MÜŞTERİYİ ARA')"_s,
          u"insert into teknikservis (TS_NO, TS_TARIH, TS_SAAT, TS_TURU, TS_MUSTERI, TS_C_AD, TS_C_SERINO, TS_DISSERVIS, TS_DISSERVIS_CIKIS, "
          u"TS_DISSERVIS_TESLIM_SURE) values ('312', CURDATE() - interval 20 day, '09:40', 'DIŞ SERVİSTE', 'HASAN YILMAZ', 'YAZARKASA', "
          u"'SN20419', 'GÜNEŞ ELEKTRONİK', CURDATE() - interval 19 day, 14)"_s}) {
      TMyQuery query(DM->MySQL, u"qDemo"_s);
      query.SQL.setText(statement);
      query.Execute();
    }
    return true;
  });
}

}  // namespace

void ContractsRoad::meetReminders(ScreenHands& hands) {
  hands.waitFor(u"reminder window"_s, [] { return QApplication::activeWindow() == fHatirlaForm; });
  hands.picture(u"acilis-hatirlatmalari"_s);
  hands.press({u"alt+F4"_s});
  hands.waitFor(u"reminder window closed"_s, [] { return !fHatirlaForm->isVisible() && workspaceIsInFront(); });
}

void ContractsRoad::addContract(ScreenHands& hands) {
  hands.click(u"contracts"_s);
  hands.waitFor(u"contracts"_s, [] { return isInFront(u"Bakım Sözleşme Takip"_s); });
  hands.click(u"aEkle"_s);
  hands.waitFor(u"contract"_s, [] { return isInFront(u"Bakım Sözleşmesi"_s); });
  hands.press({u"F2"_s});
  hands.pause(400);
  hands.picture(u"sozlesme-uyarisi"_s);
  type(hands, u"SOZ_AD"_s, u"klima bakım sözleşmesi"_s);
  type(hands, u"TS_MUSTERI"_s, u"çiğdem öztürk"_s);  // takes the entry
  hands.waitFor(u"customer taken"_s, [] {
    const auto* customer = static_cast<LookupEdit*>(fSozlesmeEkle->box(u"TS_MUSTERI"_s));
    return !customer->isDropDownOpen() && customer->text() == u"ÇİĞDEM ÖZTÜRK"_s;
  });
  hands.press({u"Return"_s});
  for (const int days : {-30, 335}) {
    hands.type(daysFromNow(days));
    hands.press({u"Return"_s});
  }
  type(hands, u"TUTAR"_s, u"2400"_s);
  type(hands, u"MESAFE"_s, u"18"_s);
  type(hands, u"HAT_TAR"_s, daysFromNow(0));
  type(hands, u"HAT_SAAT"_s, u"0930"_s);
  type(hands, u"MESAJ"_s, u"filtre değişimi"_s);
  hands.press({u"Down"_s});  // from "Birkez" to "Aylık"
  hands.picture(u"sozlesme-karti"_s);
  hands.press({u"F2"_s});
  hands.waitFor(u"contract saved"_s, [] {
    return isInFront(u"Bakım Sözleşme Takip"_s) && fSozlesme->qSozlesme.RecordCount() == 1 && fSozlesme->qSozlesme.state() == QueryState::Browse;
  });
  hands.picture(u"sozlesme-listesi"_s);
  hands.press({u"Escape"_s});
  hands.waitFor(u"contracts closed"_s, workspaceIsInFront);
}

void ContractsRoad::lookAtReminders(ScreenHands& hands) {
  addWhatIsDue(hands);
  hands.click(u"reminders"_s);
  hands.waitFor(u"reminders of today"_s, [] { return QApplication::activeWindow() == fHatirlaForm && fHatirlaForm->qServis.RecordCount() >= 2; });
  hands.picture(u"hatirlatma-fisler"_s);
  hands.press({u"ctrl+Next"_s});
  hands.waitFor(u"due contracts"_s, [] { return fHatirlaForm->RzPageControl1->currentIndex() == 1 && fHatirlaForm->qBakim.RecordCount() == 1; });
  hands.picture(u"hatirlatma-sozlesmeler"_s);
  hands.press({u"ctrl+Next"_s});
  hands.waitFor(u"overdue jobs"_s, [] { return fHatirlaForm->RzPageControl1->currentIndex() == 2 && fHatirlaForm->qServis.RecordCount() >= 1; });
  hands.picture(u"hatirlatma-dis-servis"_s);
  hands.press({u"alt+F4"_s});
  hands.waitFor(u"reminder window closed"_s, [] { return !fHatirlaForm->isVisible() && workspaceIsInFront(); });
}
