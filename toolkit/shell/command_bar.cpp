#include "toolkit/shell/command_bar.h"

#include "toolkit/shell/wrap_layout.h"

#include <QAction>
#include <QToolButton>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
constexpr int iconLength = 22;
constexpr int gap = 3;
}  // namespace

CommandBar::CommandBar(QWidget* screen) : QWidget(screen), screen_(screen) {
  auto* row = new WrapLayout(this, gap);
  row->setContentsMargins(gap, gap, gap, gap);
}

QAction* CommandBar::addCommand(const QString& name, const QString& caption, const QString& icon, const QKeySequence& key) {
  auto* command = new QAction(QIcon::fromTheme(icon), caption, screen_);
  command->setObjectName(name);
  command->setShortcut(key);
  command->setShortcutContext(Qt::WidgetWithChildrenShortcut);
  command->setToolTip(caption);
  screen_->addAction(command);
  addShared(command);
  button(command)->setObjectName(name + u"Button"_s);
  return command;
}

void CommandBar::addShared(QAction* command) {
  auto* shown = new QToolButton(this);
  shown->setDefaultAction(command);
  shown->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  shown->setIconSize(QSize(iconLength, iconLength));
  shown->setAccessibleName(command->text());
  shown->setFocusPolicy(Qt::StrongFocus);
  layout()->addWidget(shown);
}

QToolButton* CommandBar::button(QAction* command) const {
  const auto buttons = findChildren<QToolButton*>(Qt::FindDirectChildrenOnly);
  const auto found = std::ranges::find(buttons, command, &QToolButton::defaultAction);
  return found == buttons.end() ? nullptr : *found;
}
