#pragma once

#include <QHash>
#include <QList>
#include <QObject>
#include <QPointer>

class QAction;
class QMenu;
class QToolButton;
class QWidget;

/// A letter for each caption, by which a key runs it: its first letter that is free, those that begin a word before the
/// others. Capitals; unique also when Turkish letters count as their nearest ASCII ones, since either is taken. A null
/// letter when the captions are too many. Digits are left to others.
QList<QChar> keyTipLetters(const QStringList& captions);

/// Small badges with letters over the buttons of a command bar. A typed letter runs the button's command or opens its menu,
/// whose entries then have badges as well. Pressing and releasing Alt alone in the bar's window asks for them.
class KeyTips : public QObject {
  Q_OBJECT
 public:
  explicit KeyTips(QWidget* bar);

  /// Puts a badge on every button with a letter. Buttons that are hidden or disabled get none.
  void show(const QList<std::pair<QToolButton*, QChar>>& buttons);
  void hide();
  bool isShown() const { return !badges_.isEmpty(); }
  /// True when the letter was one of a badge: the badges are gone and its command runs once events are processed.
  bool press(const QString& typed);

 Q_SIGNALS:
  /// Alt alone: the badges are to come, or to go when they are there.
  void asked();
  /// The badges went without a command, or its menu was left.
  void left();
  /// The badges went as the mouse pressed on the bar.
  void pressedOnBar();
  /// A command is about to run; the keyboard belongs to where it was before.
  void chosen();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void watchAltKey(QObject* watched, QEvent* event);
  void addBadge(QWidget* parent, QChar letter, QPoint centre);
  void openMenu(QToolButton* button);
  void decorate(QMenu* menu);
  bool pressInMenu(QMenu* menu, const QString& typed);

  QWidget* bar_;
  QHash<QChar, QPointer<QToolButton>> buttons_;
  QHash<QMenu*, QHash<QChar, QPointer<QAction>>> entries_;
  QList<QPointer<QWidget>> badges_;
  QPointer<QAction> entry_;  ///< chosen in the open menu
  bool altAlone_ = false;
  bool inMenu_ = false;
};
