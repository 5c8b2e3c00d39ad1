#pragma once

#include "toolkit/edits/balloon.h"
#include "toolkit/grid/grid_column.h"

#include <QDialog>

#include <memory>
#include <vector>

class DataGrid;
class Exception;
class QVBoxLayout;
class TMyQuery;

/// What a list that is edited in place is, as its screen describes it.
struct InPlaceDescription {
  QString objectName;
  QString title;
  QString queryName;
  std::vector<GridColumn> columns;
  QString uniqueCaption;  ///< of the column that a duplicate is blamed on, whichever clashed
};

/// A modal list whose rows are typed into the grid itself: a new-item row on top, a navigator that deletes without a
/// question. A row that the server refuses stays in editing.
class InPlaceList : public QDialog {
  Q_OBJECT
 public:
  DataGrid* grid() const { return grid_; }
  void done(int result) override;

 protected:
  /// Works on DM's connection.
  InPlaceList(const InPlaceDescription& description, QWidget* parent);
  ~InPlaceList() override;

  TMyQuery& rows() { return *rows_; }
  QVBoxLayout* column() const { return column_; }
  /// Shows the list until it is closed.
  void showRows();

 private:
  bool tellDuplicate(const Exception& error);

  QString uniqueCaption_;
  const std::unique_ptr<TMyQuery> rows_;
  DataGrid* grid_;
  QVBoxLayout* column_;
  Balloon balloon_;
};
