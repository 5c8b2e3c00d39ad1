#include "toolkit/report/designer/designer_actions.h"

#include "base/exceptions.h"
#include "base/guard.h"

#include <QAction>
#include <QIcon>
#include <QMenu>
#include <QToolBar>

using namespace Qt::StringLiterals;

DesignerActions::DesignerActions(QWidget* owner, std::function<void()> settle) : QObject(owner), owner_(owner), settle_(std::move(settle)) {}

QAction* DesignerActions::add(Command command) {
  auto* action = new QAction(QIcon::fromTheme(command.icon), command.caption, this);
  action->setObjectName(command.name);
  action->setShortcut(command.key);
  action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
  action->setCheckable(command.isOn != nullptr);
  const QString key = command.key.toString(QKeySequence::NativeText);
  action->setToolTip(key.isEmpty() ? command.caption : u"%1 (%2)"_s.arg(command.caption, key));
  owner_->addAction(action);
  connectGuarded(action, &QAction::triggered, this, [this, work = command.work] {
    settle_();
    work();
    update();
  });
  actions_.insert(command.name, action);
  commands_.emplace_back(action, std::move(command));
  return action;
}

QAction* DesignerActions::action(const QString& name) const {
  QAction* found = actions_.value(name);
  if (!found) throw Exception(u"no command '%1'"_s.arg(name));
  return found;
}

void DesignerActions::fill(QMenu& menu, const QStringList& names) const {
  for (const QString& name : names) {
    if (name.isEmpty())
      menu.addSeparator();
    else
      menu.addAction(action(name));
  }
}

void DesignerActions::fill(QToolBar& bar, const QStringList& names) const {
  for (const QString& name : names) {
    if (name.isEmpty()) {
      bar.addSeparator();
      continue;
    }
    bar.addAction(action(name));
    QWidget* button = bar.widgetForAction(action(name));
    button->setObjectName(name + u"Button"_s);
    button->setAccessibleName(action(name)->text());
    button->setFocusPolicy(Qt::TabFocus);
  }
}

void DesignerActions::update() {
  for (const auto& [action, command] : commands_) {
    if (command.isPossible) action->setEnabled(command.isPossible());
    if (command.isOn) action->setChecked(command.isOn());
  }
}
