#pragma once

#include "toolkit/report/report_pages.h"
#include "toolkit/report/report_properties.h"

/// Text broken into lines by the font's own measures, the same for every device. Measures are millimetres.

struct BrokenLine {
  QString text;
  double width = 0;
  bool endsParagraph = false;
};

struct BrokenText {
  std::vector<BrokenLine> lines;
  double lineHeight = 0;
  double ascent = 0;
  double descent = 0;
  double height() const { return lineHeight * double(lines.size()); }
};

/// The font as layout and painting use it: sized at layoutDotsPerInch, its measures not hinted.
QFont layoutFont(const ReportFont& font);

/// Width of a text in one line.
double textWidth(const QString& text, const QFont& font);

/// Breaks a text at its line ends and, with wrap, where the width asks for it; words longer than a line are cut. An empty text
/// has no lines. lineSpacing is a share of the font's own.
BrokenText breakText(const QString& text, const QFont& font, double width, bool wrap, double lineSpacing = 1);

/// The text cut to the width with "…" behind it.
QString cutText(const QString& text, const QFont& font, double width);
