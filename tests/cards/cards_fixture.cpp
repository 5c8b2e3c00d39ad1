#include "tests/cards/cards_fixture.h"

#include "app/editors/qcx_db_editors.h"
#include "toolkit/shell/command_updates.h"

#include <QTimer>

using namespace Qt::StringLiterals;

void CardsTest::SetUp() {
  login.Kullanici->setText(u"QUEND"_s);
  TestDatabase::open(DM->MySQL);
  database.emptyTables();
  setUnhandledHandler([this](QObject*, const std::exception& error) { unhandled.append(QString::fromUtf8(error.what())); });
  workspace.show();
  workspace.Timer1->stop();
}

void CardsTest::TearDown() {
  workspace.close();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  setUnhandledHandler({});
  EXPECT_TRUE(unhandled.isEmpty()) << qPrintable(unhandled.join(u'\n'));
}

void CardsTest::within(const std::function<void()>& open, QDialog& screen, const std::function<void()>& work) {
  bool worked = false;
  QTimer shown;
  connectGuarded(&shown, &QTimer::timeout, &screen, [&] {
    if (!screen.isVisible()) return;
    shown.stop();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&screen));
    guarded(&screen, work);
    worked = true;
    if (screen.isVisible()) screen.done(0);
    if (screen.isVisible()) screen.hide();  // one that refuses to close
  });
  shown.start(1);
  guarded(&screen, open);
  EXPECT_TRUE(worked);
}

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

QStringList CardsTest::shown(TMyQuery& query, const QString& column) {
  QStringList texts;
  for (int row = 0; row < query.RecordCount(); ++row) texts.append(query.valueAt(row, query.fieldIndex(column)).toText());
  return texts;
}

void CardsTest::cutConnection() {
  TMyQuery query(DM->MySQL, u"id"_s);
  query.SQL.setText(u"select connection_id() as ID"_s);
  query.Open();
  run(u"KILL %1"_s.arg(query.FieldByName(u"ID"_s).asInteger()));
}
