#pragma once

#include <QByteArray>
#include <QList>
#include <QStringList>

/// Lines of the small text files beside the program. Newer ones are UTF-8, older ones in the Turkish Windows code page, and
/// one that both programs wrote may hold lines of either.
namespace TextLines {

/// The lines as they stand in the file, without a byte order mark and their ends: CR LF, LF or CR. A last line may lack its
/// end; no bytes are no line.
QList<QByteArray> split(QByteArray bytes);

/// A line's text: UTF-8, or else the Turkish code page. Takes any bytes.
QString decode(QByteArrayView line);

/// Both in one.
QStringList read(const QByteArray& bytes);

}  // namespace TextLines
