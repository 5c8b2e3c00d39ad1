#pragma once

#include <QHash>
#include <QKeySequence>
#include <QObject>

#include <functional>
#include <vector>

class QAction;
class QMenu;
class QToolBar;
class QWidget;

/// The commands of a designer by name, each with its caption, icon, key and when it can be given.
class DesignerActions : public QObject {
  Q_OBJECT
 public:
  struct Command {
    QString name;
    QString caption;
    QString icon = {};
    QKeySequence key = {};
    std::function<void()> work;
    std::function<bool()> isPossible = {};  ///< always, when empty
    std::function<bool()> isOn = {};        ///< for those that are switched
  };

  /// The keys work while owner, or what is in it, has the keyboard. Settle is done before each command: what is being written
  /// is part of what the command works on.
  DesignerActions(QWidget* owner, std::function<void()> settle);

  QAction* add(Command command);
  /// Throws Exception with the name.
  QAction* action(const QString& name) const;
  /// A menu, or a bar, with these commands; an empty name is a line between them.
  void fill(QMenu& menu, const QStringList& names) const;
  void fill(QToolBar& bar, const QStringList& names) const;
  /// Asks all conditions anew.
  void update();

 private:
  QWidget* owner_;
  std::function<void()> settle_;
  QHash<QString, QAction*> actions_;
  std::vector<std::pair<QAction*, Command>> commands_;
};
