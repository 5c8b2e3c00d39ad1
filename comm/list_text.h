#pragma once

#include <QString>
#include <QStringList>

/// Lists in one text, as the gateways' answers are taken apart.
namespace ListText {

/// The text as lines, with CR LF behind each; the empty text stays empty.
QString asLines(const QString& text);

/// Items parted by delimiter or by anything up to the blank; an item in double quotes keeps what it holds.
QStringList split(const QString& text, QChar delimiter);

/// split() with blanks kept: they go through as "~", so that a "~" comes out as a blank too; meant.
QStringList splitKeepingBlanks(QString text, QChar delimiter);

/// Takes every occurrence of part away, without regard to the case of ASCII letters.
QString without(QString text, const QString& part);

}  // namespace ListText
