#pragma once

// What every test of widgets includes, compiled once.
#include "base/guard.h"
#include "tests/support/test.h"

#include <QtTest>
#include <QtWidgets>

/// Types text letter by letter, Turkish ones too; QTest::keyClicks knows only Latin-1 letters of its own table.
inline void type(QWidget* target, const QString& text) {
  for (const QChar letter : text) QTest::sendKeyEvent(QTest::Click, target, Qt::Key_unknown, QString(letter), Qt::NoModifier);
}

inline void paste(QWidget* target, const QString& text) {
  QApplication::clipboard()->setText(text);
  QTest::keyClick(target, Qt::Key_V, Qt::ControlModifier);
}

/// Counts the events of a kind that come to the objects it watches, and keeps these in the order of their first one.
class EventCounter : public QObject {
 public:
  explicit EventCounter(QEvent::Type kind) : kind_(kind) {}
  void watch(QObject* object) { object->installEventFilter(this); }

  int count = 0;
  QList<QObject*> order;

 private:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() != kind_) return false;
    ++count;
    if (!order.contains(watched)) order.append(watched);
    return false;
  }

  QEvent::Type kind_;
};

/// Opens a modal screen and works on it while it is open; what fails goes to the unhandled handler, what is left open is closed.
inline void within(const std::function<void()>& open, QDialog& screen, const std::function<void()>& work) {
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
