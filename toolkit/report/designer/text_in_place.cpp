#include "toolkit/report/designer/text_in_place.h"

#include "base/guard.h"
#include "toolkit/edits/plain_text.h"
#include "toolkit/report/designer/design_canvas.h"

#include <QKeyEvent>
#include <QTextOption>

using namespace Qt::StringLiterals;

namespace {

constexpr double pointsPerMillimetre = 72 / 25.4;
constexpr QSize leastSize(120, 26);

}  // namespace

TextInPlace::TextInPlace(DesignCanvas& canvas, ReportNode& object) : QPlainTextEdit(canvas.viewport()), canvas_(canvas), object_(object) {
  setObjectName(u"textInPlace"_s);
  setAccessibleName(u"Metin"_s);
  setPlainText(object.text(u"text"));
  shown_ = plainTextOf(*document());
  setFrameShape(NoFrame);
  setViewportMargins(0, 0, 0, 0);
  document()->setDocumentMargin(1);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  setTabChangesFocus(true);
  // The paper is white in every look, so what is written on it is black.
  QPalette onPaper = palette();
  onPaper.setColor(QPalette::Base, QColor(0xff, 0xfd, 0xe7));
  onPaper.setColor(QPalette::Text, Qt::black);
  setPalette(onPaper);
  showFont();
  connectGuarded(&canvas.editor(), &ReportEditor::changed, this, [this] { showFont(); });
  const QRect rect = canvas.viewRectOf(object).toAlignedRect();
  setGeometry(QRect(rect.topLeft(), rect.size().expandedTo(QSize(std::min(leastSize.width(), canvas.viewport()->width()), leastSize.height()))));
  selectAll();
  show();
  setFocus(Qt::OtherFocusReason);
}

void TextInPlace::showFont() {
  if (!findProperty(object_.kind(), u"font")) return;
  const ReportFont& shown = object_.font(u"font");
  QFont letters(shown.family);
  letters.setPixelSize(std::max(6, qRound(shown.points / pointsPerMillimetre * canvas_.toView().m11())));
  letters.setBold(shown.bold);
  letters.setItalic(shown.italic);
  letters.setUnderline(shown.underline);
  setFont(letters);
}

void TextInPlace::end(bool keeps) {
  if (std::exchange(isEnded_, true)) return;
  Q_EMIT ended();
  const QString written = text();
  canvas_.setFocus(Qt::OtherFocusReason);  // before it is hidden, which would pass the focus on, to the next object
  hide();
  deleteLater();
  if (keeps) canvas_.editor().change(u"Metni yaz"_s, object_, u"text"_s, written);
}

QString TextInPlace::text() const {
  const QString now = plainTextOf(*document());
  return now == shown_ ? object_.text(u"text") : now;
}

void TextInPlace::keyPressEvent(QKeyEvent* event) {
  guarded(this, [&] {
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (event->key() == Qt::Key_Escape) return end(false);
    if (isReturn && (event->modifiers() & Qt::ControlModifier)) return end(true);
    QPlainTextEdit::keyPressEvent(event);
  });
}

void TextInPlace::focusOutEvent(QFocusEvent* event) {
  QPlainTextEdit::focusOutEvent(event);
  guarded(this, [&] {
    if (event->reason() != Qt::PopupFocusReason && event->reason() != Qt::ActiveWindowFocusReason) end(true);
  });
}
