#include "toolkit/grid/grid_model.h"

#include "base/data/my_query.h"
#include "base/data/value.h"
#include "base/exceptions.h"
#include "base/guard.h"
#include "base/number_text.h"
#include "base/turkish_text.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// "12,5000" as "12,5", the way it is typed.
QString withoutTrailingZeros(QString number) {
  if (!number.contains(u',')) return number;
  while (number.endsWith(u'0')) number.chop(1);
  if (number.endsWith(u',')) number.chop(1);
  return number;
}

QString summaryText(GridSummary kind, const QString& format, const Value& value) {
  if (kind == GridSummary::None || value.isNull()) return {};
  return format.isEmpty() ? value.toText() : NumberText::formatted(format, value.toDouble());
}

}  // namespace

GridModel::GridModel(TMyQuery& query, std::vector<GridColumn> columns, QObject* parent)
    : QAbstractTableModel(parent), query_(&query), columns_(std::move(columns)), rows_(query) {
  rows_.setGroupFooters(hasGroupFooter());
  std::vector<GridRows::ShownText> shownTexts;
  for (int column = 0; column < columnCount(); ++column)
    if (const GridColumn& about = columns_[size_t(column)]; about.showsOtherTexts())
      shownTexts.push_back({about.field, [this, column](const Value& value) { return columns_[size_t(column)].shown(value); }});
  rows_.setShownTexts(std::move(shownTexts));
  learnFields();
  rows_.rebuild();
  query_->addListener(this);
}

GridModel::~GridModel() { query_->removeListener(this); }

void GridModel::queryEnds() {
  query_ = &TMyQuery::ended();
  fields_.clear();
  rows_.setQuery(*query_);
  rows_.rebuild();
  postGuarded(this, [this] { queryReset(); });
}

void GridModel::learnFields() {
  fields_.clear();
  if (!query_->Active()) return;
  for (const GridColumn& column : columns_) fields_.push_back(query_->fieldIndex(column.field));
}

int GridModel::columnOf(const QString& field) const {
  const auto found = std::find_if(columns_.begin(), columns_.end(), [&](const GridColumn& column) {
    return column.field.compare(field, Qt::CaseInsensitive) == 0;
  });
  return found == columns_.end() ? -1 : int(found - columns_.begin());
}

bool GridModel::isNumber(int column) const {
  const int field = fieldOf(column);
  if (field < 0 || columns_[size_t(column)].lookUp || !columns_[size_t(column)].values.empty()) return false;
  const FieldType type = query_->fieldInfo(field).type;
  return type == FieldType::Integer || type == FieldType::Double || type == FieldType::Decimal;
}

QString GridModel::newItemHint() { return u"Kayıt eklemek için tıklayın"_s; }

void GridModel::rebuildLines() {
  beginResetModel();
  rows_.rebuild();
  endResetModel();
}

void GridModel::layOutGroups() {
  beginResetModel();
  rows_.layOut();
  endResetModel();
}

void GridModel::setOrder(std::vector<GridSort> order) {
  rows_.setOrder(std::move(order));
  rebuildLines();
}

void GridModel::setGrouping(std::vector<GridSort> levels, bool asText) {
  rows_.setGrouping(std::move(levels), asText);
  rebuildLines();
}

void GridModel::setExpanded(int group, bool expanded) {
  rows_.setExpanded(group, expanded);
  layOutGroups();
}

void GridModel::setAllExpanded(bool expanded) {
  rows_.setAllExpanded(expanded);
  layOutGroups();
}

void GridModel::openGroupsOf(int queryRow) {
  if (rows_.openGroupsOf(queryRow)) layOutGroups();
}

Value GridModel::valueAt(int queryRow, int column) const {
  const int field = fieldOf(column);
  return field < 0 || queryRow < 0 || queryRow >= query_->RecordCount() ? Value() : query_->valueAt(queryRow, field);
}

QString GridModel::shownAt(int queryRow, int column) const { return columns_[size_t(column)].shown(valueAt(queryRow, column)); }

QString GridModel::groupText(const GridGroup& group) const {
  const auto field = std::find(fields_.begin(), fields_.end(), group.field);
  const int column = field == fields_.end() ? 0 : int(field - fields_.begin());
  const QString text = shownAt(group.sampleRow, column);
  QString line = u"%1: %2 (%3)"_s.arg(columns_[size_t(column)].caption.trimmed(), text.isEmpty() ? u"<boş>"_s : text,
                                      NumberText::formatted(u",0"_s, group.count));
  for (int i = 0; i < columnCount() && !group.expanded; ++i)
    if (columns_[size_t(i)].groupSummary == GridSummary::Sum)
      line += u"   %1: %2"_s.arg(columns_[size_t(i)].caption.trimmed(), groupFooterText(group, i));
  return line;
}

Value GridModel::groupFooterValue(const GridGroup& group, int column) const {
  switch (columns_[size_t(column)].groupSummary) {
    case GridSummary::Count:
      return group.count;
    case GridSummary::Sum:
      return rows_.groupSum(group, fieldOf(column));
    default:
      return {};
  }
}

QString GridModel::groupFooterText(const GridGroup& group, int column) const {
  const GridColumn& description = columns_[size_t(column)];
  return summaryText(description.groupSummary, description.groupSummaryFormat, groupFooterValue(group, column));
}

Value GridModel::footerValue(int column) const {
  if (!query_->Active()) return {};
  switch (columns_[size_t(column)].summary) {
    case GridSummary::Count:
      return query_->RecordCount();
    case GridSummary::Sum:
      return fieldOf(column) < 0 ? Value() : Value(query_->sumOf(fieldOf(column)));
    default:
      return {};
  }
}

QString GridModel::footerText(int column) const {
  const GridColumn& description = columns_[size_t(column)];
  return summaryText(description.summary, description.summaryFormat, footerValue(column));
}

bool GridModel::hasFooter() const {
  return std::any_of(columns_.begin(), columns_.end(), [](const GridColumn& one) { return one.summary != GridSummary::None; });
}

bool GridModel::hasGroupFooter() const {
  return std::any_of(columns_.begin(), columns_.end(), [](const GridColumn& one) { return one.groupSummary != GridSummary::None; });
}

int GridModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : rows_.count(); }

int GridModel::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : int(columns_.size()); }

QString GridModel::editText(int queryRow, int column) const {
  const Value value = valueAt(queryRow, column);
  if (isNumber(column)) return withoutTrailingZeros(value.toText());
  return columns_[size_t(column)].values.empty() ? value.toText() : columns_[size_t(column)].shown(value);
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const int column = index.column();
  if (role == Qt::TextAlignmentRole) return int((isNumber(column) ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
  const bool isText = role == Qt::DisplayRole || role == Qt::EditRole || role == Qt::AccessibleTextRole;
  if (!isText && role != Qt::ForegroundRole) return {};
  const GridRow line = row(index.row());
  switch (line.kind) {
    case GridRowKind::Group:
      return isText && column == 0 ? QVariant(groupText(rows_.group(line.index))) : QVariant();
    case GridRowKind::GroupFooter:
      return isText ? QVariant(groupFooterText(rows_.group(line.index), column)) : QVariant();
    case GridRowKind::NewItem:
      if (!isText) return {};
      if (rows_.hiddenRow() < 0 || query_->state() == QueryState::Browse) return role == Qt::AccessibleTextRole ? QVariant(newItemHint()) : QVariant();
      return role == Qt::EditRole ? editText(rows_.hiddenRow(), column) : shownAt(rows_.hiddenRow(), column);
    default:
      break;
  }
  if (role == Qt::ForegroundRole) {
    const QColor color = rowColor(line.index);
    return color.isValid() ? QVariant(color) : QVariant();
  }
  return role == Qt::EditRole ? editText(line.index, column) : shownAt(line.index, column);
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || section < 0 || section >= columnCount()) return {};
  if (role == Qt::DisplayRole) return columns_[size_t(section)].caption;
  if (role == Qt::TextAlignmentRole) return int((isNumber(section) ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
  return {};
}

Qt::ItemFlags GridModel::flags(const QModelIndex& index) const {
  if (!index.isValid()) return Qt::NoItemFlags;
  const Qt::ItemFlags plain = QAbstractTableModel::flags(index) | Qt::ItemNeverHasChildren;
  const GridRowKind kind = row(index.row()).kind;
  const bool writable = editable_ && (kind == GridRowKind::Data || kind == GridRowKind::NewItem);
  return writable && !columns_[size_t(index.column())].readOnly ? plain | Qt::ItemIsEditable : plain;
}

Value GridModel::storedValue(int column, const QString& text) const {
  const GridColumn& description = columns_[size_t(column)];
  for (const GridListValue& each : description.values)
    if (each.shown == text) return each.value.isEmpty() ? Value() : Value(each.value);
  if (text.isEmpty()) return {};
  const QString composed = TurkishText::composed(text);
  return description.upperCase ? TurkishText::BuyukHarf(composed) : composed;
}

bool GridModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (!index.isValid() || role != Qt::EditRole || !(flags(index) & Qt::ItemIsEditable)) return false;
  const GridRow line = row(index.row());
  const bool begins = line.kind == GridRowKind::NewItem && rows_.hiddenRow() < 0;
  const QString text = value.toString();
  if (begins ? text.isEmpty() : text == data(index, Qt::EditRole).toString()) return true;
  try {
    const int field = fieldOf(index.column());
    const Value stored = storedValue(index.column(), text);
    FieldCodec::encode(query_->fieldInfo(field), stored);  // throws before a row is begun for nothing
    if (begins) {
      query_->Insert();
    } else if (line.kind == GridRowKind::Data && query_->state() == QueryState::Browse) {
      query_->setRecNo(line.index);
      query_->Edit();
    }
    query_->field(field).set(stored);
    isUntouched_ = false;
    return true;
  } catch (const EAbort&) {
    return false;
  } catch (const EUnstorableValue& error) {
    Q_EMIT rejected(error.messageFor(columns_[size_t(index.column())].caption));
    return false;
  } catch (const Exception& error) {
    Q_EMIT rejected(error.message());
    return false;
  }
}

void GridModel::setEditable(bool editable, bool newItemRow) {
  beginResetModel();
  editable_ = editable;
  rows_.setNewItemRow(newItemRow);
  rows_.rebuild();
  endResetModel();
}

bool GridModel::isEditingRow() const {
  return editable_ && (query_->state() == QueryState::Edit || query_->state() == QueryState::Insert);
}

int GridModel::editingLine() const { return isEditingRow() ? rows_.lineOf(query_->RecNo()) : -1; }

int GridModel::appendRow() {
  query_->Insert();
  isUntouched_ = true;
  return editingLine();
}

void GridModel::postRow() {
  if (!isEditingRow()) return;
  if (query_->state() == QueryState::Insert && isUntouched_)
    query_->Cancel();
  else
    query_->Post();
}

void GridModel::cancelRow() {
  if (isEditingRow()) query_->Cancel();
}

void GridModel::deleteRow(int queryRow) {
  if (query_->RecNo() != queryRow) query_->setRecNo(queryRow);
  query_->Delete();
}

void GridModel::queryReset() {
  beginResetModel();
  learnFields();
  rows_.setHiddenRow(-1);
  rows_.setRowBehindGroups(-1);
  rows_.rebuild();
  endResetModel();
  Q_EMIT summariesChanged();
}

void GridModel::rowChanged(int row) {
  if (row == rows_.hiddenRow() && query_->state() == QueryState::Browse) {
    // The new row was written: it leaves the line for new rows and takes its place among the others.
    if (rows_.isGrouped()) {
      rows_.setHiddenRow(-1);
      rebuildLines();
    } else {
      const int line = rows_.count();
      beginInsertRows({}, line, line);
      rows_.showHiddenRow();
      endInsertRows();
      Q_EMIT dataChanged(index(0, 0), index(0, columnCount() - 1));
    }
    Q_EMIT summariesChanged();
    return;
  }
  if (rows_.isGrouped() && query_->state() == QueryState::Browse) {
    rows_.setRowBehindGroups(-1);
    rebuildLines();
  }
  const int line = rows_.lineOf(row);
  if (line >= 0) Q_EMIT dataChanged(index(line, 0), index(line, columnCount() - 1));
  Q_EMIT summariesChanged();
}

void GridModel::rowInserted(int row) {
  if (rows_.hasNewItemRow() && query_->state() == QueryState::Insert) {
    rows_.append(true);
    Q_EMIT dataChanged(index(0, 0), index(0, columnCount() - 1));
    return;
  }
  if (rows_.isGrouped()) {
    if (query_->state() == QueryState::Insert) rows_.setRowBehindGroups(row);
    rebuildLines();
  } else {
    const int line = rows_.count();
    beginInsertRows({}, line, line);
    rows_.append(false);
    endInsertRows();
  }
  Q_EMIT summariesChanged();
}

void GridModel::rowRemoved(int row) {
  if (row == rows_.hiddenRow()) {
    rows_.dropHiddenRow();
    Q_EMIT dataChanged(index(0, 0), index(0, columnCount() - 1));
    return;
  }
  if (rows_.isGrouped()) {
    rows_.setRowBehindGroups(-1);
    rebuildLines();
  } else {
    const int line = rows_.loseRow(row);
    beginRemoveRows({}, line, line);
    rows_.dropLostRow(line);
    endRemoveRows();
  }
  Q_EMIT summariesChanged();
}
