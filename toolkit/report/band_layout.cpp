#include "toolkit/report/band_layout.h"

#include "toolkit/report/expression_functions.h"

#include <algorithm>

namespace {

constexpr double tolerance = 0.005;

/// An object on its way to its place.
struct Placing {
  MeasuredObject measured;
  QRectF original;
  double top = 0;
  double bottom = 0;
};

bool overlapsAcross(const QRectF& one, const QRectF& other) {
  return one.left() < other.right() - tolerance && other.left() < one.right() - tolerance;
}

bool holds(const QRectF& outer, const QRectF& inner) {
  return outer.adjusted(-tolerance, -tolerance, tolerance, tolerance).contains(inner);
}

/// Upper ones first; of two that end alike the smaller one, so that a frame comes behind what it holds.
std::vector<Placing*> inOrder(std::vector<Placing>& all) {
  std::vector<Placing*> order;
  for (Placing& each : all) order.push_back(&each);
  std::stable_sort(order.begin(), order.end(), [](const Placing* one, const Placing* other) {
    if (one->original.bottom() != other->original.bottom()) return one->original.bottom() < other->original.bottom();
    return one->original.height() < other->original.height();
  });
  return order;
}

/// Where an object begins after those above it have grown or shrunk. It goes by the lowest ones only: what stands above these
/// has moved them already.
double pushedTop(const Placing& placing, const std::vector<Placing*>& order) {
  std::optional<double> top;
  std::vector<const Placing*> lowest;
  for (auto each = order.rbegin(); each != order.rend(); ++each) {
    const Placing* above = *each;
    if (above == &placing || above->original.bottom() > placing.original.top() + tolerance) continue;
    if (!overlapsAcross(above->original, placing.original)) continue;
    const bool isHidden = std::any_of(lowest.begin(), lowest.end(), [&](const Placing* between) {
      return above->original.bottom() <= between->original.top() + tolerance && overlapsAcross(above->original, between->original);
    });
    if (isHidden) continue;
    lowest.push_back(above);
    const double below = above->bottom + placing.original.top() - above->original.bottom();
    top = std::max(top.value_or(below), below);
  }
  return top.value_or(placing.original.top());
}

/// A frame reaches as far below what it holds as it did. Nothing when it holds nothing.
std::optional<double> frameBottom(const Placing& frame, const std::vector<Placing*>& order) {
  std::optional<double> bottom;
  for (const Placing* inside : order) {
    if (inside == &frame || !holds(frame.original, inside->original) || inside->original == frame.original) continue;
    const double below = inside->bottom + frame.original.bottom() - inside->original.bottom();
    bottom = std::max(bottom.value_or(below), below);
  }
  return bottom;
}

BandBox finished(std::vector<Placing>& all, double height) {
  BandBox box;
  box.height = height;
  for (Placing& each : all) {
    if (!each.measured.isVisible) continue;
    const LayoutObject& object = *each.measured.object;
    const QRectF rect(each.original.left(), each.top, each.original.width(), each.bottom - each.top);
    for (const double start : each.measured.pageStarts) box.pageStarts.push_back(each.top + start);
    for (const KeptRange& range : each.measured.kept) box.kept.push_back({each.top + range.from, each.top + range.behind});
    box.starts.emplace_back(object.node, box.primitives.size());
    place(each.measured, rect, box.primitives);
    for (const QString& reason : each.measured.faults) box.faults.push_back({object.name, reason});
    for (const QString& notice : each.measured.notices) box.faults.push_back({.object = object.name, .reason = notice, .isNotice = true});
  }
  std::sort(box.pageStarts.begin(), box.pageStarts.end());
  return box;
}

/// A text that shows the number of pages waits until there is one, unless its size hangs on it.
bool waits(const LayoutObject& object, const EvaluationContext& context) {
  return object.usesPageCount && context.pageCount == 0 && !object.grows && !object.shrinks;
}

std::vector<Placing> measured(const std::vector<LayoutObject>& objects, const EvaluationContext& context, const RichTexts* richTexts,
                              std::vector<Primitive>& pending) {
  std::vector<Placing> all;
  for (const LayoutObject& object : objects) {
    if (!waits(object, context)) {
      all.push_back({measure(object, context, richTexts), object.rect});
      continue;
    }
    auto text = std::make_shared<PendingText>(PendingText{object.rect, &object, context, {}});
    if (context.places) text->places = *context.places;
    text->context.places = nullptr;
    pending.emplace_back(std::move(text));
  }
  return all;
}

}  // namespace

LayoutBand::LayoutBand(const ReportNode& band) : node(&band), kind(band.text(u"kind")), height(band.millimetres(u"height")) {
  if (const QString& condition = band.text(u"visible"); !condition.isEmpty()) visible.emplace(condition);
  for (const auto& child : band.children())
    if (isObject(child->kind())) objects.emplace_back(*child);
}

BandBox layoutBand(const LayoutBand& band, const EvaluationContext& context, const RichTexts* richTexts) {
  std::vector<ReportFault> faults;
  if (band.visible) {
    const ReportValue value = band.visible->evaluate(context);
    if (const auto* fault = std::get_if<ExpressionFault>(&value))
      faults.push_back({band.node->name(), fault->reason});
    else if (!ExpressionFunctions::truth(value))
      return {};
  }
  std::vector<Primitive> pending;
  std::vector<Placing> all = measured(band.objects, context, richTexts, pending);
  const std::vector<Placing*> order = inOrder(all);
  double lowest = 0;
  double lowestBefore = 0;
  for (Placing* each : order) {
    const LayoutObject& object = *each->measured.object;
    each->top = pushedTop(*each, order);
    each->bottom = each->top + each->measured.height;
    if (object.stretches && each->measured.isVisible)
      if (const auto bottom = frameBottom(*each, order)) each->bottom = std::max(each->bottom, *bottom);
    lowest = std::max(lowest, each->bottom);
    lowestBefore = std::max(lowestBefore, each->original.bottom());
  }
  const double below = std::max(0.0, band.height - lowestBefore);
  const double height = band.flag(u"shrinks") ? lowest + below : std::max(band.height, lowest + below);
  for (Placing* each : order)
    if (each->measured.object->stretches && !frameBottom(*each, order)) each->bottom = std::max(each->bottom, height - (band.height - each->original.bottom()));
  BandBox box = finished(all, height);
  box.primitives.insert(box.primitives.end(), pending.begin(), pending.end());
  box.faults.insert(box.faults.end(), faults.begin(), faults.end());
  return box;
}

BandBox layoutObjects(const std::vector<LayoutObject>& objects, double height, const EvaluationContext& context, const RichTexts* richTexts) {
  std::vector<Primitive> pending;
  std::vector<Placing> all = measured(objects, context, richTexts, pending);
  for (Placing& each : all) {
    each.top = each.original.top();
    each.bottom = each.top + each.measured.height;
  }
  BandBox box = finished(all, height);
  box.primitives.insert(box.primitives.end(), pending.begin(), pending.end());
  return box;
}

double cutPlace(const BandBox& box, double limit, bool dividesKept) {
  double cut = limit;
  for (const double start : box.pageStarts)
    if (start > tolerance) {
      cut = std::min(cut, start);
      break;
    }
  std::vector<QRectF> whole;
  for (const Primitive& primitive : box.primitives)
    if (!std::holds_alternative<BoxMark>(primitive) && !std::holds_alternative<StrokeMark>(primitive) &&
        !std::holds_alternative<FaultMark>(primitive))
      whole.push_back(boundsOf(primitive));
  if (!dividesKept)
    for (const KeptRange& range : box.kept) whole.emplace_back(0, range.from, 1, range.behind - range.from);
  std::sort(whole.begin(), whole.end(), [](const QRectF& one, const QRectF& other) { return one.bottom() > other.bottom(); });
  for (bool moved = true; moved;) {
    moved = false;
    for (const QRectF& rect : whole) {
      if (rect.bottom() <= cut + tolerance) break;
      if (rect.top() >= cut - tolerance) continue;
      cut = rect.top();
      moved = true;
    }
  }
  return cut;
}

BandBox takeUpper(BandBox& box, double cut) {
  BandBox upper;
  upper.height = cut;
  upper.faults.swap(box.faults);
  std::vector<Primitive> lower;
  for (Primitive& primitive : box.primitives) {
    const QRectF rect = boundsOf(primitive);
    if (rect.bottom() <= cut + tolerance) {
      upper.primitives.push_back(std::move(primitive));
      continue;
    }
    if (rect.top() < cut - tolerance) {
      Primitive part = primitive;
      if (auto* boxMark = std::get_if<BoxMark>(&part)) {
        boxMark->rect.setBottom(cut);
        std::get<BoxMark>(primitive).rect.setTop(cut);
      } else if (auto* faultMark = std::get_if<FaultMark>(&part)) {
        faultMark->rect.setBottom(cut);
        std::get<FaultMark>(primitive).rect.setTop(cut);
      } else if (auto* stroke = std::get_if<StrokeMark>(&part)) {
        const double share = (cut - stroke->from.y()) / (stroke->to.y() - stroke->from.y());
        const QPointF middle = stroke->from + (stroke->to - stroke->from) * share;
        const bool isDown = stroke->to.y() > stroke->from.y();
        (isDown ? stroke->to : stroke->from) = middle;
        auto& rest = std::get<StrokeMark>(primitive);
        (isDown ? rest.from : rest.to) = middle;
      }
      upper.primitives.push_back(std::move(part));
    }
    moveBy(primitive, 0, -cut);
    lower.push_back(std::move(primitive));
  }
  box.primitives = std::move(lower);
  box.height -= cut;
  std::erase_if(box.pageStarts, [&](double start) { return start <= cut + tolerance; });
  for (double& start : box.pageStarts) start -= cut;
  std::erase_if(box.kept, [&](const KeptRange& range) { return range.behind <= cut + tolerance; });
  for (KeptRange& range : box.kept) range = {std::max(0.0, range.from - cut), range.behind - cut};
  return upper;
}
