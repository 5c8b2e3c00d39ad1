#include "toolkit/edits/edit_box.h"

#include "base/data/value.h"
#include "base/guard.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QKeyEvent>

#include <algorithm>

EditBox::EditBox(QWidget* parent) : EditFrame(parent), line_(new EditLine(this)) {
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(2, 2, 2, 2);
  row->setSpacing(0);
  left_ = new QHBoxLayout;
  right_ = new QHBoxLayout;
  left_->setSpacing(0);
  right_->setSpacing(0);
  row->addLayout(left_);
  row->addWidget(line_, 1);
  row->addLayout(right_);

  QPalette clear = line_->palette();
  clear.setColor(QPalette::Base, Qt::transparent);
  line_->setPalette(clear);
  line_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  line_->setMinimumHeight(0);
  setFocusProxy(line_);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);

  connectGuarded(line_, &QLineEdit::textChanged, this, [this](const QString& text) {
    setErrorText({});
    Q_EMIT textChanged(text);
  });
  connectGuarded(line_, &QLineEdit::textEdited, this, [this](const QString& text) { Q_EMIT textEdited(text); });
}

EditBox::~EditBox() { line_->leaveBox(); }

int EditBox::addButton(const EditButton& description) {
  auto* button = new EditSideButton(description, this);
  (description.side == EditButton::Left ? left_ : right_)->addWidget(button);
  buttons_.push_back(button);
  connectGuarded(button, &QToolButton::clicked, this, [this, button] {
    const auto place = std::find(buttons_.begin(), buttons_.end(), button);
    if (place != buttons_.end()) Q_EMIT buttonClicked(int(place - buttons_.begin()));
  });
  return buttonCount() - 1;
}

void EditBox::removeButton(int index) {
  if (index < 0 || index >= buttonCount()) return;
  buttons_[size_t(index)]->hide();
  buttons_[size_t(index)]->deleteLater();
  buttons_.erase(buttons_.begin() + index);
}

QToolButton* EditBox::button(int index) const {
  return index >= 0 && index < buttonCount() ? buttons_[size_t(index)] : nullptr;
}

void EditBox::pressButton(int index) {
  if (auto* pressed = button(index)) pressed->click();
}

void EditBox::setCaption(const QString& caption) {
  nameBy(caption);
  for (auto* button : buttons_)
    if (button->isLabel()) return button->setCaption(caption);
  addButton(labelButton(caption));
}

QString EditBox::caption() const {
  for (const auto* button : buttons_)
    if (button->isLabel()) return button->text();
  return {};
}

void EditBox::setText(const QString& text) {
  line_->setText(text);
  line_->setCursorPosition(0);
}

void EditBox::setReadOnly(bool readOnly) {
  readOnly_ = readOnly;
  line_->setReadOnly(readOnly);
}

Value EditBox::editValue() const { return text().isEmpty() ? Value() : Value(text()); }

void EditBox::setEditValue(const Value& value) { setText(value.toText()); }

void EditBox::resetEdit(int maximumLength) {
  setText({});
  setErrorText({});
  setMaxLength(maximumLength);
}

QSize EditBox::sizeHint() const { return {225, oneLineHeight()}; }

QSize EditBox::minimumSizeHint() const {
  int width = 40;
  for (const auto* button : buttons_) width += button->sizeHint().width();
  return {width, oneLineHeight()};
}

void EditBox::keyDown(int& key, Qt::KeyboardModifiers modifiers) {
  if ((modifiers & ~Qt::KeypadModifier) != Qt::NoModifier) return;
  if (enterMovesOn_ && (key == Qt::Key_Return || key == Qt::Key_Enter)) {
    key = Qt::Key_Tab;
  } else if (functionKeysPress_ && key >= Qt::Key_F4 && key <= Qt::Key_F8) {
    const int index = key - Qt::Key_F4;
    key = 0;
    pressButton(index);
  }
}

void EditBox::keyPress(QString&) {}

QString EditBox::typingRefusal(const QString&) const { return {}; }

QString EditBox::pasteRefusal(const QString&, const QString&) const { return {}; }

bool EditBox::wheelSteps(int) { return false; }

void EditBox::changeEvent(QEvent* event) {
  EditFrame::changeEvent(event);
  if (event->type() == QEvent::FontChange) updateGeometry();
}

void EditBox::focusCame(Qt::FocusReason reason) {
  update();
  if (reason == Qt::PopupFocusReason || reason == Qt::ActiveWindowFocusReason || reason == Qt::MenuBarFocusReason) return;
  entering();
  if (reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason || reason == Qt::ShortcutFocusReason) line_->selectAll();
  Q_EMIT entered();
}

void EditBox::focusWent(Qt::FocusReason reason) {
  update();
  if (reason == Qt::PopupFocusReason || reason == Qt::ActiveWindowFocusReason || reason == Qt::MenuBarFocusReason) return;
  leaving();
  line_->setCursorPosition(0);  // shows the text from its beginning
  Q_EMIT left();
}
