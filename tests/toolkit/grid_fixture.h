#pragma once

#include "tests/data/query_fixture.h"
#include "tests/support/screen_test.h"
#include "toolkit/grid/data_grid.h"
#include "toolkit/grid/grid_model.h"
#include "toolkit/grid/grid_view.h"

/// A grid over the table "deneme", shown in a window of its own, its model watched over.
class GridTest : public QueryTest {
 public:
  static std::vector<GridColumn> columns();

 protected:
  void SetUp() override;
  void TearDown() override;

  /// Six rows with Turkish names, two of them with the same amount, one without a date.
  void fill();
  /// The names that fill() writes, in its order, with one more.
  static QStringList allNamesWith(const QString& more);
  /// Opens the query with all rows in the order of their keys and shows the grid over it.
  void show(std::vector<GridColumn> shown = columns());
  /// Texts of a column from top to bottom; groups in brackets, group footers as "=…", the line for new rows as "+".
  QStringList lines(const QString& field = QStringLiteral("AD")) const;
  void type(const QString& text) const {
    for (const QChar letter : text) ::type(target(), letter);  // the first one may open an editor
  }
  /// Types into a cell and goes on.
  void enter(const QString& text) const {
    type(text);
    press(Qt::Key_Return);
  }
  void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const {
    QTest::keyClick(target(), Qt::Key(key), modifiers);
    QCoreApplication::processEvents();  // an in-place editor gives its text over from the event loop
  }
  /// What has the keyboard within the grid: an in-place editor, a filter cell, or the rows.
  QWidget* target() const;
  QModelIndex cell(int line, const QString& field) const;

  std::unique_ptr<DataGrid> grid;
  std::unique_ptr<QAbstractItemModelTester> watch;
};
