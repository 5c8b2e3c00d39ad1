#pragma once

#include "toolkit/report/designer/design_sample.h"

struct DesignFault {
  const ReportNode* node = nullptr;
  QString reason;         ///< Turkish
  bool isNotice = false;  ///< prints, but perhaps not as it is meant
};

/// What is wrong with a report, in document order: names that nobody knows, barcodes that cannot hold their text, texts that
/// are cut, objects outside the page, objects that cover another one's text, bands higher than their page.
std::vector<DesignFault> findFaults(const ReportDocument& document, const DesignSample& sample);

/// How a node is called in lists: its name and its kind, or what it says.
QString shownName(const ReportNode& node);
