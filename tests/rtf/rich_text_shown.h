#pragma once

#include "toolkit/report/rich_text.h"

/// A rich text as one line that tests compare: paragraphs and rows parted by "|", cells by "/", paragraphs of a cell by "+".
namespace RichTextShown {

inline QString shown(const RichParagraph& paragraph) {
  QString text = paragraph.startsPage ? QStringLiteral("^") : QString();
  if (!paragraph.marker.isEmpty()) text += QStringLiteral("<%1>").arg(paragraph.marker);
  for (const RichPicture& picture : paragraph.pictures) text += QStringLiteral("<%1x%2>").arg(picture.width, 0, 'f', 0).arg(picture.height, 0, 'f', 0);
  for (const RichRun& run : paragraph.runs) text += run.text;
  return text;
}

inline std::string shown(const RichText& text) {
  QStringList blocks;
  for (const auto& block : text.blocks) {
    if (const auto* paragraph = std::get_if<RichParagraph>(&block)) {
      blocks += shown(*paragraph);
      continue;
    }
    for (const RichRow& row : std::get<RichTable>(block).rows) {
      QStringList cells;
      for (const RichCell& cell : row.cells) {
        QStringList paragraphs;
        for (const RichParagraph& paragraph : cell.paragraphs) paragraphs += shown(paragraph);
        cells += paragraphs.join(u'+');
      }
      blocks += u'[' + cells.join(u'/') + u']';
    }
  }
  return blocks.join(u'|').toStdString();
}

/// The run that holds that text. Throws std::logic_error when there is none.
inline const RichRun& runOf(const RichText& text, const QString& part) {
  for (const auto& block : text.blocks)
    if (const auto* paragraph = std::get_if<RichParagraph>(&block))
      for (const RichRun& run : paragraph->runs)
        if (run.text.contains(part)) return run;
  throw std::logic_error("no run with " + part.toStdString());
}

}  // namespace RichTextShown
