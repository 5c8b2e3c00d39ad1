#pragma once

#include <QString>

/// Turkish rules for the letters that differ from English ones. Rests on no process locale.
namespace TurkishText {

/// Capital of one letter: "i" to "İ", "ı" to "I"; what has no capital stays.
QChar upper(QChar letter);
/// Small letter of one letter: "I" to "ı", "İ" to "i".
QChar lower(QChar letter);
QString upper(const QString& text);
QString lower(const QString& text);
/// Form in which two texts are compared without regard to case.
QString fold(const QString& text);
/// True when text holds part, without regard to case.
bool contains(const QString& text, const QString& part);

}  // namespace TurkishText
