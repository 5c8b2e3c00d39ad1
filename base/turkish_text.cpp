#include "base/turkish_text.h"

using namespace Qt::StringLiterals;

QChar TurkishText::upper(QChar letter) {
  if (letter == u'i') return u'İ';
  if (letter == u'ı') return u'I';
  return letter.toUpper();
}

QChar TurkishText::lower(QChar letter) {
  if (letter == u'I') return u'ı';
  if (letter == u'İ') return u'i';
  return letter.toLower();
}

QString TurkishText::upper(const QString& text) {
  QString result = text;
  for (QChar& letter : result) letter = upper(letter);
  return result;
}

QString TurkishText::lower(const QString& text) {
  QString result = text;
  for (QChar& letter : result) letter = lower(letter);
  return result;
}

QString TurkishText::fold(const QString& text) { return lower(text); }

bool TurkishText::contains(const QString& text, const QString& part) { return fold(text).contains(fold(part)); }
