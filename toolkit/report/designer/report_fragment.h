#pragma once

#include "toolkit/report/report_document.h"

/// Parts of a report as bytes, for the clipboard: a small report of its own, which any designer of the same or another report
/// reads.
namespace ReportFragment {

inline constexpr const char* mimeType = "application/x-report-part";

/// Objects, or one band. They are told with their places.
QByteArray write(const std::vector<ReportNode*>& nodes);
/// What write wrote, objects in their order; nothing for bytes that are no such part.
std::vector<std::unique_ptr<ReportNode>> read(const QByteArray& bytes);

}  // namespace ReportFragment
