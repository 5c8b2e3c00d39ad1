#include "toolkit/grid/grid_pages.h"

#include "base/date_text.h"
#include "base/environment.h"
#include "base/turkish_text.h"

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr double perMillimetre = 96 / 25.4;  ///< pages are worked out at 96 dots to the inch
constexpr QSizeF paper(297 * perMillimetre, 210 * perMillimetre);
constexpr double margin = 10 * perMillimetre;
constexpr double outerLine = 20;      ///< height of the header's and the footer's line
constexpr double titleHeight = 34;
constexpr double rowPadding = 6;
constexpr double cellMargin = 3;
constexpr double leastScale = 0.5;    ///< letters do not get smaller; texts are cut short instead
const QColor lineColor(0xb0, 0xb6, 0xbd);
const QColor captionColor(0xe3, 0xe8, 0xee);
const QColor groupColor(0xee, 0xf1, 0xf4);

}  // namespace

GridPages::GridPages(const TableContent& content, GridPageTexts texts, const QFont& font)
    : content_(content), texts_(std::move(texts)), font_(font), printedAt_(environment().now()) {
  double whole = 0;
  for (int column = 0; column < content.columnCount(); ++column) {
    columns_.push_back(content.column(column));
    whole += columns_.back().width;
  }
  const double room = paper.width() - 2 * margin;
  scale_ = whole > room ? room / whole : 1;
  double left = margin;
  for (const ContentColumn& column : columns_) {
    lefts_.push_back(left);
    left += column.width * scale_;
  }
  lefts_.push_back(left);
  font_.setPixelSize(int(std::round(12 * std::max(scale_, leastScale))));
  rowHeight_ = QFontMetricsF(font_).height() + rowPadding;
  const double bottom = paper.height() - margin - outerLine;
  // The captions take a row of each page.
  rowsOnFirst_ = std::max(1, int((bottom - tableTop(0)) / rowHeight_) - 1);
  rowsOnOthers_ = std::max(1, int((bottom - tableTop(1)) / rowHeight_) - 1);
}

double GridPages::tableTop(int page) const {
  return margin + outerLine + (page == 0 && !texts_.title.isEmpty() ? titleHeight : 0);
}

int GridPages::pageCount() const {
  const int rest = content_.rowCount() - rowsOnFirst_;
  return rest <= 0 ? 1 : 1 + (rest + rowsOnOthers_ - 1) / rowsOnOthers_;
}

std::pair<int, int> GridPages::rowsOn(int page) const {
  const int first = page == 0 ? 0 : rowsOnFirst_ + (page - 1) * rowsOnOthers_;
  return {first, std::min(content_.rowCount(), first + (page == 0 ? rowsOnFirst_ : rowsOnOthers_))};
}

QString GridPages::replaced(const QString& text, int page) const {
  QString result = text;
  result.replace(u"[Date & Time Printed]"_s, DateText::dateTime(printedAt_));
  result.replace(u"[Page #]"_s, QString::number(page + 1));
  return result.replace(u"[Total Pages]"_s, QString::number(pageCount()));
}

QSizeF GridPages::pageSize(int) const { return paper / perMillimetre; }

std::vector<QRectF> GridPages::find(int page, const QString& word) const {
  std::vector<QRectF> found;
  if (word.isEmpty()) return found;
  double top = tableTop(page) + rowHeight_;
  const auto [first, behind] = rowsOn(page);
  const auto look = [&](const QString& text, double left, double right) {
    if (!TurkishText::contains(text, word)) return;
    found.emplace_back(left / perMillimetre, top / perMillimetre, (right - left) / perMillimetre, rowHeight_ / perMillimetre);
  };
  for (int row = first; row < behind; ++row, top += rowHeight_) {
    if (content_.rowKind(row) == ContentRowKind::Group) {
      look(content_.groupText(row), margin, lefts_.back());
      continue;
    }
    for (size_t column = 0; column < columns_.size(); ++column) look(content_.text(row, int(column)), lefts_[column], lefts_[column + 1]);
  }
  return found;
}

void GridPages::paint(QPainter& painter, int page, bool) const {
  painter.save();
  painter.scale(1 / perMillimetre, 1 / perMillimetre);
  QFont outer = font_;
  outer.setPixelSize(12);
  const QRectF header(margin, margin, paper.width() - 2 * margin, outerLine);
  const QRectF footer(margin, paper.height() - margin - outerLine, header.width(), outerLine);
  painter.setPen(Qt::black);
  painter.setFont(outer);
  painter.drawText(header, Qt::AlignLeft | Qt::AlignTop, replaced(texts_.headerLeft, page));
  painter.drawText(header, Qt::AlignRight | Qt::AlignTop, replaced(texts_.headerRight, page));
  painter.drawText(footer, Qt::AlignLeft | Qt::AlignBottom, replaced(texts_.footerLeft, page));
  painter.drawText(footer, Qt::AlignRight | Qt::AlignBottom, replaced(texts_.footerRight, page));
  if (page == 0 && !texts_.title.isEmpty()) {
    QFont large = outer;
    large.setPixelSize(20);
    large.setBold(true);
    painter.setFont(large);
    painter.drawText(QRectF(margin, margin + outerLine, header.width(), titleHeight), Qt::AlignCenter, texts_.title);
  }
  paintCaptions(painter, tableTop(page));
  double top = tableTop(page) + rowHeight_;
  const auto [first, behind] = rowsOn(page);
  for (int row = first; row < behind; ++row, top += rowHeight_)
    paintRow(painter, row, QRectF(margin, top, lefts_.back() - margin, rowHeight_));
  painter.restore();
}

void GridPages::paintCaptions(QPainter& painter, double top) const {
  QFont bold = font_;
  bold.setBold(true);
  painter.setFont(bold);
  const QFontMetricsF metrics(bold);
  for (size_t column = 0; column < columns_.size(); ++column) {
    const QRectF cell(lefts_[column], top, lefts_[column + 1] - lefts_[column], rowHeight_);
    painter.fillRect(cell, captionColor);
    painter.setPen(lineColor);
    painter.drawRect(cell);
    painter.setPen(Qt::black);
    const QRectF room = cell.adjusted(cellMargin, 0, -cellMargin, 0);
    painter.drawText(room, int((columns_[column].alignsRight ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter),
                     metrics.elidedText(columns_[column].caption, Qt::ElideRight, room.width()));
  }
}

void GridPages::paintRow(QPainter& painter, int row, const QRectF& band) const {
  const ContentRowKind kind = content_.rowKind(row);
  QFont font = font_;
  font.setBold(kind != ContentRowKind::Data);
  painter.setFont(font);
  if (kind != ContentRowKind::Data) painter.fillRect(band, groupColor);
  if (kind != ContentRowKind::Group) return paintCells(painter, row, band);
  painter.setPen(lineColor);
  painter.drawRect(band);
  painter.setPen(Qt::black);
  const double indent = cellMargin + 12 * content_.level(row);
  painter.drawText(band.adjusted(indent, 0, -cellMargin, 0), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                   content_.groupText(row));
}

void GridPages::paintCells(QPainter& painter, int row, const QRectF& band) const {
  const QFontMetricsF metrics(painter.font());
  const QColor own = content_.textColor(row);
  const bool isFooter = content_.rowKind(row) != ContentRowKind::Data;
  QStringList texts;
  for (size_t column = 0; column < columns_.size(); ++column) {
    painter.setPen(lineColor);
    painter.drawRect(QRectF(lefts_[column], band.top(), lefts_[column + 1] - lefts_[column], band.height()));
    texts += content_.text(row, int(column)).remove(u'\r').replace(u'\n', u' ');
  }
  painter.setPen(own.isValid() ? own : QColor(Qt::black));
  for (size_t column = 0; column < columns_.size(); ++column) {
    const QString& text = texts[qsizetype(column)];
    if (text.isEmpty()) continue;
    const bool toTheRight = columns_[column].alignsRight;
    size_t first = column;
    size_t behind = column + 1;
    // A count or a sum of a narrow column runs on over the empty ones beside it.
    while (isFooter && !toTheRight && behind < columns_.size() && texts[qsizetype(behind)].isEmpty()) ++behind;
    while (isFooter && toTheRight && first > 0 && texts[qsizetype(first) - 1].isEmpty()) --first;
    const QRectF room(lefts_[first] + cellMargin, band.top(), lefts_[behind] - lefts_[first] - 2 * cellMargin, band.height());
    const double width = metrics.horizontalAdvance(text);
    const Qt::Alignment side = (toTheRight ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter;
    if (!isFooter || width <= room.width()) {
      painter.drawText(room, int(side) | Qt::TextSingleLine, metrics.elidedText(text, Qt::ElideRight, room.width()));
      continue;
    }
    // What still finds no room is drawn narrower: a sum that was cut would read as another one.
    painter.save();
    painter.translate(room.topLeft());
    painter.scale(room.width() / width, 1);
    painter.drawText(QRectF(0, 0, width, room.height()), int(side) | Qt::TextSingleLine, text);
    painter.restore();
  }
}
