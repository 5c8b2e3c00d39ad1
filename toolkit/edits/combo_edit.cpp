#include "toolkit/edits/combo_edit.h"

#include "base/data/value.h"
#include "base/guard.h"
#include "base/turkish_text.h"
#include "toolkit/edits/drop_down.h"

#include <QKeyEvent>
#include <QListWidget>
#include <QScrollBar>
#include <QTimer>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int shownRows = 16;
constexpr int typedPauseMs = 1000;

}  // namespace

ComboEdit::ComboEdit(QWidget* parent) : EditBox(parent), typedPause_(new QTimer(this)) {
  setEnterMovesOn(true);
  addButton(arrowButton());
  line()->setReadOnly(true);
  line()->setCursor(Qt::ArrowCursor);
  typedPause_->setSingleShot(true);
  typedPause_->setInterval(typedPauseMs);
  connectGuarded(typedPause_, &QTimer::timeout, this, [this] { typed_.clear(); });
  connectGuarded(this, &EditBox::buttonClicked, this, [this](int index) {
    if (index == 0) dropDown();
  });
}

void ComboEdit::addItem(const QString& text, int objectNumber) { items_.push_back({text, objectNumber}); }

void ComboEdit::setItems(const QStringList& texts) {
  clearItems();
  for (const QString& text : texts) addItem(text);
  itemIndex_ = indexOf(text());
}

void ComboEdit::clearItems() {
  closeUp();
  items_.clear();
  itemIndex_ = -1;
}

void ComboEdit::removeItem(int index) {
  if (index < 0 || index >= itemCount()) return;
  closeUp();
  items_.erase(items_.begin() + index);
  if (itemIndex_ == index)
    itemIndex_ = -1;
  else if (itemIndex_ > index)
    --itemIndex_;
}

QStringList ComboEdit::items() const {
  QStringList texts;
  for (const Item& item : items_) texts.append(item.text);
  return texts;
}

int ComboEdit::indexOf(const QString& text) const {
  const auto found = std::find_if(items_.begin(), items_.end(), [&](const Item& item) { return item.text == text; });
  return found == items_.end() ? -1 : int(found - items_.begin());
}

void ComboEdit::setItemIndex(int index) {
  itemIndex_ = index >= 0 && index < itemCount() ? index : -1;
  EditBox::setText(itemIndex_ < 0 ? QString() : items_[size_t(itemIndex_)].text);
}

void ComboEdit::setText(const QString& text) {
  itemIndex_ = text.isEmpty() ? -1 : indexOf(text);
  EditBox::setText(text);
}

Value ComboEdit::editValue() const {
  if (tag_ == 0) return EditBox::editValue();
  return itemIndex_ < 0 ? Value() : Value(objectNumber(itemIndex_));
}

void ComboEdit::setEditValue(const Value& value) {
  if (tag_ == 0) return setText(value.toText());
  if (value.isNull()) return setItemIndex(-1);
  const qint64 number = value.toInteger();
  const auto found = std::find_if(items_.begin(), items_.end(), [&](const Item& item) { return item.objectNumber == number; });
  setItemIndex(found == items_.end() ? -1 : int(found - items_.begin()));
}

void ComboEdit::resetEdit(int) {
  setItemIndex(-1);
  setErrorText({});
}

bool ComboEdit::isDropDownOpen() const { return dropDown_ && dropDown_->isVisible(); }

void ComboEdit::buildDropDown() {
  list_ = new QListWidget;
  list_->setFocusPolicy(Qt::NoFocus);
  list_->setFrameShape(QFrame::NoFrame);
  list_->setMouseTracking(true);
  list_->setUniformItemSizes(true);
  dropDown_ = new DropDown(this, list_, false);
  connectGuarded(dropDown_, &DropDown::dismissed, this, [this] { dismiss(); });
  connectGuarded(list_, &QListWidget::itemEntered, this, [this](QListWidgetItem* item) {
    list_->setCurrentItem(item);
    movedByKey_ = false;
  });
  connectGuarded(list_, &QListWidget::itemClicked, this, [this](QListWidgetItem* item) {
    const int row = list_->row(item);
    closeUp();
    choose(row);
  });
}

void ComboEdit::dropDown() {
  if (isReadOnly() || !isEnabled()) return;
  if (isDropDownOpen()) return dismiss();
  if (!dropDown_) buildDropDown();
  setFocus(Qt::OtherFocusReason);
  list_->clear();
  list_->addItems(items());
  list_->setAccessibleName(accessibleName());
  const int rowHeight = fontMetrics().height() + 4;
  int width = 0;
  for (int row = 0; row < list_->count(); ++row) {
    list_->item(row)->setSizeHint({0, rowHeight});
    width = std::max(width, fontMetrics().horizontalAdvance(list_->item(row)->text()));
  }
  width += list_->verticalScrollBar()->sizeHint().width() + 16;
  dropDown_->openUnder({width, rowHeight * std::clamp(list_->count(), 1, shownRows) + 2});
  highlight(itemIndex_);
  movedByKey_ = false;
}

void ComboEdit::closeUp() {
  if (isDropDownOpen()) dropDown_->hide();
}

/// Closes the list as the user goes on to something else.
void ComboEdit::dismiss() {
  if (!isDropDownOpen()) return;
  closeUp();
  if (movedByKey_) choose(list_->currentRow());
}

bool ComboEdit::keepsKey(const QKeyEvent& key) const {
  return isDropDownOpen() && (DropDown::worksWith(key, {Qt::Key_Tab}) || writesText(key));
}

void ComboEdit::choose(int index) {
  if (index == itemIndex_ || isReadOnly()) return;
  setItemIndex(index);
  Q_EMIT textEdited(text());
  Q_EMIT itemChanged(itemIndex_);
}

void ComboEdit::highlight(int index) {
  list_->setCurrentRow(index);
  if (auto* item = list_->currentItem()) list_->scrollToItem(item);
}

/// What a key goes to: marked in the open list, chosen at once without it.
void ComboEdit::moveTo(int index) {
  if (!isDropDownOpen()) return choose(index);
  highlight(index);
  movedByKey_ = true;
}

void ComboEdit::keyDown(int& key, Qt::KeyboardModifiers modifiers) {
  const bool alt = modifiers.testFlag(Qt::AltModifier);
  if (key == Qt::Key_F4 || (alt && (key == Qt::Key_Down || key == Qt::Key_Up))) {
    key = 0;
    return dropDown();
  }
  if ((modifiers & ~Qt::KeypadModifier) != Qt::NoModifier) return EditBox::keyDown(key, modifiers);
  const bool open = isDropDownOpen();
  const int now = open ? list_->currentRow() : itemIndex_;
  const int last = itemCount() - 1;
  int next = now;
  switch (key) {
    case Qt::Key_Up:
      next = std::max(now - 1, 0);
      break;
    case Qt::Key_Down:
      next = std::min(now + 1, last);
      break;
    case Qt::Key_PageUp:
      next = std::max(now - shownRows + 1, 0);
      break;
    case Qt::Key_PageDown:
      next = std::min(now + shownRows - 1, last);
      break;
    case Qt::Key_Home:
      next = 0;
      break;
    case Qt::Key_End:
      next = last;
      break;
    case Qt::Key_Delete:
      next = indexOf({});
      if (open || (next < 0 && !canBeEmpty_)) return;
      if (itemIndex_ < 0 && next < 0 && !text().isEmpty() && !isReadOnly()) {
        setItemIndex(-1);
        Q_EMIT textEdited(text());
        Q_EMIT itemChanged(-1);
      }
      break;
    case Qt::Key_Escape:
      if (!open) return;
      closeUp();
      key = 0;
      return;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Tab:
      if (open) {
        closeUp();
        choose(now);
        if (key != Qt::Key_Tab) key = 0;
        return;
      }
      return EditBox::keyDown(key, modifiers);
    default:
      return EditBox::keyDown(key, modifiers);
  }
  key = 0;
  if (itemCount() == 0) return;
  moveTo(next);
}

/// Goes to the next item that begins with what was typed; one letter again and again walks through its items.
void ComboEdit::keyPress(QString& characters) {
  typed_ += TurkishText::fold(characters);
  typedPause_->start();
  characters.clear();
  const int now = isDropDownOpen() ? list_->currentRow() : itemIndex_;
  const bool sameLetter = typed_.count(typed_.front()) == typed_.size();
  const QString wanted = sameLetter ? typed_.left(1) : typed_;
  const int from = sameLetter ? now + 1 : std::max(now, 0);
  for (int i = 0; i < itemCount(); ++i) {
    const int index = (from + i) % itemCount();
    if (!TurkishText::fold(items_[size_t(index)].text).startsWith(wanted)) continue;
    return moveTo(index);
  }
}

bool ComboEdit::wheelSteps(int steps) {
  if (itemCount() == 0 || isDropDownOpen()) return false;
  choose(std::clamp(itemIndex_ - steps, 0, itemCount() - 1));
  return true;
}

void ComboEdit::leaving() { dismiss(); }
