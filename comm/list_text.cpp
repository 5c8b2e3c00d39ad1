#include "comm/list_text.h"

using namespace Qt::StringLiterals;

namespace {

QStringList linesOf(QString text) {
  text.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n');
  if (text.endsWith(u'\n')) text.chop(1);
  return text.split(u'\n');
}

QString asciiLower(QString text) {
  for (QChar& letter : text)
    if (letter >= u'A' && letter <= u'Z') letter = QChar(letter.unicode() + 32);
  return text;
}

}  // namespace

QString ListText::asLines(const QString& text) { return text.isEmpty() ? text : linesOf(text).join(u"\r\n"_s) + u"\r\n"_s; }

QStringList ListText::split(const QString& text, QChar delimiter) {
  QStringList items;
  qsizetype at = 0;
  const auto skipBlanks = [&] {
    while (at < text.size() && text[at] <= u' ') ++at;
  };
  skipBlanks();
  while (at < text.size()) {
    QString item;
    if (text[at] == u'"') {
      for (++at; at < text.size(); ++at) {
        if (text[at] == u'"' && (at + 1 == text.size() || text[++at] != u'"')) break;
        item += text[at];
      }
      if (at < text.size() && text[at] == u'"') ++at;
    } else {
      while (at < text.size() && text[at] > u' ' && text[at] != delimiter) item += text[at++];
    }
    items.append(item);
    skipBlanks();
    if (at < text.size() && text[at] == delimiter) {
      if (++at == text.size()) items.append(QString());
      skipBlanks();
    }
  }
  return items;
}

QStringList ListText::splitKeepingBlanks(QString text, QChar delimiter) {
  QStringList items = split(text.replace(u' ', u'~'), delimiter);
  return items.replaceInStrings(u"~"_s, u" "_s);
}

QString ListText::without(QString text, const QString& part) {
  const QString wanted = asciiLower(part);
  QString folded = asciiLower(text);
  QString kept;
  qsizetype from = 0;
  for (qsizetype found; (found = folded.indexOf(wanted, from)) >= 0; from = found + wanted.size()) kept += text.mid(from, found - from);
  return kept + text.mid(from);
}
