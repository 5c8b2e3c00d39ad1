// The list of slips as a screen: the real form on the real database, dialogs answered by a script.
#include "app/look.h"
#include "app/quendUtils.h"
#include "base/data/value.h"
#include "base/program_paths.h"
#include "service/fservisfissecUnit.h"
#include "tests/service/slip_form_fixture.h"
#include "tests/support/failure_at_removal.h"
#include "tests/support/fixed_environment.h"
#include "toolkit/edits/lookup_edit.h"
#include "toolkit/grid/filter_row.h"
#include "toolkit/grid/grid_footer.h"
#include "toolkit/grid/row_colors.h"
#include "toolkit/grid/table_content.h"
#include "toolkit/shell/command_updates.h"

namespace {

class SlipBrowserTest : public SlipFormTest {
 protected:
  void SetUp() override {
    SlipFormTest::SetUp();
    QuendUtil->programFolder = folder.path() + u'/';
  }

  void listSlipsOfTheDay() {
    QAbstractItemModel* switches = parameters.findChild<QListView*>(u"ParamList"_s)->model();
    ASSERT_TRUE(switches->setData(switches->index(ParameterFiles::ListSlipsOfTheDay, 0), Qt::Checked, Qt::CheckStateRole));
  }

  /// A slip of today, 05.03.2020, unless told otherwise.
  void add(const QString& number, const QString& customer = u"A"_s, const QString& date = u"2020-03-05"_s) {
    run(u"INSERT INTO teknikservis (TS_NO, TS_MUSTERI, TS_TARIH) VALUES ('%1', '%2', '%3')"_s.arg(number, customer, date));
  }

  DataGrid& grid() { return *browser.findChild<DataGrid*>(u"slips"_s); }

  /// A column of the rows as they are shown, joined by blanks.
  QString shown(const QString& caption = u"FİŞ NO"_s) {
    const auto content = grid().content(true);
    QStringList texts;
    for (int column = 0; column < content->columnCount(); ++column)
      for (int row = 0; content->column(column).caption == caption && row < content->rowCount(); ++row)
        if (content->rowKind(row) == ContentRowKind::Data) texts += content->text(row, column);
    return texts.join(u' ');
  }

  /// Opens the list, lets work be done in it, and closes it; gives the keys that were handed back.
  QStringList whileOpen(const std::function<void()>& work) {
    std::vector<QString> ids{u"left over"_s};
    within([&] { browser.Giris(ids); }, browser, work);
    return QStringList(ids.begin(), ids.end());
  }

  void select(const QStringList& numbers) {
    grid().clearSelection();
    grid().setFocus();
    for (int row = 0; row < browser.qServis.RecordCount(); ++row)
      if (numbers.contains(browser.qServis.valueAt(row, browser.qServis.fieldIndex(u"TS_NO"_s)).toText())) {
        if (numbers.first() == browser.qServis.valueAt(row, browser.qServis.fieldIndex(u"TS_NO"_s)).toText())
          grid().setCurrentRow(row);
        else
          press(Qt::Key_Down, Qt::ShiftModifier);
      }
    ASSERT_EQ(grid().selectedRows().size(), size_t(numbers.size()));
  }

  ScopedEnvironment clock{std::make_unique<FixedEnvironment>()};
  TfParametreler parameters;
  TfservisfisSec browser;
};

TEST_F(SlipBrowserTest, NumbersSortAtTheServerBothWaysAndWithASecondColumn) {
  for (const QString& number : {u"100"_s, u"9"_s, u"10"_s, u"101"_s}) add(number, number == u"9"_s ? u"B"_s : u"A"_s);
  whileOpen([&] {
    grid().setOrder({{u"TS_NO"_s, false}});
    EXPECT_EQ(shown(), u"9 10 100 101"_s);
    grid().setOrder({{u"TS_NO"_s, true}});
    EXPECT_EQ(shown(), u"101 100 10 9"_s);
    grid().setOrder({{u"TS_MUSTERI"_s, true}, {u"TS_NO"_s, false}});
    EXPECT_EQ(shown(), u"9 10 100 101"_s);
    EXPECT_TRUE(browser.qServis.SQL.text().contains(u"TS_MUSTERI DESC, LENGTH(TS_NO) ASC, TS_NO ASC"_s));
  });
}

TEST_F(SlipBrowserTest, TheDaysListFetchesTheDayAndGivesWayToAllSlips) {
  add(u"1"_s, u"IŞIK"_s, u"2020-03-04"_s);
  listSlipsOfTheDay();
  whileOpen([&] {
    EXPECT_EQ(shown(), QString());
    EXPECT_EQ(browser.qServis.RecordCount(), 0);
    updateCommands(&browser);
    EXPECT_FALSE(browser.aSec->isEnabled());
    grid().clearFilter();
    EXPECT_EQ(shown(), u"1"_s);
    updateCommands(&browser);
    EXPECT_TRUE(browser.aSec->isEnabled());
  });
  add(u"2"_s, u"İNCİ"_s);
  add(u"3"_s, u"ışık"_s);
  whileOpen([&] {
    EXPECT_EQ(shown(), u"2 3"_s);
    grid().setColumnFilter(u"TS_MUSTERI"_s, FilterOperator::Contains, u"IŞIK"_s);
    EXPECT_EQ(shown(), u"3"_s);
    // An unfinished date fetches nothing.
    const quint64 statements = DM->MySQL.roundTrips();
    for (const QString& unfinished : {u"05.03.20201"_s, u">"_s, u"=0"_s}) {
      grid().setColumnFilter(u"TS_TARIH"_s, FilterOperator::Equal, unfinished);
      EXPECT_EQ(shown(), u"3"_s) << qPrintable(unfinished);
    }
    EXPECT_EQ(DM->MySQL.roundTrips(), statements);
    grid().setColumnFilter(u"TS_TARIH"_s, FilterOperator::Equal, u"04.03.2020"_s);
    EXPECT_EQ(shown(), u"1"_s);
    // A part of a date is looked for in what the list shows.
    grid().setColumnFilter(u"TS_TARIH"_s, FilterOperator::Contains, u"03.2020"_s);
    EXPECT_EQ(shown(), u"1 3"_s);
  });
  whileOpen([&] {
    grid().setFilterEnabled(false);
    EXPECT_EQ(shown(), u"1 2 3"_s);
  });
  // Nothing of what was searched for is left at the next opening.
  whileOpen([&] { EXPECT_EQ(shown(), u"2 3"_s); });
}

TEST_F(SlipBrowserTest, TypingInTheFilterRowIsTurnedToTurkishCapitals) {
  add(u"1"_s, u"IŞIK"_s);
  add(u"2"_s, u"İNCİ"_s);
  whileOpen([&] {
    auto* cell = browser.findChild<QWidget*>(u"TS_MUSTERI_filter"_s);
    ASSERT_NE(cell, nullptr);
    auto* line = cell->findChild<QLineEdit*>();
    line->setFocus();
    QTest::keyClicks(line, u"inc"_s);
    EXPECT_EQ(line->text(), u"İNC"_s);
    EXPECT_TRUE(QTest::qWaitFor([&] { return shown() == u"2"_s; }));
    line->clear();
    type(u"10 µf es\u0327"_s);
    EXPECT_EQ(line->text(), u"10 µF EŞ"_s);
  });
}

TEST_F(SlipBrowserTest, FirmsAreReadAnewWhenTheirListDropsDown) {
  run(u"INSERT INTO teknikservis (TS_NO, TS_DISSERVIS) VALUES ('1', 'YENİ FİRMA'), ('2', 'ESKİ FİRMA'), ('3', NULL)");
  const QString third = QString::number(savedId(u"3"_s));
  EXPECT_EQ(whileOpen([&] {
              select({u"3"_s});
              grid().setColumnVisible(u"TS_DISSERVIS"_s, true);
              auto* cell = browser.findChild<QWidget*>(u"TS_DISSERVIS_filter"_s);
              ASSERT_NE(cell, nullptr);
              auto* firms = cell->findChild<LookupEdit*>();
              ASSERT_NE(firms, nullptr);
              run(u"INSERT INTO disservis (DS_AD) VALUES ('YENİ FİRMA')");
              EXPECT_EQ(firms->findEntry(u"YENİ FİRMA"_s), -1);
              firms->line()->setFocus();
              press(Qt::Key_Down, Qt::AltModifier);
              EXPECT_TRUE(firms->isDropDownOpen());
              EXPECT_EQ(firms->findEntry(u"YENİ FİRMA"_s), 0);
              press(Qt::Key_Down);
              press(Qt::Key_Return);
              EXPECT_EQ(shown(), u"1"_s);
              EXPECT_EQ(browser.focusWidget(), grid().view()) << "a taken entry goes on to the rows";
              grid().clearFilter();
              grid().setCurrentRow(2);
              // The key chooses slips here as well, it does not open the list.
              firms->line()->setFocus();
              press(Qt::Key_F4);
            }),
            QStringList{third});
}

// A text that happens to be a firm's whole name stays what it was when the rows are clicked at.
TEST_F(SlipBrowserTest, AFirmsSearchCellThatIsLeftStaysAsItWas) {
  run(u"INSERT INTO teknikservis (TS_NO, TS_DISSERVIS) VALUES ('1', 'FİRMA'), ('2', 'FİRMA 2')");
  run(u"INSERT INTO disservis (DS_AD) VALUES ('FİRMA')");
  whileOpen([&] {
    grid().setColumnVisible(u"TS_DISSERVIS"_s, true);
    const int column = grid().model()->columnOf(u"TS_DISSERVIS"_s);
    auto* firms = browser.findChild<QWidget*>(u"TS_DISSERVIS_filter"_s)->findChild<LookupEdit*>();
    firms->line()->setFocus();
    SlipFormTest::type(u"FİRMA"_s);
    firms->closeUp();
    QTest::mouseClick(grid().view()->viewport(), Qt::LeftButton, {}, grid().view()->visualRect(grid().model()->index(1, column)).center());
    EXPECT_EQ(browser.focusWidget(), grid().view());
    EXPECT_EQ(grid().filterRow()->condition(column).comparison, FilterOperator::Contains);
    QTest::qWait(2 * FilterRow::pauseMs);
    EXPECT_EQ(shown(), u"1 2"_s);
  });
}

TEST_F(SlipBrowserTest, GroupsAndSumsReadAsTheyShouldAndGoWithTheLayout) {
  run(u"INSERT INTO teknikservis (TS_NO, TS_TURU, TS_TUTAR, TS_MALIYET) VALUES ('1', 'TAMAMLANDI', 1250.5, 10), ('2', 'ONARILIYOR', -3, 0),"
      u"('3', 'TAMAMLANDI', 2, 0.25)");
  const auto footers = [this](ContentRowKind kind) {
    const auto content = grid().content(true);
    QStringList texts;
    for (int row = 0; row < content->rowCount(); ++row)
      for (int column = 0; content->rowKind(row) == kind && column < content->columnCount(); ++column)
        if (const QString text = content->text(row, column); !text.isEmpty()) texts += text;
    return texts.join(u" | "_s);
  };
  whileOpen([&] {
    EXPECT_EQ(footers(ContentRowKind::Footer), u"3 Kayıt | 1.249,50 | 10,25"_s);
    GridFooter& footer = *grid().footer();
    const int total = grid().model()->columnOf(u"TS_TUTAR"_s);
    QHelpEvent hover(QEvent::ToolTip, {grid().view()->columnViewportPosition(total) + 9, 5}, footer.mapToGlobal(QPoint(5, 5)));
    QCoreApplication::sendEvent(&footer, &hover);
    EXPECT_EQ(QToolTip::text(), u"Toplam: 1.249,50"_s);
    EXPECT_EQ(footer.accessibleDescription(), u"FİŞ NO: 3 Kayıt; Toplam: 1.249,50; Maliyet: 10,25"_s);
    grid().setOrder({{u"TS_TUTAR"_s, false}});
    grid().setGrouping({u"TS_TURU"_s});
    EXPECT_EQ(footers(ContentRowKind::GroupFooter), u"1 Kayıt | -3,00 TL | 2 Kayıt | 1.252,50 TL"_s);
    EXPECT_EQ(shown(), u"2 3 1"_s) << "the server's order within the groups";
  });
  EXPECT_TRUE(grid().grouping().isEmpty());
  whileOpen([&] {
    EXPECT_EQ(grid().grouping(), QStringList{u"TS_TURU"_s});
    EXPECT_EQ(grid().order(), (std::vector<GridSort>{{u"TS_TUTAR"_s, false}}));
  });
  QFile::remove(folder.filePath(u"ServisFis.ini"_s));
  whileOpen([&] {
    EXPECT_TRUE(grid().grouping().isEmpty());
    EXPECT_TRUE(grid().order().empty());
  });
}

TEST_F(SlipBrowserTest, ChosenSlipsAreHandedBackInTheirOrder) {
  for (const QString& number : {u"1"_s, u"2"_s, u"3"_s}) add(number);
  const QStringList two{QString::number(savedId(u"1"_s)), QString::number(savedId(u"2"_s))};
  EXPECT_EQ(whileOpen([&] {
              select({u"1"_s, u"2"_s});
              press(Qt::Key_F4);
            }),
            two);
  EXPECT_EQ(whileOpen([&] {
              select({u"2"_s});
              press(Qt::Key_Return);
            }),
            two.mid(1));
  // Without a selection the list closes as well, and nothing is opened.
  EXPECT_EQ(whileOpen([&] {
              grid().clearSelection();
              press(Qt::Key_F4);
              EXPECT_FALSE(browser.isVisible());
            }),
            QStringList());
  EXPECT_EQ(whileOpen([&] { select({u"1"_s}); }), QStringList()) << "given up";
}

TEST_F(SlipBrowserTest, ColumnsAreTheUsualOnesUntilTheUserChoosesOthers) {
  add(u"1"_s);
  const auto captions = [this] {
    const auto content = grid().content(true);
    QStringList all;
    for (int column = 0; column < content->columnCount(); ++column) all += content->column(column).caption;
    return all.join(u' ');
  };
  QString usual;
  whileOpen([&] { usual = captions(); });
  EXPECT_EQ(usual, u"FİŞ NO FİŞ TARİH FİŞ TÜRÜ YETKİLİ ADI DIŞ SERİ NO CİHAZ TANIMI MÜŞTERİ ADI TUTAR MALİYET TUTAR"_s);

  whileOpen([&] {
    grid().setColumnVisible(u"TS_TEL"_s, true);
    grid().setColumnVisible(u"TS_MALIYET"_s, false);
  });
  whileOpen([&] {
    EXPECT_TRUE(captions().contains(u"TELEFON"_s));
    EXPECT_FALSE(captions().contains(u"MALİYET"_s));
  });
}

TEST_F(SlipBrowserTest, OneSlipIsDeletedWithItsPictureAndNoteAfterItsEditorIsClosed) {
  add(u"1"_s);
  add(u"2"_s);
  const qint64 id = savedId(u"1"_s);
  openSlip(id);
  openSlip(savedId(u"2"_s));
  run(u"INSERT INTO foto (FT_TS_ID, FT_RESIM) VALUES (%1, 'x')"_s.arg(id));
  dialogs.answer = 2;
  whileOpen([&] {
    select({u"1"_s});
    press(Qt::Key_F6);
    EXPECT_EQ(workspace.childWindows().size(), 2);

    dialogs.answer = TQuendUtil::Confirmed;
    press(Qt::Key_F6);
    EXPECT_EQ(shown(), u"2"_s);
  });
  EXPECT_EQ(dialogs.texts, QStringList(2, u"Seçilen 1 nolu fiş silinecek onaylıyor musunuz?"_s));
  ASSERT_EQ(workspace.childWindows().size(), 1);
  EXPECT_EQ(workspace.childWindows().first()->windowTitle(), u"(2) Servis Fişi"_s);
  EXPECT_EQ(rows(u"select TS_NO from teknikservis"_s), u"2"_s);
  EXPECT_EQ(rows(u"select (select count(*) from foto), (select count(*) from notlar)"_s), u"0|1"_s);
}

TEST_F(SlipBrowserTest, SeveralSlipsAtOnceAreRefusedAndStay) {
  QFile::remove(logFileName());
  add(u"1"_s);
  add(u"2"_s);
  add(u"3"_s);
  openSlip(savedId(u"2"_s));
  run(u"INSERT INTO foto (FT_TS_ID, FT_RESIM) VALUES (%1, 'x')"_s.arg(savedId(u"1"_s)));
  dialogs.answer = TQuendUtil::Confirmed;
  whileOpen([&] {
    select({u"1"_s, u"2"_s});
    press(Qt::Key_F6);
    EXPECT_EQ(shown(), u"1 2 3"_s);
  });
  EXPECT_EQ(dialogs.texts, (QStringList{u"Seçilen fiş(ler) silinecek onaylıyor musunuz?"_s, u"Seçilen fiş(ler) silinemedi!"_s}));
  EXPECT_THAT(contentOf(logFileName()).toStdString(), testing::HasSubstr("->pGetQ| delete from foto"));
  EXPECT_TRUE(workspace.childWindows().isEmpty());
  EXPECT_FALSE(DM->MySQL.InTransaction());
  EXPECT_EQ(rows(u"select (select count(*) from foto), (select count(*) from notlar), (select count(*) from teknikservis)"_s), u"1|3|3"_s);
}

// A failure after the row was deleted, as when the commit is not answered: picture, note and slip are all there again.
TEST_F(SlipBrowserTest, ADeleteThatFailsLateLeavesAllOfTheSlipAndTheListIsReadAnew) {
  add(u"1"_s);
  add(u"2"_s);
  run(u"INSERT INTO foto (FT_TS_ID, FT_RESIM) VALUES (%1, 'x')"_s.arg(savedId(u"1"_s)));
  dialogs.answer = TQuendUtil::Confirmed;
  whileOpen([&] {
    FailureAtRemoval failure(browser.qServis);
    select({u"1"_s});
    press(Qt::Key_F6);
    EXPECT_EQ(shown(), u"1 2"_s);
  });
  EXPECT_EQ(dialogs.texts.last(), u"Seçilen fiş(ler) silinemedi!"_s);
  EXPECT_EQ(rows(u"select (select count(*) from foto), (select count(*) from notlar), (select count(*) from teknikservis)"_s), u"1|2|2"_s);
}

TEST_F(SlipBrowserTest, ASlipThatAnotherWorkstationDeletedCanStillBeDeletedAndNotBeOpened) {
  add(u"1"_s);
  add(u"2"_s);
  dialogs.answer = TQuendUtil::Confirmed;
  whileOpen([&] {
    select({u"1"_s});
    run(u"DELETE FROM teknikservis WHERE TS_NO = '1'");
    press(Qt::Key_F6);
    EXPECT_EQ(shown(), u"2"_s);
  });
  EXPECT_EQ(dialogs.texts.size(), 1);

  dialogs.texts.clear();
  const QStringList ids = whileOpen([&] {
    select({u"2"_s});
    run(u"DELETE FROM teknikservis WHERE TS_NO = '2'");
    press(Qt::Key_F4);
  });
  ASSERT_EQ(ids.size(), 1);
  ports().openSlip(ids.first().toLongLong());
  EXPECT_EQ(dialogs.texts.size(), 1) << "the slip's absence is told";
  QCoreApplication::processEvents();
  EXPECT_TRUE(workspace.childWindows().isEmpty());
}

TEST_F(SlipBrowserTest, RefreshShowsWhatOthersWrote) {
  add(u"1"_s);
  whileOpen([&] {
    add(u"2"_s);
    add(u"3"_s);
    EXPECT_EQ(shown(), u"1"_s);
    press(Qt::Key_F8);
    EXPECT_EQ(shown(), u"1 2 3"_s);
    select({u"2"_s, u"3"_s});
    run(u"DELETE FROM teknikservis WHERE TS_NO = '1'");
    press(Qt::Key_F8);
    EXPECT_EQ(grid().selectedRows(), (std::vector<int>{0, 1})) << "the same slips are selected";
    EXPECT_EQ(grid().currentRow(), 1);
  });
}

TEST_F(SlipBrowserTest, ThePreviewExportsIntoTheProgramsFolderOrTellsWhyNot) {
  add(u"1"_s, u"IŞIK"_s);
  // Stands before the desktop's own program for files, and leaves the name of what it is to open.
  putScript(folder.filePath(u"xdg-open"_s), "printf %s \"$1\" >opening; mv opening opened\n");
  const QByteArray path = qgetenv("PATH");
  qputenv("PATH", folder.path().toLocal8Bit() + ':' + path);

  const QString file = folder.filePath(u"ServisFisleri.xls"_s);
  const auto exportFromPreview = [this] {
    whileOpen([&] {
      QTimer::singleShot(0, &browser, [&] {
        QWidget* preview = QApplication::activeModalWidget();
        ASSERT_NE(preview, &browser);
        EXPECT_EQ(preview->windowTitle(), u"Önizleme"_s);
        for (QAbstractButton* button : preview->findChildren<QAbstractButton*>())
          if (button->text() == u"Excel`e Aktar"_s) button->click();
        preview->close();
      });
      press(Qt::Key_F9);
    });
  };
  exportFromPreview();
  EXPECT_TRUE(dialogs.texts.isEmpty());
  EXPECT_TRUE(contentOf(file).startsWith("\xd0\xcf\x11\xe0"));
  EXPECT_TRUE(QTest::qWaitFor([&] { return contentOf(u"opened"_s) == file.toLocal8Bit(); }));

  QuendUtil->programFolder = folder.filePath(u"missing/"_s);
  exportFromPreview();
  ASSERT_EQ(dialogs.texts.size(), 1);
  EXPECT_TRUE(dialogs.texts.first().startsWith(u"Liste Excel dosyasına aktarılamadı.\n"_s)) << qPrintable(dialogs.texts.first());
  qputenv("PATH", path);
}

TEST_F(SlipBrowserTest, AStatusPaintsItsSlips) {
  run(u"INSERT INTO teknikservis (TS_NO, TS_TURU) VALUES ('1', 'TAMAMLANDI'), ('2', 'ONARILIYOR')");
  ParameterFiles::save(folder.filePath(u"islemrenk.dat"_s), ParameterFiles::writeStatuses({{u"TAMAMLANDI"_s, u"0x000000FF"_s, true}}));
  parameters.Load();
  whileOpen([&] {
    const auto content = grid().content(true);
    EXPECT_EQ(content->textColor(0), QColor(0, 0, 255));
    EXPECT_FALSE(content->textColor(1).isValid());
    grid().setCurrentRow(0);
    const QImage rows = grid().view()->viewport()->grab(QRect(0, 0, 900, grid().view()->rowHeight(0))).toImage();
    int blue = 0;
    for (int y = 0; y < rows.height(); ++y)
      for (int x = 0; x < rows.width(); ++x) blue += rows.pixelColor(x, y) == RowColors::readable({0, 0, 255}, grid().palette()) ? 1 : 0;
    EXPECT_GT(blue, 20) << "also while it is selected";
  });
}

TEST(StatusColoursTest, AllCanBeReadInBothLooksAndStayThemselves) {
  EXPECT_NEAR(RowColors::contrast(Qt::black, Qt::white), 21, 0.01);
  EXPECT_NEAR(RowColors::contrast(QColor(0x77, 0x77, 0x77), Qt::white), 4.48, 0.01);
  for (const LookColors look : {LookColors::Dark, LookColors::Light}) {
    applyLook(*qApp, look);
    const QPalette palette = QApplication::palette();
    EXPECT_EQ(QPushButton().palette().cacheKey(), palette.cacheKey()) << "or a picture is kept of every single button";
    const QColor backgrounds[] = {palette.color(QPalette::Base), palette.color(QPalette::AlternateBase), RowColors::selection(palette)};
    const auto isReadable = [&](const QColor& color) {
      return std::ranges::all_of(backgrounds, [&](const QColor& each) { return RowColors::contrast(color, each) >= RowColors::leastContrast; });
    };
    EXPECT_TRUE(isReadable(palette.color(QPalette::Text)));
    std::vector<QColor> all;
    for (const auto& [name, colour] : ParameterFiles::namedColours()) {
      const auto rgb = ParameterFiles::rgbOf(colour);
      if (!rgb) continue;
      const QColor told = QColor::fromRgb(*rgb);
      const QColor drawn = RowColors::readable(told, palette);
      EXPECT_TRUE(isReadable(drawn)) << qPrintable(name + drawn.name());
      EXPECT_EQ(drawn == told, isReadable(told)) << qPrintable(name);
      EXPECT_EQ(drawn.hslHue() < 0, told.hslHue() < 0) << qPrintable(name);
      EXPECT_LE(std::abs(drawn.hslHue() - told.hslHue()), 3) << qPrintable(name);
      for (const QColor& other : all)
        EXPECT_GT(std::abs(drawn.red() - other.red()) + std::abs(drawn.green() - other.green()) + std::abs(drawn.blue() - other.blue()), 12)
            << qPrintable(name) << " reads like another one: " << qPrintable(drawn.name() + other.name());
      all.push_back(drawn);
    }
  }
}

TEST_F(SlipBrowserTest, AnAccountWithoutRightsMayOnlyLook) {
  add(u"1"_s);
  const QString master = std::exchange(DM->MySQL.Username, u"OTHER"_s);
  const QStringList ids = whileOpen([&] {
    updateCommands(&browser);
    for (QAction* command : {browser.aSec, browser.aYazdir, browser.aFisSil}) EXPECT_FALSE(command->isEnabled());
    EXPECT_TRUE(browser.aGuncelle->isEnabled());
    select({u"1"_s});
    press(Qt::Key_Return);
    EXPECT_TRUE(browser.isVisible());
  });
  DM->MySQL.Username = master;
  EXPECT_TRUE(ids.isEmpty());
}

}  // namespace
