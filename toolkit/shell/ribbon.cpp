#include "toolkit/shell/ribbon.h"

#include "base/guard.h"
#include "toolkit/shell/key_tips.h"
#include "toolkit/shell/ribbon_button.h"

#include <QAction>
#include <QApplication>
#include <QBoxLayout>
#include <QCursor>
#include <QKeyEvent>
#include <QMenu>
#include <QPainter>
#include <QShortcut>
#include <QToolButton>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
/// "Caption (Ctrl+N)", the shortcut only when there is one.
QString hintOf(const QAction* action) {
  if (action->shortcut().isEmpty()) return action->text();
  return u"%1 (%2)"_s.arg(action->text(), action->shortcut().toString(QKeySequence::NativeText));
}
}  // namespace

Ribbon::Ribbon(const QString& tabCaption, QWidget* parent)
    : QWidget(parent),
      applicationButton_(new QToolButton(this)),
      tab_(new QToolButton(this)),
      page_(new QWidget(this)),
      quickAccessRow_(new QHBoxLayout),
      keyTips_(new KeyTips(this)) {
  applicationButton_->setObjectName(u"applicationButton"_s);
  applicationButton_->setFocusPolicy(Qt::TabFocus);
  applicationButton_->setStyleSheet(
      u"QToolButton{border:none;padding:3px 12px}"
      "QToolButton:hover,QToolButton:focus,QToolButton:pressed{background:palette(mid)}"_s);
  applicationButton_->setIconSize({22, 22});
  tab_->setText(tabCaption);
  tab_->setObjectName(u"ribbonTab"_s);
  tab_->setToolTip(u"Menüyü katla ya da aç (Ctrl+F1)"_s);
  tab_->setFocusPolicy(Qt::NoFocus);
  tab_->setStyleSheet(
      u"QToolButton{border:none;border-bottom:3px solid palette(highlight);padding:5px 14px 3px 14px;"
      "background:palette(base)}"_s);
  tab_->installEventFilter(this);
  connectGuarded(tab_, &QToolButton::clicked, this, [this] {
    unfolded_ = !isPageVisible();
    if (unfolded_) setPageVisible(true);
  });

  auto* row = new QHBoxLayout;
  row->setContentsMargins(0, 0, 8, 0);
  row->setSpacing(8);
  row->addWidget(applicationButton_);
  row->addLayout(quickAccessRow_);
  row->addWidget(tab_);
  row->addStretch();
  quickAccessRow_->setSpacing(1);
  auto* all = new QVBoxLayout(this);
  all->setContentsMargins(0, 0, 0, 1);
  all->setSpacing(0);
  all->addLayout(row);
  all->addWidget(page_);

  auto* fold = new QShortcut(Qt::CTRL | Qt::Key_F1, this);
  connectGuarded(fold, &QShortcut::activated, this, [this] { setPageVisible(!isPageVisible()); });
  auto* enter = new QShortcut(Qt::Key_F10, this);
  connectGuarded(enter, &QShortcut::activated, this, [this] { enterByKeyboard(); });
  connectGuarded(keyTips_, &KeyTips::asked, this, [this] { enterByKeyboard(); });
  connectGuarded(keyTips_, &KeyTips::left, this, [this] { leaveKeyboard(); });
  connectGuarded(keyTips_, &KeyTips::pressedOnBar, this, [this] {
    if (!foldsAgain_) leaveKeyboard();  // or the pressed button would fold away before it is released
  });
  connectGuarded(keyTips_, &KeyTips::chosen, this, [this] { leaveKeyboard(); });
  connectGuarded(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
    if (now != nullptr && isAncestorOf(now)) return;
    keyTips_->hide();
    if (foldsAgain_) setPageVisible(false);
  });
}

RibbonGroup* Ribbon::addGroup(const QString& caption, const QIcon& icon) {
  auto* group = new RibbonGroup(caption, icon, page_);
  groups_.append(group);
  return group;
}

void Ribbon::addQuickAccess(QAction* action) {
  auto* button = new QToolButton(this);
  button->setDefaultAction(action);
  if (action->menu()) button->setPopupMode(QToolButton::InstantPopup);
  button->setToolButtonStyle(Qt::ToolButtonIconOnly);
  button->setIconSize({16, 16});
  button->setAutoRaise(true);
  button->setFocusPolicy(Qt::TabFocus);
  action->setToolTip(hintOf(action));
  quickAccessRow_->addWidget(button);
}

QList<QAction*> Ribbon::quickAccess() const {
  QList<QAction*> actions;
  for (int i = 0; i < quickAccessRow_->count(); ++i)
    actions.append(qobject_cast<QToolButton*>(quickAccessRow_->itemAt(i)->widget())->defaultAction());
  return actions;
}

void Ribbon::beginUpdate() {
  if (updates_++ == 0) setUpdatesEnabled(false);
}

void Ribbon::endUpdate() {
  if (--updates_ == 0) setUpdatesEnabled(true);
}

void Ribbon::setPageVisible(bool visible) {
  foldsAgain_ = false;
  page_->setVisible(visible);
}

bool Ribbon::isPageVisible() const { return page_->isVisibleTo(this); }

void Ribbon::enterByKeyboard() {
  if (keyTips_->isShown()) {
    leaveKeyboard();
    return;
  }
  if (!isPageVisible()) {
    setPageVisible(true);
    foldsAgain_ = true;
  }
  if (QWidget* focus = QApplication::focusWidget(); focus == nullptr || !isAncestorOf(focus)) focusBefore_ = focus;
  QWidget* first = applicationButton_;
  for (RibbonButton* button : page_->findChildren<RibbonButton*>()) {
    if (!button->isVisible() || !button->isEnabled()) continue;
    first = button;
    break;
  }
  first->setFocus(Qt::ShortcutFocusReason);
  // The page may just have been unfolded; its buttons stand in their places once it is laid out.
  postGuarded(this, [this] {
    if (const QWidget* focus = QApplication::focusWidget(); focus != nullptr && isAncestorOf(focus)) showKeyTips();
  });
}

/// Digits for the quick-access bar, letters for the groups. A command keeps its letter, whatever room its group has.
void Ribbon::showKeyTips() {
  QList<std::pair<QToolButton*, QChar>> tips{{applicationButton_, u'0'}};
  for (int i = 0; i < std::min(quickAccessRow_->count(), 9); ++i)
    tips.append({qobject_cast<QToolButton*>(quickAccessRow_->itemAt(i)->widget()), QChar(u'1' + i)});
  QList<QToolButton*> buttons;
  for (const RibbonGroup* group : groups_)
    for (RibbonButton* button : group->buttons()) buttons.append(button);
  for (const RibbonGroup* group : groups_) buttons.append(group->dropDownButton());
  QStringList captions;
  for (const QToolButton* button : buttons) captions.append(button->text());
  const QList<QChar> letters = keyTipLetters(captions);
  for (qsizetype i = 0; i < buttons.size(); ++i) tips.append({buttons[i], letters[i]});
  keyTips_->show(tips);
}

void Ribbon::leaveKeyboard() {
  keyTips_->hide();
  QWidget* focus = QApplication::focusWidget();
  if (focusBefore_)
    focusBefore_->setFocus(Qt::OtherFocusReason);
  else if (focus != nullptr && isAncestorOf(focus))
    focus->clearFocus();
  focusBefore_ = nullptr;
}

/// Moves the focus among the buttons of the page in reading order, round its ends.
void Ribbon::moveFocus(int step) {
  QList<RibbonButton*> reachable;
  for (RibbonButton* button : page_->findChildren<RibbonButton*>())
    if (button->isVisible() && button->isEnabled()) reachable.append(button);
  std::ranges::sort(reachable, [this](const RibbonButton* a, const RibbonButton* b) {
    const QPoint left = a->mapTo(this, QPoint());
    const QPoint right = b->mapTo(this, QPoint());
    return std::pair(left.x(), left.y()) < std::pair(right.x(), right.y());
  });
  if (reachable.isEmpty()) return;
  const qsizetype size = reachable.size();
  const qsizetype now = reachable.indexOf(qobject_cast<RibbonButton*>(QApplication::focusWidget()));
  reachable[((now < 0 ? 0 : now + step) + size) % size]->setFocus(Qt::TabFocusReason);
}

void Ribbon::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Up:
      moveFocus(-1);
      break;
    case Qt::Key_Right:
    case Qt::Key_Down:
      moveFocus(1);
      break;
    case Qt::Key_Escape:
      leaveKeyboard();
      break;
    default:
      if (event->modifiers() & (Qt::ControlModifier | Qt::AltModifier) || !keyTips_->press(event->text()))
        QWidget::keyPressEvent(event);
  }
}

bool Ribbon::eventFilter(QObject* watched, QEvent* event) {
  if (watched != tab_ || event->type() != QEvent::MouseButtonDblClick) return QWidget::eventFilter(watched, event);
  if (!unfolded_) setPageVisible(!isPageVisible());
  return true;  // its release is no click
}

bool Ribbon::event(QEvent* event) {
  const bool handled = QWidget::event(event);
  if (event->type() == QEvent::WindowUnblocked || event->type() == QEvent::WindowActivate) forgetPointer();
  return handled;
}

/// A button whose menu opened a window is not told that the pointer has left it meanwhile.
void Ribbon::forgetPointer() {
  for (QToolButton* button : findChildren<QToolButton*>()) {
    if (!button->underMouse() || button->rect().contains(button->mapFromGlobal(QCursor::pos()))) continue;
    button->setAttribute(Qt::WA_UnderMouse, false);
    button->update();
  }
}

QSize Ribbon::minimumSizeHint() const {
  int width = 0;
  for (const RibbonGroup* group : groups_) width += group->widthIn(RibbonGroupMode::Collapsed);
  return {width, QWidget::minimumSizeHint().height()};
}

void Ribbon::resizeEvent(QResizeEvent*) { fitGroups(); }

/// Takes room from the groups, the last first, until the row fits: first smaller buttons, then one drop-down each.
void Ribbon::fitGroups() {
  QList<RibbonGroupMode> modes(groups_.size(), RibbonGroupMode::Large);
  const auto width = [&] {
    int sum = 0;
    for (qsizetype i = 0; i < groups_.size(); ++i) sum += groups_[i]->widthIn(modes[i]);
    return sum;
  };
  for (const RibbonGroupMode mode : {RibbonGroupMode::Compact, RibbonGroupMode::Collapsed})
    for (qsizetype i = groups_.size() - 1; i >= 0 && width() > this->width(); --i)
      if (groups_[i]->widthIn(mode) < groups_[i]->widthIn(modes[i])) modes[i] = mode;
  int left = 0;
  int height = 0;
  for (qsizetype i = 0; i < groups_.size(); ++i) {
    groups_[i]->setMode(modes[i]);
    const QSize size = groups_[i]->sizeHint();
    groups_[i]->setGeometry(left, 0, size.width(), size.height());
    left += size.width();
    height = std::max(height, size.height());
  }
  page_->setFixedHeight(height);
}

void Ribbon::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), palette().color(QPalette::Window));
  if (isPageVisible()) painter.fillRect(page_->geometry(), palette().color(QPalette::Base));
  painter.setPen(palette().color(QPalette::Mid));
  painter.drawLine(0, height() - 1, width(), height() - 1);
}
