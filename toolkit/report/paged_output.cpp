#include "toolkit/report/paged_output.h"

#include "base/exceptions.h"
#include "base/whole_file.h"

#include <QPainter>
#include <QPdfWriter>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr int pdfDotsPerInch = 1200;
constexpr double millimetresPerInch = 25.4;

QPageLayout layoutOf(QSizeF size) {
  // A page size is told upright; one that lies is turned.
  const bool lies = size.width() > size.height();
  QPageLayout layout(QPageSize(lies ? size.transposed() : size, QPageSize::Millimeter, {}, QPageSize::FuzzyMatch),
                     lies ? QPageLayout::Landscape : QPageLayout::Portrait, QMarginsF(), QPageLayout::Millimeter);
  // From the paper's edge, whatever part of it the printer can reach.
  layout.setMode(QPageLayout::FullPageMode);
  return layout;
}

}  // namespace

bool paintPages(QPagedPaintDevice& device, const PagedDocument& document, PageRange range, QPointF offset, const PageProgress& progress) {
  QPainter painter;
  for (int page = range.first; page <= range.last; ++page) {
    if (progress && !progress(page)) return false;
    device.setPageLayout(layoutOf(document.pageSize(page)));
    if (page == range.first) {
      if (!painter.begin(&device)) throw EInOutError(u"Yazdırma başlatılamadı."_s);
    } else if (!device.newPage()) {
      throw EInOutError(u"%1. sayfa yazılamadı."_s.arg(page + 1));
    }
    painter.save();
    painter.scale(device.logicalDpiX() / millimetresPerInch, device.logicalDpiY() / millimetresPerInch);
    painter.translate(offset);
    document.paint(painter, page, false);
    painter.restore();
  }
  if (!painter.end()) throw EInOutError(u"Yazdırma tamamlanamadı."_s);
  return true;
}

void writePdf(const PagedDocument& document, const QString& file, const QString& title, const PageProgress& progress) {
  WholeFile out(file);
  {
    QPdfWriter pdf(&out);
    pdf.setTitle(title);
    pdf.setCreator(u"Torvane Teknik Servis Takip"_s);
    pdf.setResolution(pdfDotsPerInch);
    if (!paintPages(pdf, document, {0, document.pageCount() - 1}, {}, progress)) return;
  }
  out.commit();
}

QImage pagePicture(const PagedDocument& document, int page, double dotsPerInch, bool withMarks) {
  const double scale = dotsPerInch / millimetresPerInch;
  const QSizeF size = document.pageSize(page) * scale;
  QImage picture(int(std::ceil(size.width() - 0.01)), int(std::ceil(size.height() - 0.01)), QImage::Format_RGB32);
  picture.fill(Qt::white);
  picture.setDotsPerMeterX(int(std::lround(dotsPerInch / millimetresPerInch * 1000)));
  picture.setDotsPerMeterY(picture.dotsPerMeterX());
  QPainter painter(&picture);
  painter.scale(scale, scale);
  document.paint(painter, page, withMarks);
  return picture;
}
