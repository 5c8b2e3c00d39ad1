#include "toolkit/shell/command_bar.h"

#include <QAction>
#include <QToolButton>

using namespace Qt::StringLiterals;

CommandBar::CommandBar(QWidget* screen) : QToolBar(screen), screen_(screen) {
  setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  setIconSize(QSize(22, 22));
}

QAction* CommandBar::addCommand(const QString& name, const QString& caption, const QString& icon, const QKeySequence& key) {
  auto* command = new QAction(QIcon::fromTheme(icon), caption, screen_);
  command->setObjectName(name);
  command->setShortcut(key);
  command->setShortcutContext(Qt::WidgetWithChildrenShortcut);
  command->setToolTip(caption);
  screen_->addAction(command);
  addAction(command);
  QToolButton* shown = button(command);
  shown->setObjectName(name + u"Button"_s);
  shown->setAccessibleName(caption);
  shown->setAutoRaise(false);
  shown->setFocusPolicy(Qt::StrongFocus);
  return command;
}

QToolButton* CommandBar::button(QAction* command) const { return static_cast<QToolButton*>(widgetForAction(command)); }
