#include "base/data/my_query.h"

#include "base/data/auto_refresh.h"
#include "base/data/latin5.h"
#include "base/data/my_query_rows.h"
#include "base/data/sql_text.h"
#include "base/data/value.h"
#include "base/exceptions.h"
#include "base/parallel.h"

#include <QSet>

#include <mysql.h>

#include <algorithm>
#include <charconv>

using namespace Qt::StringLiterals;

namespace {

// Of rows that lie scattered the pointers are asked of the memory first, then the bytes that they lead to.
constexpr size_t farAhead = 16;
constexpr size_t nearAhead = 8;

QString folded(const QString& name) { return name.toCaseFolded(); }

/// A value inside a statement.
QByteArray literalOf(const TMyConnection& connection, const QString& name, const Value& value) {
  const auto quotedText = [&](const QString& text) { return connection.quoted(Latin5::encode(text, name)); };
  if (value.isNull()) return "NULL"_ba;
  if (const auto* text = std::get_if<QString>(&value.data())) return quotedText(*text);
  if (const auto* bytes = std::get_if<QByteArray>(&value.data())) return "_binary" + connection.quoted(*bytes);
  if (const auto* number = std::get_if<Decimal>(&value.data())) return number->text.toLatin1();
  if (const auto* date = std::get_if<QDate>(&value.data())) return quotedText(date->toString(Qt::ISODate));
  if (const auto* time = std::get_if<QTime>(&value.data())) return quotedText(time->toString(u"HH:mm:ss"_s));
  if (const auto* moment = std::get_if<QDateTime>(&value.data())) return quotedText(moment->toString(u"yyyy-MM-dd HH:mm:ss"_s));
  if (std::holds_alternative<ZeroDate>(value.data())) return "'0000-00-00'"_ba;
  if (const auto* number = std::get_if<qint64>(&value.data())) return QByteArray::number(*number);
  FieldInfo number;
  number.name = name;
  number.type = FieldType::Double;
  return *FieldCodec::encode(number, value);
}

}  // namespace

const FieldInfo& Field::info() const { return query_->fieldInfo(index_); }
bool Field::isNull() const { return value().isNull(); }
Value Field::value() const { return query_->valueAt(query_->RecNo(), index_); }
QString Field::asText() const { return value().toText(); }
double Field::asDouble() const { return value().toDouble(); }
qint64 Field::asInteger() const { return value().toInteger(); }
QDate Field::asDate() const { return value().toDate(); }
QTime Field::asTime() const { return value().toTime(); }
void Field::Clear() const { set({}); }

TMyQuery::TMyQuery(TMyConnection& connection, QString name)
    : connection_(connection), name_(std::move(name)), parameters_(std::make_unique<QHash<QString, Value>>()) {}
TMyQuery::~TMyQuery() {
  notify([](QueryListener& listener) { listener.queryEnds(); });
}

TMyQuery& TMyQuery::ended() {
  static TMyConnection noConnection;
  static TMyQuery query(noConnection, u"ended"_s);
  return query;
}

Value& TMyQuery::ParamByName(const QString& name) {
  for (const QString& known : SqlText::names(SQL.text() + u'\n' + SQLDelete.text(), SqlText::TokenKind::Parameter))
    if (folded(known) == folded(name)) return (*parameters_)[folded(name)];
  throw EDatabaseError(u"Parameter '%1' not found"_s.arg(name), name_, SQL.text());
}

QString& TMyQuery::MacroByName(const QString& name) {
  for (const QString& known : SqlText::names(SQL.text(), SqlText::TokenKind::Macro))
    if (folded(known) == folded(name)) return macros_[folded(name)];
  throw EDatabaseError(u"Macro '%1' not found"_s.arg(name), name_, SQL.text());
}

void TMyQuery::AddWhere(const QString& condition) { SQL.setText(SqlText::withCondition(SQL.text(), condition)); }
void TMyQuery::AddWhere(const FilterExpression& filter) {
  QHash<QString, Value> values;
  AddWhere(filter.asSql(values));
  for (auto value = values.begin(); value != values.end(); ++value) ParamByName(value.key()) = value.value();
}

void TMyQuery::DeleteWhere() { SQL.setText(SqlText::withoutConditions(SQL.text())); }
void TMyQuery::SetOrderBy(const QString& columns) { SQL.setText(SqlText::withOrder(SQL.text(), columns)); }

QString TMyQuery::withMacros(const QString& text) const {
  return SqlText::replaced(text, SqlText::TokenKind::Macro, [this](const QString& name) { return macros_.value(folded(name)); });
}

QByteArray TMyQuery::rendered(const QString& text) const {
  using enum SqlText::TokenKind;
  const QString expanded = withMacros(text);
  QByteArray statement;
  for (const auto& token : SqlText::tokens(expanded)) {
    const QString piece = expanded.mid(token.begin, token.length);
    if (token.kind == Parameter)
      statement += literalOf(connection_, piece.mid(1), parameters_->value(folded(piece.mid(1))));
    else
      statement += Latin5::encode(piece, name_);
  }
  return statement;
}

ExecutionResult TMyQuery::run(const QByteArray& statements) {
  ExecutionResult result = connection_.execute(statements, name_, SQL.text());
  foundRows_ = result.foundRows;
  if (result.lastInsertId != 0) lastInsertId_ = result.lastInsertId;
  return result;
}

void TMyQuery::Open() { openAt(0); }

ResultPtr TMyQuery::fetched(const QByteArray& statement) {
  ExecutionResult result = run(statement);
  if (!result.rows) throw EDatabaseError(u"SQL statement doesn't return rows"_s, name_, SQL.text());
  return std::move(result.rows);
}

void TMyQuery::openAt(int row) { takeRows(fetched(), row); }

void TMyQuery::OpenShared(const QByteArray& version) {
  const QByteArray statement = rendered(SQL.text());
  TMyConnection::SharedRows& shared = connection_.sharedRows(statement);
  if (shared.rows == nullptr || shared.version != version) {
    shared.rows = fetched(statement);
    shared.version = version;
  }
  if (result_ != shared.rows || !ownRows_.empty() || !changes_.empty()) takeRows(shared.rows, std::max(current_, 0));
}

void TMyQuery::Execute() {
  if (Active()) Close();
  run(rendered(SQL.text()));
}

void TMyQuery::takeRows(std::shared_ptr<st_mysql_res> rows, int current, const std::optional<QByteArray>& key) {
  const MYSQL_FIELD* columns = mysql_fetch_fields(rows.get());
  const unsigned count = mysql_num_fields(rows.get());
  fields_.clear();
  fieldByName_.clear();
  for (unsigned i = 0; i < count; ++i) {
    fields_.push_back(FieldCodec::describe(columns[i]));
    const QString name = folded(fields_.back().name);
    if (!fieldByName_.contains(name)) fieldByName_.insert(name, int(i));
  }
  const auto first = std::find_if(fields_.begin(), fields_.end(), [](const FieldInfo& field) { return !field.table.isEmpty(); });
  tableField_ = first == fields_.end() ? -1 : int(first - fields_.begin());

  ownRows_.clear();
  changes_.clear();
  buffer_.clear();
  rows_.clear();
  rows_.reserve(mysql_num_rows(rows.get()));
  mysql_data_seek(rows.get(), 0);
  // The library's rows are a linked list, each one far from the next: waiting for them costs most of this loop. They lie
  // about evenly, so where a later one begins is guessed from the last distance, and asked for with its neighbourhood.
  constexpr ptrdiff_t rowsAhead = 4;
  constexpr ptrdiff_t cacheLine = 64;
  uintptr_t before = 0;
  for (const MYSQL_ROWS* row = mysql_row_tell(rows.get()); row != nullptr; row = row->next) {
    const auto place = reinterpret_cast<uintptr_t>(row);
    const uintptr_t guess = place + rowsAhead * (place - before);
    for (ptrdiff_t line = -2; line <= 2; ++line) __builtin_prefetch(reinterpret_cast<const char*>(guess + size_t(line * cacheLine)));
    before = place;
    rows_.push_back(row->data);
  }
  result_ = std::move(rows);
  state_ = QueryState::Browse;
  allRows_.clear();
  if (filter_) {
    allRows_.swap(rows_);
    applyFilter();
  }
  const auto sameKey = std::find_if(rows_.begin(), rows_.end(), [&](Row row) { return key && keyOf(row) == key; });
  if (sameKey != rows_.end()) current = int(sameKey - rows_.begin());
  current_ = rows_.empty() ? -1 : std::clamp(current, 0, RecordCount() - 1);
  eof_ = rows_.empty();
  notify([](QueryListener& listener) { listener.queryReset(); });
}

void TMyQuery::Close() {
  if (!Active()) return;
  state_ = QueryState::Inactive;
  rows_.clear();
  rows_.shrink_to_fit();
  allRows_.clear();
  allRows_.shrink_to_fit();
  changes_.clear();
  ownRows_.clear();
  buffer_.clear();
  result_.reset();
  fields_.clear();
  fieldByName_.clear();
  tableField_ = -1;
  current_ = -1;
  eof_ = true;
  notify([](QueryListener& listener) { listener.queryReset(); });
}

void TMyQuery::Refresh() {
  requireActive();
  openAt(current_);
}

void TMyQuery::refreshIfChanged() {
  requireActive();
  ResultPtr rows = fetched();
  if (!holdsRows(rows.get())) takeRows(std::move(rows), current_, current_ < 0 ? std::nullopt : keyOf(rows_[size_t(current_)]));
}

/// True when these are the rows that the query holds, in the same order.
bool TMyQuery::holdsRows(st_mysql_res* rows) const {
  const std::vector<Row>& held = filter_ ? allRows_ : rows_;
  if (mysql_num_fields(rows) != fields_.size() || mysql_num_rows(rows) != held.size()) return false;
  for (const Row row : held) {
    const MYSQL_ROW fresh = mysql_fetch_row(rows);
    for (int field = 0; field < fieldCount(); ++field)
      if ((row[field] == nullptr) != (fresh[field] == nullptr) || cell(row, field) != cell(fresh, field)) return false;
  }
  return true;
}

/// What tells the row from the table's others; nothing when the query has no such columns.
std::optional<QByteArray> TMyQuery::keyOf(Row row) const {
  QByteArray key;
  for (int field = 0; field < fieldCount(); ++field)
    if (fields_[size_t(field)].isKey && isWritten(field)) key.append(cell(row, field)).append('|');
  return key.isEmpty() ? std::nullopt : std::optional(key);
}

AutoRefresh& TMyQuery::autoRefresh() {
  if (!autoRefresh_) autoRefresh_ = std::make_unique<AutoRefresh>(*this);
  return *autoRefresh_;
}

void TMyQuery::RefreshRecord() {
  requireRow();
  // The key alone decides: a row that has left the statement's own condition is still there to be edited.
  const QString keyed = SqlText::withCondition(SqlText::withoutConditions(withMacros(SQL.text())), u":__key"_s);
  // Another table of the statement may have a column of the same name.
  const QByteArray qualifier = tableField_ < 0 ? QByteArray() : identifier(fields_[size_t(tableField_)].alias) + '.';
  QByteArray statement;
  const QString marker = u":__key"_s;
  const qsizetype place = keyed.indexOf(marker);
  statement = rendered(keyed.left(place)) + keyCondition(rows_[size_t(current_)], qualifier) + rendered(keyed.mid(place + marker.size()));
  const ExecutionResult result = run(statement);
  const MYSQL_ROW fresh = result.rows ? mysql_fetch_row(result.rows.get()) : nullptr;
  if (fresh == nullptr) throw EDatabaseError(u"Refresh failed. Found 0 records"_s, name_, SQL.text());
  replaceRow(rows_[size_t(current_)], ownRow(cellsOf(fresh)));
  notify([this](QueryListener& listener) { listener.rowChanged(current_); });
}

void TMyQuery::setFilter(std::optional<FilterExpression> filter) {
  if (state_ == QueryState::Edit || state_ == QueryState::Insert) Post();
  if (!Active()) {
    filter_ = std::move(filter);
    return;
  }
  const Row shown = current_ < 0 ? nullptr : rows_[size_t(current_)];
  if (filter) filter->compiled(fields_);  // a filter that does not fit these columns changes nothing
  if (!filter_) allRows_.swap(rows_);
  filter_ = std::move(filter);
  if (filter_) {
    applyFilter();
  } else {
    rows_.swap(allRows_);
    allRows_.clear();
    allRows_.shrink_to_fit();
  }
  const auto place = std::find(rows_.begin(), rows_.end(), shown);
  current_ = rows_.empty() ? -1 : place == rows_.end() ? 0 : int(place - rows_.begin());
  eof_ = rows_.empty();
  notify([](QueryListener& listener) { listener.queryReset(); });
}

void TMyQuery::applyFilter() {
  const FilterExpression::RowTest test = filter_->compiled(fields_);
  std::vector<std::vector<Row>> passed(Parallel::partsOf(allRows_.size()));
  Parallel::run(allRows_.size(), [&](size_t part, size_t begin, size_t end) {
    std::vector<Row> own;
    Row row = nullptr;
    int asked = 0;  // what one row was asked for, the next ones will be
    const FilterExpression::CellReader reader = [this, &row, &asked](int field) -> std::optional<QByteArrayView> {
      asked = field;
      if (row[field] == nullptr) return std::nullopt;
      return cell(row, field);
    };
    for (size_t i = begin; i < end; ++i) {
      fetchAhead(std::span(allRows_).subspan(i), asked);
      row = allRows_[i];
      if (test(reader)) own.push_back(row);
    }
    passed[part] = std::move(own);
  });
  rows_ = std::move(passed.front());
  for (size_t part = 1; part < passed.size(); ++part) rows_.insert(rows_.end(), passed[part].begin(), passed[part].end());
}

void TMyQuery::fetchAhead(std::span<const Row> next, int field) {
  if (next.size() > farAhead) __builtin_prefetch(next[farAhead] + field);
  if (next.size() > nearAhead) __builtin_prefetch(next[nearAhead][field]);
}

void TMyQuery::prepareCells(std::span<const int> next, int field) const {
  if (next.size() > farAhead) __builtin_prefetch(rows_[size_t(next[farAhead])] + field);
  if (next.size() > nearAhead) __builtin_prefetch(rows_[size_t(next[nearAhead])][field]);
}

double TMyQuery::sumOf(int field) const {
  double sum = 0;
  for (size_t i = 0; i < rows_.size(); ++i) {
    fetchAhead(std::span(rows_).subspan(i), field);
    const QByteArrayView digits = cell(rows_[i], field);
    double number = 0;
    std::from_chars(digits.begin(), digits.end(), number);
    sum += number;
  }
  return sum;
}

int TMyQuery::RecordCount() const { return int(rows_.size()); }

void TMyQuery::setRecNo(int row) {
  if (state_ == QueryState::Edit || state_ == QueryState::Insert) Post();
  current_ = RecordCount() == 0 ? -1 : std::clamp(row, 0, RecordCount() - 1);
}

void TMyQuery::Next() {
  eof_ = current_ + 1 >= RecordCount();
  if (!eof_) setRecNo(current_ + 1);
}

int TMyQuery::fieldIndex(const QString& name) const { return fieldByName_.value(folded(name), -1); }

std::optional<Field> TMyQuery::FindField(const QString& name) {
  const int index = fieldIndex(name);
  if (index < 0) return std::nullopt;
  return Field(*this, index);
}

Field TMyQuery::FieldByName(const QString& name) {
  if (const auto found = FindField(name)) return *found;
  throw EDatabaseError(u"%1: Field '%2' not found"_s.arg(name_, name), name_, SQL.text());
}

Value TMyQuery::valueAt(int row, int field) const {
  const bool editing = state_ == QueryState::Edit || state_ == QueryState::Insert;
  if (editing && row == current_ && buffer_[size_t(field)]) {
    const Cell& edited = *buffer_[size_t(field)];
    return edited ? FieldCodec::decode(fields_[size_t(field)], *edited) : Value();
  }
  if (row < 0 || row >= RecordCount()) return {};
  const Row cells = rows_[size_t(row)];
  if (cells[field] == nullptr) return {};
  return FieldCodec::decode(fields_[size_t(field)], cell(cells, field));
}

std::optional<QByteArrayView> TMyQuery::rawCell(int row, int field) const {
  const Row cells = rows_[size_t(row)];
  if (cells[field] == nullptr) return std::nullopt;
  return cell(cells, field);
}

std::vector<Value> TMyQuery::distinctValues(int field) const {
  QSet<QByteArrayView> seen;
  std::vector<Value> values;
  for (const Row row : filter_ ? allRows_ : rows_) {
    if (row[field] == nullptr || seen.contains(cell(row, field))) continue;
    seen.insert(cell(row, field));
    values.push_back(FieldCodec::decode(fields_[size_t(field)], cell(row, field)));
  }
  return values;
}

QByteArrayView TMyQuery::cell(Row row, int field) const {
  const char* begin = row[field];
  if (begin == nullptr) return {};
  int next = field + 1;
  while (row[next] == nullptr) ++next;
  // Every cell is followed by one byte that belongs to no cell.
  return {begin, row[next] - begin - 1};
}

void TMyQuery::requireActive() const {
  if (!Active()) throw EDatabaseError(u"%1: Cannot perform this operation on a closed dataset"_s.arg(name_), name_, SQL.text());
}

void TMyQuery::requireRow() const {
  requireActive();
  if (current_ < 0) throw EDatabaseError(u"%1: Dataset has no current record"_s.arg(name_), name_, SQL.text());
}

void TMyQuery::addListener(QueryListener* listener) { listeners_.push_back(listener); }
void TMyQuery::removeListener(QueryListener* listener) { std::erase(listeners_, listener); }
