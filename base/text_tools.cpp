#include "base/text_tools.h"

#include "base/date_text.h"
#include "base/exceptions.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int searchedPositions = 254;

bool isDigit(QChar c) { return c >= u'0' && c <= u'9'; }

/// Nearest ASCII letter of a Turkish one, case kept; other characters stay.
QChar nearestAscii(QChar letter) {
  static constexpr std::pair<char16_t, char16_t> letters[] = {{u'ş', u's'}, {u'Ş', u'S'}, {u'ı', u'i'}, {u'İ', u'I'},
                                                              {u'ğ', u'g'}, {u'Ğ', u'G'}, {u'ü', u'u'}, {u'Ü', u'U'},
                                                              {u'ö', u'o'}, {u'Ö', u'O'}, {u'ç', u'c'}, {u'Ç', u'C'}};
  for (const auto& [turkish, ascii] : letters)
    if (letter == turkish) return ascii;
  return letter;
}

}  // namespace

QString TextTools::LoginTrBuyukHarf(const QString& text) {
  QString result = text;
  for (QChar& letter : result) {
    letter = nearestAscii(letter);
    if (letter >= u'a' && letter <= u'z') letter = QChar(letter.unicode() - u'a' + u'A');
  }
  return result;
}

QString TextTools::LoginTrPassword(const QString& text) {
  QString result = text;
  for (QChar& letter : result) letter = nearestAscii(letter);
  return result;
}

QString TextTools::Numarator(const QString& text) {
  QString result = text;
  qsizetype place = result.size() - 1;
  for (; place >= 0 && isDigit(result[place]); --place) {
    if (result[place] != u'9') {
      result[place] = QChar(result[place].unicode() + 1);
      return result;
    }
    result[place] = u'0';
  }
  return result.insert(place + 1, u'1');
}

QString TextTools::TarihRotate(const QString& date) {
  const auto read = DateText::toDate(date);
  if (!read) throw EConvertError(u"\"%1\" geçerli bir tarih değil."_s.arg(date));
  return read->toString(Qt::ISODate);
}

QString TextTools::StrToFloat_Universal(const QString& text) {
  const qsizetype from = qMax(qsizetype(0), text.size() - searchedPositions);
  qsizetype mark = -1;
  for (qsizetype i = text.size() - 1; i >= from && mark < 0; --i)
    if (text[i] == u'.' || text[i] == u',') mark = i;
  QString result;
  for (qsizetype i = 0; i < text.size(); ++i) {
    if (i == mark)
      result += u',';
    else if (isDigit(text[i]) || text[i] == u'-' || text[i] == u'+' || (mark >= 0 && text[i] == text[mark]))
      result += text[i] == u'.' ? QChar(u',') : text[i];
  }
  return result;
}

QString TextTools::GetValue(const QString& text, int index) {
  const QStringList fields = text.split(u'|');
  const bool unclosed = fields.size() > 1 && index == fields.size() && !fields.last().isEmpty();
  if (unclosed) return {};  // meant: a field counts only when its "|" closes it
  if (index < 1 || index >= fields.size()) return u"XXXXXXXXXX"_s;
  return fields[index - 1].trimmed();
}

int TextTools::CalcStrChecksum(const QString& text, bool less65) {
  int sum = 0;
  for (const QChar c : text) sum += c.unicode() - (less65 ? 65 : 0);
  return sum;
}

QString TextTools::DeleteLineBreaks(const QString& text) { return QString(text).remove(u'\r').remove(u'\n'); }
