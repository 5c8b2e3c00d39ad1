#include "tests/cards/cards_fixture.h"

#include "app/editors/qcx_db_editors.h"
#include "toolkit/shell/command_updates.h"

namespace {

/// The offscreen platform does not give the keyboard back when a dialog or a drop-down closes.
void makeActive(QWidget& target) {
  QCoreApplication::processEvents();
  if (target.isActiveWindow()) return;
  target.activateWindow();
  EXPECT_TRUE(QTest::qWaitForWindowActive(target.window()));
}

}  // namespace

void CardsTest::enter(CardEditor& editor, const QString& column, const QString& text) {
  makeActive(editor);
  EditLine* line = editor.box(column)->line();
  line->setFocus();
  line->selectAll();
  type(line, text);
  press(*line, Qt::Key_Return);
}

void CardsTest::press(QWidget& target, Qt::Key key, Qt::KeyboardModifiers modifiers) {
  makeActive(target);
  QTest::keyClick(&target, key, modifiers);
  QCoreApplication::processEvents();
}

bool CardsTest::runCommand(CardList& list, const QString& name) {
  updateCommands(&list);
  QAction* action = list.command(name);
  if (action == nullptr || !action->isEnabled()) return false;
  action->trigger();
  return true;
}

