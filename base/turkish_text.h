#pragma once

#include <QString>

/// Turkish rules for the letters that differ from English ones. Rests on no process locale.
namespace TurkishText {

/// Capital of a letter of the Turkish alphabet, or of q, w, x: "i" to "İ", "ı" to "I"; any other character stays.
QChar BuyukHarf(QChar letter);
QString BuyukHarf(const QString& text);
/// As BuyukHarf, and the capital of any other letter as well where the database can store it; "µ" and "ƒ" have none there.
QChar upper(QChar letter);
/// Small letter of one letter: "I" to "ı", "İ" to "i".
QChar lower(QChar letter);
QString upper(const QString& text);
QString lower(const QString& text);
/// The text with every letter and its marks as one character, where there is one: "s" and a cedilla become "ş". A dot
/// over an "i", which other programs put there, falls away.
QString composed(const QString& text);
/// Form in which two texts are compared without regard to case.
QString fold(const QString& text);
/// True when text holds part, without regard to case.
bool contains(const QString& text, const QString& part);

}  // namespace TurkishText
