#pragma once

#include "toolkit/report/paged_output.h"

class QPrinter;

struct PrintJob {
  QString printer = {};  ///< empty: the system's default
  int copies = 1;
  QString documentName = {};
};

/// Prints all pages without a dialog. False when the printer refuses: nothing is shown then, and the log has a line.
bool printPages(const PagedDocument& document, const PrintJob& job);

/// Prints pages on a printer that a user has set up. False when the progress broke it off. Throws EInOutError.
bool printPagesOn(QPrinter& printer, const PagedDocument& document, const PageList& pages, const PageProgress& progress);

/// How far everything is moved on a printer's paper, in mm to the right and down; kept on this workstation, beside the program.
QPointF printerOffset(const QString& printer);
/// Throws EInOutError.
void setPrinterOffset(const QString& printer, QPointF offset);

/// Dots per inch that a printer really has, kept likewise; 0 when nobody has told. Bars stand on whole dots by it: without it a
/// label printer blurs those of a long serial number.
int printerDots(const QString& printer);
/// Throws EInOutError.
void setPrinterDots(const QString& printer, int dotsPerInch);
