#include "toolkit/report/paged_document.h"

#include "base/turkish_text.h"
#include "toolkit/report/report_painter.h"
#include "toolkit/report/text_lines.h"

void ReportPagedDocument::paint(QPainter& painter, int page, bool withMarks) const {
  paintReportPage(painter, pages_.pages[size_t(page)], withMarks);
}

std::vector<QRectF> ReportPagedDocument::find(int page, const QString& word) const {
  std::vector<QRectF> found;
  const QString wanted = TurkishText::fold(word);
  if (wanted.isEmpty()) return found;
  for (const Primitive& primitive : pages_.pages[size_t(page)].primitives) {
    const auto* mark = std::get_if<TextMark>(&primitive);
    if (!mark) continue;
    const QString text = TurkishText::fold(mark->text);
    for (qsizetype at = text.indexOf(wanted); at >= 0; at = text.indexOf(wanted, at + wanted.size())) {
      const QRectF line = boundsOf(primitive);
      if (mark->rotation != 0) {
        found.push_back(line);
        break;
      }
      const double from = textWidth(mark->text.left(at), mark->font) + mark->wordSpacing * double(mark->text.left(at).count(u' '));
      found.emplace_back(line.left() + from, line.top(), textWidth(mark->text.mid(at, wanted.size()), mark->font), line.height());
    }
  }
  return found;
}
