#pragma once

#include "base/data/field_codec.h"
#include "base/data/filter_expression.h"
#include "base/data/my_connection.h"

#include <QDateTime>
#include <QHash>
#include <QStringList>

#include <functional>
#include <memory>
#include <optional>
#include <span>

class AutoRefresh;
class Exception;
class QueryListener;
class TMyQuery;
class Value;

/// A statement's text, line by line.
class StatementText {
 public:
  void Clear() { lines_.clear(); }
  void Add(const QString& line) { lines_.append(line); }
  void setText(const QString& text) { lines_ = {text}; }
  /// The lines joined by line breaks.
  QString text() const { return lines_.join(u'\n'); }

 private:
  QStringList lines_;
};

/// One field of the current row. A light handle, valid while its query is open.
class Field {
 public:
  const FieldInfo& info() const;
  bool isNull() const;
  Value value() const;
  QString asText() const;
  double asDouble() const;
  qint64 asInteger() const;
  QDate asDate() const;
  QTime asTime() const;
  /// The bytes as the server delivered them; for a blob its content.
  QByteArray asBytes() const;
  /// Puts a value into the row in edit; a text goes through the column's type ("5.3.2020", "1.250,50", "08:30").
  /// Throws EDatabaseError when the query is not in Edit or Insert, EConvertError for a text that does not convert,
  /// EUnstorableValue for a text that is too long or has a character that latin5 lacks.
  void set(const Value& value) const;
  void Clear() const;

 private:
  friend class TMyQuery;
  Field(TMyQuery& query, int index) : query_(&query), index_(index) {}
  TMyQuery* query_;
  int index_;
};

enum class QueryState { Inactive, Browse, Edit, Insert };

/// The query object of every screen: a statement with named parameters, its rows kept as the client library delivered
/// them, a current row, and row editing by generated statements. Cells are decoded when someone looks.
class TMyQuery {
 public:
  /// name: the query's own, for the log. The connection must outlive the query.
  TMyQuery(TMyConnection& connection, QString name);
  ~TMyQuery();
  TMyQuery(const TMyQuery&) = delete;
  TMyQuery& operator=(const TMyQuery&) = delete;

  /// A closed query that stands in for one that has ended.
  static TMyQuery& ended();

  StatementText SQL;
  /// The statement that Delete runs, with :Old_ and a column's name as parameters; empty means a generated one.
  StatementText SQLDelete;
  struct {
    bool CheckRowVersion = false;
    bool SetEmptyStrToNull = false;
  } Options;
  bool CachedUpdates = false;

  /// Runs when a row was inserted in memory (defaults), and before a row is posted.
  std::function<void()> OnNewRecord;
  std::function<void()> BeforePost;
  /// Asked when a Post failed; true means that it has told the user, and EAbort goes on in the error's place. The row stays in
  /// edit either way.
  std::function<bool(const Exception& error)> OnPostError;

  const QString& name() const { return name_; }
  QueryState state() const { return state_; }
  bool Active() const { return state_ != QueryState::Inactive; }

  /// The parameter :NAME of the text, without regard to case; assign a Value to it. Throws EDatabaseError when the
  /// text has no such parameter.
  Value& ParamByName(const QString& name);
  /// The text that replaces the macro &NAME. Throws EDatabaseError when the text has no such macro.
  QString& MacroByName(const QString& name);
  /// Adds a condition to the WHERE clause, joined by AND; takes all conditions away; sets the ORDER BY clause.
  void AddWhere(const QString& condition);
  /// Adds a filter as a condition whose values go as parameters, so that the server narrows the rows.
  void AddWhere(const FilterExpression& filter);
  void DeleteWhere();
  void SetOrderBy(const QString& columns);

  /// Runs the statement and stands on the first row. Throws EMyError, EUnstorableValue.
  void Open();
  /// As Open, with the rows that any query of this connection has read by the same statement, as long as version is the same: a
  /// text that changes with them. What is written by this query stays its own. Nothing happens, nobody is told, where they stand
  /// in this query already; otherwise the row number stays, as far as there is one.
  void OpenShared(const QByteArray& version);
  /// Runs a statement that gives no rows (or several of them). The found rows and the last insert id are kept.
  void Execute();
  void Close();
  /// Runs the statement again and stays on the row number, as far as there is one.
  void Refresh();
  /// Runs the statement again; rows that are the same as before are told to nobody, others leave the current row the one with
  /// the same key.
  void refreshIfChanged();
  AutoRefresh& autoRefresh();
  const TMyConnection& connection() const { return connection_; }
  /// Re-reads the current row by its key. Throws EDatabaseError "Refresh failed. Found 0 records" when it is gone.
  void RefreshRecord();

  void Insert();
  void Append() { Insert(); }
  void Edit();
  /// Writes the row in edit: changed columns only. Throws EDatabaseError "Update failed. Found 0 records" when no row
  /// was found, EMyError otherwise; the row stays in edit after a failure.
  void Post();
  void Cancel();
  void Delete();

  /// CachedUpdates: writes all changes in their order; a failure leaves every change pending.
  void ApplyUpdates();
  /// Marks applied changes as done.
  void CommitUpdates();
  /// Takes an ApplyUpdates back: its changes are pending again, for another try.
  void RestoreUpdates();
  /// Drops all pending changes.
  void CancelUpdates();
  bool UpdatesPending() const { return !changes_.empty(); }

  /// Narrows the shown rows to those that pass; no filter shows all. Stays in force when the query is opened again. A row
  /// that is inserted or posted stays shown until the filter is set anew. Throws as FilterExpression::compiled.
  void setFilter(std::optional<FilterExpression> filter);
  const std::optional<FilterExpression>& filter() const { return filter_; }

  /// Sum of a column over the shown rows; NULL counts as 0.
  double sumOf(int field) const;

  int RecordCount() const;
  bool IsEmpty() const { return RecordCount() == 0; }
  /// Row number of the current row from 0, -1 when there is none.
  int RecNo() const { return current_; }
  void setRecNo(int row);
  void First() { setRecNo(0); eof_ = IsEmpty(); }
  /// Moves on; Eof becomes true when there was no further row.
  void Next();
  bool Eof() const { return eof_; }

  int fieldCount() const { return int(fields_.size()); }
  const FieldInfo& fieldInfo(int index) const { return fields_[size_t(index)]; }
  Field field(int index) { return Field(*this, index); }
  /// Without regard to case. FindField gives nothing, FieldByName throws EDatabaseError when there is none.
  std::optional<Field> FindField(const QString& name);
  Field FieldByName(const QString& name);
  int fieldIndex(const QString& name) const;

  /// Cell of any row, for models; the row in edit shows its edited values.
  Value valueAt(int row, int field) const;
  /// A shown row's cell as the server delivered it; nothing is NULL. The view lives until the row changes.
  std::optional<QByteArrayView> rawCell(int row, int field) const;
  /// Makes the cells of a field come quickly in a long walk over rows that lie scattered; next: those from the walk's place on.
  void prepareCells(std::span<const int> next, int field) const;
  /// The different values of a column, NULL left out, over all rows that were read, also those that the filter hides.
  std::vector<Value> distinctValues(int field) const;
  const std::vector<FieldInfo>& fields() const { return fields_; }

  quint64 lastInsertId() const { return lastInsertId_; }
  quint64 foundRows() const { return foundRows_; }

  void addListener(QueryListener* listener);
  void removeListener(QueryListener* listener);

 private:
  friend class Field;
  /// Cells of one row: fieldCount() + 1 pointers, a null pointer is NULL, the next one that is not null ends a cell.
  using Row = char**;
  struct OwnRow;
  enum class ChangeKind { Inserted, Modified, Deleted };
  struct Change {
    ChangeKind kind;
    Row original;  ///< as the server has it; null for an inserted row
    Row current;   ///< as it is to be; null for a deleted row
    int position;  ///< where a deleted row stood
    Row beforeApply = nullptr;  ///< current as it was, for RestoreUpdates
    bool applied = false;
  };

  QString withMacros(const QString& text) const;
  QByteArray rendered(const QString& text) const;
  ExecutionResult run(const QByteArray& statements);
  ResultPtr fetched() { return fetched(rendered(SQL.text())); }
  ResultPtr fetched(const QByteArray& statement);
  void openAt(int row);
  /// current: number of the row to stand on; key, when there is one, goes before it.
  void takeRows(std::shared_ptr<st_mysql_res> rows, int current, const std::optional<QByteArray>& key = {});
  bool holdsRows(st_mysql_res* rows) const;
  std::optional<QByteArray> keyOf(Row row) const;
  void requireActive() const;
  void requireRow() const;
  void requireEditing() const;
  QByteArrayView cell(Row row, int field) const;
  QByteArray identifier(const QString& name) const;
  QByteArray table() const;
  QByteArray literal(int field, const Cell& cell) const;
  QByteArray keyCondition(Row row, const QByteArray& qualifier = {}) const;
  QByteArray versionQuery(const QByteArray& condition) const;
  int timestampField() const;
  int versionField() const;
  Row ownRow(const std::vector<Cell>& cells);
  Cell cellOf(Row row, int field) const;
  std::vector<Cell> cellsOf(Row row) const;
  bool sameBytes(Row left, Row right, int field) const;
  bool isWritten(int field) const;
  std::vector<Cell> bufferedCells(Row base) const;
  Row insertRow(Row current);
  Row updateRow(Row original, Row current);
  void removeFromServer(Row original);
  void cachePost(Row base, Row current);
  void write(Row base);
  std::vector<Change>::iterator changeOf(Row current);
  void removeShownRow(int row);
  void replaceRow(Row before, Row after);
  void applyFilter();
  static void fetchAhead(std::span<const Row> next, int field);
  void leaveEditing();
  template <class Call>
  void notify(Call call);

  TMyConnection& connection_;
  QString name_;
  QueryState state_ = QueryState::Inactive;
  std::unique_ptr<QHash<QString, Value>> parameters_;
  QHash<QString, QString> macros_;
  std::vector<FieldInfo> fields_;
  QHash<QString, int> fieldByName_;
  int tableField_ = -1;  ///< a field of the table that Post writes to
  std::shared_ptr<st_mysql_res> result_;
  std::vector<std::unique_ptr<OwnRow>> ownRows_;
  std::vector<Row> rows_;     ///< shown
  std::vector<Row> allRows_;  ///< with those that the filter hides; empty when there is no filter
  std::optional<FilterExpression> filter_;
  std::vector<std::optional<Cell>> buffer_;  ///< per field, what was changed in Edit or Insert
  std::vector<Change> changes_;
  std::vector<QueryListener*> listeners_;
  std::unique_ptr<AutoRefresh> autoRefresh_;
  int current_ = -1;
  bool eof_ = true;
  quint64 lastInsertId_ = 0;
  quint64 foundRows_ = 0;
};
