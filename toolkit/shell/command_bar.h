#pragma once

#include <QToolBar>

class QToolButton;

/// A screen's commands as buttons in a line, reached by Tab; on a narrow screen the last ones stand behind an arrow.
class CommandBar : public QToolBar {
  Q_OBJECT
 public:
  explicit CommandBar(QWidget* screen);

  /// Makes a command of the screen with its button, whose object name is the command's with "Button" behind it. The key works
  /// while the screen, or what is in it, has the keyboard.
  QAction* addCommand(const QString& name, const QString& caption, const QString& icon, const QKeySequence& key);
  QToolButton* button(QAction* command) const;

 private:
  QWidget* screen_;
};
