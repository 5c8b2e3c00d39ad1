#include "base/data/my_query.h"
#include "base/data/value.h"
#include "tests/service/slip_form_fixture.h"
#include "toolkit/edits/combo_edit.h"
#include "toolkit/edits/lookup_edit.h"

TEST_F(SlipFormTest, EverySlipWindowTurnsToTheSavedSlip) {
  for (const QString& number : {u"100"_s, u"101"_s}) {
    save(filledSlip(number));
    workspace.childWindows().first()->parentWidget()->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
  TfServisFis* older = openSlip(savedId(u"100"_s));
  TfServisFis* newer = openSlip(savedId(u"101"_s));
  EXPECT_EQ(fServisFis, newer);
  EXPECT_EQ(newer->windowTitle(), u"(101) Servis Fişi"_s);

  pages(newer)->setCurrentIndex(TfServisFis::LinesPage);
  lines(newer)->view()->setFocus();
  press(Qt::Key_Insert);
  type(u"7"_s);
  press(Qt::Key_Return);
  EXPECT_EQ(newer->qMalzeme.state(), QueryState::Insert);

  box(older, u"TS_ACIKLAMA"_s)->setText(u"DEĞİŞTİ"_s);
  save(older);
  QCoreApplication::processEvents();
  EXPECT_TRUE(newer->qMalzeme.IsEmpty()) << "a line that was being typed goes with its slip";
  EXPECT_EQ(text(newer, u"TS_NO"_s), u"100"_s);
  EXPECT_EQ(text(newer, u"TS_ACIKLAMA"_s), u"DEĞİŞTİ"_s);
  EXPECT_EQ(newer->windowTitle(), u"(100) Servis Fişi"_s);
  EXPECT_EQ(rows(u"select TS_ACIKLAMA from teknikservis order by TS_NO"_s), u"DEĞİŞTİ;~"_s);
}

TEST_F(SlipFormTest, PagesAndCommandsFollowTheMode) {
  TfServisFis* slip = filledSlip(u"100"_s);
  const auto pageShown = [&](int page) { return pages(slip)->isTabVisible(page); };
  EXPECT_EQ(slip->windowTitle(), u"Yeni Servis Fişi"_s);
  EXPECT_FALSE(pageShown(TfServisFis::SerialHistoryPage) || pageShown(TfServisFis::CustomerHistoryPage));
  EXPECT_TRUE(slip->aKaydet->isEnabled() && slip->aVazgec->isEnabled() && slip->aYazdir->isEnabled());
  EXPECT_FALSE(slip->aSil->isEnabled() || slip->MakbuzBask1->isEnabled());
  save(slip);
  EXPECT_TRUE(pageShown(TfServisFis::SerialHistoryPage) && pageShown(TfServisFis::CustomerHistoryPage));
  EXPECT_TRUE(slip->aSil->isEnabled());

  run(u"INSERT INTO teknikservis (TS_NO, TS_C_SERINO, TS_MUSTERI) VALUES ('7', 'SN1', 'BAŞKA'), ('8', 'X', 'AYŞE YILMAZ')");
  pages(slip)->setCurrentIndex(TfServisFis::SerialHistoryPage);
  EXPECT_EQ(slip->qSeri.RecordCount(), 1);
  EXPECT_EQ(slip->qSeri.FieldByName(u"TS_NO"_s).asText(), u"7"_s);
  pages(slip)->setCurrentIndex(TfServisFis::CustomerHistoryPage);
  EXPECT_EQ(slip->qSeri.FieldByName(u"TS_NO"_s).asText(), u"8"_s);
  QTest::keyClick(pages(slip)->currentWidget()->findChild<GridView*>(), Qt::Key_Return);
  EXPECT_EQ(text(fServisFis, u"TS_NO"_s), u"8"_s);

  dialogs.answer = 2;
  slip->aSil->trigger();
  EXPECT_EQ(rows(u"select count(*) from teknikservis where TS_NO = '100'"_s), u"1"_s);
  dialogs.answer = 100;
  slip->aSil->trigger();
  EXPECT_EQ(dialogs.texts, (QStringList{u"Fiş silinecek onaylıyor musunuz"_s, u"Fiş silinecek onaylıyor musunuz"_s}));
  EXPECT_EQ(rows(u"select TS_NO, (select count(*) from foto), (select count(*) from notlar) from teknikservis order by 1"_s),
            u"7|0|2;8|0|2"_s);
  EXPECT_FALSE(workspace.childWindows().contains(slip));
}

TEST_F(SlipFormTest, CardsAreCopiedAndTakenBack) {
  run(u"INSERT INTO cari (CA_AD, CA_UNVAN, CA_NO, CA_ADRES, CA_ILCE, CA_YETKILI, CA_TEL, CA_TEL2, CA_CEP, CA_EPOSTA) VALUES "
      u"('ŞULE IŞIK', 'IŞIK LTD', 'C1', 'CADDE 1', 'KADIKÖY', 'ŞULE', '0216', '0217', '0530', 'S@X.TR')");
  run(u"INSERT INTO cihaz (C_AD, C_MARKA, C_TURU, C_URETICI) VALUES ('FIRIN', 'M1', 'K1', 'U1')");
  run(u"INSERT INTO caricihaz (CH_CA_ID, CH_SERI, CH_MODEL) SELECT CA_ID, 'İÇ1', 'OCAK' FROM cari");
  TfServisFis* slip = newSlip();
  const QStringList copies{u"TS_UNVAN"_s, u"TS_M_NO"_s, u"TS_ADRES"_s, u"TS_ILCE"_s, u"TS_YETKILI"_s,
                           u"TS_TEL"_s,   u"TS_TEL2"_s, u"TS_CEP"_s,   u"TS_EPOSTA"_s};
  const auto shown = [&] {
    QStringList texts;
    for (const QString& column : copies) texts.append(text(slip, column));
    return texts.join(u'|');
  };
  const QString card = u"IŞIK LTD|C1|CADDE 1|KADIKÖY|ŞULE|0216|0217|0530|S@X.TR"_s;
  const QString none = u"||||||||"_s;
  enter(slip, u"TS_MUSTERI"_s, u"şule ışık"_s);
  press(Qt::Key_Return);
  EXPECT_EQ(shown(), card);
  enter(slip, u"TS_MUSTERI"_s, u"BİLİNMEYEN"_s);
  press(Qt::Key_Return);
  EXPECT_EQ(text(slip, u"TS_MUSTERI"_s), u"BİLİNMEYEN"_s);
  EXPECT_EQ(shown(), none);

  enter(slip, u"TS_MUSTERI"_s, u"şule ışık"_s);
  press(Qt::Key_Return);
  enter(slip, u"TS_C_SERINO"_s, u"SN1"_s);
  enter(slip, u"TS_C_AD"_s, u"OCAK"_s);
  box(slip, u"TS_MUSTERI"_s)->line()->setFocus();
  press(Qt::Key_F4);
  press(Qt::Key_Escape);
  EXPECT_EQ(shown(), card) << "Escape blanks nothing";
  box(slip, u"TS_MUSTERI"_s)->line()->selectAll();
  type(u"şule"_s);
  ASSERT_TRUE(slip->findChild<LookupEdit*>(u"TS_MUSTERI"_s)->isDropDownOpen());
  press(Qt::Key_F2);
  EXPECT_EQ(rows(u"select TS_MUSTERI, TS_UNVAN, TS_CEP from teknikservis"_s), u"ŞULE|~|~"_s) << "saved as typed, over the open list";

  enter(slip, u"TS_C_AD"_s, u"fırın"_s);
  const QAbstractItemModel* offered = box(slip, u"TS_C_AD"_s)->findChild<QTableView*>()->model();
  EXPECT_EQ(offered->headerData(2, Qt::Horizontal).toString() + offered->index(0, 2).data().toString(), u"ÜRETİCİ KODUU1"_s);
  press(Qt::Key_Return);
  EXPECT_EQ(text(slip, u"TS_C_MARKA"_s) + text(slip, u"TS_C_TURU"_s), u"M1K1"_s);
  box(slip, u"TS_C_AD"_s)->setText({});
  box(slip, u"TS_C_AD"_s)->line()->setFocus();
  press(Qt::Key_Return);
  EXPECT_EQ(text(slip, u"TS_C_MARKA"_s) + text(slip, u"TS_C_TURU"_s), QString()) << "left empty, though nothing was typed";

  balloon(slip)->hide();
  box(slip, u"TS_C_RAFNO"_s)->pressButton(1);
  EXPECT_EQ(balloon(slip)->text(), u"Kayıtlı \"İç Seri No\" bulunamadı!"_s);
  box(slip, u"TS_C_RAFNO"_s)->setText(u"İÇ1"_s);
  box(slip, u"TS_C_RAFNO"_s)->pressButton(1);
  EXPECT_EQ(text(slip, u"TS_C_AD"_s) + u'|' + text(slip, u"TS_MUSTERI"_s), u"OCAK|ŞULE IŞIK"_s);
  EXPECT_EQ(shown(), card);
}

TEST_F(SlipFormTest, AWindowOfAnyWidthShowsEachBoxWholeAndApart) {
  TfServisFis* slip = newSlip();
  const auto* area = qobject_cast<QScrollArea*>(pages(slip)->widget(TfServisFis::FieldsPage));
  const QWidget* view = area->viewport();
  slip->parentWidget()->showNormal();
  for (const QSize size : {QSize(2500, 1200), QSize(1890, 700), QSize(1890, 420), QSize(1500, 420), QSize(1000, 420), QSize(800, 420), QSize(680, 300)}) {
    slip->parentWidget()->setGeometry(QRect({}, size));
    QCoreApplication::processEvents();
    QRegion taken;
    for (const EditFrame* box : slip->findChildren<EditFrame*>()) {
      if (!box->objectName().startsWith(u"TS_"_s)) continue;
      const QRect place(box->mapTo(view, QPoint()), box->size());
      EXPECT_TRUE(place.left() >= 0 && place.right() < view->width()) << box->objectName().toStdString() << " at " << size.width();
      EXPECT_FALSE(taken.intersects(place)) << box->objectName().toStdString() << " at " << size.width();
      taken += place;
    }
    EXPECT_GT(taken.boundingRect().right(), view->width() - 30) << "room left at the right at " << size.width();
  }
  slip->parentWidget()->resize(slip->parentWidget()->sizeHint());
  QCoreApplication::processEvents();
  EXPECT_EQ(area->widget()->size(), view->size()) << "a window of its own size shows all";
}

TEST_F(SlipFormTest, TypingAids) {
  TfServisFis* slip = newSlip();
  const QString today = text(slip, u"TS_TARIH"_s);
  enter(slip, u"TS_TARIH"_s, u"01.01.2020"_s);
  box(slip, u"TS_RANDEVU"_s)->line()->setFocus();
  press(Qt::Key_Space);
  EXPECT_EQ(text(slip, u"TS_TARIH"_s), today);
  EXPECT_EQ(text(slip, u"TS_RANDEVU"_s), QString());
  box(slip, u"TS_TESLIM_TARIH"_s)->line()->setFocus();
  press(Qt::Key_Space);
  EXPECT_EQ(text(slip, u"TS_TESLIM_TARIH"_s), today);

  box(slip, u"TS_TESLIM_TARIH"_s)->setText({});
  auto* status = slip->findChild<ComboEdit*>(u"TS_TURU"_s);
  status->setItemIndex(14);
  status->line()->setFocus();
  press(Qt::Key_Down);
  EXPECT_EQ(status->text(), u"TESLİM EDİLDİ"_s);
  EXPECT_EQ(text(slip, u"TS_TESLIM_TARIH"_s), today);

  for (const QString& column : {u"TS_ACIKLAMA"_s, u"TS_TEKNISYEN"_s, u"TS_UNVAN"_s}) {
    EXPECT_EQ(box(slip, column)->width(), 225);
    box(slip, column)->line()->setFocus();
    EXPECT_EQ(box(slip, column)->width(), 456);
    const QSize size = slip->parentWidget()->size();
    slip->parentWidget()->resize(size - QSize(40, 30));
    EXPECT_EQ(box(slip, column)->width(), 456) << "in a window of another size";
    slip->parentWidget()->resize(size);
    slip->setFocus();
    box(slip, u"TS_NO"_s)->line()->setFocus();
    EXPECT_EQ(box(slip, column)->width(), 225);
  }

  status->line()->setFocus();
  press(Qt::Key_Down, Qt::AltModifier);
  EXPECT_TRUE(status->isDropDownOpen());
  press(Qt::Key_Escape);
  EXPECT_FALSE(status->isDropDownOpen());
  press(Qt::Key_Escape);
  EXPECT_TRUE(slip->isVisible());

  box(slip, u"TS_NO"_s)->line()->setFocus();
  press(Qt::Key_PageDown, Qt::ControlModifier);
  EXPECT_EQ(pages(slip)->currentIndex(), int(TfServisFis::LinesPage));
  EXPECT_EQ(QApplication::focusWidget(), lines(slip)->view());
  press(Qt::Key_PageUp, Qt::ControlModifier);
  EXPECT_EQ(QApplication::focusWidget(), box(slip, u"TS_NO"_s)->line());

  slip->findChild<QAction*>(u"YeniSeriNo1"_s)->trigger();
  EXPECT_TRUE(QRegularExpression(u"^[A-HJ-NP-Y]{2}[0-9]{10}$"_s).match(text(slip, u"TS_C_SERINO"_s)).hasMatch());
}

TEST_F(SlipFormTest, LinesAreTypedInTheirTable) {
  TfServisFis* slip = filledSlip(u"100"_s);
  DataGrid* table = lines(slip);
  const QAbstractItemModelTester tester(table->model(), QAbstractItemModelTester::FailureReportingMode::Fatal);
  const auto total = [&](const QString& field) { return table->model()->footerText(table->model()->columnOf(field)); };
  pages(slip)->setCurrentIndex(TfServisFis::LinesPage);
  table->view()->setFocus();
  for (const QStringList& line : {QStringList{u"1"_s, u"Şase"_s, u"1,5"_s, u"2.000,25"_s}, QStringList{u"2"_s, u"fan"_s, {}, {}}}) {
    press(Qt::Key_Insert);
    for (const QString& cell : line) {
      type(cell);
      press(Qt::Key_Return);
    }
  }
  press(Qt::Key_Insert);
  press(Qt::Key_Escape);
  EXPECT_EQ(total(u"MZ_ADET"_s) + u'|' + total(u"MZ_TUTAR"_s), u"1,5|2.000,25"_s);
  EXPECT_EQ(text(slip, u"TS_PARCA_TUTAR"_s), u"0,00"_s);
  EXPECT_EQ(rows(u"select count(*) from malzeme"_s), u"0"_s);

  // The row that was added last has nothing in it.
  press(Qt::Key_Up);
  EXPECT_EQ(slip->qMalzeme.RecordCount(), 2);
  table->setCurrentRow(1);
  press(Qt::Key_Delete, Qt::ControlModifier);
  EXPECT_EQ(slip->qMalzeme.RecordCount(), 1);
  press(Qt::Key_F2);
  press(Qt::Key_Insert);
  slip->aKaydet->trigger();
  EXPECT_EQ(rows(u"select MZ_SIRANO, MZ_PARCA_ADI, MZ_ADET, MZ_TUTAR from malzeme"_s), u"1|Şase|1,5000|2000,2500"_s);
}
