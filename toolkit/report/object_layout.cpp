#include "toolkit/report/object_layout.h"

#include "base/exceptions.h"
#include "toolkit/report/barcode.h"
#include "toolkit/report/expression_functions.h"
#include "toolkit/report/rich_layout.h"

#include <QFontMetricsF>
#include <QTransform>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr double fitStep = 0.94;
constexpr double leastFit = 0.5;       ///< share of its size that a fitted text keeps at least
constexpr double tolerance = 0.01;
constexpr double leastModule = 0.17;   ///< mm; narrower bars are not read from paper safely

bool isAcross(const LayoutObject& object) { return object.rotation == 90 || object.rotation == 270; }

/// Size of the object's inside as its text runs.
QSizeF innerSize(const LayoutObject& object, const QRectF& rect) {
  const QSizeF size = rect.size() - QSizeF(2 * object.padding, 2 * object.padding);
  return isAcross(object) ? size.transposed() : size;
}

void measureText(MeasuredObject& measured, const LayoutObject& object) {
  const QSizeF inside = innerSize(object, object.rect);
  const bool wraps = object.node->flag(u"wrap");
  const auto broken = [&] { return breakText(measured.text, measured.font, inside.width(), wraps, object.lineSpacing); };
  const auto isTooLarge = [&] {
    if (measured.lines.height() > inside.height() + tolerance) return true;
    return std::any_of(measured.lines.lines.begin(), measured.lines.lines.end(),
                       [&](const BrokenLine& line) { return line.width > inside.width() + tolerance; });
  };
  measured.lines = broken();
  if (object.node->flag(u"fit")) {
    ReportFont font = object.fontInfo;
    while (isTooLarge() && font.points * fitStep >= object.fontInfo.points * leastFit) {
      font.points *= fitStep;
      measured.font = layoutFont(font);
      measured.lines = broken();
    }
  }
  if (isAcross(object)) return;
  const double needed = measured.lines.lines.empty() ? 0 : measured.lines.height() + 2 * object.padding;
  if (object.grows) measured.height = std::max(measured.height, needed);
  if (object.shrinks) measured.height = std::min(measured.height, needed);
}

void measureRich(MeasuredObject& measured, const LayoutObject& object, const RichTexts* richTexts) {
  RichLayout layout;
  if (richTexts && richTexts->contains(object.name)) {
    layout = layoutRichText(*richTexts->constFind(object.name), object.rect.width());
  } else {
    const QString align = object.node->text(u"align");
    const Qt::Alignment alignment = align == u"right"    ? Qt::AlignRight
                                    : align == u"center"  ? Qt::AlignHCenter
                                    : align == u"justify" ? Qt::AlignJustify
                                                          : Qt::AlignLeft;
    layout = layoutRichText(richTextFromPlain(measured.text, {object.fontInfo, object.color}, alignment), object.rect.width());
  }
  if (object.grows)
    measured.height = std::max(measured.height, layout.height);
  else if (layout.height > measured.height + tolerance)
    measured.notices += u"Metin kutusuna sığmıyor"_s;
  measured.rich = std::move(layout.primitives);
  measured.pageStarts = std::move(layout.pageStarts);
  measured.kept = std::move(layout.kept);
}

/// Where a point of the turned inside stands on the page.
QTransform turned(const LayoutObject& object, const QRectF& inside) {
  QTransform transform;
  switch (object.rotation) {
    case 90: return transform.translate(inside.right(), inside.top()).rotate(90);
    case 180: return transform.translate(inside.right(), inside.bottom()).rotate(180);
    case 270: return transform.translate(inside.left(), inside.bottom()).rotate(270);
    default: return transform.translate(inside.left(), inside.top());
  }
}

void placeBorders(const LayoutObject& object, const QRectF& rect, std::vector<Primitive>& primitives) {
  const ReportNode& node = *object.node;
  if (const QColor fill = node.color(u"background"); fill.isValid()) primitives.emplace_back(BoxMark{.rect = rect, .fill = fill});
  const QString& sides = node.text(u"border");
  const auto line = [&](QStringView side, QPointF from, QPointF to) {
    if (sides.contains(side))
      primitives.emplace_back(StrokeMark{from, to, node.millimetres(u"borderwidth"), node.color(u"bordercolor"), Qt::SolidLine});
  };
  line(u"left", rect.topLeft(), rect.bottomLeft());
  line(u"top", rect.topLeft(), rect.topRight());
  line(u"right", rect.topRight(), rect.bottomRight());
  line(u"bottom", rect.bottomLeft(), rect.bottomRight());
}

/// Drops the lines that the box has no room for; the last one that stays ends in "…".
void cutLines(MeasuredObject& measured, const QSizeF& inside) {
  auto& lines = measured.lines.lines;
  bool isCut = false;
  const auto most = std::max<size_t>(1, size_t((inside.height() + measured.lines.lineHeight * 0.2) / measured.lines.lineHeight));
  if (lines.size() > most) {
    lines.resize(most);
    lines.back().text += u'…';
    lines.back().width = textWidth(lines.back().text, measured.font);
    isCut = true;
  }
  for (BrokenLine& line : lines) {
    if (line.width <= inside.width() + tolerance) continue;
    line.text = cutText(line.text, measured.font, inside.width());
    line.width = textWidth(line.text, measured.font);
    isCut = true;
  }
  if (isCut) measured.notices += u"Metin kutusuna sığmıyor"_s;
}

void placeText(MeasuredObject& measured, const QRectF& rect, std::vector<Primitive>& primitives) {
  const LayoutObject& object = *measured.object;
  placeBorders(object, rect, primitives);
  if (measured.lines.lines.empty()) return;
  const QRectF box = rect.adjusted(object.padding, object.padding, -object.padding, -object.padding);
  const QSizeF inside = innerSize(object, rect);
  cutLines(measured, inside);
  const QString& align = object.node->text(u"align");
  const QString& vertical = object.node->text(u"valign");
  const double spare = std::max(0.0, inside.height() - measured.lines.height());
  double top = vertical == u"bottom" ? spare : vertical == u"middle" ? spare / 2 : 0;
  top += (measured.lines.lineHeight - measured.lines.ascent - measured.lines.descent) / 2;
  const QTransform transform = turned(object, box);
  for (const BrokenLine& line : measured.lines.lines) {
    const double room = std::max(0.0, inside.width() - line.width);
    const double left = align == u"right" ? room : align == u"center" ? room / 2 : 0;
    const auto blanks = line.text.count(u' ');
    const double perBlank = align == u"justify" && !line.endsParagraph && blanks > 0 ? room / double(blanks) : 0;
    if (!line.text.isEmpty())
      primitives.emplace_back(TextMark{.origin = transform.map(QPointF(left, top + measured.lines.ascent)),
                                    .text = line.text,
                                    .font = measured.font,
                                    .color = object.color,
                                    .width = line.width + perBlank * double(blanks),
                                    .ascent = measured.lines.ascent,
                                    .descent = measured.lines.descent,
                                    .wordSpacing = perBlank,
                                    .rotation = object.rotation});
    top += measured.lines.lineHeight;
  }
}

Qt::PenStyle penStyle(const QString& style) {
  return style == u"dash" ? Qt::DashLine : style == u"dot" ? Qt::DotLine : Qt::SolidLine;
}

void placeLine(const LayoutObject& object, const QRectF& rect, std::vector<Primitive>& primitives) {
  const bool isUpward = object.node->flag(u"upward");
  primitives.emplace_back(StrokeMark{isUpward ? rect.bottomLeft() : rect.topLeft(), isUpward ? rect.topRight() : rect.bottomRight(),
                                  object.node->millimetres(u"linewidth"), object.color, penStyle(object.node->text(u"style"))});
}

void placePicture(MeasuredObject& measured, const QRectF& rect, std::vector<Primitive>& primitives) {
  const LayoutObject& object = *measured.object;
  if (object.picture.isNull()) {
    if (!object.node->picture(u"picture").isEmpty()) measured.faults += u"Resim okunamıyor"_s;
    return;
  }
  QRectF place = rect;
  if (object.node->text(u"fit") == u"contain") {
    const QSizeF size = QSizeF(object.picture.size()).scaled(rect.size(), Qt::KeepAspectRatio);
    const QString& align = object.node->text(u"align");
    const double room = rect.width() - size.width();
    place = QRectF(rect.left() + (align == u"right" ? room : align == u"center" ? room / 2 : 0), rect.center().y() - size.height() / 2,
                   size.width(), size.height());
  }
  primitives.emplace_back(PictureMark{place, object.picture});
}

void placeBarcode(MeasuredObject& measured, const QRectF& rect, std::vector<Primitive>& primitives) {
  const LayoutObject& object = *measured.object;
  if (measured.text.isEmpty()) return;
  BarcodeSymbol symbol;
  try {
    symbol = encodeBarcode(object.node->text(u"symbology"), measured.text);
  } catch (const EConvertError& error) {
    measured.faults += error.message();
    return;
  }
  const QTransform transform = turned(object, rect);
  const QSizeF inside = isAcross(object) ? rect.size().transposed() : rect.size();
  QRectF bars(QPointF(), inside);
  if (object.node->flag(u"showtext") && !symbol.isMatrix()) {
    const QFontMetricsF metrics(object.font);
    const double ascent = metrics.ascent() / dotsPerMillimetre;
    const double descent = metrics.descent() / dotsPerMillimetre;
    bars.setBottom(std::max(1.0, inside.height() - ascent - descent));
    const QString shown = cutText(symbol.text, object.font, inside.width());
    const double width = textWidth(shown, object.font);
    primitives.emplace_back(TextMark{.origin = transform.map(QPointF((inside.width() - width) / 2, bars.bottom() + ascent)),
                                  .text = shown,
                                  .font = object.font,
                                  .color = object.color,
                                  .width = width,
                                  .ascent = ascent,
                                  .descent = descent,
                                  .rotation = object.rotation});
  }
  if (symbol.isMatrix()) {
    const double module = std::min(inside.width() / symbol.columns, inside.height() / symbol.rows);
    const QSizeF size(module * symbol.columns, module * symbol.rows);
    bars = QRectF(QPointF((inside.width() - size.width()) / 2, (inside.height() - size.height()) / 2), size);
  }
  if (bars.width() / symbol.columns < leastModule) measured.notices += u"Barkodun çizgileri çok ince; kutuyu genişletin"_s;
  primitives.emplace_back(BarsMark{.rect = transform.mapRect(bars),
                                .columns = double(symbol.columns),
                                .rows = double(symbol.rows),
                                .bars = symbol.bars,
                                .color = object.color,
                                .rotation = object.rotation});
}

void placeCheckMark(const MeasuredObject& measured, const QRectF& rect, std::vector<Primitive>& primitives) {
  const LayoutObject& object = *measured.object;
  const double width = object.node->millimetres(u"linewidth");
  const double side = std::min(rect.width(), rect.height());
  const QRectF box(rect.center() - QPointF(side / 2, side / 2), QSizeF(side, side));
  if (object.node->flag(u"frame")) primitives.emplace_back(BoxMark{.rect = box, .lineWidth = width, .line = object.color});
  if (measured.text.isEmpty()) return;
  const auto at = [&](double x, double y) { return box.topLeft() + QPointF(side * x, side * y); };
  primitives.emplace_back(StrokeMark{at(0.2, 0.55), at(0.42, 0.78), width * 1.6, object.color, Qt::SolidLine});
  primitives.emplace_back(StrokeMark{at(0.42, 0.78), at(0.82, 0.22), width * 1.6, object.color, Qt::SolidLine});
}

}  // namespace

LayoutObject::LayoutObject(const ReportNode& object)
    : node(&object),
      kind(object.kind()),
      name(object.name()),
      rect(object.millimetres(u"left"), object.millimetres(u"top"), object.millimetres(u"width"), object.millimetres(u"height")) {
  const auto has = [&](QStringView property) { return findProperty(kind, property).has_value(); };
  if (const QString& condition = object.text(u"visible"); !condition.isEmpty()) visible.emplace(condition);
  if (has(u"checked")) checked.emplace(object.text(u"checked").isEmpty() ? u"YANLIŞ"_s : object.text(u"checked"));
  if (has(u"text")) text = ExpressionText(object.text(u"text"));
  if (has(u"format")) format = object.text(u"format");
  if (has(u"font")) {
    fontInfo = object.font(u"font");
    font = layoutFont(fontInfo);
  }
  if (has(u"color")) color = object.color(u"color");
  if (has(u"grows")) grows = object.flag(u"grows");
  if (has(u"shrinks")) shrinks = object.flag(u"shrinks");
  if (has(u"stretches")) stretches = object.flag(u"stretches");
  if (has(u"rotation")) rotation = object.text(u"rotation").toInt();
  if (has(u"padding")) padding = object.millimetres(u"padding");
  if (has(u"linespacing")) lineSpacing = object.integer(u"linespacing") / 100.0;
  if (kind == NodeKind::Picture) picture = QImage::fromData(object.picture(u"picture"));
  usesPageCount = text.usesPageCount() || (visible && visible->usesPageCount());
}

MeasuredObject measure(const LayoutObject& object, const EvaluationContext& context, const RichTexts* richTexts) {
  MeasuredObject measured;
  measured.object = &object;
  measured.height = object.rect.height();
  measured.font = object.font;
  const auto truth = [&](const Expression& condition, bool otherwise) {
    const ReportValue value = condition.evaluate(context);
    const auto* fault = std::get_if<ExpressionFault>(&value);
    if (fault) measured.faults += fault->reason;
    return fault ? otherwise : ExpressionFunctions::truth(value);
  };
  measured.isVisible = !object.visible || truth(*object.visible, true);
  if (!measured.isVisible) {
    if (object.shrinks) measured.height = 0;
    return measured;
  }
  ExpressionText::Result result = object.text.evaluate(context, object.format);
  measured.text = std::move(result.text);
  measured.faults += result.faults;
  if (object.kind == NodeKind::Text) measureText(measured, object);
  if (object.kind == NodeKind::RichText) measureRich(measured, object, richTexts);
  if (object.checked && truth(*object.checked, false)) measured.text = u"x"_s;
  return measured;
}

void place(MeasuredObject& measured, const QRectF& rect, std::vector<Primitive>& primitives) {
  const LayoutObject& object = *measured.object;
  switch (object.kind) {
    case NodeKind::Text: placeText(measured, rect, primitives); break;
    case NodeKind::Line: placeLine(object, rect, primitives); break;
    case NodeKind::Rectangle:
      primitives.emplace_back(BoxMark{rect, object.node->millimetres(u"radius"), object.node->millimetres(u"linewidth"), object.color,
                                   object.node->color(u"background"), penStyle(object.node->text(u"style"))});
      break;
    case NodeKind::Picture: placePicture(measured, rect, primitives); break;
    case NodeKind::Barcode: placeBarcode(measured, rect, primitives); break;
    case NodeKind::RichText:
      for (Primitive& primitive : measured.rich) {
        moveBy(primitive, rect.left(), rect.top());
        primitives.push_back(std::move(primitive));
      }
      break;
    case NodeKind::CheckMark: placeCheckMark(measured, rect, primitives); break;
    default: break;
  }
  if (!measured.faults.isEmpty()) primitives.emplace_back(FaultMark{rect, object.name, measured.faults.join(u"; "_s)});
}
