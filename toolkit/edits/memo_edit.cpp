#include "toolkit/edits/memo_edit.h"

#include "base/data/value.h"
#include "base/guard.h"
#include "toolkit/edits/edit_button.h"
#include "toolkit/edits/memo_text.h"

#include <QHBoxLayout>

MemoEdit::MemoEdit(QWidget* parent) : EditFrame(parent), text_(new MemoText(this)) {
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(2, 2, 2, 2);
  row->setSpacing(0);
  row->addWidget(text_, 1);
  setFocusProxy(text_);
  connectGuarded(text_, &QPlainTextEdit::textChanged, this, [this] {
    setErrorText({});
    Q_EMIT textChanged();
  });
  connectGuarded(text_, &MemoText::focusCame, this, [this] { Q_EMIT entered(); });
  connectGuarded(text_, &MemoText::focusWent, this, [this] { Q_EMIT left(); });
}

QWidget* MemoEdit::inner() const { return text_; }
QWidget* MemoEdit::editor() const { return text_; }

void MemoEdit::setCaption(const QString& caption) {
  nameBy(caption);
  if (label_) return label_->setCaption(caption);
  label_ = new EditSideButton(labelButton(caption), this);
  static_cast<QHBoxLayout*>(layout())->insertWidget(0, label_);
  connectGuarded(label_, &QToolButton::clicked, this, [this] { Q_EMIT captionClicked(); });
}

QString MemoEdit::text() const { return text_->wholeText(); }
void MemoEdit::setText(const QString& text) { text_->setWholeText(text); }
void MemoEdit::setReadOnly(bool readOnly) { text_->setReadOnly(readOnly); }
bool MemoEdit::isReadOnly() const { return text_->isReadOnly(); }
void MemoEdit::setCharCase(CharCase charCase) { text_->charCase = charCase; }
void MemoEdit::setMaxLength(int characters) { text_->maxLength = characters; }
void MemoEdit::setTakesLineBreaks(bool on) { text_->takesLineBreaks = on; }
void MemoEdit::setTypingRule(std::function<QString(const QString&)> rule) { text_->typingRule = std::move(rule); }

void MemoEdit::insertBehindSelection(const QString& text) {
  QTextCursor cursor = text_->textCursor();
  cursor.setPosition(cursor.selectionEnd());
  cursor.insertText(text);
  text_->setTextCursor(cursor);
}

int MemoEdit::maxLength() const { return text_->maxLength; }

Value MemoEdit::editValue() const { return text().isEmpty() ? Value() : Value(text()); }

void MemoEdit::setEditValue(const Value& value) { setText(value.toText()); }

void MemoEdit::resetEdit(int maximumLength) {
  setText({});
  setErrorText({});
  setMaxLength(maximumLength);
}
