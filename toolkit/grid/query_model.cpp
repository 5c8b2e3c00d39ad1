#include "toolkit/grid/query_model.h"

#include "app/exceptions.h"
#include "app/number_text.h"

using namespace Qt::StringLiterals;

namespace {

/// "12,5000" as "12,5", the way it is typed.
QString withoutTrailingZeros(QString number) {
  if (!number.contains(u',')) return number;
  while (number.endsWith(u'0')) number.chop(1);
  if (number.endsWith(u',')) number.chop(1);
  return number;
}

}  // namespace

QueryModel::QueryModel(TMyQuery& query, std::vector<QueryColumn> columns, QObject* parent)
    : QAbstractTableModel(parent), query_(query), columns_(std::move(columns)), rows_(query.Active() ? query.RecordCount() : 0) {
  query_.addListener(this);
}

QueryModel::~QueryModel() { query_.removeListener(this); }

void QueryModel::setEditable(bool editable) {
  beginResetModel();
  editable_ = editable;
  appendShown_ = appending();
  endResetModel();
}

QString QueryModel::appendHint() { return u"Kayıt eklemek için tıklayın"_s; }

int QueryModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : rows_ + (appendShown_ ? 1 : 0); }

int QueryModel::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : int(columns_.size()); }

Value QueryModel::valueAt(int row, int column) const {
  const int field = query_.fieldIndex(columns_[size_t(column)].field);
  return field < 0 || row >= query_.RecordCount() ? Value() : query_.valueAt(row, field);
}

bool QueryModel::isNumber(int column) const {
  const int field = query_.fieldIndex(columns_[size_t(column)].field);
  if (field < 0) return false;
  const FieldType type = query_.fieldInfo(field).type;
  return type == FieldType::Integer || type == FieldType::Double || type == FieldType::Decimal;
}

double QueryModel::sum(int column) const {
  const int field = query_.fieldIndex(columns_[size_t(column)].field);
  return field < 0 ? 0 : query_.sumOf(field);
}

QVariant QueryModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  if (role == Qt::TextAlignmentRole) return int((isNumber(index.column()) ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
  if (index.row() == stillEmptyRow_) return {};
  if (isAppendRow(index.row())) return role == Qt::AccessibleTextRole ? QVariant(appendHint()) : QVariant();
  if (role != Qt::DisplayRole && role != Qt::EditRole) return {};
  const Value value = valueAt(index.row(), index.column());
  const QString& format = columns_[size_t(index.column())].displayFormat;
  if (role == Qt::EditRole) return isNumber(index.column()) ? withoutTrailingZeros(value.toText()) : value.toText();
  if (format.isEmpty() || value.isNull()) return value.toText();
  return NumberText::formatted(format, value.toDouble());
}

QVariant QueryModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || section < 0 || section >= columnCount()) return {};
  if (role == Qt::DisplayRole) return columns_[size_t(section)].caption;
  if (role == Qt::TextAlignmentRole) return int((isNumber(section) ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
  return {};
}

Qt::ItemFlags QueryModel::flags(const QModelIndex& index) const {
  if (!index.isValid()) return Qt::NoItemFlags;
  const Qt::ItemFlags plain = QAbstractTableModel::flags(index) | Qt::ItemNeverHasChildren;
  return editable_ ? plain | Qt::ItemIsEditable : plain;
}

bool QueryModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (!index.isValid() || role != Qt::EditRole || !editable_) return false;
  const QString text = value.toString();
  if (isAppendRow(index.row()) ? text.isEmpty() : text == data(index, Qt::EditRole).toString()) return true;
  try {
    write(index.row(), index.column(), text);
    return true;
  } catch (const Exception& error) {
    if (query_.state() != QueryState::Browse) query_.Cancel();
    Q_EMIT rejected(error.message());
    return false;
  }
}

void QueryModel::write(int row, int column, const QString& text) {
  const int field = query_.fieldIndex(columns_[size_t(column)].field);
  const Value value = text.isEmpty() ? Value() : Value(text);
  FieldCodec::encode(query_.fieldInfo(field), value);  // throws before a row is begun for nothing
  if (isAppendRow(row)) {
    query_.Insert();
  } else {
    query_.setRecNo(row);
    query_.Edit();
  }
  query_.field(field).set(value);
  query_.Post();
}

void QueryModel::deleteRow(int row) {
  query_.setRecNo(row);
  query_.Delete();
}

void QueryModel::queryReset() {
  beginResetModel();
  rows_ = query_.Active() ? query_.RecordCount() : 0;
  appendShown_ = appending();
  endResetModel();
}

void QueryModel::rowChanged(int row) {
  if (row >= 0 && row < rows_) Q_EMIT dataChanged(index(row, 0), index(row, columnCount() - 1));
}

void QueryModel::rowInserted(int row) {
  // A row that comes at the end takes the place of the append row, so that the cell being edited stays its own; the
  // fresh append row is the one that comes in.
  const bool takesAppendRow = row == rows_ && appendShown_;
  const int place = takesAppendRow ? row + 1 : row;
  beginInsertRows({}, place, place);
  ++rows_;
  if (takesAppendRow) stillEmptyRow_ = row;
  endInsertRows();
  stillEmptyRow_ = -1;
  rowChanged(row);
}

void QueryModel::rowRemoved(int row) {
  beginRemoveRows({}, row, row);
  --rows_;
  endRemoveRows();
}
