#pragma once

#include <QColor>
#include <QFont>
#include <QImage>
#include <QRectF>
#include <QString>

#include <memory>
#include <variant>
#include <vector>

/// What a report comes to: pages of positioned primitives. All measures are millimetres from the page's upper left corner.
/// Fonts are as large as letters are at layoutDotsPerInch; nothing hangs on a device.

inline constexpr double layoutDotsPerInch = 1200;
inline constexpr double dotsPerMillimetre = layoutDotsPerInch / 25.4;

/// One line of text in one font.
struct TextMark {
  QPointF origin;          ///< where the base line begins
  QString text;
  QFont font;
  QColor color;
  double width = 0;        ///< of the line, word spacing included
  double ascent = 0;
  double descent = 0;
  double wordSpacing = 0;  ///< put between words on top of the font's own
  int rotation = 0;        ///< degrees, clockwise around the origin
};

struct StrokeMark {
  QPointF from;
  QPointF to;
  double width = 0.2;
  QColor color = Qt::black;
  Qt::PenStyle style = Qt::SolidLine;
};

struct BoxMark {
  QRectF rect;
  double radius = 0;
  double lineWidth = 0;  ///< 0: no border
  QColor line = Qt::black;
  QColor fill = {};      ///< invalid: none
  Qt::PenStyle style = Qt::SolidLine;
};

struct PictureMark {
  QRectF rect;
  QImage image;
};

/// Heights that stay on one page wherever a page has room for them.
struct KeptRange {
  double from = 0;
  double behind = 0;
};

/// A symbol of bars: rectangles in modules on a field of modules that fills the rectangle.
struct BarsMark {
  QRectF rect;
  double columns = 0;
  double rows = 0;  ///< of modules; a linear symbol has one row as high as the rectangle
  std::shared_ptr<const std::vector<QRect>> bars;
  QColor color = Qt::black;
  int rotation = 0;  ///< degrees, clockwise: 0, 90, 180, 270
};

/// A place where a template has a fault. Screens show it, paper does not.
struct FaultMark {
  QRectF rect;
  QString object;  ///< name of the object
  QString reason;
};

struct PendingText;

/// The last one stands for a text that waits for the number of pages; a finished page holds none.
using Primitive = std::variant<TextMark, StrokeMark, BoxMark, PictureMark, BarsMark, FaultMark, std::shared_ptr<PendingText>>;

/// Rectangle that a primitive covers on its page.
QRectF boundsOf(const Primitive& primitive);
void moveBy(Primitive& primitive, double right, double down);

struct ReportPage {
  QSizeF size;
  std::vector<Primitive> primitives;
};

struct ReportFault {
  QString object;
  QString reason;
  int page = 0;  ///< from 1
  /// A notice is for designers: a text that was cut short, a barcode with very narrow bars. It is not marked.
  bool isNotice = false;
};

struct ReportPages {
  std::vector<ReportPage> pages;
  std::vector<ReportFault> faults;
};
