#pragma once

#include <QString>

class TableContent;

/// Writes a table into a spreadsheet file in Excel 97's format (BIFF8 in an OLE container): captions in bold and kept in
/// view, numbers as numbers with their format, dates as dates, everything else as text, also what begins with "=". A sheet
/// holds 65,536 rows; what is more goes on in further sheets, "Name (2)" and so on, under the same captions. The file is
/// replaced in one step. Throws EInOutError, also for a text that is longer than a cell may be.
void exportXls(const TableContent& content, const QString& sheetName, const QString& file);
