#include "toolkit/report/designer/template_file.h"

#include "base/environment.h"
#include "base/exceptions.h"
#include "base/whole_file.h"
#include "toolkit/report/report_file.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

constexpr int mostDesigners = 20;
const QString stampFormat = u"yyyyMMdd-HHmmsszzz"_s;

void makeFolder(const QString& folder) {
  if (!QDir().mkpath(folder)) throw EInOutError(u"%1 klasörü açılamadı."_s.arg(QDir::toNativeSeparators(folder)));
}

}  // namespace

TemplateFile::TemplateFile(const QString& file) : file_(QFileInfo(file).absoluteFilePath()) {}

TemplateFile::~TemplateFile() = default;

QString TemplateFile::keptFolder() const {
  const QFileInfo about(file_);
  return u"%1/onceki/%2/"_s.arg(about.absolutePath(), about.completeBaseName());
}

QByteArray TemplateFile::bytes() const {
  QFile in(file_);
  return in.open(QIODevice::ReadOnly) ? in.readAll() : QByteArray();
}

ReportDocument TemplateFile::load() {
  ReportDocument document = ReportFile::load(file_);
  known_ = bytes();
  return document;
}

bool TemplateFile::isChangedByOthers() const { return bytes() != known_; }

void TemplateFile::save(const ReportDocument& document) {
  const QByteArray before = bytes();
  const QByteArray after = ReportFile::write(document);
  if (!before.isEmpty() && before != after) keepVersion(before);
  WholeFile::replace(file_, after);
  known_ = after;
  dropDraft();
}

void TemplateFile::keepVersion(const QByteArray& bytes) {
  const std::vector<Version> kept = versions();
  if (!kept.empty()) {
    QFile newest(kept.front().file);
    if (newest.open(QIODevice::ReadOnly) && newest.readAll() == bytes) return;
  }
  makeFolder(keptFolder());
  QDateTime moment = environment().now();
  const auto name = [&] { return keptFolder() + moment.toString(stampFormat) + u".fr3"_s; };
  while (QFile::exists(name())) moment = moment.addMSecs(1);
  WholeFile::replace(name(), bytes);
  const std::vector<Version> all = versions();
  for (size_t oldest = mostVersions; oldest < all.size(); ++oldest) QFile::remove(all[oldest].file);
}

std::vector<TemplateFile::Version> TemplateFile::versions() const {
  std::vector<Version> all;
  const QDir folder(keptFolder());
  for (const QFileInfo& each : folder.entryInfoList({u"*.fr3"_s}, QDir::Files, QDir::Name | QDir::Reversed)) {
    const QDateTime saved = QDateTime::fromString(each.completeBaseName(), stampFormat);
    if (saved.isValid()) all.push_back({each.absoluteFilePath(), saved});
  }
  return all;
}

QStringList TemplateFile::allIn(const QString& folder) {
  QStringList all;
  for (const QFileInfo& each : QDir(folder).entryInfoList({u"*.fr3"_s}, QDir::Files)) all += each.absoluteFilePath();
  const auto key = [](const QString& file) {
    const QString base = QFileInfo(file).completeBaseName();
    bool isNumber = false;
    const int number = base.toInt(&isNumber);
    return std::pair(isNumber ? number : std::numeric_limits<int>::max(), base);
  };
  std::sort(all.begin(), all.end(), [&](const QString& one, const QString& other) { return key(one) < key(other); });
  return all;
}

QString TemplateFile::captionOf(const QString& file) {
  const QString base = QFileInfo(file).completeBaseName();
  try {
    const QString name = ReportFile::load(file).root().name();
    return name.isEmpty() ? base : u"%1 — %2"_s.arg(base, name);
  } catch (const EInOutError&) {
    return base;  // whoever picks it is told
  }
}

QString TemplateFile::deliveredFile() const {
  // The delivered ones stand in the folder of all templates; a label's template is one folder below it.
  const QFileInfo about(file_);
  QDir folder = about.absoluteDir();
  const QString direct = folder.filePath(u"ozgun/"_s + about.fileName());
  if (QFile::exists(direct)) return direct;
  const QString name = folder.dirName();
  if (!folder.cdUp()) return {};
  const QString above = folder.filePath(u"ozgun/%1/%2"_s.arg(name, about.fileName()));
  return QFile::exists(above) ? above : QString();
}

bool TemplateFile::ownDraft(int number) {
  const QString draft = keptFolder() + u"taslak-%1"_s.arg(number);
  auto lock = std::make_unique<QLockFile>(draft + u".lock"_s);
  lock->setStaleLockTime(0);  // a designer that lives keeps it however long it takes
  if (!lock->tryLock()) return false;
  lock_ = std::move(lock);
  draft_ = draft + u".xml"_s;
  return true;
}

QString TemplateFile::orphanedDraft() {
  if (!QDir(keptFolder()).exists()) return {};
  // The first draft that nobody holds but that is there; without one the first free place is taken when it is needed.
  for (int number = 1; number <= mostDesigners; ++number) {
    if (!QFile::exists(keptFolder() + u"taslak-%1.xml"_s.arg(number))) continue;
    if (ownDraft(number)) return draft_;
  }
  return {};
}

void TemplateFile::keepDraft(const ReportDocument& document) {
  makeFolder(keptFolder());
  for (int number = 1; !lock_ && number <= mostDesigners; ++number)
    if (!QFile::exists(keptFolder() + u"taslak-%1.xml"_s.arg(number))) ownDraft(number);
  if (lock_) WholeFile::replace(draft_, ReportFile::write(document));
}

void TemplateFile::dropDraft() {
  if (!lock_) return;
  QFile::remove(draft_);
  lock_.reset();
}
