#include "base/data/value.h"
#include "tests/toolkit/grid_fixture.h"

#include "toolkit/grid/filter_cell.h"
#include "toolkit/grid/filter_row.h"
#include "toolkit/grid/grid_condition.h"
#include "toolkit/grid/grid_footer.h"
#include "toolkit/grid/grid_header.h"
#include "toolkit/grid/table_content.h"

TEST_F(GridTest, ShowsRowsWithFormatsFooterAndEmptyText) {
  show();
  EXPECT_EQ(lines(), QStringList());
  fill();
  query.Refresh();
  EXPECT_EQ(lines(), allNamesWith({}));
  EXPECT_EQ(lines(u"TUTAR"_s), (QStringList{u"10,00"_s, u"20,50"_s, u"20,50"_s, u"-5,00"_s, u"1.250,00"_s, u""_s}));
  EXPECT_EQ(lines(u"KISA"_s), (QStringList{u"AÇIK"_s, u"KAPALI"_s, u"AÇIK"_s, u""_s, u"KAPALI"_s, u"AÇIK"_s}));
  EXPECT_EQ(grid->footer()->textOf(grid->model()->columnOf(u"NO"_s)), u"6 Kayıt"_s);
  EXPECT_EQ(grid->footer()->textOf(grid->model()->columnOf(u"TUTAR"_s)), u"1.296,00"_s);
  EXPECT_FALSE(grid->isColumnVisible(u"ID"_s));
}

TEST_F(GridTest, TheQueryFollowsTheCursorAndEnterChooses) {
  fill();
  show();
  QSignalSpy chosen(grid.get(), &DataGrid::rowChosen);
  press(Qt::Key_Down);
  press(Qt::Key_Down);
  EXPECT_EQ(query.RecNo(), 2);
  press(Qt::Key_Return);
  press(Qt::Key_End);
  QTest::mouseDClick(grid->view()->viewport(), Qt::LeftButton, {}, grid->view()->visualRect(cell(4, u"AD"_s)).center());
  ASSERT_EQ(chosen.size(), 2);
  EXPECT_EQ(chosen[0][0].toInt(), 2);
  EXPECT_EQ(chosen[1][0].toInt(), 4);
  grid->setCurrentRow(5);
  EXPECT_EQ(grid->currentRow(), 5);
  EXPECT_EQ(query.RecNo(), 5);
}

TEST_F(GridTest, SortsByTheTurkishAlphabetAndByValue) {
  fill();
  show();
  grid->setOrder({{u"AD"_s, false}});
  EXPECT_EQ(lines(), (QStringList{u""_s, u"CAN"_s, u"ÇINAR"_s, u"İSTAX"_s, u"şeker"_s, u"ZEKI \"K\" O'NEIL"_s}));
  grid->setOrder({{u"TUTAR"_s, true}, {u"AD"_s, true}});
  EXPECT_EQ(lines(u"NO"_s), (QStringList{u"5"_s, u"2"_s, u"3"_s, u"1"_s, u"4"_s, u"6"_s}));
  grid->setOrder({{u"TARIH"_s, false}});
  EXPECT_EQ(lines(u"NO"_s), (QStringList{u"4"_s, u"5"_s, u"1"_s, u"6"_s, u"2"_s, u"3"_s}));

  // By the mouse: a click sorts, a second one turns, Shift adds, Ctrl takes out.
  std::vector<std::vector<GridSort>> asked;
  grid->setSortHandler([&](const std::vector<GridSort>& order) { asked.push_back(order); });
  const auto click = [&](const QString& field, Qt::KeyboardModifiers modifiers = {}) {
    const int column = grid->model()->columnOf(field);
    const int x = grid->view()->header()->sectionViewportPosition(column) + grid->view()->header()->sectionSize(column) / 2;
    QTest::mouseClick(grid->view()->header()->viewport(), Qt::LeftButton, modifiers, QPoint(x, 8));
  };
  click(u"NO"_s);
  click(u"NO"_s);
  click(u"AD"_s, Qt::ShiftModifier);
  click(u"NO"_s, Qt::ControlModifier);
  const std::vector<std::vector<GridSort>> expected{
      {{u"NO"_s, false}}, {{u"NO"_s, true}}, {{u"NO"_s, true}, {u"AD"_s, false}}, {{u"AD"_s, false}}};
  EXPECT_EQ(asked, expected);
}

TEST_F(GridTest, FilterRowNarrowsAsOneTypes) {
  fill();
  show();
  grid->setFilterRow(true);
  grid->setFilterUpperCase(true);
  QCoreApplication::processEvents();
  grid->view()->setCurrentIndex(cell(0, u"AD"_s));
  press(Qt::Key_F, Qt::ControlModifier);
  type(u"ş"_s);
  type(u"e"_s);
  EXPECT_EQ(lines(), allNamesWith({})) << "waits for the last key";
  EXPECT_TRUE(QTest::qWaitFor([&] { return lines() == QStringList{u"şeker"_s}; }));
  EXPECT_EQ(grid->filterRow()->condition(grid->model()->columnOf(u"AD"_s)).text, u"ŞE"_s);
  EXPECT_EQ(grid->footer()->textOf(grid->model()->columnOf(u"NO"_s)), u"1 Kayıt"_s);
  press(Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(lines(), allNamesWith({})) << "switched off";
  press(Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(lines().size(), 1);
  press(Qt::Key_Escape);
  EXPECT_EQ(lines(), allNamesWith({})) << "emptied";
  type(u"i"_s);
  press(Qt::Key_Return);
  EXPECT_EQ(lines(), (QStringList{u"İSTAX"_s, u"ZEKI \"K\" O'NEIL"_s}).mid(0, 1)) << "at once, and the dotted letter is another one";
  EXPECT_EQ(QApplication::focusWidget(), grid->view()) << "Enter goes to the rows";
  EXPECT_EQ(grid->currentField(), u"AD"_s);
  press(Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(lines(), allNamesWith({}));
  EXPECT_EQ(grid->currentField(), u"AD"_s) << "the cursor stays in its column";
}

TEST(GridConditionsTest, PeriodsBeginOnMondaysAndFirsts) {
  const struct {
    QDate today;
    QStringList texts;
  } cases[] = {
      {{2026, 3, 5},
       {u"05.03.2026"_s, u"04.03.2026"_s, u"02.03.2026..08.03.2026"_s, u"23.02.2026..01.03.2026"_s, u"01.03.2026..31.03.2026"_s,
        u"01.02.2026..28.02.2026"_s, u"01.01.2026..31.12.2026"_s}},
      // A Sunday ends its week; in January the month before is another year's.
      {{2028, 1, 2},
       {u"02.01.2028"_s, u"01.01.2028"_s, u"27.12.2027..02.01.2028"_s, u"20.12.2027..26.12.2027"_s, u"01.01.2028..31.01.2028"_s,
        u"01.12.2027..31.12.2027"_s, u"01.01.2028..31.12.2028"_s}},
  };
  for (const auto& each : cases) {
    QStringList texts;
    for (const GridConditions::Period& period : GridConditions::periods(each.today)) texts += period.text;
    EXPECT_EQ(texts, each.texts);
  }
}

TEST_F(GridTest, SearchCellsStandUnderTheirColumns) {
  fill();
  show();
  grid->setFilterRow(true);
  grid->resize(300, 320);
  QCoreApplication::processEvents();
  const GridHeader* header = grid->view()->header();
  const auto inPlace = [&] {
    for (const int column : grid->view()->shownColumns()) {
      const QRect cell = grid->filterRow()->cell(column)->geometry();
      if (cell.x() != header->sectionViewportPosition(column) || cell.width() != header->sectionSize(column)) return false;
    }
    return true;
  };
  EXPECT_TRUE(inPlace());
  grid->view()->horizontalScrollBar()->setValue(120);
  QCoreApplication::processEvents();
  ASSERT_EQ(header->offset(), 120);
  EXPECT_TRUE(inPlace()) << "scrolled";
  grid->view()->header()->moveSection(2, 4);
  EXPECT_TRUE(inPlace()) << "moved";
  const int last = grid->view()->shownColumns().back();
  grid->view()->horizontalScrollBar()->setValue(0);
  grid->filterRow()->focusCell(last);
  EXPECT_GT(grid->view()->horizontalScrollBar()->value(), 0) << "a cell that gets the keyboard comes into view";
  EXPECT_TRUE(inPlace());
}

TEST_F(GridTest, FilterCellsUnderstandEveryKindOfColumn) {
  fill();
  show();
  grid->setFilterRow(true);
  const struct {
    QString field;
    FilterOperator comparison;
    QString text;
    QStringList numbers;
  } cases[] = {
      {u"TUTAR"_s, FilterOperator::Equal, u"20,5"_s, {u"2"_s, u"3"_s}},
      {u"TUTAR"_s, FilterOperator::Equal, u">=20,5"_s, {u"2"_s, u"3"_s, u"5"_s}},
      {u"TUTAR"_s, FilterOperator::Equal, u"<0"_s, {u"4"_s}},
      {u"TUTAR"_s, FilterOperator::Between, u"10..1.250"_s, {u"1"_s, u"2"_s, u"3"_s, u"5"_s}},
      {u"TUTAR"_s, FilterOperator::Empty, {}, {u"6"_s}},
      {u"TUTAR"_s, FilterOperator::Equal, u">"_s, {u"1"_s, u"2"_s, u"3"_s, u"4"_s, u"5"_s, u"6"_s}},
      {u"TARIH"_s, FilterOperator::Contains, u"03.2026"_s, {u"1"_s, u"2"_s, u"6"_s}},
      {u"TARIH"_s, FilterOperator::Contains, u">05.03.2026"_s, {u"2"_s, u"3"_s}},
      {u"TARIH"_s, FilterOperator::Equal, u"1.3.2026..31.3.2026"_s, {u"1"_s, u"2"_s, u"6"_s}},
      {u"TARIH"_s, FilterOperator::NotEmpty, {}, {u"1"_s, u"2"_s, u"3"_s, u"5"_s, u"6"_s}},
      {u"AN"_s, FilterOperator::Equal, u"06.03.2026"_s, {u"2"_s}},
      {u"AN"_s, FilterOperator::Greater, u"06.03.2026"_s, {u"3"_s}},
      {u"KISA"_s, FilterOperator::Contains, u"kapa"_s, {u"2"_s, u"5"_s}},
      {u"AD"_s, FilterOperator::StartsWith, u"ç"_s, {u"2"_s}},
      {u"AD"_s, FilterOperator::Contains, u"O'NEIL"_s, {u"4"_s}},
      {u"AD"_s, FilterOperator::Contains, u"%"_s, {}},
      {u"AD"_s, FilterOperator::Contains, u"日本"_s, {}},
      {u"AD"_s, FilterOperator::Equal, u"ŞEKER"_s, {u"5"_s}},
  };
  for (const auto& each : cases) {
    grid->clearFilter();
    grid->setColumnFilter(each.field, each.comparison, each.text);
    EXPECT_EQ(lines(u"NO"_s), each.numbers) << qPrintable(each.field + u' ' + each.text);
  }
  // What fits no number narrows nothing and is marked.
  grid->clearFilter();
  grid->setColumnFilter(u"TUTAR"_s, FilterOperator::Equal, u"on iki"_s);
  EXPECT_EQ(lines().size(), 6);
  EXPECT_FALSE(grid->filterRow()->cell(grid->model()->columnOf(u"TUTAR"_s))->line()->toolTip().isEmpty());
  // Two cells narrow together; the screen may see to it itself.
  grid->setColumnFilter(u"TUTAR"_s, FilterOperator::Equal, u"20,5"_s);
  grid->setColumnFilter(u"AD"_s, FilterOperator::Contains, u"an"_s);
  EXPECT_EQ(lines(u"NO"_s), QStringList{u"3"_s});
  int asked = 0;
  grid->setFilterHandler([&](const std::optional<FilterExpression>& filter) {
    ++asked;
    EXPECT_EQ(filter->conjuncts().size(), 3u);
    return true;
  });
  grid->setColumnFilter(u"NO"_s, FilterOperator::Equal, u"9"_s);
  EXPECT_EQ(asked, 1);
  EXPECT_EQ(lines(u"NO"_s), QStringList{u"3"_s});
}

TEST_F(GridTest, GroupsWithFootersOverSeveralLevels) {
  fill();
  show();
  grid->setGroupArea(true);
  grid->setGrouping({u"KISA"_s});
  EXPECT_EQ(lines(), (QStringList{u"[DURUM: <boş> (1)   TUTAR: -5,00 TL]"_s, u"[DURUM: AÇIK (3)   TUTAR: 30,50 TL]"_s,
                                  u"[DURUM: KAPALI (2)   TUTAR: 1.270,50 TL]"_s})) << "closed groups tell their sums";
  grid->view()->setCurrentLine(1);
  press(Qt::Key_Plus);
  EXPECT_EQ(lines(u"TUTAR"_s), (QStringList{u"[DURUM: <boş> (1)   TUTAR: -5,00 TL]"_s, u"[DURUM: AÇIK (3)]"_s, u"10,00"_s, u"20,50"_s, u""_s,
                                            u"=30,50 TL"_s, u"[DURUM: KAPALI (2)   TUTAR: 1.270,50 TL]"_s}));
  EXPECT_EQ(lines(u"NO"_s)[5], u"=3 Kayıt"_s);
  // Filtering keeps the groups, and what is open stays open.
  grid->setFilterRow(true);
  grid->setColumnFilter(u"TUTAR"_s, FilterOperator::Greater, u"10"_s);
  EXPECT_EQ(lines(u"NO"_s), (QStringList{u"[DURUM: AÇIK (1)]"_s, u"3"_s, u"=1 Kayıt"_s, u"[DURUM: KAPALI (2)   TUTAR: 1.270,50 TL]"_s}));
  grid->clearFilter();
  grid->setGrouping({u"KISA"_s, u"TARIH"_s});
  press(Qt::Key_Plus, Qt::ControlModifier);
  EXPECT_EQ(lines(u"NO"_s).size(), 3 + 5 + 6 + 8) << "groups, groups in them, rows, footers";
  const auto content = grid->content(false);
  EXPECT_EQ(content->rowCount(), 3 + 5 + 6 + 8 + 1);
  grid->setAllExpanded(false);
  EXPECT_EQ(grid->content(false)->rowCount(), 4);
  const auto whole = grid->content(true);
  EXPECT_EQ(whole->rowCount(), 3 + 5 + 6 + 8 + 1);
  EXPECT_EQ(whole->groupText(1), u"TARİH: <boş> (1)"_s);
  // A row in a closed group can be gone to.
  grid->setCurrentRow(4);
  EXPECT_EQ(grid->currentRow(), 4);
  grid->clearGrouping();
  EXPECT_EQ(lines(), allNamesWith({}));
}

TEST_F(GridTest, ManyRowsAreFilteredAndGroupedInTheirOrder) {
  constexpr int count = 100'000;
  query.SQL.setText(u"select seq as ID, concat('AD', seq mod 7) as AD, cast(seq as char) as NO, 1.5 as TUTAR, 0 as KISA from seq_1_to_%1"_s.arg(count));
  query.Open();
  grid = std::make_unique<DataGrid>(query, columns(), u"Deneme"_s);
  const auto isRising = [&](int first, int last) {
    int wrong = 0;
    for (int line = first + 1; line <= last; ++line) {
      const auto at = [&](int row) { return query.valueAt(grid->model()->row(row).index, 0).toInteger(); };
      wrong += at(line) > at(line - 1) ? 0 : 1;
    }
    return wrong == 0;
  };
  grid->setColumnFilter(u"NO"_s, FilterOperator::Contains, u"7"_s);
  EXPECT_EQ(query.RecordCount(), count - 59049);  // five places without a seven, and the last number has none
  EXPECT_TRUE(isRising(0, query.RecordCount() - 1));
  grid->clearFilter();
  grid->setGrouping({u"AD"_s});
  ASSERT_EQ(grid->model()->rowCount(), 7);
  const GridGroup& group = grid->model()->rows().group(3);
  EXPECT_EQ(grid->model()->rows().groupSum(group, query.fieldIndex(u"TUTAR"_s)), 1.5 * group.count);
  grid->setAllExpanded(true);
  EXPECT_EQ(grid->model()->rowCount(), 7 + count + 7);
  EXPECT_TRUE(isRising(1, grid->model()->rows().group(0).count));
}

TEST_F(GridTest, DraggingACaptionIntoTheAreaGroups) {
  fill();
  show();
  grid->setGroupArea(true);
  QCoreApplication::processEvents();
  GridHeader* header = grid->view()->header();
  QWidget* viewport = header->viewport();
  const int column = grid->model()->columnOf(u"AD"_s);
  const QPoint from(header->sectionViewportPosition(column) + 60, 8);
  QTest::mousePress(viewport, Qt::LeftButton, {}, from);
  for (const int y : {0, -6, -12}) QTest::mouseMove(viewport, QPoint(from.x() + 5, y));
  QTest::mouseRelease(viewport, Qt::LeftButton, {}, QPoint(from.x() + 5, -12));
  EXPECT_EQ(grid->grouping(), QStringList{u"AD"_s});
  EXPECT_EQ(header->visualIndex(column), column) << "the column stays in its place";
}

TEST_F(GridTest, LettersSearchTheColumnOfTheCursor) {
  fill();
  show();
  grid->view()->setCurrentIndex(cell(0, u"AD"_s));
  type(u"ş"_s);
  EXPECT_EQ(grid->currentRow(), 4);
  EXPECT_EQ(grid->view()->searched(), u"ş"_s);
  type(u"x"_s);
  EXPECT_EQ(grid->currentRow(), 4) << "nothing starts so: the cursor stays";
  EXPECT_EQ(grid->view()->searched(), u"ş"_s);
  press(Qt::Key_Escape);
  EXPECT_EQ(grid->view()->searched(), QString());
  grid->view()->setCurrentIndex(cell(0, u"NO"_s));
  type(u"3"_s);
  EXPECT_EQ(grid->currentRow(), 2);
  grid->view()->setCurrentIndex(cell(0, u"TUTAR"_s));
  type(u"20"_s);
  EXPECT_EQ(grid->currentRow(), 1);
  press(Qt::Key_Down, Qt::ControlModifier);
  EXPECT_EQ(grid->currentRow(), 2) << "the next hit";
}

TEST_F(GridTest, SelectsSeveralRowsCopiesAndDeletesThem) {
  fill();
  show();
  grid->setMultiSelect(true);
  grid->setCurrentRow(1);
  press(Qt::Key_Down, Qt::ShiftModifier);
  press(Qt::Key_Down, Qt::ShiftModifier);
  EXPECT_EQ(grid->selectedRows(), (std::vector<int>{1, 2, 3}));
  press(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text(), u"2\tÇINAR\t20,50\t06.03.2026\tKAPALI\n3\tCAN\t20,50\t01.04.2026\tAÇIK\n"
                                               u"4\t\"ZEKI \"\"K\"\" O'NEIL\"\t-5,00\t\t"_s);
  grid->deleteSelectedRows();
  EXPECT_EQ(lines(u"NO"_s), (QStringList{u"1"_s, u"5"_s, u"6"_s}));
  EXPECT_EQ(scalar(u"select count(*) from deneme"_s), u"3"_s);
  grid->clearSelection();
  EXPECT_TRUE(grid->selectedRows().empty());
}

TEST_F(GridTest, LayoutIsKeptAndForeignFilesChangeNothing) {
  fill();
  show();
  QTemporaryDir folder;
  const QString file = folder.filePath(u"Düzen.ini"_s);
  EXPECT_FALSE(grid->restoreLayout(file));
  grid->view()->header()->moveSection(4, 1);
  grid->view()->setColumnWidth(grid->model()->columnOf(u"AD"_s), 222);
  grid->setColumnVisible(u"AN"_s, true);
  grid->setColumnVisible(u"KISA"_s, false);
  grid->setGrouping({u"TARIH"_s});
  grid->setOrder({{u"AD"_s, true}});
  grid->storeLayout(file);
  const auto shownThen = grid->view()->shownColumns();
  grid->resetLayout();
  EXPECT_NE(grid->view()->shownColumns(), shownThen);
  EXPECT_TRUE(grid->grouping().isEmpty());
  ASSERT_TRUE(grid->restoreLayout(file));
  EXPECT_EQ(grid->view()->shownColumns(), shownThen);
  EXPECT_EQ(grid->view()->columnWidth(grid->model()->columnOf(u"AD"_s)), 222);
  EXPECT_EQ(grid->grouping(), QStringList{u"TARIH"_s});
  EXPECT_EQ(grid->order(), (std::vector<GridSort>{{u"AD"_s, true}}));

  const QByteArray good = contentOf(file);
  grid->resetLayout();
  for (qsizetype length = 0; length <= good.size(); ++length) {
    put(file, good.left(length));
    grid->restoreLayout(file);
    EXPECT_FALSE(grid->view()->shownColumns().empty()) << length;
    EXPECT_FALSE(grid->isColumnVisible(u"ID"_s)) << "never offered";
  }
  for (const QByteArray& foreign : {QByteArray("[Window]\nleft=3\n"), QByteArray(100, '\0'), QByteArray("[S\xC3\xBCtunlar]\nAD=-5,1\nYOK=50,1\n"),
                                    QByteArray("[S\xC3\xBCtunlar]\nAD=100,0\nNO=100,0\n")}) {
    put(file, foreign);
    EXPECT_FALSE(grid->restoreLayout(file)) << foreign.constData();
  }
}

TEST_F(GridTest, AColumnShowsTheTextBehindAKeyAndIsSearchedSortedAndGroupedByIt) {
  fill();
  std::vector<GridColumn> shown = columns();
  const QStringList customers{u"ZEKİ"_s, u"ÖMER"_s, u"CAN"_s, u"ÇİÇEK"_s, u"OYA"_s, u"ZEKİ"_s};
  shown[3].groupSummary = GridSummary::None;
  shown[1].lookUp = [&](const Value& key) { return customers[key.toInteger() - 1]; };
  show(shown);
  grid->setFilterRow(true);
  EXPECT_EQ(lines(u"NO"_s), customers);
  grid->setColumnFilter(u"NO"_s, FilterOperator::Contains, u"oya"_s);
  EXPECT_EQ(lines(), QStringList{u"şeker"_s});
  grid->setColumnFilter(u"NO"_s, FilterOperator::Contains, u"can"_s);
  EXPECT_EQ(lines(), QStringList{u"CAN"_s}) << "rows that the filter before had hidden are searched as well";
  grid->clearFilter();
  grid->setOrder({{u"NO"_s, false}, {u"AD"_s, true}});
  EXPECT_EQ(lines(u"NO"_s), (QStringList{u"CAN"_s, u"ÇİÇEK"_s, u"OYA"_s, u"ÖMER"_s, u"ZEKİ"_s, u"ZEKİ"_s}));
  EXPECT_EQ(lines().mid(4), (QStringList{u"İSTAX"_s, u""_s})) << "one text behind two keys is one place in the order";
  grid->setGrouping({u"NO"_s});
  EXPECT_EQ(lines(), (QStringList{u"[NO: CAN (1)]"_s, u"[NO: ÇİÇEK (1)]"_s, u"[NO: OYA (1)]"_s, u"[NO: ÖMER (1)]"_s, u"[NO: ZEKİ (2)]"_s}));
  grid->setCurrentRow(5);
  EXPECT_EQ(grid->currentRow(), 5) << "its group opens";
}

TEST_F(GridTest, ColumnsAreChosenAndTheLastOneStays) {
  fill();
  show();
  grid->openColumnChooser();
  auto* list = grid->findChild<QListWidget*>();
  ASSERT_NE(list, nullptr);
  EXPECT_EQ(list->count(), 6) << "all but the one that is never offered";
  for (int i = 0; i < list->count(); ++i) list->item(i)->setCheckState(Qt::Unchecked);
  EXPECT_EQ(grid->view()->shownColumns().size(), 1u);
  EXPECT_EQ(list->item(list->count() - 1)->checkState(), Qt::Checked);
  list->window()->close();
  QMenu menu;
  grid->fillHeaderMenu(menu, u"AD"_s);
  for (const QAction* action : menu.actions())
    if (action->text() == u"Varsayılan görünüm"_s) const_cast<QAction*>(action)->trigger();
  EXPECT_EQ(grid->view()->shownColumns().size(), 5u);
}

// A screen's query is its member and ends before the base class takes the grid down.
TEST_F(GridTest, QueryMayEndBeforeItsGrid) {
  fill();
  auto own = std::make_unique<TMyQuery>(connection, u"own"_s);
  own->SQL.setText(u"select * from deneme"_s);
  own->Open();
  DataGrid other(*own, columns(), u"other"_s);
  other.show();
  ASSERT_GT(other.model()->rowCount(), 0);
  own.reset();
  EXPECT_EQ(other.model()->rowCount(), 0);
  QCoreApplication::processEvents();
  other.grab();
  EXPECT_FALSE(other.query().Active());
}
