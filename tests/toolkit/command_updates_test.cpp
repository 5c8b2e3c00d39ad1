#include "base/guard.h"
#include "tests/support/screen_test.h"
#include "toolkit/shell/command_updates.h"

#include <stdexcept>

namespace {

/// A screen with one action on F4 that tells how often its state was asked for.
class CommandUpdatesTest : public testing::Test {
 protected:
  CommandUpdatesTest() {
    action->setShortcut(Qt::Key_F4);
    screen.addAction(action);
    keepUpdated(&screen, action, [this] {
      ++asked;
      return allowed;
    });
  }
  void show() {
    screen.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&screen));
  }
  /// Waits until the state was asked for that many times more.
  bool isAskedAgain(int times) {
    const int wanted = asked + times;
    return QTest::qWaitFor([&] { return asked >= wanted; });
  }
  /// How often the state is asked for within that time.
  int askedWithin(int milliseconds) {
    const int before = asked;
    QTest::qWait(milliseconds);
    return asked - before;
  }

  QWidget screen;
  QLineEdit* editor = new QLineEdit(&screen);
  QAction* action = new QAction(&screen);
  int asked = 0;
  bool allowed = false;
};

TEST_F(CommandUpdatesTest, AsksWhileTheScreenShowsAndNoMoreOftenThanTold) {
  EXPECT_EQ(askedWithin(300), 0) << "not shown yet";
  allowed = true;
  action->setEnabled(false);
  screen.show();
  EXPECT_TRUE(action->isEnabled()) << "at once when it is shown";
  QElapsedTimer clock;
  clock.start();
  EXPECT_TRUE(isAskedAgain(5));
  EXPECT_GE(clock.elapsed(), 700);
  allowed = false;
  EXPECT_TRUE(QTest::qWaitFor([&] { return !action->isEnabled(); }));

  screen.showMinimized();
  QTest::qWait(50);
  EXPECT_EQ(askedWithin(500), 0) << "minimised";
  screen.showNormal();
  EXPECT_TRUE(isAskedAgain(1));
  screen.hide();
  EXPECT_EQ(askedWithin(500), 0) << "hidden";
  screen.show();
  EXPECT_TRUE(isAskedAgain(2)) << "the timer starts again";
}

TEST_F(CommandUpdatesTest, WaitsUnderAModalDialogButNotWithinOne) {
  show();
  QDialog dialog(&screen);
  dialog.setModal(true);
  QAction own;
  int ownAsked = 0;
  keepUpdated(&dialog, &own, [&] { return ++ownAsked > 0; });
  dialog.show();
  EXPECT_EQ(askedWithin(500), 0);
  EXPECT_TRUE(QTest::qWaitFor([&] { return ownAsked >= 2; }));
  dialog.hide();
  EXPECT_TRUE(isAskedAgain(1));
}

TEST_F(CommandUpdatesTest, AShortcutObeysTheStateOfItsMoment) {
  show();
  editor->setFocus();
  QSignalSpy runs(action, &QAction::triggered);
  allowed = true;
  QTest::keyClick(screen.windowHandle(), Qt::Key_F4);
  EXPECT_EQ(runs.count(), 1) << "allowed since a moment";
  allowed = false;
  QTest::keyClick(screen.windowHandle(), Qt::Key_F4);
  EXPECT_EQ(runs.count(), 1) << "forbidden since a moment";
  const int before = asked;
  QTest::keyClicks(editor, QStringLiteral("abc"));
  EXPECT_EQ(asked, before) << "other keys ask nothing";
  allowed = true;
  updateCommands(&screen);
  EXPECT_TRUE(action->isEnabled());
}

TEST_F(CommandUpdatesTest, AFailingCheckForbidsAndIsToldOnce) {
  int told = 0;
  const UnhandledHandler before = setUnhandledHandler([&](QObject*, const std::exception&) { ++told; });
  QAction failing;
  bool fails = true;
  keepUpdated(&screen, &failing, [&] {
    if (fails) throw std::runtime_error("no connection");
    return true;
  });
  screen.show();
  QTest::qWait(700);
  EXPECT_EQ(told, 1);
  EXPECT_FALSE(failing.isEnabled());
  fails = false;
  EXPECT_TRUE(QTest::qWaitFor([&] { return failing.isEnabled(); }));
  EXPECT_TRUE(isAskedAgain(1)) << "the others go on";
  setUnhandledHandler(before);
}

TEST_F(CommandUpdatesTest, EntriesGoWithScreenOrActionAndAreReplaced) {
  int second = 0;
  keepUpdated(&screen, action, [&] { return ++second > 0; });
  auto* other = new QWidget;
  QAction onOther;
  int otherAsked = 0;
  keepUpdated(other, &onOther, [&] {
    ++otherAsked;
    return true;
  });
  QAction deletesAnother;
  keepUpdated(&screen, &deletesAnother, [&] {
    delete std::exchange(other, nullptr);
    return true;
  });
  other->show();
  screen.show();
  EXPECT_EQ(asked, 0) << "replaced";
  EXPECT_GE(second, 1);
  otherAsked = 0;
  delete action;
  second = 0;
  QTest::qWait(500);
  EXPECT_EQ(second + otherAsked, 0);
}

}  // namespace
