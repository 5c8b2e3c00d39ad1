#pragma once

#include "toolkit/edits/lookup_source.h"

#include <QAbstractTableModel>

#include <vector>

/// The rows of a LookupSource that fit a typed text, in the order in which they fit. Texts are read as they are shown.
class LookupModel : public QAbstractTableModel {
  Q_OBJECT
 public:
  using QAbstractTableModel::QAbstractTableModel;

  /// Null for none; not owned.
  void setSource(const LookupSource* source);
  /// Rows whose column 0 begins with text, then those that hold it; all for an empty text.
  void setFilter(const QString& text);
  /// First row of the source whose column 0 equals the filter's text; -1 when there is none.
  int equalRow() const { return equalRow_; }
  int sourceRow(int row) const { return rows_.at(size_t(row)); }
  /// Row of this model that shows that row of the source; -1 when it is filtered away.
  int rowOf(int sourceRow) const;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  void filter();

  LookupSourcePointer source_;
  std::vector<int> rows_;
  QString wanted_;  ///< the filter, folded
  int equalRow_ = -1;
};
