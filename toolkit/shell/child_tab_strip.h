#pragma once

#include <QWidget>

class QMenu;
class QTabBar;
class QToolButton;

/// Strip of tabs under the client area: a close button on each tab, which the middle mouse button does as well, scroll
/// buttons, a button that lists all tabs, and a menu on each tab. With the keyboard on it, arrows move, Delete closes and
/// the menu key opens the menu.
class ChildTabStrip : public QWidget {
  Q_OBJECT
 public:
  explicit ChildTabStrip(QWidget* parent = nullptr);

  int count() const;
  int currentIndex() const;
  QString caption(int index) const;
  /// Adds a tab at the end.
  void addTab(const QString& caption);
  void removeTab(int index);
  void setCaption(int index, const QString& caption);
  void setCurrentIndex(int index);
  QTabBar* tabBar() { return tabs_; }
  QToolButton* listButton() { return listButton_; }

 Q_SIGNALS:
  void tabChosen(int index);
  void closeRequested(int index);
  void closeOthersRequested(int index);
  void closeAllRequested();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void fillList();
  void openMenu(int index, QPoint globalPlace);
  void addCloseButton(int index);

  QTabBar* tabs_;
  QToolButton* listButton_;
  QMenu* list_;
};
