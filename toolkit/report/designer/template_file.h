#pragma once

#include "toolkit/report/report_document.h"

#include <QDateTime>
#include <QLockFile>

#include <memory>

/// The file that a report is designed in, and what is kept for it beside it in the folder "onceki": its last ten saved states,
/// and the work under way of designers that are open. Shows nothing. Everything throws EInOutError.
class TemplateFile {
 public:
  struct Version {
    QString file;
    QDateTime saved;
  };
  static constexpr int mostVersions = 10;

  explicit TemplateFile(const QString& file);
  ~TemplateFile();

  const QString& file() const { return file_; }
  /// Reads the file, and remembers how it was. Throws EReportFile as well.
  ReportDocument load();
  /// True when the file is another one than was loaded or saved here last: somebody else saved it.
  bool isChangedByOthers() const;
  /// Keeps the state before among the versions and replaces the file in one step. What was asked about (changed by others, no
  /// report any more) is the caller's to ask.
  void save(const ReportDocument& document);

  /// Saved states before the one that stands, newest first.
  std::vector<Version> versions() const;
  /// All templates of a folder: by number where they are numbered, by name behind them.
  static QStringList allIn(const QString& folder);
  /// A template's file and what it is: "13 — Servis raporu"; one that cannot be read is its file alone.
  static QString captionOf(const QString& file);
  /// The template as it was delivered; empty when there is none.
  QString deliveredFile() const;

  /// Work under way that a designer left behind which did not end: its file; empty when there is none. From then on it belongs
  /// to this one.
  QString orphanedDraft();
  void keepDraft(const ReportDocument& document);
  void dropDraft();
  /// Leaves the draft for the next designer of the file.
  void leaveDraft() { lock_.reset(); }

 private:
  QString keptFolder() const;
  QByteArray bytes() const;
  void keepVersion(const QByteArray& bytes);
  bool ownDraft(int number);

  QString file_;
  QByteArray known_;
  QString draft_;
  std::unique_ptr<QLockFile> lock_;
};
