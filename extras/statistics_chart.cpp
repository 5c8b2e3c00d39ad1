#include "extras/statistics_chart.h"

#include "base/data/my_query.h"
#include "base/guard.h"

#include <QBarCategoryAxis>
#include <QBarSet>
#include <QChart>
#include <QEvent>
#include <QGraphicsSimpleTextItem>
#include <QLocale>
#include <QPainter>
#include <QStackedBarSeries>
#include <QValueAxis>

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace StatisticsStore;

namespace {

constexpr int fewestTicks = 4;
constexpr double barWidth = 0.6;  ///< of the room that a bar has
constexpr double numberGap = 2;
constexpr QSize smallest(480, 240);  ///< the labels beside each other

/// Distance of the lines of the grid for a highest bar: 1, 2 or 5 and noughts, never a part of a slip.
double stepFor(double highest) {
  double step = 1;
  for (const double factor : {2.0, 2.5, 2.0}) {
    if (highest / step <= fewestTicks) return step;
    step *= factor;
  }
  return 10 * stepFor(highest / 10);
}

/// A bar is filled with its colour and a pattern in front of it, so that the bars tell apart without colour too.
QBrush filling(Row row, const QColor& color, const QColor& background) {
  constexpr int size = 16;
  constexpr Qt::BrushStyle patterns[] = {Qt::BDiagPattern, Qt::SolidPattern, Qt::Dense6Pattern, Qt::HorPattern};
  static_assert(std::size(patterns) == RowCount);
  QImage texture(size, size, QImage::Format_RGB32);
  texture.fill(color);
  if (patterns[row] != Qt::SolidPattern) {
    QPainter painter(&texture);
    painter.fillRect(texture.rect(), QBrush(background, patterns[row]));
  }
  return QBrush(texture);
}

}  // namespace

StatisticsChart::StatisticsChart(TMyQuery& query, QWidget* parent)
    : QChartView(parent), query_(&query), labels_(new QBarCategoryAxis(this)), heights_(new QValueAxis(this)) {
  setRenderHint(QPainter::Antialiasing);
  setFocusPolicy(Qt::NoFocus);
  setFrameShape(QFrame::NoFrame);
  setAccessibleName(u"Grafik"_s);
  QChart* chart = this->chart();
  chart->legend()->hide();
  chart->setBackgroundRoundness(0);
  chart->setLocale(QLocale());
  chart->setLocalizeNumbers(true);
  // One set a bar, which gives it its own colour; the others have nothing at its place.
  auto* series = new QStackedBarSeries(chart);
  series->setBarWidth(barWidth);
  for (int row = 0; row < RowCount; ++row) {
    bars_[size_t(row)] = new QBarSet(QString(), series);
    series->append(bars_[size_t(row)]);
    numbers_[size_t(row)] = new QGraphicsSimpleTextItem(chart);
    numbers_[size_t(row)]->setZValue(100);  // in front of the bars
  }
  chart->addSeries(series);
  chart->addAxis(labels_, Qt::AlignBottom);
  chart->addAxis(heights_, Qt::AlignLeft);
  series->attachAxis(labels_);
  series->attachAxis(heights_);
  labels_->setGridLineVisible(false);
  labels_->setTruncateLabels(false);
  setMinimumSize(smallest);
  heights_->setLabelFormat(u"%.0f"_s);
  heights_->setTickType(QValueAxis::TicksDynamic);
  connectGuarded(chart, &QChart::plotAreaChanged, this, [this] { placeNumbers(); });
  query_->addListener(this);
  applyColors();
  showRows();
}

StatisticsChart::~StatisticsChart() {
  if (query_ != nullptr) query_->removeListener(this);
}

QColor StatisticsChart::color(Row row, const QPalette& palette) {
  const bool isDark = palette.color(QPalette::Base).lightness() < 128;
  switch (row) {
    case Bad: return isDark ? QColor(0xf0, 0x8a, 0x8a) : QColor(0x80, 0x00, 0x00);
    case Good: return isDark ? QColor(0x7d, 0xb4, 0xff) : QColor(0x00, 0x00, 0xff);
    case InShop: return isDark ? QColor(0x6f, 0xd0, 0x7f) : QColor(0x00, 0x80, 0x00);
    default: return palette.color(QPalette::Text);
  }
}

void StatisticsChart::queryReset() {
  guarded(this, [this] { showRows(); });
}

void StatisticsChart::showRows() {
  isOpen_ = query_->Active() && query_->RecordCount() == RowCount;
  QStringList labels, spoken;
  double highest = 0;
  for (int index = 0; index < RowCount; ++index) {
    const auto row = Row(index);
    double& value = values_[size_t(index)] = isOpen_ ? double(countOf(*query_, row)) : 0;
    const QString number = isOpen_ ? QLocale().toString(value, 'f', 0) : QString();
    if (isOpen_) labels.append(labelOf(*query_, row));
    if (isOpen_) spoken.append(labels.last() + u": "_s + number);
    numbers_[size_t(index)]->setText(number);
    QBarSet* bar = bars_[size_t(index)];
    bar->remove(0, bar->count());
    for (int place = 0; place < RowCount; ++place) bar->append(place == index ? value : 0);
    highest = std::max(highest, value);
  }
  labels_->setCategories(labels);
  const double step = stepFor(highest);
  heights_->setTickInterval(step);
  heights_->setRange(0, step * (std::floor(highest / step) + 1));  // room for the number
  heights_->setLabelsVisible(isOpen_);
  setAccessibleDescription(spoken.join(u", "_s));
  placeNumbers();
}

void StatisticsChart::applyColors() {
  QChart* chart = this->chart();
  const QColor ink = palette().color(QPalette::Text);
  const QColor background = palette().color(QPalette::Base);
  chart->setFont(font());
  chart->setBackgroundBrush(background);
  chart->setBackgroundPen(palette().color(QPalette::Mid));
  setBackgroundBrush(palette().color(QPalette::Window));
  for (QAbstractAxis* axis : {static_cast<QAbstractAxis*>(labels_), static_cast<QAbstractAxis*>(heights_)}) {
    axis->setLabelsColor(ink);
    axis->setLabelsFont(font());
    axis->setLinePenColor(palette().color(QPalette::Mid));
    axis->setGridLineColor(palette().color(QPalette::Midlight));
  }
  QFont bold = font();
  bold.setBold(true);
  for (int row = 0; row < RowCount; ++row) {
    const QColor own = color(Row(row), palette());
    bars_[size_t(row)]->setPen(Qt::NoPen);
    bars_[size_t(row)]->setBrush(filling(Row(row), own, background));
    numbers_[size_t(row)]->setBrush(own);
    numbers_[size_t(row)]->setFont(bold);
  }
}

/// Centred above the bars.
void StatisticsChart::placeNumbers() {
  for (int row = 0; row < RowCount; ++row) {
    QGraphicsSimpleTextItem* number = numbers_[size_t(row)];
    const QPointF top = chart()->mapToPosition(QPointF(row, values_[size_t(row)]));
    const QRectF area = number->boundingRect();
    number->setPos(top.x() - area.width() / 2, top.y() - area.height() - numberGap);
  }
}

void StatisticsChart::changeEvent(QEvent* event) {
  QChartView::changeEvent(event);
  if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange)
    guarded(this, [this] {
      applyColors();
      placeNumbers();
    });
}
