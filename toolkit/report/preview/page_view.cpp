#include "toolkit/report/preview/page_view.h"

#include "base/guard.h"

#include <QPaintEvent>
#include <QPainter>

using namespace Qt::StringLiterals;

namespace {

constexpr double dotsPerMillimetreAtFull = 96 / 25.4;
constexpr int gap = 16;
const QColor markColor(255, 213, 79, 110);
const QColor currentColor(255, 143, 0, 140);

}  // namespace

PageView::PageView(const PagedDocument& document, QWidget* parent) : QWidget(parent), document_(document) { setAccessibleName(u"Sayfa"_s); }

QSizeF PageView::outerSize(QSizeF page, double zoom) {
  return page * dotsPerMillimetreAtFull * zoom + QSizeF(2 * gap, 2 * gap);
}

void PageView::show(int page, double zoom) {
  if (page != page_) mark({}, -1);
  page_ = page;
  zoom_ = zoom;
  resize(outerSize(document_.pageSize(page), zoom).toSize());
  update();
}

void PageView::mark(std::vector<QRectF> places, int current) {
  marks_ = std::move(places);
  current_ = current;
  update();
}

QRect PageView::placeOf(int mark) const {
  const double scale = dotsPerMillimetreAtFull * zoom_;
  const QRectF place = marks_[size_t(mark)];
  return QRectF(place.topLeft() * scale + QPointF(gap, gap), place.size() * scale).toRect();
}

void PageView::paintEvent(QPaintEvent* event) {
  guarded(this, [&] {
    QPainter painter(this);
    painter.fillRect(event->rect(), palette().color(QPalette::Mid));
    painter.translate(gap, gap);
    const double scale = dotsPerMillimetreAtFull * zoom_;
    const QSizeF size = document_.pageSize(page_);
    painter.fillRect(QRectF(QPointF(2, 2), size * scale), QColor(0, 0, 0, 60));
    painter.scale(scale, scale);
    painter.fillRect(QRectF(QPointF(), size), Qt::white);
    painter.setClipRect(QRectF(QPointF(), size));
    document_.paint(painter, page_, true);
    for (size_t place = 0; place < marks_.size(); ++place) painter.fillRect(marks_[place], int(place) == current_ ? currentColor : markColor);
  });
}
