#include "base/log_file.h"

#include "base/date_text.h"
#include "base/whole_file.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSet>

using namespace Qt::StringLiterals;

namespace {
const QString ruler = QString(20, u'-');

QString oldFile(const QString& file, int number) {
  const QFileInfo about(file);
  return u"%1/%2.%3.%4"_s.arg(about.path(), about.completeBaseName(), QString::number(number), about.suffix());
}

QByteArray bytesOf(const QString& file) {
  QFile in(file);
  return in.open(QIODevice::ReadOnly) ? in.readAll() : QByteArray();
}

/// Each entry once a day; whatever stands before the first one stays.
QByteArray condensed(const QByteArray& log) {
  static const QRegularExpression begin(u"^(\\d\\d\\.\\d\\d\\.\\d{4}) \\d\\d:\\d\\d:\\d\\d(?=[|-])"_s);
  QByteArray kept;
  QSet<QByteArray> seen;
  QByteArray entry;
  QByteArray identity;
  const auto finish = [&] {
    if (!seen.contains(identity)) kept += entry;
    seen.insert(identity);
  };
  for (const QByteArray& line : (log.endsWith('\n') ? log.chopped(1) : log).split('\n')) {
    const QByteArray whole = line + '\n';
    if (const auto match = begin.match(QString::fromLatin1(line.left(20))); match.hasMatch()) {
      finish();
      entry = whole;
      identity = match.captured(1).toLatin1() + whole.mid(match.capturedLength());
    } else {
      entry += whole;
      identity += whole;
    }
  }
  finish();
  return kept;
}

/// Leaves the file as it is where the old one cannot be written.
void turnOver(const QString& file) try {
  const QString newest = oldFile(file, 1);
  QByteArray kept = condensed(bytesOf(newest) + bytesOf(file));
  if (kept.size() > LogFile::mostBytes) {
    QFile::remove(oldFile(file, LogFile::oldFiles));
    for (int number = LogFile::oldFiles - 1; number >= 1; --number) QFile::rename(oldFile(file, number), oldFile(file, number + 1));
    kept = condensed(bytesOf(file));
  }
  WholeFile::replace(newest, kept);
  QFile::remove(file);
} catch (const EInOutError&) {
}

}  // namespace

QString LogFile::messageOf(const std::exception& error) {
  const auto* own = dynamic_cast<const Exception*>(&error);
  return own != nullptr ? own->message() : QString::fromLocal8Bit(error.what());
}

QString LogFile::errorEntry(const Context& context, const std::exception& error) {
  const auto* own = dynamic_cast<const Exception*>(&error);
  const QString parent = own != nullptr ? own->parentClassName() : u"TObject"_s;
  QString entry = QStringList{DateText::dateTime(context.now), context.user, parent, context.activeControl, messageOf(error)}.join(u'|') +
                  u"\r\n"_s + ruler;
  const auto* database = dynamic_cast<const EDatabaseError*>(&error);
  if (database != nullptr && database->hasQuery()) entry += u"\r\n"_s + database->queryName() + u"| "_s + database->queryText();
  return entry;
}

QString LogFile::markerEntry(const Context& context, const QString& labelName, const QString& labelCaption) {
  return QStringList{DateText::dateTime(context.now), context.user, context.activeForm, context.activeControl, labelName}.join(u'|') +
         u"| "_s + labelCaption + u"\r\n"_s + ruler;
}

QString LogFile::messageEntry(const QDateTime& now, const QString& message, const std::exception* error) {
  QString line = DateText::dateTime(now) + u"->"_s + message;
  if (error != nullptr) line += u" ("_s + messageOf(*error) + u')';
  return line.replace(u"\r\n"_s, u" "_s).replace(u'\n', u' ').replace(u'\r', u' ');
}

bool LogFile::append(const QString& file, const QString& entry) {
  if (const QFileInfo about(file); about.isFile() && about.size() >= mostBytes) turnOver(file);
  QFile out(file);
  if (!out.open(QIODevice::WriteOnly | QIODevice::Append)) return false;
  const QByteArray bytes = entry.toUtf8() + "\r\n";
  const qint64 before = out.size();
  if (out.write(bytes) == bytes.size() && out.flush()) return true;
  out.resize(before);  // no half an entry, to which the next one would be joined
  return false;
}
