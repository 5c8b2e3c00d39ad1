#pragma once

#include "toolkit/report/report_data.h"
#include "toolkit/report/report_document.h"

/// Rows that a test lists.
class ListedRows : public ReportRows {
 public:
  ListedRows(QStringList fieldNames, std::vector<std::vector<ReportValue>> rowValues) : names(std::move(fieldNames)), rows(std::move(rowValues)) {}
  QStringList fields() const override { return names; }
  int rowCount() const override { return int(rows.size()); }
  ReportValue value(int row, int field) const override { return rows[size_t(row)][size_t(field)]; }

  QStringList names;
  std::vector<std::vector<ReportValue>> rows;
};

/// The node of that name below a root; nothing when there is none.
inline ReportNode* nodeNamed(ReportNode& root, const QString& name) {
  if (root.kind() != NodeKind::Foreign && root.name() == name) return &root;
  for (const auto& child : root.children())
    if (ReportNode* found = nodeNamed(*child, name)) return found;
  return nullptr;
}
