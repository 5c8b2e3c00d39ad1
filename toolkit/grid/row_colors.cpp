#include "toolkit/grid/row_colors.h"

#include <QPalette>

#include <algorithm>
#include <cmath>

namespace {

constexpr double tintOnLight = 0.2;
constexpr double tintOnDark = 0.25;
/// Room of lightness, of 1, in which colours that were moved are spread, and the share of what is left that it takes at most.
constexpr double spread = 0.09;
constexpr double greatestShare = 0.45;
constexpr int halvings = 12;

double linear(double channel) { return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4); }

/// Relative luminance as WCAG 2.1 defines it.
double luminance(const QColor& color) {
  return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

bool isDark(const QPalette& palette) { return luminance(palette.color(QPalette::Base)) < 0.18; }

double leastContrastOf(const QColor& color, const QPalette& palette) {
  return std::min({RowColors::contrast(color, palette.color(QPalette::Base)), RowColors::contrast(color, palette.color(QPalette::AlternateBase)),
                   RowColors::contrast(color, RowColors::selection(palette))});
}

QColor withLightness(const QColor& color, double lightness) {
  // Eight bits per channel, as the screen shows it and as its contrast counts.
  return QColor::fromRgb(QColor::fromHslF(color.hslHueF(), color.hslSaturationF(), float(lightness)).rgb());
}

}  // namespace

double RowColors::contrast(const QColor& one, const QColor& other) {
  const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
  return (lighter + 0.05) / (darker + 0.05);
}

QColor RowColors::selection(const QPalette& palette) {
  const QColor base = palette.color(QPalette::Base);
  const QColor accent = palette.color(QPalette::Highlight);
  const double share = isDark(palette) ? tintOnDark : tintOnLight;
  const auto mixed = [share](int under, int over) { return int(std::lround(under + share * (over - under))); };
  return {mixed(base.red(), accent.red()), mixed(base.green(), accent.green()), mixed(base.blue(), accent.blue())};
}

QColor RowColors::readable(const QColor& wanted, const QPalette& palette) {
  if (!wanted.isValid() || leastContrastOf(wanted, palette) >= leastContrast) return wanted;
  const double outermost = isDark(palette) ? 1 : 0;
  const double own = double(wanted.lightnessF());
  // The lightness nearest to the wanted one that can be read.
  double unreadable = own;
  double readable = outermost;
  for (int i = 0; i < halvings; ++i) {
    const double middle = (unreadable + readable) / 2;
    (leastContrastOf(withLightness(wanted, middle), palette) < leastContrast ? unreadable : readable) = middle;
  }
  // All unreadable ones lie on one side of it; the farther off one was, the farther beyond it comes.
  const double bound = readable;
  const double room = std::min(spread, greatestShare * std::abs(outermost - bound));
  const double distance = std::abs(bound - own) / std::abs(1 - outermost - bound);
  return withLightness(wanted, outermost > bound ? bound + room * distance : bound - room * distance);
}
