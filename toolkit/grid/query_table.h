#pragma once

#include "toolkit/grid/query_model.h"

#include <QPointer>
#include <QTableView>
#include <QWidget>

class QToolButton;
class TableFooter;

/// The view of a QueryTable: draws the empty text and the append row's hint, and moves on with Enter while editing.
class QueryTableView : public QTableView {
  Q_OBJECT
 public:
  explicit QueryTableView(QueryModel* model, QWidget* parent);
  void setEmptyText(const QString& text) { emptyText_ = text; }
  /// Why the cell being edited was not taken; empty when none was refused. Its editor stays open with the typed text.
  const QString& refusal() const { return refusal_; }
  /// Gives the refused cell's editor the keyboard.
  void focusRefusedEditor();
  void reset() override;

 Q_SIGNALS:
  /// Enter, or a double click on a row that cannot be edited.
  void rowChosen(int row);
  void deletePressed();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void commitData(QWidget* editor) override;
  void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;

 private:
  QueryModel* model_;
  QString refusal_;
  QPointer<QWidget> refusedEditor_;
  QString emptyText_;
};

/// A table over a query with a footer of sums. Read-only, or editable with an append row and a navigator.
class QueryTable : public QWidget {
  Q_OBJECT
 public:
  /// caption: what the table shows, for those who hear it. The query must outlive the table.
  QueryTable(TMyQuery& query, std::vector<QueryColumn> columns, const QString& caption, QWidget* parent = nullptr);

  void setEditable();
  void setMultiSelect();
  void setEmptyText(const QString& text) { view_->setEmptyText(text); }
  QueryTableView* view() { return view_; }
  QueryModel* model() { return model_; }
  /// Row of the query that the cursor stands on, -1 on the append row and when there is none.
  int currentRow() const;
  /// Rows of the query that are selected, top to bottom.
  std::vector<int> selectedRows() const;
  /// Deletes the row that the cursor stands on. Throws EDatabaseError.
  void deleteCurrentRow();

 Q_SIGNALS:
  void rowChosen(int row);
  /// A typed value was not taken; message says why.
  void rejected(const QString& message);

 private:
  void buildNavigator();
  void goToRow(int row);

  QueryModel* model_;
  QueryTableView* view_;
  TableFooter* footer_ = nullptr;
  QWidget* navigator_ = nullptr;
};
