#include "toolkit/edits/plain_text.h"

#include <QTextDocument>

QString plainTextOf(const QTextDocument& document) {
  QString text = document.toRawText();
  return text.replace(QChar::ParagraphSeparator, u'\n').replace(QChar::LineSeparator, u'\n');
}
