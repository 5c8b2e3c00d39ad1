// What the slip editor asks, tells and leaves to others: its two dialogs, the parameters, the places of other subsystems.
#include "base/date_text.h"
#include "app/editors/qcx_editors.h"
#include "base/environment.h"
#include "service/fdisservis_unit.h"
#include "service/slip_windows.h"
#include "service/slip_hooks.h"
#include "tests/service/slip_form_fixture.h"
#include "toolkit/edits/combo_edit.h"
#include "toolkit/edits/date_edit.h"
#include "toolkit/edits/lookup_edit.h"
#include "toolkit/edits/time_edit.h"

namespace {

/// Runs what opens a modal dialog, and work once the dialog is there; a dialog that work leaves open is closed.
template <class Dialog>
void inDialog(const std::function<void()>& open, const std::function<void(Dialog&)>& work) {
  bool wasThere = false;
  QTimer::singleShot(0, qApp, [&] {
    auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
    ASSERT_NE(dialog, nullptr);
    ASSERT_TRUE(QTest::qWaitFor([&] { return QApplication::focusWidget() != nullptr && dialog->isAncestorOf(QApplication::focusWidget()); }));
    work(*dialog);
    wasThere = true;
    if (dialog->isVisible()) dialog->close();
  });
  open();
  EXPECT_TRUE(wasThere);
}

}  // namespace

class SlipDialogsTest : public SlipFormTest {
 protected:
  void TearDown() override {
    slipHooks() = {};
    SlipFormTest::TearDown();
  }
  ComboEdit* status(TfServisFis* slip) { return slip->findChild<ComboEdit*>(u"TS_TURU"_s); }
  void outsideService(TfServisFis* slip, const std::function<void(TfDisServis&)>& work) {
    inDialog<TfDisServis>([&] { status(slip)->pressButton(2); }, work);
  }
  QString firms() { return rows(u"select DS_AD, DS_TEL from disservis order by DS_ID"_s); }
  QString storedBlock() {
    return rows(u"select TS_TURU, TS_DISSERVIS, TS_DISSERVIS_CIKIS, TS_DISSERVIS_GIRIS, TS_DISSERVIS_BILGI, TS_DISSERVIS_TESLIM_SURE "
                u"from teknikservis"_s);
  }
  const QString today = DateText::date(environment().today());
};

TEST_F(SlipDialogsTest, ReminderStandsInOneDialogForAllSlips) {
  TfServisFis* older = filledSlip(u"100"_s);
  inDialog<TfHatirlat>([&] { older->aHatirlat->trigger(); }, [&](TfHatirlat&) {
    EXPECT_EQ(QApplication::focusWidget(), reminder.TS_HATIRLATMA_TARIH->line());
    EXPECT_EQ(reminder.pos(), QPoint(older->width() / 2 - reminder.width() / 2, older->height() / 2));
    press(Qt::Key_Space);
    EXPECT_EQ(reminder.TS_HATIRLATMA_TARIH->line()->selectedText(), today);
    press(Qt::Key_Return);
    press(Qt::Key_Up);
    EXPECT_EQ(reminder.TS_HATIRLATMA_SAAT->text(), u"01:00"_s);
    reminder.TS_HATIRLATMA_SAAT->line()->end(false);
    press(Qt::Key_Down);
    EXPECT_EQ(reminder.TS_HATIRLATMA_SAAT->text(), u"00:59"_s) << "minutes behind the colon";
    reminder.TS_HATIRLATMA_SAAT->line()->selectAll();
    type(u"0930"_s);
    reminder.TS_HATIRLATMA_NOTU->setFocus();
    type(u"ılık iş"_s + QString(255, u'x'));
    EXPECT_EQ(reminder.TS_HATIRLATMA_NOTU->text(), u"ILIK İŞ"_s + QString(248, u'X'));
    reminder.TS_HATIRLATMA_NOTU->setText(u"ARA"_s);
  });
  const QString reminders = u"select TS_NO, TS_HATIRLATMA_TARIH, TS_HATIRLATMA_SAAT, TS_HATIRLATMA_NOTU from teknikservis order by 1"_s;
  int listRefreshed = 0;
  slipHooks().refreshReminderList = [&] { ++listRefreshed; };
  save(older);
  EXPECT_EQ(rows(reminders), u"100|%1|09:30:00|ARA"_s.arg(today));
  EXPECT_EQ(listRefreshed, 1);

  // Typed without points and closed at once.
  inDialog<TfHatirlat>([&] { older->aHatirlat->trigger(); }, [&](TfHatirlat&) {
    reminder.TS_HATIRLATMA_TARIH->line()->selectAll();
    type(QString(today).remove(u'.'));
  });
  EXPECT_EQ(reminder.TS_HATIRLATMA_TARIH->text(), today);
  save(older);
  EXPECT_EQ(listRefreshed, 2);
  reminder.TS_HATIRLATMA_TARIH->setText(QString(today).remove(u'.'));
  save(older);
  EXPECT_EQ(listRefreshed, 3) << "a date counts, however it is written";

  // The boxes are the newest slip's, and the older one saves them as its own.
  save(filledSlip(u"101"_s));
  EXPECT_EQ(rows(reminders), u"100|%1|09:30:00|ARA;101|~|~|~"_s.arg(today));
  save(older);
  EXPECT_EQ(rows(reminders), u"100|~|~|~;101|~|~|~"_s);
  EXPECT_EQ(listRefreshed, 3);

  run(u"UPDATE teknikservis SET TS_HATIRLATMA_TARIH = '2020-02-29', TS_HATIRLATMA_NOTU = 'ESKİ' WHERE TS_NO = '101'");
  QCoreApplication::processEvents();
  openSlip(savedId(u"101"_s));
  EXPECT_EQ(reminder.TS_HATIRLATMA_TARIH->text() + reminder.TS_HATIRLATMA_SAAT->text() + reminder.TS_HATIRLATMA_NOTU->text(),
            u"29.02.2020ESKİ"_s);
  newSlip();
  EXPECT_TRUE(reminder.TS_HATIRLATMA_TARIH->text().isEmpty() && reminder.TS_HATIRLATMA_NOTU->text().isEmpty());

  // What cannot be stored is refused before anything is written, though the box is not on the screen.
  TfServisFis* slip = filledSlip(u"102"_s);
  reminder.TS_HATIRLATMA_NOTU->setText(u"☎"_s);
  EXPECT_EQ(saying(slip), u"\"HATIRLATMA NOTU\" alanındaki \"☎\" (U+260E) karakteri kaydedilemez."_s);
  reminder.TS_HATIRLATMA_NOTU->setText({});
  reminder.TS_HATIRLATMA_TARIH->setText(u"31.02.2026"_s);
  EXPECT_NE(saying(slip), QString());
  EXPECT_EQ(slip->EditorMode, TfServisFis::Mode::Insert);
}

TEST_F(SlipDialogsTest, FirstFirmBecomesACardAndIsRenamedByTyping) {
  TfServisFis* slip = filledSlip(u"100"_s);
  outsideService(slip, [&](TfDisServis& dialog) {
    EXPECT_EQ(dialog.pos(), status(slip)->mapToGlobal(QPoint(0, status(slip)->height() + 7)));
    EXPECT_EQ(dialog.TS_DISSERVIS_CIKIS->text(), today);
    type(u"yıldız servis"_s);
    for (const QString& text : {QString(), QString(), u"5.3.2026"_s, u"kart değişecek"_s, u"1a5"_s}) {
      type(text);
      press(Qt::Key_Return);
    }
    press(Qt::Key_F2);
  });
  EXPECT_EQ(firms(), u"YILDIZ SERVİS|~"_s);
  EXPECT_EQ(status(slip)->text(), u"DIŞ SERVİSTE"_s);
  const QString hint = u"Dış Servis: YILDIZ SERVİS\nÇık. Tarih: %1\nGir. Tarih: 05.03.2026\nAçıklama: KART DEĞİŞECEK\nTeslim Süre: 15"_s.arg(today);
  EXPECT_EQ(status(slip)->toolTip(), hint);
  save(slip);
  EXPECT_EQ(storedBlock(), u"DIŞ SERVİSTE|YILDIZ SERVİS|%1|05.03.2026|KART DEĞİŞECEK|15"_s.arg(today));
  slip = openSlip(savedId(u"100"_s));
  EXPECT_EQ(status(slip)->toolTip(), hint + u"Gün"_s);

  run(u"INSERT INTO disservis (DS_AD, DS_TEL) VALUES ('AY SERVİS', '1')");
  outsideService(slip, [&](TfDisServis& dialog) {
    EXPECT_EQ(dialog.TS_DISSERVIS_TESLIM_SURE->text(), u"15"_s);
    dialog.TS_DISSERVIS->line()->selectAll();
    type(u"güneş servis"_s);
    press(Qt::Key_F2);
  });
  EXPECT_EQ(firms(), u"GÜNEŞ SERVİS|~;AY SERVİS|1"_s);

  // Another firm is chosen from the list: nothing is renamed.
  outsideService(slip, [&](TfDisServis& dialog) {
    dialog.TS_DISSERVIS->line()->selectAll();
    type(u"ay"_s);
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_EQ(dialog.TS_DISSERVIS->text(), u"AY SERVİS"_s);
    press(Qt::Key_F2);
  });
  EXPECT_EQ(firms(), u"GÜNEŞ SERVİS|~;AY SERVİS|1"_s);
  EXPECT_EQ(slip->outsideService().firm, u"AY SERVİS"_s);
}

TEST_F(SlipDialogsTest, FirmIsTakenOffTheSlip) {
  run(u"INSERT INTO disservis (DS_AD) VALUES ('AY SERVİS')");
  run(u"INSERT INTO teknikservis (TS_NO, TS_MUSTERI, TS_C_AD, TS_C_SERINO, TS_TURU, TS_DISSERVIS, TS_DISSERVIS_CIKIS, "
      u"TS_DISSERVIS_TESLIM_SURE) VALUES ('100', 'A', 'B', 'SN1', 'ONARILIYOR', 'AY SERVİS', '2026-03-05', 7)");
  TfServisFis* slip = openSlip(savedId(u"100"_s));
  outsideService(slip, [&](TfDisServis& dialog) {
    dialog.TS_DISSERVIS->line()->selectAll();
    press(Qt::Key_Delete);
    press(Qt::Key_F3);
    EXPECT_EQ(dialog.result(), TfDisServis::GivenUp);
  });
  EXPECT_EQ(slip->outsideService().firm, u"AY SERVİS"_s);
  outsideService(slip, [&](TfDisServis& dialog) {
    dialog.TS_DISSERVIS_GIRIS->setText(u"31.02.2026"_s);
    press(Qt::Key_F2);
    EXPECT_TRUE(dialog.isVisible()) << "a date that is none stops the dialog";
    dialog.TS_DISSERVIS_GIRIS->setText({});
    dialog.TS_DISSERVIS->setText({});
    press(Qt::Key_F2);
    EXPECT_EQ(dialog.result(), TfDisServis::Confirmed);
  });
  EXPECT_EQ(status(slip)->text(), u"ONARILIYOR"_s);
  EXPECT_EQ(status(slip)->toolTip(), QString());
  EXPECT_EQ(firms(), u"AY SERVİS|~"_s);
  save(slip);
  EXPECT_EQ(storedBlock(), u"ONARILIYOR|~|~|~|~|0"_s);

  // A firm that cannot be written is told to nobody, and the slip keeps its name.
  run(u"CREATE TRIGGER disservis_deneme BEFORE INSERT ON disservis FOR EACH ROW SIGNAL SQLSTATE '45000' SET MESSAGE_TEXT='dolu'");
  QCoreApplication::processEvents();
  outsideService(slip, [&](TfDisServis&) {
    type(u"yeni"_s);
    press(Qt::Key_F2);
  });
  run(u"DROP TRIGGER disservis_deneme");
  EXPECT_EQ(slip->outsideService().firm, u"YENİ"_s);
  EXPECT_TRUE(dialogs.texts.isEmpty());
}

TEST_F(SlipDialogsTest, PassiveStatusesLeaveTheSlip) {
  makePassive(u"SERVİSE ALINDI"_s);
  makePassive(u"TESLİM EDİLDİ"_s);
  TfServisFis* slip = filledSlip(u"100"_s);
  EXPECT_EQ(status(slip)->itemCount(), 14);
  outsideService(slip, [&](TfDisServis&) {
    type(u"ay"_s);
    press(Qt::Key_F2);
  });
  EXPECT_EQ(status(slip)->text(), u"FABRİKA İADESİ BEKLENİYOR"_s) << "the place counts, not the text";
  status(slip)->line()->setFocus();
  press(Qt::Key_End);
  EXPECT_EQ(status(slip)->text(), u"FATURALANDI"_s);
  EXPECT_EQ(text(slip, u"TS_TESLIM_TARIH"_s), today);
  save(slip);

  makePassive(u"FATURALANDI"_s);
  makePassive(u"DIŞ SERVİSTE"_s);
  slip = openSlip(savedId(u"100"_s));
  EXPECT_EQ(status(slip)->text(), u"FATURALANDI"_s);
  EXPECT_EQ(status(slip)->itemIndex(), -1);
  EXPECT_EQ(status(slip)->items().last(), u"TESLİM EDİLDİ"_s);
  EXPECT_EQ(status(slip)->buttonCount(), 2);
  slip->Edit(savedId(u"100"_s));
  EXPECT_EQ(status(slip)->buttonCount(), 2);
  EXPECT_EQ(status(newSlip())->buttonCount(), 2);
}

TEST_F(SlipDialogsTest, SwitchesAreReadWhenTheyAreNeeded) {
  TfServisFis* slip = filledSlip(u"100"_s);
  switchOn(ParameterFiles::AskAtEachStep);
  switchOn(ParameterFiles::FillSerialNumber);
  switchOn(ParameterFiles::SlipFillsWorkspace);
  dialogs.answer = 2;
  save(slip);
  slip->aVazgec->trigger();
  EXPECT_EQ(dialogs.texts, (QStringList{u"Yaptığınız işlemler kaydedilecek onaylıyor musunuz?"_s, u"Ekran kapatılacak onaylıyor musunuz?"_s}));
  EXPECT_EQ(rows(u"select count(*) from teknikservis"_s), u"0"_s);
  EXPECT_TRUE(workspace.childWindows().contains(slip));

  TfServisFis* next = newSlip();
  EXPECT_EQ(text(next, u"TS_C_SERINO"_s).size(), 12);
  EXPECT_EQ(box(next, u"TS_C_SERINO"_s)->line()->cursorPosition(), 12);
  EXPECT_TRUE(next->parentWidget()->isMaximized());
  dialogs.answer = 100;
  next->aVazgec->trigger();
  EXPECT_FALSE(workspace.childWindows().contains(next));
}

TEST_F(SlipDialogsTest, OtherSubsystemsHaveTheirPlacesInTheSave) {
  QStringList steps;
  bool smsArrives = true;
  const auto stored = [this] { return rows(u"select group_concat(TS_TURU) from teknikservis"_s); };
  slipHooks().sendIntakeSms = [&](SlipScreen&) {
    steps.append(u"intake "_s + stored());
    return smsArrives;
  };
  slipHooks().sendCompletionSms = [&](SlipScreen&) {
    steps.append(u"completion "_s + stored());
    return smsArrives;
  };
  slipHooks().sendCompletionMail = [&](SlipScreen&) { steps.append(u"mail "_s + stored()); };
  ports().openSerialStatistics = [&](const QString& serial) { steps.append(u"statistics "_s + serial); };
  slipHooks().printReceipt = [&](SlipScreen& slip) { steps.append(u"receipt "_s + slip.text(u"TS_NO"_s)); };

  smsArrives = false;
  TfServisFis* slip = filledSlip(u"100"_s);
  save(slip);
  EXPECT_EQ(stored(), u"~"_s);
  smsArrives = true;
  EXPECT_FALSE(slip->MakbuzBask1->isEnabled());
  status(slip)->setText(u"TAMAMLANDI"_s);
  save(slip);
  slip->MakbuzBask1->trigger();
  save(slip);
  for (const QString& serial : {QString(), u"SN1"_s}) {
    box(slip, u"TS_C_SERINO"_s)->setText(serial);
    box(slip, u"TS_C_SERINO"_s)->pressButton(0);
  }
  EXPECT_EQ(steps, (QStringList{u"intake ~"_s, u"completion ~"_s, u"receipt 100"_s, u"completion TAMAMLANDI"_s, u"mail TAMAMLANDI"_s,
                                u"statistics SN1"_s}));
}

TEST_F(SlipDialogsTest, ConflictIsAnsweredWithoutASlip) {
  SlipWindows::answerConflict(u"EDatabaseError"_s, u"Update failed. Found 0 records"_s);
  SlipWindows::answerConflict(u"EDatabaseError"_s, u"Refresh failed. Found 0 records"_s);
  SlipWindows::answerConflict(u"EMyError"_s, u"#23000Duplicate entry '1' for key 'TS_NO'"_s);
  SlipWindows::answerConflict(u"EMyError"_s, u"#HY000Server has gone away"_s);
  ASSERT_EQ(dialogs.texts.size(), 3);
  EXPECT_TRUE(dialogs.texts[0].contains(u"siz  işlem yaparken"_s));
  EXPECT_EQ(dialogs.texts[1], dialogs.texts[0]);
  EXPECT_EQ(dialogs.texts[2], u"\"FİŞ NO\" alanı mükerrer değer kabul etmiyor."_s);
}
