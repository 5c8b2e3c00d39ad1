#include "base/log_file.h"

#include "base/date_text.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace {
const QString ruler = QString(20, u'-');
}

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
  QFile out(file);
  if (!out.open(QIODevice::WriteOnly | QIODevice::Append)) return false;
  const QByteArray bytes = entry.toUtf8() + "\r\n";
  const qint64 before = out.size();
  if (out.write(bytes) == bytes.size() && out.flush()) return true;
  out.resize(before);  // no half an entry, to which the next one would be joined
  return false;
}
