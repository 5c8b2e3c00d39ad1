#pragma once

#include "app/rights.h"
#include "app/workspace_commands.h"

#include <QDate>
#include <QMainWindow>
#include <QSet>

#include <functional>
#include <memory>

class CallListener;
class ChildWindows;
class DateEdit;
class PassingNotice;
class QLabel;
class QMdiSubWindow;
class QSystemTrayIcon;
class QTimer;
class Report;
class Ribbon;
class TQuendUtil;

/// The main workspace: ribbon, child windows with their tab strip, status bar, and the start sequence.
class TfKvb : public QMainWindow {
  Q_OBJECT
 public:
  /// Creates the utilities object as well. arguments: those of the command line, the program itself first.
  explicit TfKvb(const QStringList& arguments = {});
  ~TfKvb() override;

  QTimer* Timer1;                          ///< starts the start sequence once, 50 ms after the window is shown
  QSystemTrayIcon* RzTrayIcon1 = nullptr;  ///< null where the system has no tray
  CallListener* UDPCallerID;               ///< hears of incoming calls once the start sequence is through
  QLabel* dxBarStatic1 = nullptr;          ///< user name
  QLabel* dxBarStatic2 = nullptr;          ///< server name

  std::unique_ptr<Report> frxReport1;      ///< of receipts, labels and letters; each print loads its template into it
  CheckTree Yetkitree;                     ///< the rights; nothing fills it, so that all but the master account have none

  /// Shows editor as a child window with a tab and makes it the active one; an editor that has its window keeps it. The
  /// window owns the editor. Never null.
  QMdiSubWindow* addChildWindow(QWidget* editor);
  /// Caption of the editor's child window and of its tab.
  void setChildCaption(QWidget* editor, const QString& caption);
  /// Editors in child windows, first to last.
  QList<QWidget*> childWindows() const;
  ChildWindows* childArea() { return children_; }
  Ribbon* ribbon() { return ribbon_; }
  /// The command with that object name. Throws Exception with the name when there is none.
  QAction* command(const QString& objectName) const;
  void setStatusText(const QString& text);

  /// Shows a call for ten seconds and has the list of calls read anew.
  void UDPCallerIDUDPRead(const QString& title, const QString& body);
  PassingNotice* callNotice() { return callNotice_; }
  /// Says what a command of the ribbon does, which enables it; one that needs a right waits for the end of the start
  /// sequence, which checks it. A command of which nobody says it stays disabled. Throws Exception with the name when there
  /// is no such command.
  void connectCommand(const QString& objectName, std::function<void()> work);
  /// Runs work in the frame of a slip window that comes up: nothing is painted, the hourglass stands as cursor; the ribbon
  /// folds when the parameters ask for it. Throws what work throws.
  void inSlipFrame(const std::function<void()>& work);

 Q_SIGNALS:
  /// The main window has closed, after its child windows; the program is to end.
  void closed();

 protected:
  void showEvent(QShowEvent* event) override;
  void changeEvent(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  void formCreate(const QStringList& arguments);
  void buildStatusBar();
  void showDay();
  void connectCommands();
  void addTrayIcon();
  void hideRibbonWhenAsked();
  void timer1Timer();
  void startVigil();
  void applyRights();
  void enableCommand(const QString& objectName);

  Ribbon* ribbon_;
  ChildWindows* children_;
  QLabel* statusText_ = nullptr;
  DateEdit* dateBox_ = nullptr;
  QDate shownDay_;
  PassingNotice* callNotice_ = nullptr;
  WorkspaceCommands commands_;
  QSet<QString> connected_;  ///< commands that do something, menus among them
  QSet<QString> refused_;    ///< commands without their right
  std::unique_ptr<TQuendUtil> utilities_;
};

/// The one workspace; null before it is created and after it is gone.
extern TfKvb* fKvb;
