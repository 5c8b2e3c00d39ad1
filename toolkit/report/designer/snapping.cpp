#include "toolkit/report/designer/snapping.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

constexpr double same = 0.006;  ///< half a hundredth: places are told in hundredths

using Lines = std::array<double, 3>;

Lines linesOf(const QRectF& rect, bool isAcross) {
  return isAcross ? Lines{rect.left(), rect.center().x(), rect.right()} : Lines{rect.top(), rect.center().y(), rect.bottom()};
}

}  // namespace

Snapping::Snapping(const PagePlaces& places, std::span<const ReportNode* const> moving) {
  still_.push_back(places.cell());
  const auto add = [&](const ReportNode& parent) {
    for (const auto& child : parent.children())
      if (isObject(child->kind()) && std::find(moving.begin(), moving.end(), child.get()) == moving.end())
        still_.push_back(places.rectOf(*child));
  };
  add(places.page());
  for (const PagePlaces::Band& band : places.bands()) add(*band.node);
}

Snapping::Caught Snapping::caught(std::span<const double> values, bool isAcross, const Rules& rules) const {
  Caught best;
  double nearest = rules.reach;
  for (const QRectF& rect : still_)
    for (const double line : linesOf(rect, isAcross))
      for (const double value : values) {
        const double distance = std::abs(line - value);
        if (distance > nearest || (distance == nearest && best.isCaught)) continue;
        nearest = distance;
        best = {line - value, true};
      }
  if (best.isCaught || rules.grid <= 0) return best;
  const double origin = isAcross ? rules.gridOrigin.x() : rules.gridOrigin.y();
  const double first = values.front();
  return {origin + std::round((first - origin) / rules.grid) * rules.grid - first, false};
}

void Snapping::addGuides(Result& result, const QRectF& rect, std::span<const double> values, bool isAcross) const {
  for (const double value : values) {
    std::optional<std::pair<double, double>> span;
    for (const QRectF& other : still_) {
      const auto lines = linesOf(other, isAcross);
      if (std::none_of(lines.begin(), lines.end(), [&](double line) { return std::abs(line - value) < same; })) continue;
      const QRectF both = rect.united(other);
      const double from = isAcross ? std::min(rect.top(), other.top()) : std::min(rect.left(), other.left());
      const double to = isAcross ? both.bottom() : both.right();
      span = span ? std::pair(std::min(span->first, from), std::max(span->second, to)) : std::pair(from, to);
    }
    if (!span) continue;
    result.guides.push_back(isAcross ? QLineF(value, span->first, value, span->second) : QLineF(span->first, value, span->second, value));
  }
}

Snapping::Result Snapping::moved(const QRectF& rect, const Rules& rules) const {
  Lines across = linesOf(rect, true);
  Lines down = linesOf(rect, false);
  const Caught toSide = caught(across, true, rules);
  const Caught toHeight = caught(down, false, rules);
  Result result{{toSide.by, toHeight.by}, {}};
  const QRectF there = rect.translated(result.by);
  across = linesOf(there, true);
  down = linesOf(there, false);
  if (toSide.isCaught) addGuides(result, there, across, true);
  if (toHeight.isCaught) addGuides(result, there, down, false);
  return result;
}

Snapping::Result Snapping::resized(const QRectF& rect, Qt::Edges edges, const Rules& rules) const {
  Result result;
  const auto snap = [&](double value, bool isAcross) {
    double lines[] = {value};
    const Caught found = caught(lines, isAcross, rules);
    lines[0] += found.by;
    if (found.isCaught) addGuides(result, rect, lines, isAcross);
    return found.by;
  };
  if (edges & (Qt::LeftEdge | Qt::RightEdge)) result.by.setX(snap(edges & Qt::LeftEdge ? rect.left() : rect.right(), true));
  if (edges & (Qt::TopEdge | Qt::BottomEdge)) result.by.setY(snap(edges & Qt::TopEdge ? rect.top() : rect.bottom(), false));
  return result;
}
