#include "toolkit/report/report_output.h"

#include "base/environment.h"
#include "base/log_file.h"
#include "base/program_paths.h"
#include "toolkit/report/preview/preview_window.h"
#include "toolkit/report/printing.h"

#include <QFileInfo>
#include <QPrinterInfo>
#include <QSet>

using namespace Qt::StringLiterals;

namespace {

/// A fault that a row repeats is told once.
void logFaults(const Report& report, const ReportPages& pages) {
  QSet<QString> told;
  for (const ReportFault& fault : pages.faults) {
    const QString line = u"Şablon %1, %2: %3"_s.arg(QFileInfo(report.file()).fileName(), fault.object, fault.reason);
    if (fault.isNotice || told.contains(line)) continue;
    told.insert(line);
    LogFile::append(logFileName(), LogFile::messageEntry(environment().now(), line, nullptr));
  }
}

std::shared_ptr<const ReportPagedDocument> prepared(const Report& report) {
  auto document = std::make_shared<const ReportPagedDocument>(report.prepare());
  logFaults(report, document->pages());
  return document;
}

}  // namespace

bool printReport(const Report& report, const QString& documentName) {
  return printPages(*prepared(report), {.printer = report.printer, .copies = report.copies, .documentName = documentName});
}

QString printerName(const Report& report) { return report.printer.isEmpty() ? QPrinterInfo::defaultPrinterName() : report.printer; }

void showReport(QWidget* owner, const Report& report, const QString& documentName) {
  showPreview(owner, prepared(report), {.documentName = documentName, .printer = report.printer, .copies = report.copies});
}
