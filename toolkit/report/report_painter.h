#pragma once

#include "toolkit/report/report_pages.h"

class QPainter;

/// Paints one page onto a painter whose unit is the millimetre. Decides nothing; withMarks shows where faults are, which only
/// screens ask for.
void paintReportPage(QPainter& painter, const ReportPage& page, bool withMarks);
