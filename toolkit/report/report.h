#pragma once

#include "toolkit/report/report_document.h"
#include "toolkit/report/report_layout.h"

/// A report at work: a template, the data put into it, and where it is to be printed. One object serves all reports of a
/// program; loading a template takes the place of the one before, and with it of all values that were set.
class Report {
 public:
  /// Loads a template. On failure everything stays as it was. Throws EInOutError, EReportFile.
  void load(const QString& file);
  /// The same for a file that may be missing: false then, and everything stays as it was.
  bool loadIfThere(const QString& file);

  const ReportDocument& document() const { return document_; }
  const QString& file() const { return file_; }

  /// Variables and data sets; the names that were declared stay known when another template is loaded.
  ReportData& data() { return data_; }
  const ReportData& data() const { return data_; }

  /// Sets the text of the barcode of that name, as it is and not as an expression. False when the template has none.
  bool setBarcodeText(const QString& name, const QString& text);
  /// True when the template holds a rich text of that name.
  bool hasRichText(const QString& name);
  /// Puts a text into the rich text of that name. False when the template has none.
  bool setRichText(const QString& name, RichText text);

  /// Makes the pages with the data as it is now.
  ReportPages prepare() const;

  /// Name of the printer; empty is the system's default.
  QString printer;
  int copies = 1;

 private:
  ReportDocument document_;
  QString file_;
  ReportData data_;
  RichTexts richTexts_;
};
