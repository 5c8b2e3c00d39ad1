#pragma once

#include <QFrame>

/// The window under an input box that shows its list or calendar. Closes by itself when the user clicks elsewhere.
class DropDown : public QFrame {
  Q_OBJECT
 public:
  /// keyTarget gets the keys while it is open; null leaves them to content.
  DropDown(QWidget* box, QWidget* content, QWidget* keyTarget, bool sizeable);

  /// Opens under the box, or above it when there is no room below. size: logical pixels of the content.
  void openUnder(QSize size);
  /// The size that the user has drawn it to; invalid when he has not.
  QSize chosenSize() const { return chosenSize_; }
  /// A click on the arrow closed it just now and is not to open it again.
  bool hasJustClosed() const;

 Q_SIGNALS:
  void closed();

 protected:
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;

 private:
  friend class DropDownGrip;
  QWidget* box_;
  QWidget* content_;
  QWidget* keyTarget_;
  QSize chosenSize_;
  quint64 closedAt_ = 0;
};
