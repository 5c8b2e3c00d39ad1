#include "toolkit/edits/radio_group_edit.h"

#include "base/data/value.h"
#include "base/guard.h"

#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QRadioButton>

#include <algorithm>

RadioGroupEdit::RadioGroupEdit(int columns, QWidget* parent) : EditFrame(parent), grid_(new QGridLayout(this)), columns_(columns) {
  grid_->setContentsMargins(8, 6, 8, 6);
  grid_->setVerticalSpacing(2);
  connectGuarded(&group_, &QButtonGroup::idClicked, this, [this](int index) {
    setErrorText({});
    Q_EMIT chosen(index);
  });
}

void RadioGroupEdit::setCaption(const QString& caption) {
  auto* heading = new QLabel(caption, this);
  QFont bold = heading->font();
  bold.setBold(true);
  heading->setFont(bold);
  grid_->addWidget(heading, 0, 0, 1, columns_);
  setAccessibleName(caption.trimmed());
}

void RadioGroupEdit::addChoice(const QString& caption, int value) {
  auto* button = new QRadioButton(caption, this);
  button->setAccessibleDescription(accessibleName());
  button->installEventFilter(this);
  const int index = int(values_.size());
  group_.addButton(button, index);
  values_.push_back(value);
  grid_->addWidget(button, 1 + index / columns_, index % columns_);
  if (index == 0) setFocusProxy(button);
}

Value RadioGroupEdit::editValue() const { return itemIndex() < 0 ? Value() : Value(values_[size_t(itemIndex())]); }

void RadioGroupEdit::setEditValue(const Value& value) {
  const auto found = value.isNull() ? values_.end() : std::find(values_.begin(), values_.end(), value.toInteger());
  choose(found == values_.end() ? -1 : int(found - values_.begin()));
}

void RadioGroupEdit::resetEdit(int) {
  choose(-1);
  setErrorText({});
}

void RadioGroupEdit::choose(int index) {
  group_.setExclusive(false);
  for (QAbstractButton* button : group_.buttons()) button->setChecked(group_.id(button) == index);
  group_.setExclusive(true);
  setFocusProxy(inner());
}

QWidget* RadioGroupEdit::inner() const { return group_.checkedButton() != nullptr ? group_.checkedButton() : group_.button(0); }

bool RadioGroupEdit::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) update();
  if (event->type() != QEvent::KeyPress) return EditFrame::eventFilter(watched, event);
  const int key = static_cast<QKeyEvent*>(event)->key();
  if (key != Qt::Key_Return && key != Qt::Key_Enter) return EditFrame::eventFilter(watched, event);
  focusNextPrevChild(true);
  return true;
}
