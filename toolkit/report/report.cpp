#include "toolkit/report/report.h"

#include "base/environment.h"
#include "toolkit/report/report_file.h"

#include <QFile>

void Report::load(const QString& file) {
  document_ = ReportFile::load(file);
  file_ = file;
  data_.clearValues();
  richTexts_.clear();
  printer.clear();
  copies = 1;
}

bool Report::loadIfThere(const QString& file) {
  if (!QFile::exists(file)) return false;
  load(file);
  return true;
}

bool Report::setBarcodeText(const QString& name, const QString& text) {
  ReportNode* barcode = document_.find(name, NodeKind::Barcode);
  if (barcode) barcode->setValue(u"text", ExpressionText::literal(text));
  return barcode;
}

bool Report::hasRichText(const QString& name) { return document_.find(name, NodeKind::RichText); }

bool Report::setRichText(const QString& name, RichText text) {
  if (!hasRichText(name)) return false;
  richTexts_.insert(name, std::move(text));
  return true;
}

ReportPages Report::prepare() const { return layoutReport(document_, data_, richTexts_, environment().now()); }
