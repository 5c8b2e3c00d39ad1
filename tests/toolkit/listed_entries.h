#pragma once

#include "toolkit/edits/lookup_edit.h"

/// Entries that a test lists, numbered in a second column.
class ListedEntries : public LookupSource {
 public:
  explicit ListedEntries(QStringList all) : names(std::move(all)) {}
  int rowCount() const override { return int(names.size()); }
  int columnCount() const override { return 2; }
  QString text(int row, int column) const override { return column == 0 ? names[row] : QString::number(row); }
  QString caption(int column) const override { return column == 0 ? QStringLiteral("ADI") : QStringLiteral("TELEFON"); }
  int width(int) const override { return 100; }

  QStringList names;
};
