#pragma once

#include "toolkit/shell/redraw_lock.h"

#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPixmap>
#include <QPointer>

#include <functional>

class ChildTabStrip;

/// A child window of the workspace. Tells when it has closed.
class ChildWindow : public QMdiSubWindow {
  Q_OBJECT
 public:
  explicit ChildWindow(QWidget* content);

  QPointer<QWidget> keyboard;  ///< what had the keyboard in the window before it was minimised

 Q_SIGNALS:
  void closed();

 protected:
  void closeEvent(QCloseEvent* event) override;
};

/// The client area: always white, with a picture in its centre.
class ClientArea : public QMdiArea {
  Q_OBJECT
 public:
  explicit ClientArea(QWidget* parent = nullptr);
  void setPicture(const QPixmap& picture);
  const QPixmap& picture() const { return picture_; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QPixmap picture_;
};

/// Workspace of child windows: the client area with a strip of tabs below it, one tab per child window. The orders
/// "first to last" and "last to first" are the order of creation, as the tabs stand.
class ChildWindows : public QWidget {
  Q_OBJECT
 public:
  explicit ChildWindows(QWidget* parent = nullptr);
  ~ChildWindows() override;

  ClientArea* clientArea() { return area_; }
  ChildTabStrip* tabStrip() { return strip_; }
  RedrawLock& redrawLock() { return redrawLock_; }

  /// Shows content in a child window with a tab and makes it the active one; the window owns it and goes with it. It fills
  /// the area when content asks to be maximised. A content that has a window keeps that one. Never null.
  QMdiSubWindow* add(QWidget* content);
  void setCaption(QWidget* content, const QString& caption);
  /// Contents of the child windows, first to last.
  QList<QWidget*> contents() const;
  int count() const { return static_cast<int>(windows_.size()); }

  /// Asks every child window to close, first to last; false at the first one that refuses.
  bool closeAll();
  /// The active window and the place of the keyboard in it stay as they are.
  void maximizeAll();
  void restoreAll();
  void minimizeAll();
  void cascade();
  /// One below the other; from four windows on in several columns.
  void tileRows();
  /// Side by side; from four windows on in several rows.
  void tileColumns();
  void activateNext();
  void activatePrevious();

 Q_SIGNALS:
  void countChanged(int count);

 private:
  ChildWindow* windowOf(QWidget* content) const;
  void activate(ChildWindow* window);
  bool closeAllBut(const ChildWindow* kept);
  void step(int by);
  void keepingKeyboard(const std::function<void()>& work);
  void tile(Qt::Orientation direction);
  void forget(ChildWindow* window);

  ClientArea* area_;
  ChildTabStrip* strip_;
  RedrawLock redrawLock_;
  QList<ChildWindow*> windows_;
};
