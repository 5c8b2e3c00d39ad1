#include "toolkit/report/designer/page_places.h"

#include <algorithm>

PagePlaces::PagePlaces(const ReportNode& page) : PagePlaces(page, [](const ReportNode& band) { return band.millimetres(u"height"); }) {}

PagePlaces::PagePlaces(const ReportNode& page, const std::function<double(const ReportNode&)>& heightOf) : page_(&page), sheet_(page) {
  const QRectF room = cell();
  double y = room.top();
  double footers = 0;
  const auto put = [&](const ReportNode& band) {
    bands_.push_back({&band, QRectF(room.left(), y, room.width(), heightOf(band))});
    y = bands_.back().rect.bottom();
  };
  const auto forKind = [&](auto&& isWanted, auto&& work) {
    for (const auto& child : page.children())
      if (child->kind() == NodeKind::Band && isWanted(child->text(u"kind"))) work(*child);
  };
  const auto isHeader = [](const QString& kind) { return kind == u"pageheader"; };
  const auto isTitle = [](const QString& kind) { return kind == u"title"; };
  const auto isFooter = [](const QString& kind) { return kind == u"pagefooter"; };
  forKind(isFooter, [&](const ReportNode& band) { footers += heightOf(band); });
  forKind(isHeader, put);
  forKind(isTitle, put);
  forKind([&](const QString& kind) { return !isHeader(kind) && !isTitle(kind) && !isFooter(kind); }, [&](const ReportNode& band) {
    if (band.flag(u"atbottom")) y = std::max(y, room.bottom() - footers - heightOf(band));
    put(band);
  });
  y = std::max(y, room.bottom() - footers);
  forKind(isFooter, put);
}

QRectF PagePlaces::whole() const {
  QRectF all(QPointF(), sheet_.paper);
  if (!bands_.empty()) all.setBottom(std::max(all.bottom(), bands_.back().rect.bottom() + sheet_.margins.bottom()));
  return all;
}

const PagePlaces::Band* PagePlaces::bandAt(QPointF place) const {
  for (const Band& each : bands_)
    if (place.y() >= each.rect.top() && place.y() < each.rect.bottom()) return &each;
  return nullptr;
}

const PagePlaces::Band* PagePlaces::find(const ReportNode& band) const {
  const auto found = std::find_if(bands_.begin(), bands_.end(), [&](const Band& each) { return each.node == &band; });
  return found == bands_.end() ? nullptr : &*found;
}

QPointF PagePlaces::originOf(const ReportNode& parent) const {
  const Band* band = find(parent);
  return band ? band->rect.topLeft() : cell().topLeft();
}

QRectF PagePlaces::rectOf(const ReportNode& object) const { return ownRect(object).translated(originOf(*object.parent())); }

const ReportNode& PagePlaces::parentAt(QPointF place) const {
  const Band* band = bandAt(place);
  return band ? *band->node : *page_;
}

QRectF ownRect(const ReportNode& object) {
  return {object.millimetres(u"left"), object.millimetres(u"top"), object.millimetres(u"width"), object.millimetres(u"height")};
}
