#pragma once

#include "toolkit/report/report_data.h"

#include <QWidget>

class QLineEdit;
class QTreeWidget;
class QTreeWidgetItem;

/// What a report can name, with explanations: variables, fields of the data sets, what the report tells of itself. Entries are
/// dragged onto the canvas, or chosen by Enter and double click.
class DataList : public QWidget {
  Q_OBJECT
 public:
  explicit DataList(QWidget* parent = nullptr);

  /// Fills the list; with functions, those of the expressions stand in it as well.
  void show(const ReportData& known, bool withFunctions = false);
  QTreeWidget* list() const { return list_; }

 Q_SIGNALS:
  /// An expression without brackets. isBarcode: Alt was held.
  void nameChosen(const QString& name, bool isBarcode);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void filter(const QString& text);
  void choose(const QTreeWidgetItem* item, bool isBarcode);
  void menuAt(QPoint place);

  QLineEdit* search_;
  QTreeWidget* list_;
};
