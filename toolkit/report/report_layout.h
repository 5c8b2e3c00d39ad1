#pragma once

#include "toolkit/report/object_layout.h"

/// Turns a document and its data into pages. Asks no device: the same input gives the same pages everywhere. now is what the
/// date and time of the expressions say. Never fails for what a template holds: faults come with the pages.
ReportPages layoutReport(const ReportDocument& document, const ReportData& data, const RichTexts& richTexts, const QDateTime& now);

/// Size of the paper that a page of a template is printed on, as it lies.
QSizeF paperSize(const ReportNode& page);
