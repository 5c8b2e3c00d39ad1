#include "toolkit/report/designer/report_fragment.h"

#include "toolkit/report/report_file.h"

QByteArray ReportFragment::write(const std::vector<ReportNode*>& nodes) {
  ReportDocument part;
  ReportNode* page = part.root().append(std::make_unique<ReportNode>(NodeKind::Page));
  for (const ReportNode* node : nodes)
    if (isObject(node->kind()) || node->kind() == NodeKind::Band) page->append(node->clone());
  return page->children().empty() ? QByteArray() : ReportFile::write(part);
}

std::vector<std::unique_ptr<ReportNode>> ReportFragment::read(const QByteArray& bytes) {
  std::vector<std::unique_ptr<ReportNode>> nodes;
  try {
    ReportDocument part = ReportFile::read(bytes);
    if (part.root().children().empty()) return nodes;
    ReportNode& page = *part.root().children().front();
    while (!page.children().empty()) {
      std::unique_ptr<ReportNode> node = page.take(0);
      if (isObject(node->kind()) || node->kind() == NodeKind::Band) nodes.push_back(std::move(node));
    }
  } catch (const EReportFile&) {
    nodes.clear();  // another program's bytes: nothing to paste
  }
  return nodes;
}
