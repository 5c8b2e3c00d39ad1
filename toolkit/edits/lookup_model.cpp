#include "toolkit/edits/lookup_model.h"

#include "base/turkish_text.h"

#include <algorithm>
#include <numeric>

void LookupModel::setSource(const LookupSource* source) {
  source_ = source;
  wanted_.clear();
  setFilter({});
}

void LookupModel::setFilter(const QString& text) {
  beginResetModel();
  const QString wanted = TurkishText::fold(text);
  // What does not hold the old text does not hold a longer one either: the more is typed, the less is looked at.
  const bool narrows = !wanted_.isEmpty() && wanted.startsWith(wanted_);
  if (!narrows) {
    rows_.resize(size_t(source_ ? source_->rowCount() : 0));
    std::iota(rows_.begin(), rows_.end(), 0);
  }
  wanted_ = wanted;
  equalRow_ = -1;
  if (!wanted.isEmpty()) filter();
  endResetModel();
}

/// Keeps those of rows_ that fit the wanted text.
void LookupModel::filter() {
  std::vector<int> beginning;
  std::vector<int> holding;
  for (const int row : rows_) {
    const QString candidate = TurkishText::fold(source_->text(row, 0));
    const qsizetype place = candidate.indexOf(wanted_);
    if (place == 0) beginning.push_back(row);
    if (place > 0) holding.push_back(row);
    if (place == 0 && candidate.size() == wanted_.size() && equalRow_ < 0) equalRow_ = row;
  }
  std::sort(holding.begin(), holding.end());  // some may have stood among the beginnings of a shorter text
  rows_ = std::move(beginning);
  rows_.insert(rows_.end(), holding.begin(), holding.end());
}

int LookupModel::rowOf(int sourceRow) const {
  const auto found = std::find(rows_.begin(), rows_.end(), sourceRow);
  return found == rows_.end() ? -1 : int(found - rows_.begin());
}

int LookupModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : int(rows_.size()); }

int LookupModel::columnCount(const QModelIndex& parent) const { return parent.isValid() || !source_ ? 0 : source_->columnCount(); }

QVariant LookupModel::data(const QModelIndex& index, int role) const {
  if (!source_ || !index.isValid() || (role != Qt::DisplayRole && role != Qt::ToolTipRole)) return {};
  return source_->text(sourceRow(index.row()), index.column());
}

QVariant LookupModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation == Qt::Horizontal && role == Qt::TextAlignmentRole) return int(Qt::AlignLeft | Qt::AlignVCenter);
  if (orientation != Qt::Horizontal || role != Qt::DisplayRole || !source_) return {};
  return source_->caption(section);
}
