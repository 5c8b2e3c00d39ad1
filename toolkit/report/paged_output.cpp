#include "toolkit/report/paged_output.h"

#include "base/exceptions.h"
#include "base/whole_file.h"

#include <QPainter>
#include <QPdfWriter>

#include <cmath>
#include <numeric>

using namespace Qt::StringLiterals;

namespace {

constexpr int pdfDotsPerInch = 1200;
constexpr double millimetresPerInch = 25.4;

QPageLayout layoutOf(QSizeF size) {
  // Sheets are told upright and turned. A label that is wider than high lies on its roll as it was drawn.
  const bool lies = size.width() > size.height();
  const QPageSize sheet(lies ? size.transposed() : size, QPageSize::Millimeter, {}, QPageSize::FuzzyMatch);
  const bool isTurned = lies && sheet.id() != QPageSize::Custom;
  QPageLayout layout(isTurned ? sheet : QPageSize(size, QPageSize::Millimeter, {}, QPageSize::FuzzyMatch),
                     isTurned ? QPageLayout::Landscape : QPageLayout::Portrait, QMarginsF(), QPageLayout::Millimeter);
  // From the paper's edge, whatever part of it the printer can reach.
  layout.setMode(QPageLayout::FullPageMode);
  return layout;
}

}  // namespace

PageList allPages(const PagedDocument& document) {
  PageList pages(size_t(document.pageCount()));
  std::iota(pages.begin(), pages.end(), 0);
  return pages;
}

bool paintPages(QPagedPaintDevice& device, const PagedDocument& document, const PageList& pages, QPointF offset, const PageProgress& progress) {
  QPainter painter;
  for (const int page : pages) {
    if (progress && !progress(page)) return false;
    device.setPageLayout(layoutOf(document.pageSize(page)));
    if (!painter.isActive()) {
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
    if (!paintPages(pdf, document, allPages(document), {}, progress)) return;
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
