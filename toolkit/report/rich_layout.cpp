#include "toolkit/report/rich_layout.h"

#include "toolkit/report/text_lines.h"

#include <QFontMetricsF>
#include <QTextLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr double borderLine = 0.2;
constexpr double borderGap = 0.6;     ///< between a paragraph and its border
constexpr double scriptSize = 0.62;   ///< of raised and lowered letters
constexpr double scriptShift = 0.12;  ///< mm that they move for each point of the font
constexpr double markerGap = 1;
constexpr double beginningOfParagraph = 10;
constexpr double cellGap = 1;         ///< above and below a cell's letters, together
constexpr double usualTab = 12.7;
constexpr double overhang = 5;        ///< that a table may reach out to the right; a wider one is made narrower

QFont fontOf(const RichFormat& format) {
  ReportFont font = format.font;
  if (format.script != 0) font.points *= scriptSize;
  return layoutFont(font);
}

QTextOption::TabType tabType(Qt::Alignment alignment) {
  return alignment & Qt::AlignRight ? QTextOption::RightTab : alignment & Qt::AlignHCenter ? QTextOption::CenterTab : QTextOption::LeftTab;
}

void placeBorder(RichLayout& out, const QRectF& rect, const QString& sides, const QColor& color) {
  const auto line = [&](QStringView side, QPointF from, QPointF to) {
    if (sides.contains(side)) out.primitives.emplace_back(StrokeMark{.from = from, .to = to, .width = borderLine, .color = color});
  };
  line(u"left", rect.topLeft(), rect.bottomLeft());
  line(u"top", rect.topLeft(), rect.topRight());
  line(u"right", rect.topRight(), rect.bottomRight());
  line(u"bottom", rect.bottomLeft(), rect.bottomRight());
}

/// One paragraph's letters as one text with the formats of its runs.
class ParagraphLayout {
 public:
  ParagraphLayout(RichLayout& out, const RichParagraph& paragraph, double left, double width)
      : out_(out), paragraph_(paragraph), left_(left + paragraph.left), width_(std::max(1.0, width - paragraph.left - paragraph.right)) {}

  void place() {
    if (paragraph_.startsPage) out_.pageStarts.push_back(out_.height);
    out_.height += paragraph_.before;
    const double border = out_.height;
    for (const RichPicture& picture : paragraph_.pictures) placePicture(picture);
    const double top = out_.height;
    QString text;
    QList<QTextLayout::FormatRange> formats;
    for (const RichRun& run : paragraph_.runs) {
      QTextCharFormat format;
      format.setFont(fontOf(run.format));
      formats.append({int(text.size()), int(run.text.size()), format});
      text += QString(run.text).replace(u'\n', QChar::LineSeparator);
    }
    if (!text.isEmpty() || paragraph_.pictures.empty()) placeLines(text, formats);
    if (!paragraph_.marker.isEmpty()) placeMarker(top);
    if (!paragraph_.border.isEmpty())
      placeBorder(out_, QRectF(left_, border, width_, out_.height - border).adjusted(-borderGap, -borderGap, borderGap, borderGap), paragraph_.border,
                  paragraph_.borderColor);
    out_.height += paragraph_.after;
  }

 private:
  /// A marker that is wider than its room pushes the letters on.
  double indentOfFirst() const {
    if (paragraph_.marker.isEmpty()) return paragraph_.first;
    return std::max(0.0, paragraph_.first + textWidth(paragraph_.marker, fontOf(paragraph_.format)) + markerGap);
  }

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
    const bool hasTabs = text.contains(u'\t');
    layout.beginLayout();
    double indent = indentOfFirst();
    firstRun_ = 0;
    firstBase_.reset();
    firstRunBegins_ = 0;
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine(), indent = 0) {
      const double room = std::max(1.0, width_ - indent);
      if (hasTabs) option.setTabs(tabsFrom(indent));
      layout.setTextOption(option);
      line.setLineWidth(room * dotsPerMillimetre);
      placeLine(text, line, left_ + indent, room);
    }
    layout.endLayout();
  }

  /// Stops of a line that begins that far right of the paragraph's left side, from its own begin: the paragraph's, the usual
  /// ones behind them, and on a first line that hangs out the left side itself.
  QList<QTextOption::Tab> tabsFrom(double indent) const {
    std::vector<RichTab> stops = paragraph_.tabs;
    const double last = stops.empty() ? 0 : stops.back().place;
    for (double place = usualTab; place < paragraph_.left + width_; place += usualTab)
      if (place > last) stops.push_back({place});
    if (indent < 0) stops.push_back({paragraph_.left});
    std::sort(stops.begin(), stops.end(), [](const RichTab& one, const RichTab& other) { return one.place < other.place; });
    QList<QTextOption::Tab> tabs;
    for (const RichTab& stop : stops)
      if (const double place = stop.place - paragraph_.left - indent; place > 0) tabs.append({place * dotsPerMillimetre, tabType(stop.alignment)});
    return tabs;
  }

  double heightOf(double natural) const {
    if (paragraph_.exactLine > 0) return paragraph_.exactLine;
    return std::max(natural * paragraph_.lineSpacing, paragraph_.leastLine);
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
    const double height = heightOf(ascent + descent);
    const double base = out_.height + ascent + (height - ascent - descent) / 2;
    if (!firstBase_) firstBase_ = base;
    // Runs that end before this line are done with.
    while (firstRun_ < paragraph_.runs.size() && firstRunBegins_ + int(paragraph_.runs[firstRun_].text.size()) <= from)
      firstRunBegins_ += int(paragraph_.runs[firstRun_++].text.size());
    int begin = firstRunBegins_;
    for (size_t place = firstRun_; place < paragraph_.runs.size() && begin < behind; ++place) {
      const RichRun& run = paragraph_.runs[place];
      const int end = begin + int(run.text.size());
      placeRun(text, line, run, std::max(begin, from), std::min(end, behind), left + shift, base, perBlank);
      begin = end;
    }
    out_.height += height;
  }

  /// The part of a run that stands on a line, cut at tabs.
  void placeRun(const QString& text, const QTextLine& line, const RichRun& run, int from, int behind, double left, double base,
                double perBlank) {
    const QFont font = fontOf(run.format);
    const QFontMetricsF metrics(font);
    const double rise = run.format.script * run.format.font.points * scriptShift;
    while (from < behind) {
      if (text[from] == u'\t' || text[from] == QChar::LineSeparator) {
        ++from;
        continue;
      }
      int end = from;
      while (end < behind && text[end] != u'\t' && text[end] != QChar::LineSeparator) ++end;
      const QString part = text.mid(from, end - from);
      const auto blanksBefore = QStringView(text).mid(line.textStart(), from - line.textStart()).count(u' ');
      const QPointF origin(left + (line.cursorToX(from) - line.x()) / dotsPerMillimetre + perBlank * double(blanksBefore), base - rise);
      const double width = metrics.horizontalAdvance(part) / dotsPerMillimetre + perBlank * double(part.count(u' '));
      const double ascent = metrics.ascent() / dotsPerMillimetre;
      const double descent = metrics.descent() / dotsPerMillimetre;
      if (run.format.background.isValid())
        out_.primitives.emplace_back(BoxMark{.rect = QRectF(origin.x(), origin.y() - ascent, width, ascent + descent), .fill = run.format.background});
      out_.primitives.emplace_back(TextMark{
          .origin = origin,
          .text = part,
          .font = font,
          .color = run.format.color,
          .width = width,
          .ascent = ascent,
          .descent = descent,
          .wordSpacing = perBlank});
      from = end;
    }
  }

  void placeMarker(double top) {
    const RichFormat& format = paragraph_.format;
    const QFont font = fontOf(format);
    const QFontMetricsF metrics(font);
    const double base = firstBase_.value_or(top + metrics.ascent() / dotsPerMillimetre);
    out_.primitives.emplace_back(TextMark{.origin = {left_ + paragraph_.first, base},
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
  size_t firstRun_ = 0;  ///< that may reach into the line which is placed
  int firstRunBegins_ = 0;
  std::optional<double> firstBase_;  ///< of the first line's letters
};

/// The row as it fits into that width.
RichRow fitted(const RichRow& row, double width) {
  RichRow made = row;
  double all = 0;
  for (const RichCell& cell : made.cells) all += cell.width;
  if (row.left + all <= width + overhang) return made;
  made.left = std::clamp(row.left, -overhang, width / 2);
  for (RichCell& cell : made.cells) cell.width *= (width - made.left) / all;
  return made;
}

void placeRow(RichLayout& out, const RichRow& row) {
  std::vector<RichLayout> cells;
  double height = row.height;
  for (const RichCell& cell : row.cells) {
    RichLayout inside;
    for (const RichParagraph& paragraph : cell.paragraphs) ParagraphLayout(inside, paragraph, 0, cell.width - 2 * row.padding).place();
    height = std::max(height, inside.height + cellGap);
    cells.push_back(std::move(inside));
  }
  double left = row.left;
  for (size_t place = 0; place < cells.size(); ++place) {
    const RichCell& cell = row.cells[place];
    const QRectF rect(left, out.height, cell.width, height);
    if (cell.background.isValid()) out.primitives.emplace_back(BoxMark{.rect = rect, .fill = cell.background});
    const double room = height - cells[place].height - cellGap;
    const double down = cell.vertical & Qt::AlignBottom ? room : cell.vertical & Qt::AlignVCenter ? room / 2 : 0;
    for (Primitive& primitive : cells[place].primitives) {
      moveBy(primitive, left + row.padding, out.height + down + cellGap / 2);
      out.primitives.push_back(std::move(primitive));
    }
    placeBorder(out, rect, cell.border, cell.borderColor);
    left += cell.width;
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
  bool keepsNext = false;
  double begin = 0;  // of the paragraphs that the next one keeps to
  const auto add = [&](double top, const RichParagraph* paragraph) {
    // Of what is not kept whole the beginning is enough: its first two lines or so.
    const bool isWhole = !paragraph || paragraph->keepsWhole || paragraph->keepsWithNext;
    const double behind = isWhole ? out.height : std::min(out.height, top + paragraph->before + beginningOfParagraph);
    if (!keepsNext) begin = top;
    if (keepsNext || isWhole) out.kept.push_back({begin, behind});
    keepsNext = paragraph && paragraph->keepsWithNext;
  };
  for (const auto& block : text.blocks) {
    if (const auto* paragraph = std::get_if<RichParagraph>(&block)) {
      const double top = out.height;
      ParagraphLayout(out, *paragraph, 0, width).place();
      add(top, paragraph);
      continue;
    }
    for (const RichRow& row : std::get<RichTable>(block).rows) {
      const double top = out.height;
      placeRow(out, fitted(row, width));
      add(top, nullptr);
    }
  }
  return out;
}
