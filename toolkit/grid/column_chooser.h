#pragma once

#include <QFrame>

class DataGrid;
class QListWidget;

/// The list of a grid's columns to tick on and off; closes by itself.
class ColumnChooser : public QFrame {
  Q_OBJECT
 public:
  explicit ColumnChooser(DataGrid* grid);
  void openAt(const QPoint& screenPlace);

 private:
  DataGrid* grid_;
  QListWidget* list_;
};
