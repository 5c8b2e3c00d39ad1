#pragma once

#include "toolkit/report/designer/property_model.h"

#include <QPointer>
#include <QWidget>

class PropertyEdit;
class QLabel;
class QLineEdit;
class QTableView;
struct DesignSample;

/// Shows and changes the properties of what is selected: one box per type of value, a search above. A value that is
/// refused changes nothing and is told with its reason.
class Inspector : public QWidget {
  Q_OBJECT
 public:
  Inspector(ReportEditor& editor, const DesignSample& sample, QWidget* parent = nullptr);

  PropertyModel& model() { return *model_; }
  QTableView* table() const { return table_; }
  /// Opens the box of a property; goes to the list of them when it is not shown.
  void edit(QStringView property);
  /// Takes over what is being written, and closes its box.
  void endEdit();
  /// What is being written, as the change that taking it over would be; nothing when it is no value.
  PropertyChanges written() const;

 Q_SIGNALS:
  /// Why a value was not taken; empty when one was.
  void refused(const QString& reason);

 private:
  PropertyModel* model_;
  QLabel* heading_;
  QLineEdit* search_;
  QTableView* table_;
  QString row_;  ///< property of the row that was current last
  QPointer<PropertyEdit> box_;  ///< that is open
  friend class PropertyDelegate;
};
