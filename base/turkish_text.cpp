#include "base/turkish_text.h"

#include "base/data/latin5.h"

using namespace Qt::StringLiterals;

QChar TurkishText::BuyukHarf(QChar letter) {
  static constexpr QStringView covered = u"abcçdefgğhıijklmnoöpqrsştuüvwxyz";
  static constexpr QStringView capitals = u"ABCÇDEFGĞHIİJKLMNOÖPQRSŞTUÜVWXYZ";
  const qsizetype place = covered.indexOf(letter);
  return place < 0 ? letter : capitals[place];
}

QString TurkishText::BuyukHarf(const QString& text) {
  QString result = text;
  for (QChar& letter : result) letter = BuyukHarf(letter);
  return result;
}

QChar TurkishText::upper(QChar letter) {
  const QChar turkish = BuyukHarf(letter);
  if (turkish != letter || letter.unicode() < 0x80) return turkish;
  const QChar capital = letter.toUpper();
  return Latin5::holds(capital) ? capital : letter;
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

QString TurkishText::composed(const QString& text) {
  return text.normalized(QString::NormalizationForm_C).replace(u"i\u0307"_s, u"i"_s).replace(u"İ\u0307"_s, u"İ"_s);
}

QString TurkishText::fold(const QString& text) { return lower(text); }

bool TurkishText::contains(const QString& text, const QString& part) { return fold(text).contains(fold(part)); }
