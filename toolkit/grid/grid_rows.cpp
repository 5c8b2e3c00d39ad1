#include "toolkit/grid/grid_rows.h"

#include "base/data/my_query.h"
#include "toolkit/grid/cell_order.h"

#include <algorithm>
#include <charconv>
#include <numeric>
#include <utility>

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
  std::erase(rows, rowBehindGroups_);
  sortRows(rows);
  if (newItemRow_) lines_.push_back({GridRowKind::NewItem, 0, -1});
  addLevel(rows, 0, {});
  if (rowBehindGroups_ >= 0) lines_.push_back({GridRowKind::Data, 0, rowBehindGroups_});
}

void GridRows::append(bool hidden) {
  const int row = plainRows_++;
  if (hidden)
    hiddenRow_ = row;
  else if (!plain_)
    lines_.push_back({GridRowKind::Data, 0, row});
}

void GridRows::showHiddenRow() {
  if (!plain_) lines_.push_back({GridRowKind::Data, 0, hiddenRow_});
  hiddenRow_ = -1;
}

void GridRows::dropHiddenRow() {
  hiddenRow_ = -1;
  --plainRows_;
}

int GridRows::loseRow(int queryRow) {
  const int line = lineOf(queryRow);
  if (plain_) {
    lostRow_ = queryRow;
  } else {
    for (GridRow& each : lines_)
      if (each.index > queryRow) --each.index;
    lines_[size_t(line)].index = -1;
  }
  return line;
}

void GridRows::dropLostRow(int line) {
  --plainRows_;
  lostRow_ = -1;
  if (!plain_) lines_.erase(lines_.begin() + line);
}

const GridRows::ShownText* GridRows::shownTextOf(int field) const {
  const auto found = std::find_if(shownTexts_.begin(), shownTexts_.end(),
                                  [&](const ShownText& each) { return query_->fieldIndex(each.field) == field; });
  return found == shownTexts_.end() ? nullptr : &*found;
}

QString GridRows::shownAt(int queryRow, int field) const {
  const auto cell = query_->rawCell(queryRow, field);
  const Value value = cell ? FieldCodec::decode(query_->fieldInfo(field), *cell) : Value();
  const ShownText* shown = shownTextOf(field);
  return shown == nullptr ? value.toText() : shown->textOf(value);
}

/// Per row of the query, its place among the texts that the column shows; every stored value is looked up once.
std::vector<int> GridRows::ranksOf(const std::vector<int>& rows, int field) const {
  QHash<QByteArrayView, int> known;
  std::vector<QString> texts;
  std::vector<int> numbers(size_t(plainRows_), 0);
  for (const int row : rows) {
    const QByteArrayView cell = query_->rawCell(row, field).value_or(QByteArrayView(""));
    auto place = known.constFind(cell);
    if (place == known.constEnd()) {
      place = known.insert(cell, int(texts.size()));
      texts.push_back(shownAt(row, field));
    }
    numbers[size_t(row)] = *place;
  }
  std::vector<int> order(texts.size());
  std::iota(order.begin(), order.end(), 0);
  const auto isBefore = [&](int left, int right) { return compareTexts(texts[size_t(left)], texts[size_t(right)]) < 0; };
  std::sort(order.begin(), order.end(), isBefore);
  std::vector<int> ranks(texts.size(), 0);
  for (size_t i = 1; i < order.size(); ++i)
    ranks[size_t(order[i])] = ranks[size_t(order[i - 1])] + (isBefore(order[i - 1], order[i]) ? 1 : 0);
  for (const int row : rows) numbers[size_t(row)] = ranks[size_t(numbers[size_t(row)])];
  return numbers;
}

void GridRows::sortRows(std::vector<int>& rows) const {
  struct Key {
    int field;
    bool descending;
    std::vector<int> ranks;  ///< by query row, of a column that goes by its shown texts
  };
  std::vector<Key> keys;
  for (const GridSort& key : order_)
    if (const int field = query_->fieldIndex(key.field); field >= 0)
      keys.push_back({field, key.descending, shownTextOf(field) == nullptr ? std::vector<int>() : ranksOf(rows, field)});
  if (keys.empty()) return;
  std::stable_sort(rows.begin(), rows.end(), [&](int left, int right) {
    for (const Key& key : keys) {
      const auto order = key.ranks.empty() ? compareCells(query_->fieldInfo(key.field), query_->rawCell(left, key.field),
                                                          query_->rawCell(right, key.field))
                                           : key.ranks[size_t(left)] <=> key.ranks[size_t(right)];
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
  // NULL and the empty text read alike and make one group, and so do values that are shown as one text.
  const bool byShownText = shownTextOf(field) != nullptr;
  QHash<QByteArrayView, QByteArray> shown;
  QHash<QByteArrayView, int> known;
  std::vector<std::vector<int>> members;
  for (const int row : rows) {
    QByteArrayView cell = query_->rawCell(row, field).value_or(QByteArrayView(""));
    if (byShownText) {
      auto text = shown.constFind(cell);
      if (text == shown.constEnd()) text = shown.insert(cell, shownAt(row, field).toUtf8());
      cell = *text;
    }
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
    const auto order = groupsAsText_ || byShownText
                           ? compareTexts(shownAt(left.front(), field), shownAt(right.front(), field))
                           : compareCells(info, query_->rawCell(left.front(), field), query_->rawCell(right.front(), field));
    return descending ? order > 0 : order < 0;
  });
  for (std::vector<int>& member : members) {
    const QByteArray ownPath = path + keyOf(member.front(), field);
    const int number = int(groups_.size());
    groups_.push_back({int(level), field, member.front(), int(member.size()), isExpanded(ownPath), ownPath});
    lines_.push_back({GridRowKind::Group, quint8(level), number});
    if (!groups_.back().expanded) {
      groups_.back().rows = std::move(member);
      continue;
    }
    sumUp(groups_.back(), member);
    addLevel(member, level + 1, ownPath);
    if (footers_) lines_.push_back({GridRowKind::GroupFooter, quint8(level), number});
  }
}

void GridRows::sumUp(const GridGroup& group, const std::vector<int>& rows) const {
  for (const QString& summed : sumFields_)
    if (const int field = query_->fieldIndex(summed); field >= 0) group.sums.insert(field, sumOf(*query_, rows, field));
}

double GridRows::groupSum(const GridGroup& group, int field) const {
  if (!group.rows.empty()) sumUp(group, std::exchange(group.rows, {}));
  return group.sums.value(field);
}

QByteArray GridRows::keyOf(int queryRow, int field) const {
  const bool byShownText = shownTextOf(field) != nullptr;
  const QByteArray key = byShownText ? shownAt(queryRow, field).toUtf8()
                                     : query_->rawCell(queryRow, field).value_or(QByteArrayView("")).toByteArray();
  return QByteArray::number(key.size()) + ':' + key;
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
