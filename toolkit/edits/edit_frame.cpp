#include "toolkit/edits/edit_frame.h"

#include "base/turkish_text.h"

#include <QKeyEvent>
#include <QPainter>

#include <algorithm>

using namespace Qt::StringLiterals;

QString taken(CharCase charCase, const QString& text) {
  const QString composed = TurkishText::composed(text);
  switch (charCase) {
    case CharCase::Upper:
      return TurkishText::upper(composed);
    case CharCase::Lower:
      return TurkishText::lower(composed);
    case CharCase::Normal:
      break;
  }
  return composed;
}

QString joined(CharCase charCase, QChar letter, const QString& mark) {
  if (!mark.front().isMark()) return {};
  const QString both = taken(charCase, letter + mark);
  return both.size() <= mark.size() ? both : QString();
}

QString quoted(const QString& text) {
  constexpr qsizetype longest = 30;
  return u'"' + (text.size() > longest ? text.left(longest) + u'…' : text) + u'"';
}

FittingText fittingText(const QString& text, qsizetype staying, int maxLength) {
  const qsizetype room = maxLength == 0 ? text.size() : std::max<qsizetype>(0, maxLength - staying);
  if (text.size() <= room) return {text, {}};
  const bool splits = room > 0 && text[room - 1].isHighSurrogate();
  const QString fitting = text.left(splits ? room - 1 : room);
  return {fitting, u"Bu alana en çok %1 karakter sığar, yapıştırılan metnin sonundaki %2 karakter alınmadı."_s.arg(maxLength).arg(
                       text.size() - fitting.size())};
}

bool writesText(const QKeyEvent& press) {
  const auto modifiers = press.modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier | Qt::GroupSwitchModifier);
  const QString text = press.text();
  if (modifiers == Qt::ControlModifier || modifiers.testFlag(Qt::MetaModifier) || text.isEmpty()) return false;
  return std::all_of(text.begin(), text.end(), [](QChar c) { return c.isPrint() || c.isSurrogate(); });
}

EditFrame::EditFrame(QWidget* parent) : QFrame(parent) { setFrameShape(QFrame::NoFrame); }

void EditFrame::setErrorText(const QString& text) {
  if (text == errorText_) return;
  if (errorText_.isEmpty()) plainHint_ = toolTip();
  errorText_ = text;
  setToolTip(text.isEmpty() ? plainHint_ : text);
  inner()->setAccessibleDescription(text);
  update();
}

int EditFrame::oneLineHeight() const { return fontMetrics().height() + 8; }

void EditFrame::nameBy(const QString& caption) {
  setAccessibleName(caption.trimmed());
  inner()->setAccessibleName(caption.trimmed());
}

void nameBox(QWidget& box, const QString& caption) {
  if (auto* frame = qobject_cast<EditFrame*>(&box)) return frame->nameBy(caption);
  box.setAccessibleName(caption);
}

void EditFrame::paintEvent(QPaintEvent*) {
  const bool focused = inner()->hasFocus();
  QColor border = palette().color(QPalette::Mid);
  if (focused) border = palette().color(QPalette::Highlight);
  if (hasError()) border = QColor(0xC6, 0x28, 0x28);
  const qreal width = focused || hasError() ? 2 : 1;
  const auto group = isEnabled() ? QPalette::Active : QPalette::Disabled;

  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(border, width));
  painter.setBrush(palette().brush(group, isEnabled() ? QPalette::Base : QPalette::Window));
  painter.drawRoundedRect(QRectF(rect()).adjusted(width / 2, width / 2, -width / 2, -width / 2), 2, 2);
}
