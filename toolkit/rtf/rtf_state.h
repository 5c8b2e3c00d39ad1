#pragma once

#include "toolkit/rtf/rich_builder.h"

#include <QHash>

/// What holds at one place of a rich text file and comes back when its group ends.
struct RtfState {
  /// Where letters go.
  enum class Place { Body, Marker, Fonts, Colors, Picture, Shape };

  Place place = Place::Body;
  RichFormat format;
  int font = 0;
  bool isCapital = false;
  bool isHidden = false;
  int fallbackLetters = 1;  ///< behind a letter told by its number, for those who cannot read it
  RichParagraph look;
  bool isInTable = false;
  Qt::Alignment nextTab = Qt::AlignLeft;  ///< kind of the tab stop whose place has not come yet
  QString side;                           ///< of the paragraph's border that is told about
};

struct RtfFont {
  QString name;
  int page = 0;  ///< code page of its letters; 0: the file's
  bool isOfSymbols = false;
};

/// What a file tells before its letters.
struct RtfTables {
  QHash<int, RtfFont> fonts;
  std::vector<QColor> colors;
  int usualFont = 0;
  int page = 1252;

  /// An invalid one for what is not there or left to the reader.
  QColor color(int place) const { return place >= 0 && size_t(place) < colors.size() ? colors[size_t(place)] : QColor(); }
};
