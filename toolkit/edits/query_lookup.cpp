#include "toolkit/edits/query_lookup.h"

#include "base/data/my_query.h"
#include "base/data/value.h"

int QueryLookup::rowCount() const { return query_->Active() ? query_->RecordCount() : 0; }

void QueryLookup::forgetQuery() { query_ = &TMyQuery::ended(); }

QString QueryLookup::textOf(int row, const QString& field) const {
  const int index = query_->fieldIndex(field);
  return index < 0 ? QString() : query_->valueAt(row, index).toText();
}

KeyedLookup::KeyedLookup(TMyQuery& query, std::vector<Column> columns, QString keyField)
    : QueryLookup(query, std::move(columns)), keyField_(std::move(keyField)) {
  query.addListener(this);
}

KeyedLookup::~KeyedLookup() { query().removeListener(this); }

Value KeyedLookup::key(int row) const {
  const int field = query().fieldIndex(keyField_);
  return field < 0 ? Value() : query().valueAt(row, field);
}

int KeyedLookup::rowOf(const Value& key) const {
  if (key.isNull()) return -1;
  if (!rows_) {
    rows_.emplace();
    rows_->reserve(rowCount());
    for (int row = 0; row < rowCount(); ++row) rows_->insert(this->key(row).toInteger(), row);
  }
  return rows_->value(key.toInteger(), -1);
}

QString KeyedLookup::textOfKey(const Value& key) const {
  const int row = rowOf(key);
  return row < 0 ? QString() : text(row, 0);
}
