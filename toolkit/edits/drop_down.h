#pragma once

#include <QFrame>

/// The window under an input box that shows its list or calendar. Closes by itself when the user clicks elsewhere.
class DropDown : public QFrame {
  Q_OBJECT
 public:
  /// keyTarget gets the keys while it is open; null leaves them to content.
  DropDown(QWidget* box, QWidget* content, QWidget* keyTarget, bool sizeable);

  /// The user draws it to another size by its lower right corner. All boxes of its box's name open in that size from then
  /// on, as long as the program runs.
  void drawTo(QSize size);
  /// Opens under the box, or above it when there is no room below. size: logical pixels of the content.
  void openUnder(QSize size);
  /// A click on the arrow closed it just now and is not to open it again.
  bool hasJustClosed() const;

 Q_SIGNALS:
  void closed();

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  QWidget* box_;
  QWidget* content_;
  QWidget* keyTarget_;
  bool sizeable_;
  quint64 closedAt_ = 0;
};
