#include "toolkit/report/printing.h"

#include "base/environment.h"
#include "base/ini_file.h"
#include "base/log_file.h"
#include "base/platform/print_service.h"
#include "base/program_paths.h"

#include <QPrinter>
#include <QPrinterInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int leastDots = 150;  ///< what a driver tells below is a value for want of a better one

QString offsetFile() { return programFolder() + u"Yazicilar.ini"_s; }

void logRefusal(const QString& printer, const Exception* error, const QString& reason) {
  LogFile::append(logFileName(), LogFile::messageEntry(environment().now(), u"Yazıcı “%1” yazdıramadı%2"_s.arg(printer, reason), error));
}

}  // namespace

QPointF printerOffset(const QString& printer) {
  const auto read = [&](const QString& key) { return IniFile::read(offsetFile(), printer, key, u"0"_s).toDouble(); };
  return {read(u"Saga"_s), read(u"Asagi"_s)};
}

void setPrinterOffset(const QString& printer, QPointF offset) {
  IniFile::write(offsetFile(), printer, u"Saga"_s, QString::number(offset.x()));
  IniFile::write(offsetFile(), printer, u"Asagi"_s, QString::number(offset.y()));
}

int printerDots(const QString& printer) { return IniFile::read(offsetFile(), printer, u"Nokta"_s, u"0"_s).toInt(); }

void setPrinterDots(const QString& printer, int dotsPerInch) {
  IniFile::write(offsetFile(), printer, u"Nokta"_s, QString::number(dotsPerInch));
}

bool printPagesOn(QPrinter& printer, const PagedDocument& document, const PageList& pages, const PageProgress& progress) {
  const QList<int> known = printer.supportedResolutions();
  int dots = printerDots(printer.printerName());
  if (dots <= 0 && known.size() == 1 && known.front() >= leastDots) dots = known.front();
  if (dots > 0) printer.setResolution(dots);
  if (!paintPages(printer, document, pages, printerOffset(printer.printerName()), progress)) {
    printer.abort();
    return false;
  }
  if (printer.printerState() == QPrinter::Error) throw EInOutError(u"Yazıcı hata bildirdi."_s);
  const QString refusal = printer.outputFormat() == QPrinter::NativeFormat ? printRefusal() : QString();
  if (!refusal.isEmpty()) throw EInOutError(refusal);
  return true;
}

bool printPages(const PagedDocument& document, const PrintJob& job) {
  const QPrinterInfo info = job.printer.isEmpty() ? QPrinterInfo::defaultPrinter() : QPrinterInfo::printerInfo(job.printer);
  if (info.isNull()) {
    logRefusal(job.printer, nullptr, u": böyle bir yazıcı yok"_s);
    return false;
  }
  try {
    QPrinter printer(info, QPrinter::HighResolution);
    printer.setCopyCount(std::max(1, job.copies));
    printer.setDocName(job.documentName);
    return printPagesOn(printer, document, allPages(document), {});
  } catch (const EInOutError& error) {
    logRefusal(info.printerName(), &error, {});
    return false;
  }
}
