#pragma once

#include "base/data/query_listener.h"
#include "toolkit/edits/lookup_source.h"

#include <QHash>

#include <optional>

class TMyQuery;
class Value;

/// Entries of a look-up box out of a query's rows.
class QueryLookup : public LookupSource {
 public:
  struct Column {
    QString field;
    QString caption;
    int width;
  };
  /// The query must outlive the look-up, as far as it is looked at.
  QueryLookup(TMyQuery& query, std::vector<Column> columns) : query_(&query), columns_(std::move(columns)) {}

  int rowCount() const override;
  int columnCount() const override { return int(columns_.size()); }
  QString text(int row, int column) const override { return textOf(row, columns_[size_t(column)].field); }
  QString caption(int column) const override { return columns_[size_t(column)].caption; }
  int width(int column) const override { return columns_[size_t(column)].width; }
  /// Any column of a row.
  QString textOf(int row, const QString& field) const;

 protected:
  TMyQuery& query() const { return *query_; }
  void forgetQuery();

 private:
  TMyQuery* query_;
  std::vector<Column> columns_;
};

/// The same with a key by which other tables name a row.
class KeyedLookup : public QueryLookup, private QueryListener {
 public:
  KeyedLookup(TMyQuery& query, std::vector<Column> columns, QString keyField);
  ~KeyedLookup() override;
  KeyedLookup(const KeyedLookup&) = delete;
  KeyedLookup& operator=(const KeyedLookup&) = delete;

  Value key(int row) const;
  /// -1 when there is none.
  int rowOf(const Value& key) const;
  /// What stands in column 0 for a key; empty when there is no such row.
  QString textOfKey(const Value& key) const;

 private:
  void queryReset() override { rows_.reset(); }
  void rowChanged(int) override { rows_.reset(); }
  void rowInserted(int) override { rows_.reset(); }
  void rowRemoved(int) override { rows_.reset(); }
  void queryEnds() override {
    forgetQuery();
    rows_.reset();
  }

  QString keyField_;
  mutable std::optional<QHash<qint64, int>> rows_;  ///< by key; worked out when somebody asks
};
