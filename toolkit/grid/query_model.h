#pragma once

#include "app/data/my_query.h"

#include <QAbstractTableModel>

#include <vector>

/// One column of a table over a query.
struct QueryColumn {
  QString field;
  QString caption;
  int width = 100;        ///< pixels at 100 %
  QString displayFormat;  ///< of numbers; empty shows the value as it is
  QString footerFormat;   ///< of the column's sum in the footer; empty for none
  bool stretches = false; ///< takes the room that is left
};

/// The rows of a query as a table model. With appending on, one more row stands below them; what is typed there becomes
/// a row of the query.
class QueryModel : public QAbstractTableModel, private QueryListener {
  Q_OBJECT
 public:
  /// The query must outlive the model.
  QueryModel(TMyQuery& query, std::vector<QueryColumn> columns, QObject* parent = nullptr);
  ~QueryModel() override;

  /// Lets cells be edited, rows be appended and deleted.
  void setEditable(bool editable);
  bool isEditable() const { return editable_; }
  bool isAppendRow(int row) const { return appending() && row == rows_; }
  const std::vector<QueryColumn>& columns() const { return columns_; }
  /// Sum of a column's numbers, NULL counting as 0.
  double sum(int column) const;
  TMyQuery& query() { return query_; }
  /// Deletes one row of the query. Throws EDatabaseError.
  void deleteRow(int row);

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;

  static QString appendHint();

 Q_SIGNALS:
  /// A typed value was not taken; message says why.
  void rejected(const QString& message);

 private:
  void queryReset() override;
  void rowChanged(int row) override;
  void rowInserted(int row) override;
  void rowRemoved(int row) override;

  bool appending() const { return editable_ && query_.Active(); }
  Value valueAt(int row, int column) const;
  bool isNumber(int column) const;
  void write(int row, int column, const QString& text);

  TMyQuery& query_;
  std::vector<QueryColumn> columns_;
  int rows_ = 0;
  int stillEmptyRow_ = -1;  ///< the append row while it is becoming a row of the query
  bool appendShown_ = false;
  bool editable_ = false;
};
