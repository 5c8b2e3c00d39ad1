#pragma once

#include "toolkit/report/report.h"

class QWidget;

/// What a screen does with a filled report, under the name that the printer's job and a PDF get. Both make the pages anew and
/// leave a line in the log for each fault of the template: on paper it prints as nothing.

/// Prints on the report's printer, as many copies as it says, without a dialog. False when the printer refuses: nothing is
/// shown then, and the log has a line.
bool printReport(const Report& report, const QString& documentName);

/// Name of the printer that printReport takes; empty when there is none.
QString printerName(const Report& report);

/// Shows the preview modally over owner.
void showReport(QWidget* owner, const Report& report, const QString& documentName);
