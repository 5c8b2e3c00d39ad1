#include "toolkit/report/rich_layout.h"

#include "toolkit/report/text_lines.h"

#include <QFontMetricsF>
#include <QTextLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr double cellPadding = 1;
constexpr double cellLine = 0.2;
constexpr double usualTab = 12.7;

/// One paragraph's letters as one text with the formats of its runs.
class ParagraphLayout {
 public:
  ParagraphLayout(RichLayout& out, const RichParagraph& paragraph, double left, double width)
      : out_(out), paragraph_(paragraph), left_(left + paragraph.left), width_(std::max(1.0, width - paragraph.left - paragraph.right)) {}

  void place() {
    if (paragraph_.startsPage) out_.pageStarts.push_back(out_.height);
    out_.height += paragraph_.before;
    for (const RichPicture& picture : paragraph_.pictures) placePicture(picture);
    const double top = out_.height;
    QString text;
    QList<QTextLayout::FormatRange> formats;
    for (const RichRun& run : paragraph_.runs) {
      QTextCharFormat format;
      format.setFont(layoutFont(run.format.font));
      formats.append({int(text.size()), int(run.text.size()), format});
      text += QString(run.text).replace(u'\n', QChar::LineSeparator);
    }
    if (!text.isEmpty() || paragraph_.pictures.empty()) placeLines(text, formats);
    if (!paragraph_.marker.isEmpty()) placeMarker(top);
    out_.height += paragraph_.after;
  }

 private:
  double indentOfFirst() const { return paragraph_.marker.isEmpty() ? paragraph_.first : 0; }

  void placePicture(const RichPicture& picture) {
    const double scale = std::min(1.0, width_ / std::max(0.1, picture.width));
    const double room = width_ - picture.width * scale;
    const double shift = paragraph_.alignment & Qt::AlignRight ? room : paragraph_.alignment & Qt::AlignHCenter ? room / 2 : 0;
    out_.primitives.emplace_back(
        PictureMark{QRectF(left_ + shift, out_.height, picture.width * scale, picture.height * scale), picture.image});
    out_.height += picture.height * scale;
  }

  void placeLines(const QString& text, const QList<QTextLayout::FormatRange>& formats) {
    QTextLayout layout(text, layoutFont(paragraph_.format.font));
    layout.setFormats(formats);
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    option.setUseDesignMetrics(true);
    option.setTabStopDistance(usualTab * dotsPerMillimetre);
    QList<QTextOption::Tab> tabs;
    for (const double tab : paragraph_.tabs)
      if (tab > paragraph_.left) tabs.append(QTextOption::Tab((tab - paragraph_.left) * dotsPerMillimetre, QTextOption::LeftTab));
    option.setTabs(tabs);
    layout.setTextOption(option);
    layout.beginLayout();
    double indent = indentOfFirst();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine(), indent = 0) {
      const double room = std::max(1.0, width_ - indent);
      line.setLineWidth(room * dotsPerMillimetre);
      placeLine(text, line, left_ + indent, room);
    }
    layout.endLayout();
  }

  void placeLine(const QString& text, const QTextLine& line, double left, double room) {
    const int from = line.textStart();
    int behind = from + line.textLength();
    const bool isLast = behind >= text.size() || text[behind - 1] == QChar::LineSeparator;
    while (behind > from && (text[behind - 1] == u' ' || text[behind - 1] == QChar::LineSeparator)) --behind;
    const double natural = (line.cursorToX(behind) - line.cursorToX(from)) / dotsPerMillimetre;
    const double spare = std::max(0.0, room - natural);
    double shift = 0;
    double perBlank = 0;
    if (paragraph_.alignment & Qt::AlignRight) shift = spare;
    if (paragraph_.alignment & Qt::AlignHCenter) shift = spare / 2;
    const qsizetype blanks = QStringView(text).mid(from, behind - from).count(u' ');
    if ((paragraph_.alignment & Qt::AlignJustify) && !isLast && blanks > 0) perBlank = spare / double(blanks);
    const double ascent = line.ascent() / dotsPerMillimetre;
    const double descent = line.descent() / dotsPerMillimetre;
    const double base = out_.height + ascent + (ascent + descent) * (paragraph_.lineSpacing - 1) / 2;
    int begin = 0;
    for (const RichRun& run : paragraph_.runs) {
      const int end = begin + int(run.text.size());
      placeRun(text, line, run, std::max(begin, from), std::min(end, behind), left + shift, base, perBlank);
      begin = end;
    }
    out_.height += (ascent + descent) * paragraph_.lineSpacing;
  }

  /// The part of a run that stands on a line, cut at tabs.
  void placeRun(const QString& text, const QTextLine& line, const RichRun& run, int from, int behind, double left, double base,
                double perBlank) {
    const QFont font = layoutFont(run.format.font);
    const QFontMetricsF metrics(font);
    while (from < behind) {
      if (text[from] == u'\t' || text[from] == QChar::LineSeparator) {
        ++from;
        continue;
      }
      int end = from;
      while (end < behind && text[end] != u'\t' && text[end] != QChar::LineSeparator) ++end;
      const QString part = text.mid(from, end - from);
      const auto blanksBefore = QStringView(text).mid(line.textStart(), from - line.textStart()).count(u' ');
      out_.primitives.emplace_back(TextMark{
          .origin = {left + (line.cursorToX(from) - line.x()) / dotsPerMillimetre + perBlank * double(blanksBefore), base},
          .text = part,
          .font = font,
          .color = run.format.color,
          .width = metrics.horizontalAdvance(part) / dotsPerMillimetre + perBlank * double(part.count(u' ')),
          .ascent = metrics.ascent() / dotsPerMillimetre,
          .descent = metrics.descent() / dotsPerMillimetre,
          .wordSpacing = perBlank});
      from = end;
    }
  }

  void placeMarker(double top) {
    const RichFormat& format = paragraph_.runs.empty() ? paragraph_.format : paragraph_.runs.front().format;
    const QFont font = layoutFont(format.font);
    const QFontMetricsF metrics(font);
    out_.primitives.emplace_back(TextMark{.origin = {left_ + paragraph_.first, top + metrics.ascent() / dotsPerMillimetre},
                                       .text = paragraph_.marker,
                                       .font = font,
                                       .color = format.color,
                                       .width = metrics.horizontalAdvance(paragraph_.marker) / dotsPerMillimetre,
                                       .ascent = metrics.ascent() / dotsPerMillimetre,
                                       .descent = metrics.descent() / dotsPerMillimetre});
  }

  RichLayout& out_;
  const RichParagraph& paragraph_;
  double left_;
  double width_;
};

void placeBorder(RichLayout& out, const QRectF& rect, const QString& sides) {
  const auto line = [&](QStringView side, QPointF from, QPointF to) {
    if (sides.contains(side)) out.primitives.emplace_back(StrokeMark{.from = from, .to = to, .width = cellLine});
  };
  line(u"left", rect.topLeft(), rect.bottomLeft());
  line(u"top", rect.topLeft(), rect.topRight());
  line(u"right", rect.topRight(), rect.bottomRight());
  line(u"bottom", rect.bottomLeft(), rect.bottomRight());
}

void placeRow(RichLayout& out, const RichRow& row) {
  std::vector<RichLayout> cells;
  double height = 0;
  for (const RichCell& cell : row.cells) {
    RichLayout inside;
    for (const RichParagraph& paragraph : cell.paragraphs) ParagraphLayout(inside, paragraph, 0, cell.width - 2 * cellPadding).place();
    height = std::max(height, inside.height + cellPadding);
    cells.push_back(std::move(inside));
  }
  double left = row.left;
  for (size_t place = 0; place < cells.size(); ++place) {
    const QRectF rect(left, out.height, row.cells[place].width, height);
    if (row.cells[place].background.isValid()) out.primitives.emplace_back(BoxMark{.rect = rect, .fill = row.cells[place].background});
    for (Primitive& primitive : cells[place].primitives) {
      moveBy(primitive, left + cellPadding, out.height + cellPadding / 2);
      out.primitives.push_back(std::move(primitive));
    }
    placeBorder(out, rect, row.cells[place].border);
    left += row.cells[place].width;
  }
  out.height += height;
}

}  // namespace

RichText richTextFromPlain(const QString& text, const RichFormat& format, Qt::Alignment alignment) {
  RichText made;
  for (const QString& line : text.split(u'\n')) {
    RichParagraph paragraph;
    paragraph.format = format;
    paragraph.alignment = alignment;
    if (!line.isEmpty()) paragraph.runs.push_back({line, format});
    made.blocks.emplace_back(std::move(paragraph));
  }
  return made;
}

RichLayout layoutRichText(const RichText& text, double width) {
  RichLayout out;
  for (const auto& block : text.blocks) {
    if (const auto* paragraph = std::get_if<RichParagraph>(&block))
      ParagraphLayout(out, *paragraph, 0, width).place();
    else
      for (const RichRow& row : std::get<RichTable>(block).rows) placeRow(out, row);
  }
  return out;
}
