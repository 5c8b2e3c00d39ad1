#include "toolkit/rtf/rich_builder.h"

#include <algorithm>
#include <cmath>
#include <iterator>

using namespace Qt::StringLiterals;

namespace {

constexpr int weightOfParagraph = 50;
constexpr double usualCell = 30;
constexpr double leastCell = 1;
constexpr double samePlace = 0.1;

QString without(const QString& sides, const QString& side) {
  QStringList words = sides.split(u' ', Qt::SkipEmptyParts);
  words.removeAll(side);
  return words.join(u' ');
}

}  // namespace

void RichBuilder::addText(const QString& text, const RichFormat& format) {
  if (text.isEmpty()) return;
  weight_ += text.size();
  if (!paragraph_.runs.empty() && paragraph_.runs.back().format == format)
    paragraph_.runs.back().text += text;
  else
    paragraph_.runs.push_back({text, format});
}

void RichBuilder::addPicture(RichPicture picture) {
  weight_ += weightOfParagraph;
  paragraph_.pictures.push_back(std::move(picture));
}

void RichBuilder::addMarker(const QString& text, const RichFormat& format) {
  weight_ += text.size();
  paragraph_.marker += text;
  if (!text.trimmed().isEmpty()) paragraph_.format = format;
}

RichParagraph RichBuilder::finished(const RichParagraph& look, const RichFormat& mark) {
  RichParagraph made = look;
  made.runs = std::move(paragraph_.runs);
  made.pictures = std::move(paragraph_.pictures);
  made.marker = paragraph_.marker.trimmed();
  made.format = made.marker.isEmpty() ? mark : paragraph_.format;
  paragraph_ = {};
  weight_ += weightOfParagraph;
  return made;
}

void RichBuilder::addBlock(RichParagraph paragraph) {
  paragraph.startsPage |= startsPage_;
  startsPage_ = false;
  text_.blocks.emplace_back(std::move(paragraph));
}

void RichBuilder::releaseCells() {
  for (auto& cell : cells_)
    for (RichParagraph& paragraph : cell) addBlock(std::move(paragraph));
  for (RichParagraph& paragraph : cell_) addBlock(std::move(paragraph));
  cells_.clear();
  cell_.clear();
}

void RichBuilder::endParagraph(const RichParagraph& look, const RichFormat& mark, bool isInTable) {
  // A paragraph that holds nothing but a page break is no empty line.
  if (std::exchange(wasBroken_, false) && !hasContent()) return;
  RichParagraph made = finished(look, mark);
  if (isInTable) {
    cell_.push_back(std::move(made));
    return;
  }
  releaseCells();
  addBlock(std::move(made));
}

void RichBuilder::endCell(const RichParagraph& look, const RichFormat& mark) {
  wasBroken_ = false;
  if (hasContent() || cell_.empty()) cell_.push_back(finished(look, mark));
  cells_.push_back(std::move(cell_));
  cell_.clear();
}

RichTable& RichBuilder::table() {
  if (startsPage_) {
    // A table begins no page by itself.
    RichParagraph breaks;
    breaks.format.font.points = 1;
    addBlock(std::move(breaks));
  }
  if (text_.blocks.empty() || !std::holds_alternative<RichTable>(text_.blocks.back())) text_.blocks.emplace_back(RichTable());
  return std::get<RichTable>(text_.blocks.back());
}

void RichBuilder::endRow(const RowPlan& plan) {
  if (!cell_.empty()) cells_.push_back(std::move(cell_));
  cell_.clear();
  if (cells_.empty()) return;
  RichRow row{.left = plan.left, .cells = {}, .padding = plan.padding, .height = plan.height};
  RichTable& rows = table();
  double left = plan.left;
  for (size_t place = 0; place < cells_.size(); ++place) {
    const RowPlan::Cell cell = place < plan.cells.size() ? plan.cells[place] : RowPlan::Cell{.right = left + usualCell};
    const double width = std::max(leastCell, cell.right - left);
    if (cell.joinsLeft && !row.cells.empty()) {
      row.cells.back().width += width;
      if (cell.border.contains(u"right"_s)) row.cells.back().border += u" right"_s;
      left += width;
      continue;
    }
    RichCell made{width, std::move(cells_[place]), cell.border, cell.background, cell.vertical, cell.borderColor};
    if (cell.joinsAbove) {
      made.border = without(made.border, u"top"_s);
      double above = rows.rows.empty() ? 0 : rows.rows.back().left;
      if (!rows.rows.empty())
        for (RichCell& each : rows.rows.back().cells) {
          if (std::abs(above - left) < samePlace) each.border = without(each.border, u"bottom"_s);
          above += each.width;
        }
    }
    row.cells.push_back(std::move(made));
    left += width;
  }
  rows.rows.push_back(std::move(row));
  cells_.clear();
}

void RichBuilder::breakPage(const RichParagraph& look, const RichFormat& mark, bool isInTable) {
  if (isInTable) return;
  if (hasContent()) endParagraph(look, mark, false);
  releaseCells();
  startsPage_ = true;
  wasBroken_ = true;
}

RichText RichBuilder::take(const RichParagraph& look, const RichFormat& mark) {
  if (hasContent()) addBlock(finished(look, mark));
  releaseCells();
  return std::move(text_);
}
