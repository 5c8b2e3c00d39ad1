#pragma once

#include <QApplication>
#include <QClipboard>
#include <QTest>

/// Types text letter by letter, Turkish ones too; QTest::keyClicks knows only Latin-1 letters of its own table.
inline void type(QWidget* target, const QString& text) {
  for (const QChar letter : text) QTest::sendKeyEvent(QTest::Click, target, Qt::Key_unknown, QString(letter), Qt::NoModifier);
}

inline void paste(QWidget* target, const QString& text) {
  QApplication::clipboard()->setText(text);
  QTest::keyClick(target, Qt::Key_V, Qt::ControlModifier);
}
