#pragma once

#include <QFrame>

#include <initializer_list>

class EditBox;
class QKeyEvent;

/// The window under an input box that shows its list or calendar. It takes neither keyboard nor mouse away: the keys go to
/// the box, and a key that the box does not keep or a click elsewhere closes it and does its own work as well. It also closes when its box
/// moves or goes and when the program's window is no longer the active one.
class DropDown : public QFrame {
  Q_OBJECT
 public:
  /// Keys that the box keeps, its line and its button 0 close it by themselves.
  DropDown(EditBox* box, QWidget* content, bool sizeable);

  /// True for a key that every open list or calendar works with, and for those given: Up and Down alone or with Alt, all others
  /// alone. For EditBox::keepsKey.
  static bool worksWith(const QKeyEvent& key, std::initializer_list<Qt::Key> also);

  /// The user draws it to another size by its lower right corner. All boxes of its box's name open in that size from then
  /// on, as long as the program runs.
  void drawTo(QSize size);
  /// Opens under the box, or above it when there is no room below. size: logical pixels of the content.
  void openUnder(QSize size);

 Q_SIGNALS:
  /// Such a key or click is on its way to whoever uses it; whoever hears of it closes the list.
  void dismissed();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  bool keyCame(QKeyEvent& key);
  bool isOwn(const QWidget& widget) const;

  EditBox* box_;
  bool sizeable_;
  QPoint boxPlace_;  ///< in screen coordinates, when it was opened
};
