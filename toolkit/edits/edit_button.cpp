#include "toolkit/edits/edit_button.h"

#include "toolkit/edits/edit_frame.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOption>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr double captionShare = 0.9;  ///< of the input's font size
constexpr double narrowestCaption = 0.95;  ///< of its letters' width
constexpr int captionInset = 6;    ///< at its left, whatever blanks the caption begins with
constexpr int captionPadding = captionInset + 2;
constexpr int captionStep = 8;  ///< captions of about the same length get the same room

QColor blended(const QColor& base, const QColor& tint, double share) {
  return QColor::fromRgbF(float(base.redF() + (tint.redF() - base.redF()) * share),
                          float(base.greenF() + (tint.greenF() - base.greenF()) * share),
                          float(base.blueF() + (tint.blueF() - base.blueF()) * share));
}

}  // namespace

EditButton labelButton(const QString& caption) {
  return {caption, {}, {}, EditFrame::captionWidth, EditButton::Left, true};
}

EditButton ellipsisButton(const QString& hint) { return {u"…"_s, {}, hint, 22, EditButton::Right, false}; }

EditButton arrowButton() { return {u"▾"_s, {}, u"Listeyi Aç"_s, 20, EditButton::Right, false}; }

EditSideButton::EditSideButton(const EditButton& description, QWidget* parent)
    : QToolButton(parent), isLabel_(description.isLabel), width_(description.width), isArrow_(description.caption == u"▾"_s) {
  setFocusPolicy(Qt::NoFocus);
  setAutoRaise(true);
  setIcon(description.icon);
  setToolTip(description.hint);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
  setCursor(Qt::ArrowCursor);
  setCaption(description.caption);
}

void EditSideButton::setCaption(const QString& caption) {
  setText(caption);
  const QString name = isLabel_ || toolTip().isEmpty() ? caption.trimmed() : toolTip();
  setAccessibleName(name);
  updateGeometry();
  update();
}

QSize EditSideButton::sizeHint() const {
  if (isLabel_) {
    const int least = int(captionLength() * narrowestCaption) + captionPadding + 1;
    return {least <= width_ ? width_ : (least + captionStep - 1) / captionStep * captionStep, fontMetrics().height()};
  }
  const int content = icon().isNull() ? fontMetrics().horizontalAdvance(text()) : iconSize().width();
  return {width_ > 0 ? width_ : content + 10, fontMetrics().height()};
}

double EditSideButton::captionLength() const {
  QFont font = this->font();
  font.setPointSizeF(font.pointSizeF() * captionShare);
  return QFontMetricsF(font).horizontalAdvance(text().trimmed());
}

/// Captions are capitals in a narrow place: they are written a little smaller than the input, all in one height, and one
/// that is too long with narrower letters.
QFont EditSideButton::captionFont() const {
  QFont font = this->font();
  if (!isLabel_) return font;
  font.setPointSizeF(font.pointSizeF() * captionShare);
  const double share = (width() - captionPadding) / captionLength();
  if (share < 1) font.setStretch(std::max(1, int(share * int(QFont::Unstretched))));
  return font;
}

void EditSideButton::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const QColor tint = palette().color(QPalette::Highlight);
  const QColor ground = palette().color(QPalette::Button);
  double share = isLabel_ ? 0.10 : 0.0;
  if (isEnabled() && underMouse()) share += 0.12;
  if (isDown()) share += 0.15;
  painter.fillRect(rect(), blended(ground, tint, share));

  const bool atLeft = isLabel_;
  painter.setPen(palette().color(QPalette::Mid));
  const int edge = atLeft ? width() - 1 : 0;
  painter.drawLine(edge, 0, edge, height() - 1);

  const auto group = isEnabled() ? QPalette::Active : QPalette::Disabled;
  painter.setPen(palette().color(group, QPalette::ButtonText));
  if (!icon().isNull()) {
    icon().paint(&painter, rect().adjusted(2, 2, -2, -2), Qt::AlignCenter, isEnabled() ? QIcon::Normal : QIcon::Disabled);
  } else if (isArrow_) {
    QStyleOption option;
    option.initFrom(this);
    option.rect = QRect(0, 0, 10, 10);
    option.rect.moveCenter(rect().center());
    style()->drawPrimitive(QStyle::PE_IndicatorArrowDown, &option, &painter, this);
  } else {
    painter.setFont(captionFont());
    const int alignment = int(isLabel_ ? Qt::AlignLeft | Qt::AlignVCenter : Qt::Alignment(Qt::AlignCenter));
    painter.drawText(rect().adjusted(isLabel_ ? captionInset : 1, 0, -2, 0), alignment | Qt::TextSingleLine, text().trimmed());
  }
}
