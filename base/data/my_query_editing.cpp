#include "base/data/latin5.h"
#include "base/data/my_query_rows.h"
#include "base/data/value.h"
#include "base/exceptions.h"

#include <mysql.h>

#include <algorithm>

using namespace Qt::StringLiterals;

QByteArray Field::asBytes() const {
  const int row = query_->RecNo();
  const auto& edited = query_->buffer_.empty() ? std::nullopt : query_->buffer_[size_t(index_)];
  if (edited) return edited->value_or(QByteArray());
  if (row < 0) return {};
  return query_->cell(query_->rows_[size_t(row)], index_).toByteArray();
}

void Field::set(const Value& value) const {
  query_->requireEditing();
  const FieldInfo& field = info();
  const auto* text = std::get_if<QString>(&value.data());
  const bool emptyAsNull = query_->Options.SetEmptyStrToNull && field.type == FieldType::Text && text != nullptr && text->isEmpty();
  query_->buffer_[size_t(index_)] = emptyAsNull ? Cell() : FieldCodec::encode(field, value);
  query_->notify([this](QueryListener& listener) { listener.rowChanged(query_->current_); });
}

void TMyQuery::requireEditing() const {
  if (state_ != QueryState::Edit && state_ != QueryState::Insert)
    throw EDatabaseError(u"%1: Dataset not in edit or insert mode"_s.arg(name_), name_, SQL.text());
}

void TMyQuery::Insert() {
  requireActive();
  if (state_ != QueryState::Browse) Post();
  const Row empty = ownRow(std::vector<Cell>(fields_.size()));
  rows_.push_back(empty);
  if (filter_) allRows_.push_back(empty);
  current_ = RecordCount() - 1;
  buffer_.assign(fields_.size(), std::nullopt);
  state_ = QueryState::Insert;
  notify([this](QueryListener& listener) { listener.rowInserted(current_); });
  if (OnNewRecord) OnNewRecord();
}

void TMyQuery::Edit() {
  if (state_ == QueryState::Edit || state_ == QueryState::Insert) return;
  requireRow();
  buffer_.assign(fields_.size(), std::nullopt);
  state_ = QueryState::Edit;
}

void TMyQuery::leaveEditing() {
  buffer_.clear();
  state_ = QueryState::Browse;
}

void TMyQuery::Cancel() {
  if (state_ == QueryState::Insert) {
    leaveEditing();
    removeShownRow(current_);
  } else if (state_ == QueryState::Edit) {
    leaveEditing();
    notify([this](QueryListener& listener) { listener.rowChanged(current_); });
  }
}

void TMyQuery::removeShownRow(int row) {
  if (filter_) std::erase(allRows_, rows_[size_t(row)]);
  rows_.erase(rows_.begin() + row);
  current_ = std::min(current_, RecordCount() - 1);
  eof_ = rows_.empty();
  notify([row](QueryListener& listener) { listener.rowRemoved(row); });
}

void TMyQuery::Post() {
  requireEditing();
  try {
    if (BeforePost) BeforePost();
    write(rows_[size_t(current_)]);
  } catch (const Exception& error) {
    if (OnPostError && OnPostError(error)) throw EAbort();
    throw;
  }
  leaveEditing();
  eof_ = false;
  notify([this](QueryListener& listener) { listener.rowChanged(current_); });
}

/// Writes the row in edit, to memory or to the server.
void TMyQuery::write(Row base) {
  const Row edited = ownRow(bufferedCells(base));
  if (CachedUpdates)
    cachePost(base, edited);
  else
    replaceRow(base, state_ == QueryState::Insert ? insertRow(edited) : updateRow(base, edited));
}

void TMyQuery::Delete() {
  if (state_ == QueryState::Insert) {
    Cancel();
    return;
  }
  requireRow();
  if (state_ == QueryState::Edit) leaveEditing();
  const Row row = rows_[size_t(current_)];
  if (!CachedUpdates) {
    removeFromServer(row);
  } else if (const auto change = changeOf(row); change == changes_.end()) {
    changes_.push_back({ChangeKind::Deleted, row, nullptr, current_});
  } else if (change->kind == ChangeKind::Inserted) {
    changes_.erase(change);
  } else {
    const Row original = change->original;
    changes_.erase(change);
    changes_.push_back({ChangeKind::Deleted, original, nullptr, current_});
  }
  removeShownRow(current_);
}

void TMyQuery::cachePost(Row base, Row current) {
  const auto change = changeOf(base);
  if (change != changes_.end())
    change->current = current;
  else if (state_ == QueryState::Insert)
    changes_.push_back({ChangeKind::Inserted, nullptr, current, current_});
  else
    changes_.push_back({ChangeKind::Modified, base, current, current_});
  replaceRow(base, current);
}

void TMyQuery::replaceRow(Row before, Row after) {
  if (current_ >= 0 && rows_[size_t(current_)] == before)
    rows_[size_t(current_)] = after;
  else
    std::replace(rows_.begin(), rows_.end(), before, after);
  std::replace(allRows_.begin(), allRows_.end(), before, after);
}

std::vector<TMyQuery::Change>::iterator TMyQuery::changeOf(Row current) {
  return std::find_if(changes_.begin(), changes_.end(),
                      [current](const Change& change) { return current != nullptr && change.current == current; });
}

void TMyQuery::ApplyUpdates() {
  if (state_ == QueryState::Edit || state_ == QueryState::Insert) Post();
  try {
    for (Change& change : changes_) {
      if (change.applied) continue;
      change.beforeApply = change.current;
      if (change.kind == ChangeKind::Deleted)
        removeFromServer(change.original);
      else
        change.current = change.kind == ChangeKind::Inserted ? insertRow(change.current) : updateRow(change.original, change.current);
      replaceRow(change.beforeApply, change.current);
      change.applied = true;
    }
  } catch (...) {
    RestoreUpdates();
    throw;
  }
}

void TMyQuery::CommitUpdates() {
  std::erase_if(changes_, [](const Change& change) { return change.applied; });
}

void TMyQuery::RestoreUpdates() {
  for (Change& change : changes_) {
    if (!change.applied) continue;
    replaceRow(change.current, change.beforeApply);
    change.current = change.beforeApply;
    change.applied = false;
  }
  notify([](QueryListener& listener) { listener.queryReset(); });
}

void TMyQuery::CancelUpdates() {
  if (state_ == QueryState::Edit || state_ == QueryState::Insert) Cancel();
  for (auto change = changes_.rbegin(); change != changes_.rend(); ++change) {
    if (change->kind == ChangeKind::Inserted) {
      std::erase(rows_, change->current);
      std::erase(allRows_, change->current);
    } else if (change->kind == ChangeKind::Modified) {
      replaceRow(change->current, change->original);
    } else {
      rows_.insert(rows_.begin() + std::min(change->position, RecordCount()), change->original);
      if (filter_) allRows_.push_back(change->original);
    }
  }
  changes_.clear();
  current_ = std::min(std::max(current_, 0), RecordCount() - 1);
  notify([](QueryListener& listener) { listener.queryReset(); });
}

Cell TMyQuery::cellOf(Row row, int field) const {
  return row[field] == nullptr ? Cell() : Cell(cell(row, field).toByteArray());
}

std::vector<Cell> TMyQuery::cellsOf(Row row) const {
  std::vector<Cell> cells;
  cells.reserve(fields_.size());
  for (int i = 0; i < fieldCount(); ++i) cells.push_back(cellOf(row, i));
  return cells;
}

bool TMyQuery::sameBytes(Row left, Row right, int field) const {
  if (left[field] == nullptr || right[field] == nullptr) return left[field] == right[field];
  return cell(left, field) == cell(right, field);
}

/// True for a column of the table that Post writes to; the same table joined to itself is another one.
bool TMyQuery::isWritten(int field) const {
  if (tableField_ < 0) return false;
  const FieldInfo& own = fields_[size_t(tableField_)];
  return fields_[size_t(field)].table == own.table && fields_[size_t(field)].alias == own.alias;
}

std::vector<Cell> TMyQuery::bufferedCells(Row base) const {
  std::vector<Cell> cells = cellsOf(base);
  for (size_t i = 0; i < cells.size(); ++i)
    if (buffer_[i]) cells[i] = *buffer_[i];
  return cells;
}

TMyQuery::Row TMyQuery::ownRow(const std::vector<Cell>& cells) {
  auto row = std::make_unique<OwnRow>();
  qsizetype size = 0;
  for (const Cell& value : cells)
    if (value) size += value->size() + 1;
  row->bytes.resize(size + 1);
  char* place = row->bytes.data();
  for (const Cell& value : cells) {
    row->cells.push_back(value ? place : nullptr);
    if (!value) continue;
    std::copy(value->begin(), value->end(), place);
    place += value->size();
    *place++ = '\0';
  }
  row->cells.push_back(place);
  ownRows_.push_back(std::move(row));
  return ownRows_.back()->cells.data();
}

QByteArray TMyQuery::identifier(const QString& name) const {
  return '`' + Latin5::encode(name, name_).replace('`', "``") + '`';
}

QByteArray TMyQuery::table() const {
  if (tableField_ < 0) throw EDatabaseError(u"%1: Cannot modify a read-only dataset"_s.arg(name_), name_, SQL.text());
  return identifier(fields_[size_t(tableField_)].table);
}

QByteArray TMyQuery::literal(int field, const Cell& value) const {
  if (!value) return "NULL"_ba;
  switch (fields_[size_t(field)].type) {
    case FieldType::Integer:
    case FieldType::Double:
    case FieldType::Decimal:
      return *value;
    case FieldType::Blob:
      return "_binary" + connection_.quoted(*value);
    default:
      return connection_.quoted(*value);
  }
}

/// The row's key as a condition; the qualifier, if any, comes before each column.
QByteArray TMyQuery::keyCondition(Row row, const QByteArray& qualifier) const {
  QByteArrayList conditions;
  for (int i = 0; i < fieldCount(); ++i)
    if (fields_[size_t(i)].isKey && isWritten(i))
      conditions += qualifier + identifier(fields_[size_t(i)].column) + '=' + literal(i, cellOf(row, i));
  if (conditions.isEmpty()) throw EDatabaseError(u"%1: Key fields are not in the dataset"_s.arg(name_), name_, SQL.text());
  return conditions.join(" AND ");
}

int TMyQuery::timestampField() const {
  for (int i = 0; i < fieldCount(); ++i)
    if (fields_[size_t(i)].isTimestamp && isWritten(i)) return i;
  return -1;
}

int TMyQuery::versionField() const { return Options.CheckRowVersion ? timestampField() : -1; }

/// Reads the new row version in the same round trip as the change, also while versions are not checked: the check may be
/// switched on before the row is written again.
QByteArray TMyQuery::versionQuery(const QByteArray& condition) const {
  const int version = timestampField();
  if (version < 0) return {};
  return ";SELECT " + identifier(fields_[size_t(version)].column) + " FROM " + table() + " WHERE " + condition;
}

TMyQuery::Row TMyQuery::insertRow(Row current) {
  QByteArrayList columns;
  QByteArrayList values;
  std::vector<Cell> cells = cellsOf(current);
  int autoIncrement = -1;
  for (int i = 0; i < fieldCount(); ++i) {
    const FieldInfo& field = fields_[size_t(i)];
    if (!isWritten(i)) continue;
    if (field.isAutoIncrement) autoIncrement = i;
    if (!cells[size_t(i)]) continue;
    columns += identifier(field.column);
    values += literal(i, cells[size_t(i)]);
  }
  const bool makesKey = autoIncrement >= 0 && !cells[size_t(autoIncrement)];
  QByteArray reread;
  if (timestampField() >= 0)
    reread = versionQuery(makesKey ? identifier(fields_[size_t(autoIncrement)].column) + "=LAST_INSERT_ID()" : keyCondition(current));
  const ExecutionResult result =
      run("INSERT INTO " + table() + " (" + columns.join(",") + ") VALUES (" + values.join(",") + ')' + reread);
  if (makesKey) cells[size_t(autoIncrement)] = QByteArray::number(result.lastInsertId);
  if (const MYSQL_ROW version = result.rows ? mysql_fetch_row(result.rows.get()) : nullptr)
    cells[size_t(timestampField())] = QByteArray(version[0]);
  return ownRow(cells);
}

TMyQuery::Row TMyQuery::updateRow(Row original, Row current) {
  QByteArrayList assignments;
  for (int i = 0; i < fieldCount(); ++i) {
    if (!isWritten(i) || sameBytes(original, current, i)) continue;
    const Cell after = cellOf(current, i);
    if (!FieldCodec::same(fields_[size_t(i)], cellOf(original, i), after))
      assignments += identifier(fields_[size_t(i)].column) + '=' + literal(i, after);
  }
  if (assignments.isEmpty()) return current;
  QByteArray condition = keyCondition(original);
  const int version = versionField();
  if (version >= 0 && original[version] != nullptr)
    condition += " AND " + identifier(fields_[size_t(version)].column) + '=' + literal(version, cellOf(original, version));
  QByteArray statement = "UPDATE " + table() + " SET " + assignments.join(",") + " WHERE " + condition;
  statement += versionQuery(keyCondition(current));
  const ExecutionResult result = run(statement);
  if (result.foundRows == 0) throw EDatabaseError(u"Update failed. Found 0 records"_s, name_, SQL.text());
  const MYSQL_ROW fresh = result.rows ? mysql_fetch_row(result.rows.get()) : nullptr;
  if (fresh == nullptr) return current;
  std::vector<Cell> cells = cellsOf(current);
  cells[size_t(timestampField())] = QByteArray(fresh[0]);
  return ownRow(cells);
}

/// Errors tell the statement that removes, with its parameters' names, and not the one that the rows came from.
void TMyQuery::removeFromServer(Row original) {
  QString told = SQLDelete.text();
  QByteArray statement;
  if (!told.isEmpty()) {
    for (int i = 0; i < fieldCount(); ++i)
      (*parameters_)[(u"old_"_s + fields_[size_t(i)].name).toCaseFolded()] =
          original[i] == nullptr ? Value() : FieldCodec::decode(fields_[size_t(i)], cell(original, i));
    statement = rendered(told);
  } else {
    const QByteArray head = "DELETE FROM " + table() + " WHERE ";
    statement = head + keyCondition(original);
    QStringList keys;
    for (int i = 0; i < fieldCount(); ++i)
      if (fields_[size_t(i)].isKey && isWritten(i)) keys += u"%1=:Old_%1"_s.arg(fields_[size_t(i)].name);
    told = QString::fromUtf8(head) + keys.join(u" AND "_s);
  }
  foundRows_ = connection_.execute(statement, name_, told).foundRows;
  if (SQLDelete.text().isEmpty() && foundRows_ == 0) throw EDatabaseError(u"Delete failed. Found 0 records"_s, name_, told);
}
