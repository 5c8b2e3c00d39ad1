#include "toolkit/grid/grid_rows.h"

#include "base/data/latin5.h"
#include "base/data/my_query.h"
#include "toolkit/grid/cell_order.h"

#include <algorithm>
#include <charconv>
#include <numeric>

namespace {

double sumOf(const TMyQuery& query, const std::vector<int>& rows, int field) {
  double sum = 0;
  for (const int row : rows) {
    const auto digits = query.rawCell(row, field);
    double number = 0;
    if (digits) std::from_chars(digits->begin(), digits->end(), number);
    sum += number;
  }
  return sum;
}

/// A cell's bytes as the screen shows them.
QByteArray shownBytes(const FieldInfo& field, std::optional<QByteArrayView> cell) {
  if (!cell) return {};
  if (field.type == FieldType::Text) return cell->toByteArray();
  return Latin5::encode(FieldCodec::decode(field, *cell).toText(), field.name);
}

}  // namespace

void GridRows::setGrouping(std::vector<GridSort> levels, bool asText) {
  levels_ = std::move(levels);
  groupsAsText_ = asText;
  expanded_.clear();
  allExpanded_ = false;
}

void GridRows::setGroupSums(QStringList fields, bool withFooters) {
  sumFields_ = std::move(fields);
  footers_ = withFooters;
}

void GridRows::rebuild() {
  lines_.clear();
  groups_.clear();
  plainRows_ = query_->Active() ? query_->RecordCount() : 0;
  plain_ = order_.empty() && levels_.empty();
  if (plain_) {
    lines_.shrink_to_fit();
    return;
  }
  std::vector<int> rows(static_cast<size_t>(plainRows_));
  std::iota(rows.begin(), rows.end(), 0);
  std::erase(rows, hiddenRow_);
  sortRows(rows);
  if (newItemRow_) lines_.push_back({GridRowKind::NewItem, 0, -1});
  addLevel(rows, 0, {});
}

bool GridRows::follows(int queryRows) {
  if (plain_) plainRows_ = queryRows;
  return plain_;
}

void GridRows::sortRows(std::vector<int>& rows) const {
  struct Key {
    int field;
    bool descending;
  };
  std::vector<Key> keys;
  for (const GridSort& key : order_)
    if (const int field = query_->fieldIndex(key.field); field >= 0) keys.push_back({field, key.descending});
  if (keys.empty()) return;
  std::stable_sort(rows.begin(), rows.end(), [&](int left, int right) {
    for (const Key& key : keys) {
      const auto order = compareCells(query_->fieldInfo(key.field), query_->rawCell(left, key.field), query_->rawCell(right, key.field));
      if (order != 0) return key.descending ? order > 0 : order < 0;
    }
    return false;
  });
}

void GridRows::addLevel(std::vector<int>& rows, size_t level, const QByteArray& path) {
  if (level == levels_.size()) {
    for (const int row : rows) lines_.push_back({GridRowKind::Data, quint8(level), row});
    return;
  }
  const int field = query_->fieldIndex(levels_[level].field);
  if (field < 0) {
    addLevel(rows, level + 1, path);
    return;
  }
  // NULL and the empty text read alike and make one group.
  QHash<QByteArrayView, int> known;
  std::vector<std::vector<int>> members;
  for (const int row : rows) {
    const QByteArrayView cell = query_->rawCell(row, field).value_or(QByteArrayView(""));
    const auto place = known.constFind(cell);
    if (place != known.constEnd()) {
      members[size_t(*place)].push_back(row);
    } else {
      known.insert(cell, int(members.size()));
      members.push_back({row});
    }
  }
  const FieldInfo& info = query_->fieldInfo(field);
  const bool descending = levels_[level].descending;
  std::stable_sort(members.begin(), members.end(), [&](const std::vector<int>& left, const std::vector<int>& right) {
    const auto a = query_->rawCell(left.front(), field);
    const auto b = query_->rawCell(right.front(), field);
    const auto order = groupsAsText_ ? compareTexts(shownBytes(info, a), shownBytes(info, b)) : compareCells(info, a, b);
    return descending ? order > 0 : order < 0;
  });
  for (std::vector<int>& member : members) {
    const QByteArray ownPath = path + keyOf(member.front(), field);
    const int number = int(groups_.size());
    groups_.push_back({int(level), field, member.front(), int(member.size()), isExpanded(ownPath), ownPath, {}});
    lines_.push_back({GridRowKind::Group, quint8(level), number});
    if (!groups_.back().expanded) continue;
    for (const QString& summed : sumFields_)
      if (const int sumField = query_->fieldIndex(summed); sumField >= 0)
        groups_[size_t(number)].sums.insert(sumField, sumOf(*query_, member, sumField));
    addLevel(member, level + 1, ownPath);
    if (footers_) lines_.push_back({GridRowKind::GroupFooter, quint8(level), number});
  }
}

QByteArray GridRows::keyOf(int queryRow, int field) const {
  const QByteArrayView cell = query_->rawCell(queryRow, field).value_or(QByteArrayView(""));
  return QByteArray::number(cell.size()) + ':' + cell.toByteArray();
}

int GridRows::count() const {
  if (!plain_) return int(lines_.size());
  return plainRows_ - (hiddenRow_ >= 0 ? 1 : 0) + (newItemRow_ ? 1 : 0);
}

GridRow GridRows::at(int line) const {
  if (line < 0 || line >= count()) return {};
  if (!plain_) return lines_[size_t(line)];
  if (newItemRow_ && line == 0) return {GridRowKind::NewItem, 0, -1};
  const int row = line - (newItemRow_ ? 1 : 0);
  if (lostRow_ >= 0 && row >= lostRow_) return {GridRowKind::Data, 0, row == lostRow_ ? -1 : row - 1};
  return {GridRowKind::Data, 0, hiddenRow_ >= 0 && row >= hiddenRow_ ? row + 1 : row};
}

int GridRows::lineOf(int queryRow) const {
  if (queryRow < 0) return -1;
  if (queryRow == hiddenRow_) return newItemRow_ ? 0 : -1;
  if (plain_) {
    if (queryRow >= plainRows_) return -1;
    return queryRow - (hiddenRow_ >= 0 && queryRow > hiddenRow_ ? 1 : 0) + (newItemRow_ ? 1 : 0);
  }
  const auto line = std::find_if(lines_.begin(), lines_.end(), [queryRow](const GridRow& each) {
    return each.kind == GridRowKind::Data && each.index == queryRow;
  });
  return line == lines_.end() ? -1 : int(line - lines_.begin());
}

void GridRows::setExpanded(int group, bool expanded) { expanded_.insert(groups_[size_t(group)].path, expanded); }

void GridRows::setAllExpanded(bool expanded) {
  expanded_.clear();
  allExpanded_ = expanded;
}

bool GridRows::openGroupsOf(int queryRow) {
  QByteArray path;
  bool opened = false;
  for (const GridSort& level : levels_) {
    const int field = query_->fieldIndex(level.field);
    if (field < 0) continue;
    path += keyOf(queryRow, field);
    if (isExpanded(path)) continue;
    expanded_.insert(path, true);
    opened = true;
  }
  return opened;
}
