#pragma once

#include "toolkit/report/report_properties.h"

#include <QImage>

/// A text of paragraphs and tables as a word processor knows it: what readers of such files make, what replacements edit and
/// what layout paints. Measures are millimetres.

struct RichFormat {
  ReportFont font;
  QColor color = Qt::black;
  QColor background = {};  ///< invalid: none
  int script = 0;          ///< 1: raised and small, -1: lowered and small
  bool operator==(const RichFormat&) const = default;
};

/// Letters of one format. Tabs are "\t", line ends within the paragraph "\n".
struct RichRun {
  QString text;
  RichFormat format;
};

struct RichPicture {
  QImage image;
  double width = 0;
  double height = 0;
};

struct RichTab {
  double place = 0;  ///< from the left border
  Qt::Alignment alignment = Qt::AlignLeft;  ///< of the letters behind it: left, right or centred on it
};

struct RichParagraph {
  std::vector<RichRun> runs;
  std::vector<RichPicture> pictures;  ///< stand above the letters, one below the other
  Qt::Alignment alignment = Qt::AlignLeft;
  double left = 0;
  double right = 0;
  double first = 0;  ///< of the first line, on top of left; may be negative
  double before = 0;
  double after = 0;
  double lineSpacing = 1;      ///< share of the font's own
  double leastLine = 0;        ///< height that a line has at least
  double exactLine = 0;        ///< height of every line, where it is more than 0
  QString marker;              ///< bullet or number that stands at the first line's place; the text then begins at left
  std::vector<RichTab> tabs;   ///< in order
  QString border;              ///< words as PropertyType::Sides
  QColor borderColor = Qt::black;
  bool startsPage = false;
  bool keepsWhole = false;     ///< is not parted by a page's end
  bool keepsWithNext = false;  ///< stands on one page with the next one's beginning
  RichFormat format;           ///< of the marker, and of an empty paragraph's height
};

struct RichCell {
  double width = 0;
  std::vector<RichParagraph> paragraphs;
  QString border = {};      ///< words as PropertyType::Sides
  QColor background = {};   ///< invalid: none
  Qt::Alignment vertical = Qt::AlignTop;
  QColor borderColor = Qt::black;
};

struct RichRow {
  double left = 0;
  std::vector<RichCell> cells;
  double padding = 1;  ///< between a cell's sides and its letters
  double height = 0;   ///< that the row has at least
};

struct RichTable {
  std::vector<RichRow> rows;
};

struct RichText {
  std::vector<std::variant<RichParagraph, RichTable>> blocks;
};

/// Paragraphs of one format, one for each line.
RichText richTextFromPlain(const QString& text, const RichFormat& format, Qt::Alignment alignment);
