#pragma once

#include "toolkit/shell/ribbon_group.h"

#include <QPointer>
#include <QWidget>

class KeyTips;
class QHBoxLayout;
class QToolButton;

/// Command bar over a main window: application button, one tab with its page of groups, quick-access bar. Groups give
/// way from the right when the window is narrow, so that no command is ever cut off. Ctrl+F1 or a double click on the
/// tab folds the page. F10, or Alt alone, puts the keyboard into it and shows a letter over each command that runs it or
/// opens its menu; arrow keys move, Escape goes back. A folded page is shown as long as the keyboard is in it.
class Ribbon : public QWidget {
  Q_OBJECT
 public:
  explicit Ribbon(const QString& tabCaption, QWidget* parent = nullptr);

  QToolButton* applicationButton() { return applicationButton_; }
  RibbonGroup* addGroup(const QString& caption, const QIcon& icon);
  QList<RibbonGroup*> groups() const { return groups_; }
  /// Repeats a command in the quick-access bar as an icon with its caption as tool tip.
  void addQuickAccess(QAction* action);
  QList<QAction*> quickAccess() const;

  /// Painting stops between the two; calls may nest.
  void beginUpdate();
  void endUpdate();

  void setPageVisible(bool visible);
  bool isPageVisible() const;
  /// Puts the keyboard focus on the first command and shows the letters; called again, goes back.
  void enterByKeyboard();
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  bool event(QEvent* event) override;

 private:
  void forgetPointer();
  void fitGroups();
  void moveFocus(int step);
  void showKeyTips();
  void leaveKeyboard();

  QToolButton* applicationButton_;
  QToolButton* tab_;
  QWidget* page_;
  QHBoxLayout* quickAccessRow_;
  QList<RibbonGroup*> groups_;
  KeyTips* keyTips_;
  QPointer<QWidget> focusBefore_;
  qint32 updates_ = 0;
  bool foldsAgain_ = false;  ///< the page, once the keyboard is elsewhere
  bool unfolded_ = false;  ///< by the last click on the tab, which may be the first half of a double one
};
