#pragma once

#include "toolkit/report/designer/report_editor.h"

#include <QAbstractTableModel>

#include <functional>
#include <optional>

/// The properties that all selected nodes have, from the one table of them: captions at the left, values at the right. A value
/// in which the nodes differ is shown as differing. A page or the report is shown where nothing is selected.
class PropertyModel : public QAbstractTableModel {
  Q_OBJECT
 public:
  explicit PropertyModel(ReportEditor& editor, QObject* parent = nullptr);

  /// Only properties whose caption holds that text; empty for all.
  void setFilter(const QString& text);
  const PropertyInfo& property(int row) const { return *rows_[size_t(row)]; }
  /// Row of a property; -1 when it is not shown.
  int rowOf(QStringView property) const;
  /// Nothing when the nodes differ.
  const std::optional<PropertyValue>& value(int row) const { return values_[size_t(row)]; }
  /// One step of undo for all of them; made gets each node's own value.
  void change(int row, const std::function<PropertyValue(const PropertyValue& own)>& made);
  /// What that would change, of all selected nodes.
  PropertyChanges changes(int row, const std::function<PropertyValue(const PropertyValue& own)>& made) const;
  /// The nodes that are shown.
  const std::vector<ReportNode*>& nodes() const { return nodes_; }
  /// What is shown, as a heading: "Metin1 (Metin)", "3 nesne".
  QString heading() const;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;

 Q_SIGNALS:
  void headingChanged();

 private:
  void showSelection();
  void fillRows();
  void readValues();

  ReportEditor& editor_;
  std::vector<ReportNode*> nodes_;
  std::vector<const PropertyInfo*> rows_;
  std::vector<std::optional<PropertyValue>> values_;  ///< as they are now, by row
  QString filter_;
};

/// A value as people read it: "12,5 mm", "Arial 10, kalın", "Ortaya".
QString shownValue(const PropertyInfo& property, const PropertyValue& value);
