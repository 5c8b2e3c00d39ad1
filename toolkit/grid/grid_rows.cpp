#include "toolkit/grid/grid_rows.h"

#include "base/data/my_query.h"
#include "base/data/value.h"
#include "base/parallel.h"
#include "toolkit/grid/cell_order.h"

#include <algorithm>
#include <charconv>
#include <numeric>
#include <span>
#include <utility>

namespace {

double sumOf(const TMyQuery& query, const std::vector<int>& rows, int field) {
  std::vector<double> sums(Parallel::partsOf(rows.size()), 0);
  Parallel::run(rows.size(), [&](size_t part, size_t begin, size_t end) {
    double sum = 0;
    for (size_t i = begin; i < end; ++i) {
      query.prepareCells(std::span(rows).subspan(i), field);
      const auto digits = query.rawCell(rows[i], field);
      double number = 0;
      if (digits) std::from_chars(digits->begin(), digits->end(), number);
      sum += number;
    }
    sums[part] = sum;
  });
  return std::accumulate(sums.begin(), sums.end(), 0.0);
}

/// Rows parted by their keys, both in the order in which they came.
class Parting {
 public:
  void add(QByteArrayView key, int row) {
    const auto place = known_.constFind(key);
    if (place != known_.constEnd()) return members_[size_t(*place)].push_back(row);
    known_.insert(key, int(members_.size()));
    keys_.push_back(key);
    members_.push_back({row});
  }
  /// Adds what another one has behind what is here.
  void add(const Parting& other) {
    for (size_t i = 0; i < other.members_.size(); ++i) {
      const auto place = known_.constFind(other.keys_[i]);
      if (place == known_.constEnd()) {
        known_.insert(other.keys_[i], int(members_.size()));
        keys_.push_back(other.keys_[i]);
        members_.push_back(other.members_[i]);
      } else {
        std::vector<int>& all = members_[size_t(*place)];
        all.insert(all.end(), other.members_[i].begin(), other.members_[i].end());
      }
    }
  }
  std::vector<std::vector<int>> taken() { return std::move(members_); }

 private:
  QHash<QByteArrayView, int> known_;
  std::vector<QByteArrayView> keys_;
  std::vector<std::vector<int>> members_;
};

}  // namespace

void GridRows::setGrouping(std::vector<GridSort> levels, bool asText) {
  levels_ = std::move(levels);
  groupsAsText_ = asText;
  expanded_.clear();
  allExpanded_ = false;
}

void GridRows::rebuild() {
  lines_.clear();
  groups_.clear();
  outermost_.clear();
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
  if (const size_t level = usableLevel(0); level < levels_.size()) {
    outermost_ = divided(rows, level, {});
    return layOut();
  }
  if (newItemRow_) lines_.push_back({GridRowKind::NewItem, 0, -1});
  for (const int row : rows) lines_.push_back({GridRowKind::Data, quint8(levels_.size()), row});
  if (rowBehindGroups_ >= 0) lines_.push_back({GridRowKind::Data, 0, rowBehindGroups_});
}

void GridRows::layOut() {
  if (plain_ || usableLevel(0) == levels_.size()) return;
  lines_.clear();
  groups_.clear();
  if (newItemRow_) lines_.push_back({GridRowKind::NewItem, 0, -1});
  for (GridGroup& group : outermost_) addLines(group);
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

/// The first level from that one on whose field the query has; their number when there is none.
size_t GridRows::usableLevel(size_t level) const {
  while (level < levels_.size() && query_->fieldIndex(levels_[level].field) < 0) ++level;
  return level;
}

/// NULL and the empty text read alike and make one group, and so do values that are shown as one text.
std::vector<std::vector<int>> GridRows::partsOf(const std::vector<int>& rows, int field) const {
  const auto cellOf = [&](int row) { return query_->rawCell(row, field).value_or(QByteArrayView("")); };
  if (shownTextOf(field) != nullptr) {
    QHash<QByteArrayView, QByteArray> shown;
    Parting all;
    for (const int row : rows) {
      auto text = shown.constFind(cellOf(row));
      if (text == shown.constEnd()) text = shown.insert(cellOf(row), shownAt(row, field).toUtf8());
      all.add(*text, row);
    }
    return all.taken();
  }
  std::vector<Parting> parts(Parallel::partsOf(rows.size()));
  Parallel::run(rows.size(), [&](size_t part, size_t begin, size_t end) {
    Parting own;
    for (size_t i = begin; i < end; ++i) {
      query_->prepareCells(std::span(rows).subspan(i), field);
      own.add(cellOf(rows[i]), rows[i]);
    }
    parts[part] = std::move(own);
  });
  for (size_t part = 1; part < parts.size(); ++part) parts.front().add(parts[part]);
  return parts.front().taken();
}

std::vector<GridGroup> GridRows::divided(const std::vector<int>& rows, size_t level, const QByteArray& path) const {
  const int field = query_->fieldIndex(levels_[level].field);
  const bool byShownText = shownTextOf(field) != nullptr;
  const FieldInfo& info = query_->fieldInfo(field);
  const bool descending = levels_[level].descending;
  std::vector<std::vector<int>> members = partsOf(rows, field);
  std::stable_sort(members.begin(), members.end(), [&](const std::vector<int>& left, const std::vector<int>& right) {
    const auto order = groupsAsText_ || byShownText
                           ? compareTexts(shownAt(left.front(), field), shownAt(right.front(), field))
                           : compareCells(info, query_->rawCell(left.front(), field), query_->rawCell(right.front(), field));
    return descending ? order > 0 : order < 0;
  });
  std::vector<GridGroup> groups;
  for (std::vector<int>& member : members)
    groups.push_back({.level = int(level), .field = field, .sampleRow = member.front(), .count = int(member.size()),
                      .path = path + keyOf(member.front(), field), .rows = std::move(member)});
  return groups;
}

void GridRows::addLines(GridGroup& group) {
  const int number = int(groups_.size());
  groups_.push_back(&group);
  lines_.push_back({GridRowKind::Group, quint8(group.level), number});
  group.expanded = isExpanded(group.path);
  if (!group.expanded) return;
  const size_t next = usableLevel(size_t(group.level) + 1);
  if (next == levels_.size()) {
    for (const int row : group.rows) lines_.push_back({GridRowKind::Data, quint8(levels_.size()), row});
  } else {
    if (group.parts.empty()) group.parts = divided(std::exchange(group.rows, {}), next, group.path);
    for (GridGroup& part : group.parts) addLines(part);
  }
  if (footers_) lines_.push_back({GridRowKind::GroupFooter, quint8(group.level), number});
}

double GridRows::groupSum(const GridGroup& group, int field) const {
  if (field < 0) return 0;
  const auto known = group.sums.constFind(field);
  if (known != group.sums.constEnd()) return *known;
  double sum = sumOf(*query_, group.rows, field);
  for (const GridGroup& part : group.parts) sum += groupSum(part, field);
  group.sums.insert(field, sum);
  return sum;
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

void GridRows::setExpanded(int group, bool expanded) { expanded_.insert(groups_[size_t(group)]->path, expanded); }

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
