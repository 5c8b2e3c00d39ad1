#include "base/data/my_query.h"
#include "base/data/value.h"
#include "service/slip_fields.h"
#include "tests/service/slip_form_fixture.h"
#include "toolkit/shell/wait_panel.h"

namespace {

/// What a user types into every box, by column; the boxes that are left out are passed by.
QHash<QString, QString> typedTexts() {
  return {{u"TS_NO"_s, u"100"_s},
          {u"TS_TARIH"_s, u"05032026"_s},
          {u"TS_RANDEVU"_s, u"6.3.2026"_s},
          {u"TS_TEKNISYEN"_s, u"ismail ışık"_s},
          {u"TS_FATURANO"_s, u"O'Neil \\ \"x\""_s},
          {u"TS_ACIKLAMA"_s, u"çğıöşü"_s},
          {u"TS_MUSTERI"_s, u"ayşe yılmaz"_s},
          {u"TS_ADRES"_s, u"%_;--/*"_s},
          {u"TS_TEL"_s, u"0212"_s},
          {u"TS_C_SERINO"_s, u"sn1"_s},
          {u"TS_C_AD"_s, u"buzdolabı"_s},
          {u"TS_C_SIKAYET"_s, u"soğutmuyor"_s},
          {u"TS_SERVIS_TUTAR"_s, u"10,50"_s},
          {u"TS_ISCILIK_TUTAR"_s, u"20"_s},
          {u"TS_PARCA_TUTAR"_s, u"1250.5"_s},
          {u"TS_MALIYET"_s, u"-7"_s}};
}

}  // namespace

TEST_F(SlipFormTest, SlipIsTakenInByKeyboardAlone) {
  TfServisFis* slip = newSlip();
  EXPECT_EQ(text(slip, u"TS_NO"_s), u"100"_s);
  const auto typed = typedTexts();
  for (const SlipField& field : slipFields()) {
    if (field.column == u"TS_TUTAR"_s || field.editor == SlipEditor::ReadOnlyText) continue;
    QWidget* focus = QApplication::focusWidget();
    ASSERT_TRUE(focus != nullptr && focus->parentWidget() != nullptr);
    ASSERT_TRUE(slip->findChild<QWidget*>(field.column)->isAncestorOf(focus)) << qPrintable(field.column + u" has not the focus"_s);
    type(typed.value(field.column));
    press(field.editor == SlipEditor::Memo ? Qt::Key_Tab : Qt::Key_Return);
  }
  EXPECT_EQ(text(slip, u"TS_TUTAR"_s), u"1.281,00"_s);
  press(Qt::Key_F2);

  EXPECT_EQ(balloon(slip)->text(), u"Servis fiş kaydı tamamlandı."_s);
  EXPECT_EQ(slip->windowTitle(), u"(100) Servis Fişi"_s);
  EXPECT_EQ(slip->EditorMode, TfServisFis::Mode::Edit);
  EXPECT_EQ(rows(u"select TS_NO,TS_TARIH,TS_RANDEVU,TS_TURU,TS_SERVIS_TIP,TS_HIZMET_TIP,TS_TEKNISYEN,TS_FATURANO,TS_ACIKLAMA,"
                 u"TS_MUSTERI,TS_ADRES,TS_TEL,TS_C_SERINO,TS_C_AD,TS_C_SIKAYET,TS_UNVAN from teknikservis"_s),
            u"100|05.03.2026|06.03.2026|ARIZA KABUL|ATÖLYE|~|İSMAİL IŞIK|O'NEİL \\ \"X\"|ÇĞIÖŞÜ|"
            u"AYŞE YILMAZ|%_;--/*|0212|SN1|BUZDOLABI|SOĞUTMUYOR|~"_s);
  EXPECT_EQ(rows(u"select TS_SERVIS_TUTAR,TS_ISCILIK_TUTAR,TS_PARCA_TUTAR,TS_TUTAR,TS_MALIYET,TS_USER,TS_DISSERVIS_TESLIM_SURE,"
                 u"TS_SAAT is null,TS_USER_TIME is null from teknikservis"_s),
            u"10,5|20|1250,5|1281|-7|QUEND|0|0|0"_s);
  EXPECT_EQ(rows(u"select length(FT_RESIM), FT_TS_ID = TS_ID, SF_TS_ID = TS_ID from teknikservis, foto, notlar"_s), u"0|1|1"_s);
}

TEST_F(SlipFormTest, NewSlipAndItsLinesTakeOneTransaction) {
  TfServisFis* slip = filledSlip(u"100"_s);
  note(slip)->setText(u"not \\ 'x'"_s);
  addLine(slip, u"MOTOR"_s, u"2"_s, u"12,50"_s);
  addLine(slip, u"KART"_s, u"1,25"_s, u"1.250,5"_s);
  EXPECT_EQ(rows(u"select count(*) from malzeme"_s), u"0"_s);
  const quint64 before = DM->MySQL.roundTrips();
  save(slip);
  // START, slip, picture, note, two lines, COMMIT, whether customers or devices have changed.
  EXPECT_EQ(DM->MySQL.roundTrips() - before, 8u);
  EXPECT_EQ(rows(u"select MZ_SIRANO,MZ_PARCA_ADI,MZ_ADET,MZ_TUTAR,TS_NO_REF = TS_ID,SF_NOT from malzeme,teknikservis,notlar order by 1"_s),
            u"1|MOTOR|2,0000|12,5000|1|not \\ 'x';2|KART|1,2500|1250,5000|1|not \\ 'x'"_s);

  const QString keys = rows(u"select MZ_ID from malzeme order by 1"_s);
  slip->qMalzeme.setRecNo(0);
  slip->qMalzeme.Edit();
  slip->qMalzeme.FieldByName(u"MZ_ADET"_s).set(3);
  save(slip);
  EXPECT_EQ(rows(u"select MZ_ID from malzeme order by 1"_s), keys);
  EXPECT_EQ(rows(u"select MZ_ADET from malzeme order by MZ_ID"_s), u"3,0000;1,2500"_s);
}

TEST_F(SlipFormTest, FailureInTheLinesLeavesNothing) {
  run(u"CREATE TRIGGER malzeme_deneme BEFORE INSERT ON malzeme FOR EACH ROW SIGNAL SQLSTATE '45000' SET MESSAGE_TEXT='dolu'");
  TfServisFis* slip = filledSlip(u"100"_s);
  addLine(slip, u"MOTOR"_s, u"2"_s, u"12,50"_s);
  EXPECT_EQ(saying(slip), QString());
  EXPECT_EQ(rows(u"select (select count(*) from teknikservis),(select count(*) from foto),(select count(*) from notlar)"_s), u"0|0|0"_s);
  EXPECT_TRUE(dialogs.texts.isEmpty());
  EXPECT_FALSE(DM->MySQL.InTransaction());
  EXPECT_EQ(slip->EditorMode, TfServisFis::Mode::Insert);
  EXPECT_EQ(slip->qMalzeme.RecordCount(), 1);

  run(u"DROP TRIGGER malzeme_deneme");
  save(slip);
  EXPECT_EQ(rows(u"select MZ_PARCA_ADI, TS_NO_REF = TS_ID from malzeme, teknikservis"_s), u"MOTOR|1"_s);
}

TEST_F(SlipFormTest, DuplicateNumberKeepsTheSlipOpen) {
  TfServisFis* slip = filledSlip(u"100"_s);
  addLine(slip, u"MOTOR"_s, u"2"_s, u"12,50"_s);
  run(u"INSERT INTO teknikservis (TS_NO) VALUES ('100')");
  EXPECT_EQ(saying(slip), u"\"FİŞ NO\" alanı mükerrer değer kabul etmiyor."_s);
  EXPECT_TRUE(box(slip, u"TS_NO"_s)->line()->hasFocus());
  EXPECT_EQ(slip->EditorMode, TfServisFis::Mode::Insert);
  EXPECT_EQ(rows(u"select count(*) from malzeme"_s), u"0"_s);

  box(slip, u"TS_NO"_s)->setText({});
  box(slip, u"TS_NO"_s)->pressButton(1);
  EXPECT_EQ(text(slip, u"TS_NO"_s), u"101"_s);
  save(slip);
  EXPECT_EQ(rows(u"select TS_NO, MZ_PARCA_ADI from teknikservis left join malzeme on TS_NO_REF = TS_ID order by 1"_s),
            u"100|~;101|MOTOR"_s);
}

TEST_F(SlipFormTest, FailedChecksSendNothing) {
  const struct {
    QString column, text, message;
  } cases[] = {{u"TS_MUSTERI"_s, u" "_s, u"\"Müşteri Adı\" alanı için değer girmelisiniz."_s},
               {u"TS_C_SERINO"_s, u"AB"_s, u"\"Seri No\" alanı için en az 3 karater girmelisiniz."_s},
               {u"TS_ADRES"_s, u"SOKAK ☃"_s, u"\"ADRES\" alanındaki \"☃\" (U+2603) karakteri kaydedilemez."_s},
               {u"TS_ACIKLAMA"_s, QString(81, u'A'), u"\"FİŞ AÇIKLAMA\" alanına en fazla 80 karakter girebilirsiniz."_s}};
  TfServisFis* slip = filledSlip(u"100"_s);
  for (const auto& one : cases) {
    const QString good = text(slip, one.column);
    box(slip, one.column)->setText(one.text);
    const quint64 before = DM->MySQL.roundTrips();
    EXPECT_EQ(saying(slip), one.message);
    EXPECT_TRUE(box(slip, one.column)->line()->hasFocus()) << "the cursor is where the balloon points";
    EXPECT_EQ(DM->MySQL.roundTrips(), before);
    EXPECT_EQ(text(slip, one.column), one.text);
    box(slip, one.column)->setText(good);
  }
  // No date and no amount becomes another one.
  for (const auto& [column, typed] : {std::pair(u"TS_TARIH"_s, u"31.02.2026"_s), {u"TS_RANDEVU"_s, u"01.01.0000"_s},
                                      {u"TS_C_GARBITTAR"_s, u"29.02.2025"_s}, {u"TS_SERVIS_TUTAR"_s, u"1,234.56"_s}, {u"TS_PARCA_TUTAR"_s, u"1.2.3"_s}}) {
    const QString good = text(slip, column);
    enter(slip, column, typed);
    const quint64 before = DM->MySQL.roundTrips();
    EXPECT_TRUE(saying(slip).contains(typed)) << qPrintable(column);
    EXPECT_EQ(DM->MySQL.roundTrips(), before);
    EXPECT_EQ(text(slip, column), typed);
    box(slip, column)->setText(good);
  }
}

TEST_F(SlipFormTest, LineThatDoesNotFitStopsTheSave) {
  TfServisFis* slip = filledSlip(u"100"_s);
  pages(slip)->setCurrentIndex(TfServisFis::LinesPage);
  lines(slip)->view()->setFocus();
  press(Qt::Key_Insert);
  press(Qt::Key_Return);
  type(u"KAR ☃"_s);
  press(Qt::Key_F2);
  EXPECT_EQ(rows(u"select count(*) from teknikservis"_s), u"0"_s);
  EXPECT_EQ(pages(slip)->currentIndex(), int(TfServisFis::LinesPage));
  EXPECT_TRUE(balloon(slip)->text().contains(u"☃"_s)) << qPrintable(balloon(slip)->text());

  // The typed text is still there and still in the way, until it is mended.
  press(Qt::Key_F2);
  EXPECT_EQ(rows(u"select count(*) from teknikservis"_s), u"0"_s);
  press(Qt::Key_Backspace);
  press(Qt::Key_F2);
  EXPECT_EQ(rows(u"select MZ_PARCA_ADI from malzeme"_s), u"KAR "_s);
}

TEST_F(SlipFormTest, RowTakenAwayOrChangedMeanwhile) {
  TfServisFis* slip = filledSlip(u"100"_s);
  save(slip);
  const qint64 id = savedId(u"100"_s);
  box(slip, u"TS_ACIKLAMA"_s)->setText(u"BİZİM"_s);

  // Between the re-read and the write: changed, refused by the user, then confirmed.
  for (const int answer : {2, 100}) {
    dialogs.texts.clear();
    dialogs.answer = answer;
    beforeNextPost(slip, [this] {
      run(u"UPDATE teknikservis SET TS_ACIKLAMA = CONCAT(IFNULL(TS_ACIKLAMA, ''), 'X')");
    });
    save(slip);
    ASSERT_EQ(dialogs.texts.size(), 1);
    EXPECT_TRUE(dialogs.texts.first().contains(u"değiştirilmiştir"_s));
    EXPECT_EQ(rows(u"select TS_ACIKLAMA from teknikservis"_s), answer == 2 ? u"X"_s : u"BİZİM"_s);
  }
  EXPECT_TRUE(slip->qServis.Options.CheckRowVersion);

  dialogs.texts.clear();
  QCoreApplication::processEvents();
  beforeNextPost(slip, [this] {
    run(u"DELETE FROM teknikservis");
  });
  box(slip, u"TS_ACIKLAMA"_s)->setText(u"YİNE"_s);
  save(slip);
  ASSERT_EQ(dialogs.texts.size(), 1);
  EXPECT_TRUE(dialogs.texts.first().contains(u"siz  işlem yaparken bir başka kullanıcı tarafından silinmiştir.."_s));

  dialogs.texts.clear();
  save(slip);
  EXPECT_EQ(dialogs.texts, QStringList{u"Kayıt başka bir kullanıcı tarafından silinmiştir."_s});
  EXPECT_EQ(text(slip, u"TS_ACIKLAMA"_s), u"YİNE"_s);

  dialogs.texts.clear();
  qsizetype windowsBesideMessage = 0;
  dialogs.onShown = [&] { windowsBesideMessage = workspace.childWindows().size(); };
  openSlip(id);
  EXPECT_EQ(dialogs.texts, QStringList{u"Silinmiş bir fişe ulaşmaya çalışıyorsunuz."_s});
  EXPECT_EQ(windowsBesideMessage, 1) << "no window without a name";
  EXPECT_EQ(workspace.childWindows(), QList<QWidget*>{slip});
}

TEST_F(SlipFormTest, WhatWasWrittenMeanwhileIsWrittenOverAndARenamedSlipCountsAsDeleted) {
  TfServisFis* slip = filledSlip(u"100"_s);
  save(slip);
  // Written while this screen stood open, and not while it saves: written over without a word, meant.
  run(u"UPDATE teknikservis SET TS_ACIKLAMA = 'ONUN', TS_TEKNISYEN = 'ONUN'");
  box(slip, u"TS_ACIKLAMA"_s)->setText(u"BİZİM"_s);
  save(slip);
  EXPECT_EQ(rows(u"select TS_ACIKLAMA, TS_TEKNISYEN from teknikservis"_s), u"BİZİM|~"_s);

  // The row is looked for by the number on the screen, so a renamed slip counts as deleted: meant.
  for (const auto& [number, statement] : {std::pair(u"777"_s, u"UPDATE teknikservis SET TS_USER = 'O'"_s),
                                          std::pair(u"100"_s, u"UPDATE teknikservis SET TS_NO = '555'"_s)}) {
    dialogs.texts.clear();
    box(slip, u"TS_NO"_s)->setText(number);
    beforeNextPost(slip, [this, statement] { run(statement); });
    save(slip);
    ASSERT_EQ(dialogs.texts.size(), 1);
    EXPECT_TRUE(dialogs.texts.first().contains(u"silinmiştir"_s));
    EXPECT_EQ(text(slip, u"TS_NO"_s), number);
  }
  save(slip);
  EXPECT_EQ(rows(u"select TS_NO from teknikservis"_s), u"100"_s);
}

TEST_F(SlipFormTest, ALockedSlipIsWaitedForInAPaintedWindow) {
  WaitPanel waitPanel;
  TfServisFis* slip = filledSlip(u"100"_s);
  save(slip);
  QCoreApplication::processEvents();
  balloon(slip)->hide();
  enter(slip, u"TS_ACIKLAMA"_s, u"BENİM"_s);
  DM->MySQL.execute("SET SESSION innodb_lock_wait_timeout = 2");
  database.secondConnection().StartTransaction();
  database.secondConnection().execute("UPDATE teknikservis SET TS_ACIKLAMA = 'ONUN'");

  EventCounter paintings(QEvent::Paint);
  paintings.watch(slip);
  QTimer bare;
  bool isTold = false;
  QObject::connect(&bare, &QTimer::timeout, slip, [&] {
    slip->update();
    isTold = isTold || workspace.findChild<QWidget*>(u"ServerWait"_s) != nullptr;
  });
  bare.start(20);
  int ticks = 0;
  int posted = 0;
  QTimer tick;
  connectGuarded(&tick, &QTimer::timeout, slip, [&] { ++ticks; });
  tick.start(20);
  postGuarded(slip, [&] { ++posted; });
  save(slip);
  bare.stop();
  tick.stop();
  EXPECT_GT(paintings.count, 5);
  EXPECT_TRUE(isTold);
  EXPECT_EQ(workspace.findChild<QWidget*>(u"ServerWait"_s), nullptr);
  EXPECT_EQ(ticks + posted, 0) << "the program's own works wait as well";
  QCoreApplication::processEvents();
  EXPECT_EQ(ticks, 1);
  EXPECT_EQ(posted, 1);
  EXPECT_EQ(balloon(slip)->text(), QString());
  EXPECT_TRUE(dialogs.texts.isEmpty());
  EXPECT_EQ(text(slip, u"TS_ACIKLAMA"_s), u"BENİM"_s);

  database.secondConnection().Rollback();
  save(slip);
  EXPECT_EQ(rows(u"select TS_ACIKLAMA from teknikservis"_s), u"BENİM"_s);
}
