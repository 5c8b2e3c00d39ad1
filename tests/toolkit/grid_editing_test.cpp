#include "base/data/value.h"
#include "tests/toolkit/grid_fixture.h"

#include "toolkit/shell/key_state_panel.h"

#include <random>

namespace {

std::vector<GridColumn> typedColumns() {
  std::vector<GridColumn> columns = GridTest::columns();
  for (GridColumn& column : columns)
    if (column.field == u"AD"_s) column.upperCase = true;
  return columns;
}

}  // namespace

TEST_F(GridTest, NewItemRowTakesARowAndKeepsOneThatIsRefused) {
  fill();
  int refusals = 0;
  query.OnPostError = [&](const Exception&) { return ++refusals > 0; };
  show(typedColumns());
  grid->setEditing(GridEditing::NewItemRow);
  QCoreApplication::processEvents();
  QTest::mouseClick(grid->view()->viewport(), Qt::LeftButton, {}, grid->view()->visualRect(cell(0, u"NO"_s)).center());
  type(u"7"_s);
  press(Qt::Key_Tab);
  enter(u"ışık i µ és\u0327"_s);
  EXPECT_EQ(lines().first(), u"+IŞIK İ µ éŞ"_s) << "the Turkish alphabet's capitals on leaving the cell, nothing sent yet";
  EXPECT_EQ(scalar(u"select count(*) from deneme"_s), u"6"_s);
  enter(u"12,50"_s);
  press(Qt::Key_Escape);
  QCoreApplication::processEvents();
  grid->view()->setCurrentLine(3);
  EXPECT_EQ(scalar(u"select concat(NO, '/', AD, '/', TUTAR) from deneme where NO = '7'"_s), u"7/IŞIK İ µ éŞ/12.5"_s);
  EXPECT_EQ(lines().size(), 8) << "six, the new one, and the line for the next";
  EXPECT_EQ(lines().last(), u"IŞIK İ µ éŞ"_s);

  // The same number once more: refused, and the row stays in edit with what was typed until it is given back.
  grid->view()->setCurrentIndex(cell(0, u"NO"_s));
  press(Qt::Key_F2);
  enter(u"7"_s);
  press(Qt::Key_Escape);
  grid->view()->setCurrentLine(3);
  EXPECT_EQ(refusals, 1);
  EXPECT_EQ(grid->view()->currentLine(), 0);
  EXPECT_EQ(query.state(), QueryState::Insert);
  EXPECT_EQ(lines(u"NO"_s).first(), u"+7"_s);
  EXPECT_FALSE(grid->postEdits());
  press(Qt::Key_Escape);
  EXPECT_EQ(query.state(), QueryState::Browse);
  grid->view()->setCurrentLine(3);
  EXPECT_EQ(grid->view()->currentLine(), 3);
  EXPECT_EQ(lines().size(), 8);
}

TEST_F(GridTest, CellsAreChangedInPlaceAndBadOnesStayOpen) {
  fill();
  show(typedColumns());
  grid->setEditing(GridEditing::NewItemRow);
  QSignalSpy rejected(grid.get(), &DataGrid::rejected);
  grid->view()->setCurrentIndex(cell(2, u"TUTAR"_s));
  press(Qt::Key_F2);
  EXPECT_EQ(qobject_cast<QLineEdit*>(target())->text(), u"20,5"_s);
  qobject_cast<QLineEdit*>(target())->selectAll();
  enter(u"on"_s);
  QCoreApplication::processEvents();
  EXPECT_EQ(rejected.size(), 1);
  ASSERT_NE(qobject_cast<QLineEdit*>(target()), nullptr) << "the editor stays open";
  qobject_cast<QLineEdit*>(target())->selectAll();
  enter(u"99"_s);
  press(Qt::Key_Escape);
  press(Qt::Key_Down);
  EXPECT_EQ(scalar(u"select TUTAR from deneme where NO = '2'"_s), u"99"_s);
  // A row changed by another workstation meanwhile is not overwritten; the refusal keeps the row in edit.
  query.Refresh();
  grid->view()->setCurrentIndex(cell(2, u"TUTAR"_s));
  press(Qt::Key_F2);
  type(u"5"_s);
  database.secondConnection().execute("update deneme set TUTAR = 1 where NO = '2'");
  int refusals = 0;
  query.OnPostError = [&](const Exception& error) {
    EXPECT_EQ(error.message(), u"Update failed. Found 0 records"_s);
    return ++refusals > 0;
  };
  press(Qt::Key_Return);
  press(Qt::Key_Escape);
  press(Qt::Key_Down);
  EXPECT_EQ(refusals, 1);
  EXPECT_EQ(query.state(), QueryState::Edit);
  press(Qt::Key_Escape);
}

TEST_F(GridTest, NavigatorAppendsAndDeletes) {
  fill();
  query.CachedUpdates = true;
  show(typedColumns());
  grid->setEditing(GridEditing::Append);
  const auto click = [&](const char* name) {
    QTest::mouseClick(grid->findChild<QToolButton*>(QLatin1StringView(name)), Qt::LeftButton);
    QCoreApplication::processEvents();
  };
  click("add");
  enter(u"8"_s);
  enter(u"yeni"_s);
  press(Qt::Key_Escape);
  click("add");
  EXPECT_EQ(lines(), (QStringList() << allNamesWith(u"YENİ"_s) << u""_s));
  press(Qt::Key_Escape);
  press(Qt::Key_Escape);
  EXPECT_EQ(lines(), allNamesWith(u"YENİ"_s));
  click("first");
  click("delete");
  EXPECT_EQ(lines().size(), 6);
  EXPECT_EQ(scalar(u"select count(*) from deneme"_s), u"6"_s) << "nothing is written before it is applied";
  query.ApplyUpdates();
  query.CommitUpdates();
  EXPECT_EQ(scalar(u"select group_concat(NO order by ID) from deneme"_s), u"2,3,4,5,6,8"_s);
}

// Whatever the order, a new row stands last until the rows are ordered anew; under grouping until it is written.
TEST_F(GridTest, NewRowsComeAtTheEndAlsoOfSortedOnes) {
  fill();
  show(typedColumns());
  const auto add = [&](int key, const QString& number, const QString& name) {
    press(key);
    enter(number);
    enter(name);
    press(Qt::Key_Escape);
    EXPECT_TRUE(grid->postEdits());
  };
  grid->setOrder({{u"AD"_s, false}});
  const QStringList sorted{u""_s, u"CAN"_s, u"ÇINAR"_s, u"İSTAX"_s, u"şeker"_s, u"ZEKI \"K\" O'NEIL"_s};
  grid->setEditing(GridEditing::Append);
  add(Qt::Key_Insert, u"7"_s, u"mert"_s);
  add(Qt::Key_Insert, u"8"_s, u"ali"_s);
  EXPECT_EQ(lines(), sorted + QStringList({u"MERT"_s, u"ALİ"_s}));
  grid->setCurrentRow(2);
  grid->deleteSelectedRows();
  EXPECT_EQ(lines().mid(0, 2), (QStringList{u""_s, u"ÇINAR"_s}));
  EXPECT_EQ(grid->currentRow(), 1) << "the row that stood below";
  grid->setEditing(GridEditing::NewItemRow);
  add(Qt::Key_Insert, u"9"_s, u"berk"_s);
  EXPECT_EQ(lines().mid(6), (QStringList{u"şeker"_s, u"ZEKI \"K\" O'NEIL"_s, u"BERK"_s}));
  EXPECT_EQ(scalar(u"select group_concat(NO order by NO) from deneme"_s), u"1,2,4,5,6,7,8,9"_s);
  grid->setEditing(GridEditing::Append);
  grid->setGrouping({u"KISA"_s});
  const KeyStatePanel keys;
  QTest::keyClick(grid->windowHandle(), Qt::Key_Insert);
  EXPECT_FALSE(std::ranges::any_of(keys.findChildren<QLabel*>(), [](const QLabel* label) { return label->text() == u"OVR"_s; }))
      << "the key adds a row and does nothing else";
  EXPECT_EQ(lines().size(), 4);
  EXPECT_TRUE(lines().first().startsWith(u"[DURUM: <boş> (4)"_s)) << "a row that is being written belongs to no group";
  EXPECT_EQ(grid->view()->currentLine(), 3);
  enter(u"10"_s);
  press(Qt::Key_Escape);
  EXPECT_TRUE(grid->postEdits());
  EXPECT_TRUE(lines().first().startsWith(u"[DURUM: <boş> (5)"_s));
}

TEST_F(GridTest, AssistiveSoftwareWalksTheGridWhileRowsChange) {
  fill();
  show(typedColumns());
  grid->setFilterRow(true);
  grid->setEditing(GridEditing::NewItemRow);
  QCoreApplication::processEvents();
  QAccessible::setActive(true);
  std::mt19937 random(7);
  int named = 0;
  std::vector<QAccessible::Id> handedOut;
  const std::function<void(QAccessibleInterface*, int)> walk = [&](QAccessibleInterface* place, int depth) {
    if (place == nullptr || !place->isValid() || depth > 6) return;
    if (!place->text(QAccessible::Name).isEmpty()) ++named;
    place->role();
    place->state();
    place->rect();
    for (int i = 0; i < place->childCount(); ++i) {
      QAccessibleInterface* child = place->child(i);
      if (child != nullptr && child->tableCellInterface() != nullptr) handedOut.push_back(QAccessible::uniqueId(child));
      walk(child, depth + 1);
    }
  };
  QAccessibleInterface* root = QAccessible::queryAccessibleInterface(grid.get());
  for (int round = 0; round < 60; ++round) {
    walk(root, 0);
    switch (random() % 8) {
      case 0:
        grid->setGrouping({u"KISA"_s});
        grid->setAllExpanded(true);
        break;
      case 1:
        grid->clearGrouping();
        break;
      case 2:
        grid->setColumnFilter(u"NO"_s, FilterOperator::Contains, QString::number(random() % 9));
        break;
      case 3:
        grid->clearFilter();
        break;
      case 4:
        query.Close();
        walk(root, 0);
        query.Open();
        break;
      case 5:
        if (query.RecordCount() > 3) grid->model()->deleteRow(int(random() % unsigned(query.RecordCount())));
        break;
      case 6:
        query.Insert();
        query.FieldByName(u"AD"_s).set(u"SATIR %1"_s.arg(round));
        walk(root, 0);
        query.Post();
        break;
      default:
        grid->setColumnVisible(u"AN"_s, !grid->isColumnVisible(u"AN"_s));
    }
    // Cells that were handed out stay safe to ask for, whatever became of their rows.
    for (const QAccessible::Id id : handedOut)
      if (QAccessibleInterface* cell = QAccessible::accessibleInterface(id)) {
        cell->text(QAccessible::Name);
        cell->state();
        cell->rect();
      }
    handedOut.clear();
    QCoreApplication::processEvents();
  }
  EXPECT_GT(named, 1000);

  // Captions, cells and search cells are found by name; a cell is reached as row and column.
  grid->clearFilter();
  grid->clearGrouping();
  QAccessibleInterface* rows = QAccessible::queryAccessibleInterface(grid->view());
  EXPECT_EQ(rows->text(QAccessible::Name), u"Denemeler"_s);
  ASSERT_NE(rows->tableInterface(), nullptr);
  EXPECT_EQ(rows->tableInterface()->rowCount(), grid->model()->rowCount());
  const int names = grid->model()->columnOf(u"AD"_s);
  QAccessibleInterface* found = rows->tableInterface()->cellAt(1, names);
  ASSERT_NE(found, nullptr);
  EXPECT_EQ(found->text(QAccessible::Name), lines()[1]);
  EXPECT_EQ(rows->tableInterface()->columnDescription(names), u"MÜŞTERİ ADI"_s);
  QStringList searchCells;
  for (const QLineEdit* line : grid->findChildren<QLineEdit*>())
    searchCells += QAccessible::queryAccessibleInterface(const_cast<QLineEdit*>(line))->text(QAccessible::Name);
  EXPECT_TRUE(searchCells.contains(u"MÜŞTERİ ADI filtresi"_s));
  QAccessible::setActive(false);
}
