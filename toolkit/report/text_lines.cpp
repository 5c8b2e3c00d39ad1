#include "toolkit/report/text_lines.h"

#include <QFontMetricsF>
#include <QTextLayout>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr double tolerance = 0.01;

QString withoutTrailingBlanks(QString text) {
  while (text.endsWith(u' ')) text.chop(1);
  return text;
}

void breakParagraph(BrokenText& broken, const QString& text, const QFont& font, const QFontMetricsF& metrics, double width) {
  QTextLayout layout(text, font);
  QTextOption option;
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  option.setUseDesignMetrics(true);
  layout.setTextOption(option);
  layout.beginLayout();
  for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
    line.setLineWidth(width * dotsPerMillimetre);
    const QString part = withoutTrailingBlanks(text.mid(line.textStart(), line.textLength()));
    broken.lines.push_back({part, metrics.horizontalAdvance(part) / dotsPerMillimetre, false});
  }
  layout.endLayout();
}

}  // namespace

QFont layoutFont(const ReportFont& font) {
  QFont made(font.family);
  made.setPixelSize(std::max(1, int(std::lround(font.points * layoutDotsPerInch / 72))));
  made.setBold(font.bold);
  made.setItalic(font.italic);
  made.setUnderline(font.underline);
  made.setStrikeOut(font.strikeOut);
  made.setHintingPreference(QFont::PreferNoHinting);
  return made;
}

double textWidth(const QString& text, const QFont& font) { return QFontMetricsF(font).horizontalAdvance(text) / dotsPerMillimetre; }

BrokenText breakText(const QString& text, const QFont& font, double width, bool wrap, double lineSpacing) {
  const QFontMetricsF metrics(font);
  BrokenText broken{.lines = {},
                    .lineHeight = metrics.height() / dotsPerMillimetre * lineSpacing,
                    .ascent = metrics.ascent() / dotsPerMillimetre,
                    .descent = metrics.descent() / dotsPerMillimetre};
  if (text.isEmpty()) return broken;
  QString plain = text;
  plain.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n').replace(u'\t', u"    "_s);
  for (const QString& paragraph : plain.split(u'\n')) {
    const double whole = metrics.horizontalAdvance(paragraph) / dotsPerMillimetre;
    if (!wrap || whole <= width + tolerance)
      broken.lines.push_back({paragraph, whole, false});
    else
      breakParagraph(broken, paragraph, font, metrics, std::max(width, tolerance));
    broken.lines.back().endsParagraph = true;
  }
  return broken;
}

QString cutText(const QString& text, const QFont& font, double width) {
  return QFontMetricsF(font).elidedText(text, Qt::ElideRight, width * dotsPerMillimetre);
}
