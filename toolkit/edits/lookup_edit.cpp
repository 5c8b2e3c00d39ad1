#include "toolkit/edits/lookup_edit.h"

#include "base/guard.h"
#include "base/turkish_text.h"
#include "toolkit/edits/drop_down.h"
#include "toolkit/edits/lookup_model.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QScrollBar>
#include <QTableView>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int shownRows = 12;

}  // namespace

LookupEdit::LookupEdit(QWidget* parent) : EditBox(parent), model_(new LookupModel(this)) {
  setEnterMovesOn(true);
  addButton(arrowButton());
  connectGuarded(this, &EditBox::buttonClicked, this, [this](int index) {
    if (index == 0) dropDown();
  });
  connectGuarded(line(), &QLineEdit::textEdited, this, [this](const QString& typed) {
    if (typed.isEmpty())
      settle();
    else
      open(typed);
  });
}

LookupEdit::~LookupEdit() = default;

void LookupEdit::setSource(const LookupSource* source) {
  closeUp();
  source_ = source;
  model_->setSource(source);
}

void LookupEdit::sourceChanged() { setSource(source_.get()); }

int LookupEdit::findEntry(const QString& text) const {
  if (!source_ || text.isEmpty()) return -1;
  const QString wanted = TurkishText::fold(text);
  for (int row = 0; row < source_->rowCount(); ++row)
    if (TurkishText::fold(source_->text(row, 0)) == wanted) return row;
  return -1;
}

bool LookupEdit::isDropDownOpen() const { return dropDown_ && dropDown_->isVisible(); }

void LookupEdit::dropDown() {
  if (isReadOnly() || !isEnabled()) return;
  if (isDropDownOpen()) return dismiss();
  setFocus(Qt::OtherFocusReason);
  open({});
  decides_ = true;
}

void LookupEdit::closeUp() {
  if (isDropDownOpen()) dropDown_->hide();
}

void LookupEdit::setText(const QString& text) {
  EditBox::setText(text);
  settledText_ = text;
}

void LookupEdit::resetEdit(int maximumLength) {
  closeUp();
  EditBox::resetEdit(maximumLength);
}

void LookupEdit::buildDropDown() {
  table_ = new QTableView;
  table_->setModel(model_);
  table_->setFocusPolicy(Qt::NoFocus);
  table_->setFrameShape(QFrame::NoFrame);
  table_->setSelectionBehavior(QAbstractItemView::SelectRows);
  table_->setSelectionMode(QAbstractItemView::SingleSelection);
  table_->setShowGrid(false);
  table_->setAlternatingRowColors(true);
  table_->setWordWrap(false);
  table_->setCornerButtonEnabled(false);
  table_->verticalHeader()->hide();
  table_->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  table_->verticalHeader()->setMinimumSectionSize(1);
  table_->horizontalHeader()->setHighlightSections(false);
  table_->horizontalHeader()->setStretchLastSection(true);
  dropDown_ = new DropDown(this, table_, true);
  connectGuarded(dropDown_, &DropDown::dismissed, this, [this] { dismiss(); });
  connectGuarded(table_, &QTableView::clicked, this, [this](const QModelIndex& index) { choose(model_->sourceRow(index.row())); });
}

/// Shows the entries that fit filter, which is the text or nothing. Only an entry that equals the text is marked: marking the first one would make
/// ENTER replace a new text by a longer known one.
void LookupEdit::open(const QString& filter) {
  if (!source_ || isReadOnly()) return;
  if (!dropDown_) buildDropDown();
  model_->setFilter(filter);
  if (model_->rowCount() == 0) return closeUp();

  const int rowHeight = fontMetrics().height() + 4;
  table_->verticalHeader()->setDefaultSectionSize(rowHeight);
  table_->setAccessibleName(accessibleName());
  int width = table_->verticalScrollBar()->sizeHint().width() + 2;
  for (int column = 0; column < model_->columnCount(); ++column) {
    if (!isDropDownOpen()) table_->setColumnWidth(column, source_->width(column));
    width += source_->width(column);
  }
  if (!isDropDownOpen()) {
    decides_ = false;
    dropDown_->openUnder({width, rowHeight * shownRows + table_->horizontalHeader()->sizeHint().height() + 2});
  }
  const int equal = model_->rowOf(filter.isEmpty() ? findEntry(text()) : model_->equalRow());
  if (equal >= 0)
    table_->selectRow(equal);
  else
    table_->setCurrentIndex({});
  if (equal >= 0) table_->scrollTo(model_->index(equal, 0), QAbstractItemView::PositionAtCenter);
}

/// Row of the source that is marked in the list; -1 when none is.
int LookupEdit::markedRow() const {
  return table_ != nullptr && table_->currentIndex().isValid() ? model_->sourceRow(table_->currentIndex().row()) : -1;
}

void LookupEdit::choose(int row) {
  closeUp();
  take(row);
  Q_EMIT entryChosen(row);
}

void LookupEdit::take(int row) {
  setText(source_->text(row, 0));
  line()->end(false);
  Q_EMIT textEdited(text());
  Q_EMIT entryTaken(row);
}

void LookupEdit::drop() {
  settledText_ = text();
  Q_EMIT entryDropped();
}

void LookupEdit::takeBack() {
  closeUp();
  if (text() == settledText_) return;
  setText(settledText_);
  line()->end(false);
  Q_EMIT textEdited(text());
}

/// Closes the list as the user goes on to something else.
void LookupEdit::dismiss() {
  if (!isDropDownOpen()) return;
  const int row = markedRow();
  closeUp();
  if (!decides_) return;
  if (row >= 0)
    take(row);
  else
    drop();
}

bool LookupEdit::keepsKey(const QKeyEvent& key) const {
  if (!isDropDownOpen()) return key.key() == Qt::Key_Escape && text() != settledText_;
  return DropDown::worksWith(key, {Qt::Key_Tab, Qt::Key_Backspace, Qt::Key_Delete, Qt::Key_Left, Qt::Key_Right}) || writesText(key);
}

void LookupEdit::moveHighlight(int by) {
  const int now = table_->currentIndex().isValid() ? table_->currentIndex().row() : -1;
  const int next = std::clamp(now < 0 && by < 0 ? model_->rowCount() - 1 : now + by, 0, model_->rowCount() - 1);
  table_->selectRow(next);
  table_->scrollTo(model_->index(next, 0));
  decides_ = true;
}

void LookupEdit::keyDown(int& key, Qt::KeyboardModifiers modifiers) {
  const bool alt = modifiers.testFlag(Qt::AltModifier);
  if (key == Qt::Key_F4 || (alt && (key == Qt::Key_Down || key == Qt::Key_Up))) {
    key = 0;
    return dropDown();
  }
  if ((modifiers & ~Qt::KeypadModifier) != Qt::NoModifier) return EditBox::keyDown(key, modifiers);
  if (!isDropDownOpen()) {
    const bool takesBack = key == Qt::Key_Escape && text() != settledText_;
    if (key != Qt::Key_Down && !takesBack) return EditBox::keyDown(key, modifiers);
    key = 0;
    return takesBack ? takeBack() : dropDown();
  }
  const int page = std::max(1, table_->viewport()->height() / table_->verticalHeader()->defaultSectionSize() - 1);
  switch (key) {
    case Qt::Key_Up:
      moveHighlight(-1);
      break;
    case Qt::Key_Down:
      moveHighlight(1);
      break;
    case Qt::Key_PageUp:
      moveHighlight(-page);
      break;
    case Qt::Key_PageDown:
      moveHighlight(page);
      break;
    case Qt::Key_Escape:
      takeBack();
      break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Tab:
      if (const int row = markedRow(); row >= 0) {
        choose(row);
        if (key == Qt::Key_Tab) return;
        break;
      }
      dismiss();
      return EditBox::keyDown(key, modifiers);
    default:
      return EditBox::keyDown(key, modifiers);
  }
  key = 0;
}

/// Tells once what a text typed by the user amounts to.
void LookupEdit::settle() {
  closeUp();
  if (text() == settledText_) return;
  const int row = findEntry(text());
  if (row < 0) return drop();
  settledText_ = text();
  Q_EMIT entryTaken(row);
}

/// What hangs on an empty box is told to go each time it is left, its text touched or not: meant.
void LookupEdit::leaving() {
  dismiss();
  if (isReadOnly()) return;
  if (text().isEmpty())
    drop();
  else
    settle();
}
