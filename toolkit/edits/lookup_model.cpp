#include "toolkit/edits/lookup_model.h"

#include "app/turkish_text.h"

#include <algorithm>
#include <numeric>

void LookupModel::setSource(const LookupSource* source) {
  source_ = source;
  setFilter({});
}

void LookupModel::setFilter(const QString& text) {
  beginResetModel();
  const int count = source_ ? source_->rowCount() : 0;
  rows_.clear();
  if (text.isEmpty()) {
    rows_.resize(size_t(count));
    std::iota(rows_.begin(), rows_.end(), 0);
  } else {
    const QString wanted = TurkishText::fold(text);
    std::vector<int> holding;
    for (int row = 0; row < count; ++row) {
      const qsizetype place = TurkishText::fold(source_->text(row, 0)).indexOf(wanted);
      if (place == 0) rows_.push_back(row);
      if (place > 0) holding.push_back(row);
    }
    rows_.insert(rows_.end(), holding.begin(), holding.end());
  }
  endResetModel();
}

int LookupModel::rowOf(int sourceRow) const {
  const auto found = std::find(rows_.begin(), rows_.end(), sourceRow);
  return found == rows_.end() ? -1 : int(found - rows_.begin());
}

int LookupModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : int(rows_.size()); }

int LookupModel::columnCount(const QModelIndex& parent) const { return parent.isValid() || !source_ ? 0 : source_->columnCount(); }

QVariant LookupModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::ToolTipRole)) return {};
  return source_->text(sourceRow(index.row()), index.column());
}

QVariant LookupModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation == Qt::Horizontal && role == Qt::TextAlignmentRole) return int(Qt::AlignLeft | Qt::AlignVCenter);
  if (orientation != Qt::Horizontal || role != Qt::DisplayRole || !source_) return {};
  return source_->caption(section);
}
