#include "toolkit/edits/memo_text.h"

#include "base/guard.h"
#include "toolkit/edits/balloon.h"
#include "toolkit/edits/edit_menu.h"
#include "toolkit/edits/plain_text.h"

#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QTextDocument>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

bool isPassing(Qt::FocusReason reason) {
  return reason == Qt::PopupFocusReason || reason == Qt::ActiveWindowFocusReason || reason == Qt::MenuBarFocusReason;
}

bool isKeepable(QChar c) { return c.isPrint() || c.isSurrogate() || c == u'\n' || c == u'\t'; }

/// Length as it is stored: a selection counts its line breaks as QTextDocument does.
qsizetype selectedLength(const QTextCursor& cursor) { return cursor.selectionEnd() - cursor.selectionStart(); }

}  // namespace

MemoText::MemoText(QWidget* parent) : QPlainTextEdit(parent) {
  setFrameShape(QFrame::NoFrame);
  setTabChangesFocus(true);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);  // lines are wrapped; the blank that one ends with would bring it up
  viewport()->setAutoFillBackground(false);
  document()->setDocumentMargin(2);
}

QString MemoText::wholeText() const {
  if (!document()->isModified()) return original_;
  QString text = plainTextOf(*document());
  if (original_.contains(u"\r\n"_s)) text.replace(u"\n"_s, u"\r\n"_s);
  return text;
}

void MemoText::setWholeText(const QString& text) {
  original_ = text;
  setPlainText(text);
  document()->setModified(false);
}

qsizetype MemoText::stayingLength() const { return document()->characterCount() - 1 - selectedLength(textCursor()); }

void MemoText::typeText(const QString& characters) {
  if (isReadOnly()) return;
  if (typingRule && characters != "\n"_L1) {
    const QString passing = typingRule(characters);
    if (passing != characters) return insertPlainText(passing);
  }
  QString text = taken(charCase, characters);
  QTextCursor before = textCursor();
  if (!before.hasSelection() && before.movePosition(QTextCursor::PreviousCharacter, QTextCursor::KeepAnchor)) {
    const QString letter = joined(charCase, before.selectedText().front(), text);
    if (!letter.isEmpty()) {
      setTextCursor(before);
      text = letter;
    }
  }
  if (fittingText(text, stayingLength(), maxLength).complaint.isEmpty())
    insertPlainText(text);
  else
    showRefusal(parentWidget(), u"Bu alana en çok %1 karakter sığar."_s.arg(maxLength));
  ensureCursorVisible();
}

void MemoText::keyPressEvent(QKeyEvent* event) {
  guarded(this, [&] {
    const bool breaksLine = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (breaksLine && !takesLineBreaks) {
      event->ignore();
    } else if (breaksLine) {
      typeText(u"\n"_s);
      event->accept();
    } else if (writesText(*event)) {
      typeText(event->text());
      event->accept();
    } else {
      QPlainTextEdit::keyPressEvent(event);
    }
  });
}

void MemoText::inputMethodEvent(QInputMethodEvent* event) {
  guarded(this, [&] {
    const QString committed = event->commitString();
    if (committed.isEmpty()) return QPlainTextEdit::inputMethodEvent(event);
    QInputMethodEvent finished;
    QPlainTextEdit::inputMethodEvent(&finished);
    typeText(committed);
    event->accept();
  });
}

bool MemoText::canInsertFromMimeData(const QMimeData* source) const { return source->hasText(); }

void MemoText::insertFromMimeData(const QMimeData* source) {
  guarded(this, [&] {
    QString text = taken(charCase, source->text());
    text.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n');
    if (!takesLineBreaks) text.replace(u'\n', u' ');
    if (text.isEmpty() || isReadOnly()) return;
    if (!std::all_of(text.begin(), text.end(), isKeepable))
      return showRefusal(parentWidget(), u"Yapıştırılan metin kullanılamayan karakterler içeriyor."_s);
    const FittingText fitting = fittingText(text, stayingLength(), maxLength);
    if (!fitting.text.isEmpty()) insertPlainText(fitting.text);
    if (!fitting.complaint.isEmpty()) showRefusal(parentWidget(), fitting.complaint);
  });
}

void MemoText::contextMenuEvent(QContextMenuEvent* event) {
  guarded(this, [&] { showEditMenu(this, event->globalPos()); });
}

void MemoText::focusInEvent(QFocusEvent* event) {
  QPlainTextEdit::focusInEvent(event);
  guarded(this, [&] {
    parentWidget()->update();
    if (!isPassing(event->reason())) Q_EMIT focusCame();
  });
}

void MemoText::focusOutEvent(QFocusEvent* event) {
  QPlainTextEdit::focusOutEvent(event);
  guarded(this, [&] {
    parentWidget()->update();
    if (!isPassing(event->reason())) Q_EMIT focusWent();
  });
}
