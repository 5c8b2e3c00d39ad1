#pragma once

#include <QPointer>
#include <QTableView>

#include <functional>
#include <vector>

class GridHeader;
class GridModel;
struct GridRow;

/// The rows of a grid: paints them, moves the cursor, searches as the user types, edits in place.
class GridView : public QTableView {
  Q_OBJECT
 public:
  GridView(GridModel* model, QWidget* parent);

  GridHeader* header() const { return header_; }
  void setEmptyText(const QString& text);
  /// Line under the cursor; -1 when there is none.
  int currentLine() const { return currentIndex().row(); }
  /// Column under the cursor or where it last stood, the first visible one when there is none.
  int currentColumn() const;
  /// Visible columns from left to right.
  std::vector<int> shownColumns() const;
  void setCurrentLine(int line);
  /// Selects the lines that are wanted and no other; the cursor stays.
  void selectOnly(const std::function<bool(const GridRow& line)>& isWanted);
  /// Selected lines from top to bottom.
  std::vector<int> selectedLines() const;
  /// The selected data rows as text that a spreadsheet takes: columns parted by tabs, rows by line breaks.
  QString selectionText() const;

  /// True when the cursor may go to another line: the row in edit, if there is one, was written. An error goes to the
  /// application's handler, and the row stays in edit.
  bool mayLeaveRow(int line);
  /// Why the cell being edited was not taken; empty when none was refused. Its editor stays open with the typed text.
  const QString& refusal() const { return refusal_; }
  /// Gives the editor of a refused cell the keyboard.
  void focusRefusedEditor();
  /// What is being searched for; empty when nothing is.
  const QString& searched() const { return searched_; }
  /// Scrolls sideways until the column shows.
  void bringIntoView(int column);
  /// Width that shows the caption and the visible rows whole.
  int fittingWidth(int column) const;
  void reset() override;

 Q_SIGNALS:
  /// Enter or a double click on a data row.
  void lineChosen(int line);
  /// A group is to be opened or closed.
  void groupToggled(int group);
  void allGroupsToggled(bool expanded);
  void deleteAsked();
  void appendAsked();
  void currentLineChanged(int line);

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
  void scrollContentsBy(int dx, int dy) override;
  void updateGeometries() override;
  void commitData(QWidget* editor) override;
  void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;
  QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;

 private:
  void keepStretchedReadable();
  bool editingKey(const QKeyEvent& press);
  bool groupKey(const QKeyEvent& press);
  bool searchKey(const QKeyEvent& press);
  /// Finds the next line, from one on and round the end, whose cell begins with the text; false when there is none.
  bool search(const QString& text, int from, int step);
  void endSearch();
  void paintGroups(QPainter& painter);
  void editNext(QAbstractItemDelegate::EndEditHint hint);

  GridModel* model_;
  GridHeader* header_;
  QString emptyText_ = QStringLiteral("<Kayıt yok!>");
  QString searched_;
  bool moving_ = false;  ///< the search itself moves the cursor
  int lastColumn_ = -1;  ///< outlives a model that is read again
  QString refusal_;
  QPointer<QWidget> refusedEditor_;
};
