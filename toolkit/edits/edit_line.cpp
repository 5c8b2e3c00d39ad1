#include "toolkit/edits/edit_line.h"

#include "base/guard.h"
#include "toolkit/edits/balloon.h"
#include "toolkit/edits/edit_box.h"
#include "toolkit/edits/edit_menu.h"

#include <QApplication>
#include <QClipboard>
#include <QDropEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QWheelEvent>

#include <algorithm>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

/// One line of it: a line break at the end falls away, those within become blanks.
QString asOneLine(QString text) {
  text.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n').replace(u'\t', u' ');
  while (text.endsWith(u'\n')) text.chop(1);
  return text.replace(u'\n', u' ');
}

bool isPrintable(const QString& text) {
  return !text.isEmpty() && std::all_of(text.begin(), text.end(), [](QChar c) { return c.isPrint() || c.isSurrogate(); });
}

}  // namespace

EditLine::EditLine(EditBox* box) : QLineEdit(box), box_(box) {
  setFrame(false);
  setMaxLength(std::numeric_limits<int>::max());  // the line's own limit would cut what is set without a word
  setAttribute(Qt::WA_MacShowFocusRect, false);
}

bool EditLine::event(QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride && box_ && box_->keepsKey(*static_cast<QKeyEvent*>(event))) {
    event->accept();
    return true;
  }
  if (event->type() != QEvent::KeyPress || !box_) return QLineEdit::event(event);
  bool done = false;
  guarded(this, [&] {
    auto* press = static_cast<QKeyEvent*>(event);
    if (box_->keyFilter_ && box_->keyFilter_(*press)) {
      done = true;
      return;
    }
    int key = press->key();
    box_->keyDown(key, press->modifiers());
    if (key == press->key()) return;
    done = true;
    if (key == Qt::Key_Tab) focusNextPrevChild(true);
  });
  if (!done) return QLineEdit::event(event);
  event->accept();
  return true;
}

void EditLine::keyPressEvent(QKeyEvent* event) {
  guarded(this, [&] {
    if (event->matches(QKeySequence::Paste)) {
      pasteText(QApplication::clipboard()->text());
      event->accept();
    } else if (writesText(*event)) {
      typeText(event->text());
      event->accept();
    } else {
      QLineEdit::keyPressEvent(event);
    }
  });
}

void EditLine::typeText(QString characters) {
  const QString typed = characters;
  box_->keyPress(characters);  // chooses from a list in boxes that are written in only so
  if (isReadOnly()) return;
  if (characters.isEmpty()) {
    if (const QString refusal = box_->typingRefusal(typed); !refusal.isEmpty()) showRefusal(box_, refusal);
    return;
  }
  characters = taken(box_->charCase(), characters);
  if (const int place = cursorPosition(); place > 0 && !hasSelectedText()) {
    const QString letter = joined(box_->charCase(), text()[place - 1], characters);
    if (!letter.isEmpty()) {
      setSelection(place - 1, 1);
      characters = letter;
    }
  }
  if (fittingText(characters, stayingLength(), box_->maxLength()).complaint.isEmpty())
    insert(characters);
  else
    showRefusal(box_, u"Bu alana en çok %1 karakter sığar."_s.arg(box_->maxLength()));
}

/// Characters that stay when the selected ones are typed over.
qsizetype EditLine::stayingLength() const { return text().size() - selectedText().size(); }

void EditLine::pasteText(const QString& pasted) {
  if (isReadOnly() || pasted.isEmpty() || !box_) return;
  const QString text = taken(box_->charCase(), asOneLine(pasted));
  const FittingText fitting = fittingText(text, stayingLength(), box_->maxLength());
  QString whole = this->text();
  const int place = hasSelectedText() ? selectionStart() : cursorPosition();
  whole.replace(place, selectedText().size(), fitting.text);

  const QString refusal = isPrintable(text) ? box_->pasteRefusal(text, whole) : u"Yapıştırılan metin kullanılamayan karakterler içeriyor."_s;
  if (!refusal.isEmpty()) return showRefusal(box_, refusal);
  if (!fitting.text.isEmpty()) insert(fitting.text);
  if (!fitting.complaint.isEmpty()) showRefusal(box_, fitting.complaint);
}

void EditLine::inputMethodEvent(QInputMethodEvent* event) {
  guarded(this, [&] {
    if (!box_ || event->commitString().isEmpty()) return QLineEdit::inputMethodEvent(event);
    const QString committed = event->commitString();
    QInputMethodEvent finished;
    QLineEdit::inputMethodEvent(&finished);
    if (isPrintable(committed)) typeText(committed);
    event->accept();
  });
}

void EditLine::contextMenuEvent(QContextMenuEvent* event) {
  guarded(this, [&] { showEditMenu(this, event->globalPos()); });
}

void EditLine::mousePressEvent(QMouseEvent* event) {
  QLineEdit::mousePressEvent(event);
  guarded(this, [&] {
    if (box_ && event->button() == Qt::LeftButton) box_->lineClicked();
  });
}

void EditLine::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::MiddleButton || !QApplication::clipboard()->supportsSelection())
    return QLineEdit::mouseReleaseEvent(event);
  guarded(this, [&] {
    const QString selection = QApplication::clipboard()->text(QClipboard::Selection);
    setCursorPosition(cursorPositionAt(event->pos()));
    pasteText(selection);
  });
}

void EditLine::dropEvent(QDropEvent* event) {
  guarded(this, [&] {
    if (event->source() == this || !event->mimeData()->hasText()) return QLineEdit::dropEvent(event);
    setCursorPosition(cursorPositionAt(event->position().toPoint()));
    pasteText(event->mimeData()->text());
    event->acceptProposedAction();
  });
}

void EditLine::wheelEvent(QWheelEvent* event) {
  event->ignore();
  guarded(this, [&] {
    const int steps = event->angleDelta().y() / 120;
    if (box_ && hasFocus() && steps != 0 && !box_->isReadOnly()) event->setAccepted(box_->wheelSteps(steps));
  });
}

void EditLine::focusInEvent(QFocusEvent* event) {
  QLineEdit::focusInEvent(event);
  if (box_) guarded(this, [&] { box_->focusCame(event->reason()); });
}

void EditLine::focusOutEvent(QFocusEvent* event) {
  QLineEdit::focusOutEvent(event);
  if (box_) guarded(this, [&] { box_->focusWent(event->reason()); });
}
