#pragma once

#include "base/exceptions.h"
#include "toolkit/report/report_document.h"

/// A file that cannot be read as a report. The message names the line and the reason.
class EReportFile : public EInOutError {
 public:
  EReportFile(int line, const QString& reason);
  /// The same fault with the file's name before it.
  EReportFile(const QString& file, const EReportFile& fault);
  QString className() const override;
  QString parentClassName() const override;
  int line() const { return line_; }

 private:
  int line_;
};

/// Reports as files: XML, told in docs/SABLON.md. What this version does not know is kept and written back.
namespace ReportFile {

/// Throws EReportFile when the bytes are no report, or one whose values cannot be right.
ReportDocument read(const QByteArray& bytes);
QByteArray write(const ReportDocument& document);

/// Throws EInOutError when the file cannot be opened, EReportFile as read does.
ReportDocument load(const QString& file);
/// Replaces the file in one step. A file in that place which is no report is left as it is: throws EReportFile. Throws
/// EInOutError when it cannot be written.
void save(const ReportDocument& document, const QString& file);

}  // namespace ReportFile
