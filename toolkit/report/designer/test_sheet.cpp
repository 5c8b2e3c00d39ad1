#include "toolkit/report/designer/test_sheet.h"

#include "toolkit/report/report_painter.h"
#include "toolkit/report/text_lines.h"

#include <QPainter>

using namespace Qt::StringLiterals;

namespace {

constexpr double thin = 0.1;

/// A line of text with its middle at a place.
TextMark text(const QString& shown, QPointF middle, double points) {
  ReportFont font;
  font.points = points;
  TextMark mark;
  mark.text = shown;
  mark.font = layoutFont(font);
  mark.color = Qt::black;
  mark.width = textWidth(shown, mark.font);
  mark.ascent = points * 25.4 / 72;
  mark.origin = middle + QPointF(-mark.width / 2, mark.ascent * 0.35);
  return mark;
}

}  // namespace

void TestSheet::paint(QPainter& painter, int, bool withMarks) const {
  ReportPage page{sheet_.paper, {}};
  const auto line = [&](QPointF from, QPointF to, double width = thin) { page.primitives.emplace_back(StrokeMark{from, to, width, Qt::black, Qt::SolidLine}); };
  const double across = sheet_.paper.width();
  const double down = sheet_.paper.height();
  for (int mark = 0; mark <= int(across); ++mark) {
    const double length = mark % 10 == 0 ? 4 : mark % 5 == 0 ? 2.5 : 1.5;
    line(QPointF(mark, 0), QPointF(mark, length));
    if (mark % 10 == 0 && mark > 0) page.primitives.emplace_back(text(QString::number(mark), QPointF(mark, 5.5), 6));
  }
  for (int mark = 0; mark <= int(down); ++mark) {
    const double length = mark % 10 == 0 ? 4 : mark % 5 == 0 ? 2.5 : 1.5;
    line(QPointF(0, mark), QPointF(length, mark));
    if (mark % 10 == 0 && mark > 0) page.primitives.emplace_back(text(QString::number(mark), QPointF(6.5, mark), 6));
  }
  const auto frame = [&](const QRectF& rect) { page.primitives.emplace_back(BoxMark{.rect = rect, .lineWidth = thin * 2}); };
  for (int cell = 0; cell < sheet_.columns * sheet_.rows; ++cell) frame(QRectF(sheet_.cellPlace(cell), sheet_.cell));
  const QPointF middle(across / 2, down / 2);
  line(middle - QPointF(5, 0), middle + QPointF(5, 0));
  line(middle - QPointF(0, 5), middle + QPointF(0, 5));
  if (down > 60) page.primitives.emplace_back(text(u"Cetvelle ölçün; kayan kadarını önizlemede “Yazıcı kayması” ile girin."_s, middle + QPointF(0, 9), 7));
  paintReportPage(painter, page, withMarks);
}
