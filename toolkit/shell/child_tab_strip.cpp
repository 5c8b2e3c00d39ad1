#include "toolkit/shell/child_tab_strip.h"

#include "base/guard.h"

#include <QAction>
#include <QBoxLayout>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QTabBar>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {
/// A caption as a tab or a menu shows it: "&" stands for itself.
QString literal(QString caption) { return caption.replace(u'&', u"&&"_s); }
}  // namespace

ChildTabStrip::ChildTabStrip(QWidget* parent)
    : QWidget(parent), tabs_(new QTabBar(this)), listButton_(new QToolButton(this)), list_(new QMenu(this)) {
  setAttribute(Qt::WA_StyledBackground);
  setStyleSheet(
      u"QTabBar::tab{padding:5px 6px 4px 12px;border:none;border-right:1px solid palette(mid);"
      "border-bottom:3px solid transparent}"
      "QTabBar::tab:hover{background:palette(midlight)}"
      "QTabBar::tab:selected{background:palette(base);border-bottom-color:palette(highlight)}"
      "QTabBar QToolButton{border:1px solid palette(mid);background:palette(button)}"_s);
  tabs_->setShape(QTabBar::RoundedSouth);
  tabs_->setDrawBase(false);
  tabs_->setExpanding(false);
  tabs_->setUsesScrollButtons(true);
  tabs_->setElideMode(Qt::ElideNone);
  tabs_->setFocusPolicy(Qt::TabFocus);
  tabs_->setAccessibleName(u"Açık pencereler"_s);
  for (QToolButton* scroll : tabs_->findChildren<QToolButton*>()) {
    const QString hint = scroll->objectName() == "ScrollLeftButton"_L1 ? u"Önceki"_s : u"Sonraki"_s;
    scroll->setToolTip(hint);
    scroll->setAccessibleName(hint);
  }

  listButton_->setObjectName(u"tabList"_s);
  listButton_->setToolTip(u"Açık pencereler"_s);
  listButton_->setAccessibleName(u"Açık pencerelerin listesi"_s);
  listButton_->setArrowType(Qt::DownArrow);
  listButton_->setAutoRaise(true);
  listButton_->setMenu(list_);
  listButton_->setPopupMode(QToolButton::InstantPopup);
  listButton_->setStyleSheet(u"QToolButton::menu-indicator{image:none}"_s);

  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 4, 0);
  row->setSpacing(4);
  row->addWidget(tabs_, 1);
  row->addWidget(listButton_);

  connectGuarded(list_, &QMenu::aboutToShow, this, [this] { fillList(); });
  // A click on the current tab counts as well: its window may be minimised.
  const auto choose = [this](int index) {
    if (index >= 0) Q_EMIT tabChosen(index);
  };
  connectGuarded(tabs_, &QTabBar::currentChanged, this, choose);
  connectGuarded(tabs_, &QTabBar::tabBarClicked, this, choose);
  tabs_->installEventFilter(this);
  tabs_->setContextMenuPolicy(Qt::CustomContextMenu);
  connectGuarded(tabs_, &QWidget::customContextMenuRequested, this, [this](QPoint place) {
    openMenu(tabs_->tabAt(place), tabs_->mapToGlobal(place));
  });
}

bool ChildTabStrip::eventFilter(QObject* watched, QEvent* event) {
  bool taken = false;
  guarded(this, [&] {
    int closed = -1;
    if (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonRelease) {
      const auto* mouse = static_cast<QMouseEvent*>(event);
      taken = mouse->button() == Qt::MiddleButton;
      if (taken && event->type() == QEvent::MouseButtonRelease) closed = tabs_->tabAt(mouse->position().toPoint());
    } else if (event->type() == QEvent::KeyPress) {
      const int key = static_cast<QKeyEvent*>(event)->key();
      taken = key == Qt::Key_Delete || key == Qt::Key_Menu;
      if (key == Qt::Key_Delete) closed = tabs_->currentIndex();
      if (key == Qt::Key_Menu)
        openMenu(tabs_->currentIndex(), tabs_->mapToGlobal(tabs_->tabRect(tabs_->currentIndex()).bottomLeft()));
    }
    if (closed >= 0) Q_EMIT closeRequested(closed);
  });
  return taken || QWidget::eventFilter(watched, event);
}

void ChildTabStrip::openMenu(int index, QPoint globalPlace) {
  if (index < 0) return;
  auto* menu = new QMenu(this);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  menu->setObjectName(u"tabMenu"_s);
  connectGuarded(menu->addAction(QIcon::fromTheme(u"window-close"_s), u"Kapat"_s), &QAction::triggered, this,
                 [this, index] { Q_EMIT closeRequested(index); });
  QAction* others = menu->addAction(u"Diğerlerini Kapat"_s);
  others->setEnabled(tabs_->count() > 1);
  connectGuarded(others, &QAction::triggered, this, [this, index] { Q_EMIT closeOthersRequested(index); });
  connectGuarded(menu->addAction(u"Hepsini Kapat"_s), &QAction::triggered, this, [this] { Q_EMIT closeAllRequested(); });
  menu->popup(globalPlace);
}

int ChildTabStrip::count() const { return tabs_->count(); }

int ChildTabStrip::currentIndex() const { return tabs_->currentIndex(); }

QString ChildTabStrip::caption(int index) const { return tabs_->tabText(index).replace(u"&&"_s, u"&"_s); }

void ChildTabStrip::addTab(const QString& caption) {
  const QSignalBlocker quiet(tabs_);
  addCloseButton(tabs_->addTab(literal(caption)));
}

void ChildTabStrip::addCloseButton(int index) {
  auto* close = new QToolButton(tabs_);
  close->setObjectName(u"tabClose"_s);
  close->setIcon(QIcon::fromTheme(u"window-close"_s));
  close->setIconSize({12, 12});
  close->setFixedSize(18, 18);
  close->setStyleSheet(
      u"QToolButton{border:none;border-radius:3px;background:transparent}"
      "QToolButton:hover{background:palette(mid)}"_s);
  close->setToolTip(u"Kapat"_s);
  close->setAccessibleName(u"Kapat"_s);
  close->setFocusPolicy(Qt::NoFocus);
  tabs_->setTabButton(index, QTabBar::RightSide, close);
  connectGuarded(close, &QToolButton::clicked, this, [this, close] {
    for (int tab = 0; tab < tabs_->count(); ++tab)
      if (tabs_->tabButton(tab, QTabBar::RightSide) == close) {
        Q_EMIT closeRequested(tab);
        return;
      }
  });
}

void ChildTabStrip::removeTab(int index) {
  const QSignalBlocker quiet(tabs_);
  tabs_->removeTab(index);
}

void ChildTabStrip::setCaption(int index, const QString& caption) {
  tabs_->setTabText(index, literal(caption));
  tabs_->setTabToolTip(index, caption);
}

void ChildTabStrip::setCurrentIndex(int index) {
  const QSignalBlocker quiet(tabs_);
  tabs_->setCurrentIndex(index);
}

void ChildTabStrip::fillList() {
  list_->clear();
  for (int tab = 0; tab < tabs_->count(); ++tab) {
    QAction* entry = list_->addAction(tabs_->tabText(tab));
    entry->setCheckable(true);
    entry->setChecked(tab == tabs_->currentIndex());
    connectGuarded(entry, &QAction::triggered, this, [this, tab] { Q_EMIT tabChosen(tab); });
  }
}
