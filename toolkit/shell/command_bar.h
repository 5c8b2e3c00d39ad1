#pragma once

#include <QWidget>

class QToolButton;

/// A screen's commands as buttons, reached by Tab; on a narrow screen they take a second row.
class CommandBar : public QWidget {
  Q_OBJECT
 public:
  explicit CommandBar(QWidget* screen);

  /// Makes a command of the screen with its button, whose object name is the command's with "Button" behind it. The key works
  /// while the screen, or what is in it, has the keyboard.
  QAction* addCommand(const QString& name, const QString& caption, const QString& icon, const QKeySequence& key);
  /// A button for a command that is there already.
  void addShared(QAction* command);
  /// Null for a command that has no button here.
  QToolButton* button(QAction* command) const;

 private:
  QWidget* screen_;
};
