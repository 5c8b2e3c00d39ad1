#include "toolkit/report/designer/arranging.h"

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr double leastSize = 0.1;
constexpr double farthest = 2000;

double leastOf(const ReportNode& object) { return object.kind() == NodeKind::Line ? 0 : leastSize; }

std::vector<ReportNode*> loose(const std::vector<ReportNode*>& objects) {
  std::vector<ReportNode*> all = objects;
  std::erase_if(all, [](const ReportNode* object) { return object->flag(u"locked"); });
  return all;
}

void add(PropertyChanges& changes, ReportNode& object, const QString& property, double millimetres) {
  changes.push_back({&object, property, std::clamp(Arranging::rounded(millimetres), -farthest, farthest)});
}

}  // namespace

double Arranging::rounded(double millimetres) {
  const double whole = std::round(millimetres * 100) / 100;
  return whole == 0 ? 0 : whole;  // no minus before it
}

QRectF Arranging::bounds(const std::vector<ReportNode*>& objects, const PagePlaces& places) {
  std::optional<QRectF> all;
  for (const ReportNode* object : objects) {
    const QRectF rect = places.rectOf(*object);
    if (!all) {
      all = rect;
      continue;
    }
    // A line's rectangle is empty, which QRectF's own union leaves out.
    all->setCoords(std::min(all->left(), rect.left()), std::min(all->top(), rect.top()), std::max(all->right(), rect.right()),
                   std::max(all->bottom(), rect.bottom()));
  }
  return all.value_or(QRectF());
}

PropertyChanges Arranging::moved(const std::vector<ReportNode*>& objects, QPointF by) {
  PropertyChanges changes;
  for (ReportNode* object : loose(objects)) {
    if (by.x() != 0) add(changes, *object, u"left"_s, object->millimetres(u"left") + by.x());
    if (by.y() != 0) add(changes, *object, u"top"_s, object->millimetres(u"top") + by.y());
  }
  return changes;
}

PropertyChanges Arranging::grown(const std::vector<ReportNode*>& objects, QSizeF by) {
  PropertyChanges changes;
  for (ReportNode* object : loose(objects)) {
    if (by.width() != 0) add(changes, *object, u"width"_s, std::max(leastOf(*object), object->millimetres(u"width") + by.width()));
    if (by.height() != 0) add(changes, *object, u"height"_s, std::max(leastOf(*object), object->millimetres(u"height") + by.height()));
  }
  return changes;
}

PropertyChanges Arranging::placed(ReportNode& object, const QRectF& rect) {
  PropertyChanges changes;
  if (object.flag(u"locked")) return changes;
  add(changes, object, u"left"_s, rect.left());
  add(changes, object, u"top"_s, rect.top());
  add(changes, object, u"width"_s, std::max(leastOf(object), rect.width()));
  add(changes, object, u"height"_s, std::max(leastOf(object), rect.height()));
  return changes;
}

PropertyChanges Arranging::stretched(const std::vector<ReportNode*>& objects, const PagePlaces& places, const QRectF& from, const QRectF& to) {
  PropertyChanges changes;
  const double across = from.width() > 0 ? to.width() / from.width() : 1;
  const double down = from.height() > 0 ? to.height() / from.height() : 1;
  for (ReportNode* object : loose(objects)) {
    const QRectF rect = places.rectOf(*object);
    const QPointF corner(to.left() + (rect.left() - from.left()) * across, to.top() + (rect.top() - from.top()) * down);
    const QRectF made(corner - places.originOf(*object->parent()), QSizeF(rect.width() * across, rect.height() * down));
    for (PropertyChange& each : placed(*object, made)) changes.push_back(std::move(each));
  }
  return changes;
}

PropertyChanges Arranging::aligned(const std::vector<ReportNode*>& objects, const PagePlaces& places, Edge edge) {
  PropertyChanges changes;
  const QRectF all = objects.size() == 1 ? places.cell() : bounds(objects, places);
  for (ReportNode* object : loose(objects)) {
    const QRectF rect = places.rectOf(*object);
    const QPointF origin = places.originOf(*object->parent());
    switch (edge) {
      case Edge::Left: add(changes, *object, u"left"_s, all.left() - origin.x()); break;
      case Edge::Center: add(changes, *object, u"left"_s, all.center().x() - rect.width() / 2 - origin.x()); break;
      case Edge::Right: add(changes, *object, u"left"_s, all.right() - rect.width() - origin.x()); break;
      case Edge::Top: add(changes, *object, u"top"_s, all.top() - origin.y()); break;
      case Edge::Middle: add(changes, *object, u"top"_s, all.center().y() - rect.height() / 2 - origin.y()); break;
      case Edge::Bottom: add(changes, *object, u"top"_s, all.bottom() - rect.height() - origin.y()); break;
    }
  }
  return changes;
}

PropertyChanges Arranging::distributed(const std::vector<ReportNode*>& objects, const PagePlaces& places, bool isAcross) {
  PropertyChanges changes;
  if (objects.size() < 3) return changes;
  const auto begin = [&](const ReportNode* object) { return isAcross ? places.rectOf(*object).left() : places.rectOf(*object).top(); };
  const auto length = [&](const ReportNode* object) { return isAcross ? places.rectOf(*object).width() : places.rectOf(*object).height(); };
  std::vector<ReportNode*> order = objects;
  std::stable_sort(order.begin(), order.end(), [&](const ReportNode* one, const ReportNode* other) { return begin(one) < begin(other); });
  double room = begin(order.back()) - begin(order.front()) - length(order.front());
  for (size_t place = 1; place + 1 < order.size(); ++place) room -= length(order[place]);
  const double gap = room / double(order.size() - 1);
  double next = begin(order.front()) + length(order.front()) + gap;
  for (size_t place = 1; place + 1 < order.size(); ++place) {
    ReportNode& object = *order[place];
    const QPointF origin = places.originOf(*object.parent());
    if (!object.flag(u"locked")) add(changes, object, isAcross ? u"left"_s : u"top"_s, next - (isAcross ? origin.x() : origin.y()));
    next += length(&object) + gap;
  }
  return changes;
}

PropertyChanges Arranging::sameSize(const std::vector<ReportNode*>& objects, bool width, bool height) {
  PropertyChanges changes;
  if (objects.empty()) return changes;
  const ReportNode& model = *objects.front();
  for (ReportNode* object : loose(objects)) {
    if (width) add(changes, *object, u"width"_s, model.millimetres(u"width"));
    if (height) add(changes, *object, u"height"_s, model.millimetres(u"height"));
  }
  return changes;
}

void Arranging::reorder(ReportEditor& editor, const QString& name, const std::vector<ReportNode*>& objects, Order order) {
  std::vector<ReportNode*> all = objects;
  const bool isForward = order == Order::Front || order == Order::Forward;
  // The one that goes farthest begins, so that none passes another one of them.
  std::sort(all.begin(), all.end(), [](const ReportNode* one, const ReportNode* other) {
    return one->parent() != other->parent() ? one->parent() < other->parent() : one->index() < other->index();
  });
  if (order == Order::Forward || order == Order::Back) std::reverse(all.begin(), all.end());
  const auto isOne = [&](const ReportNode& node) { return std::find(all.begin(), all.end(), &node) != all.end(); };
  const Gesture step(editor, name);
  for (ReportNode* object : all) {
    ReportNode& parent = *object->parent();
    const size_t last = parent.children().size() - 1;
    const size_t from = object->index();
    size_t to = order == Order::Front ? last : order == Order::Back ? 0 : from;
    if (order == Order::Forward && from < last && !isOne(*parent.children()[from + 1])) to = from + 1;
    if (order == Order::Backward && from > 0 && !isOne(*parent.children()[from - 1])) to = from - 1;
    if (isForward ? to > from : to < from) editor.move(name, *object, parent, to);
  }
}
