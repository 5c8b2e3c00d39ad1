#pragma once

#include <QMainWindow>

class ChildWindows;
class KeyStatePanel;
class QLabel;
class QMdiSubWindow;
class QSystemTrayIcon;
class QTimer;
class Ribbon;
struct WorkspaceCommands;

/// The main workspace: ribbon, child windows with their tab strip, status bar, and the start sequence.
class TfKvb : public QMainWindow {
  Q_OBJECT
 public:
  TfKvb();
  ~TfKvb() override;

  QTimer* Timer1;
  QSystemTrayIcon* RzTrayIcon1 = nullptr;  ///< null where the system has no tray
  QLabel* dxBarStatic1;                    ///< user name
  QLabel* dxBarStatic2;                    ///< server name

  /// Shows editor as a child window with a tab and makes it the active one; an editor that has its window keeps it. The
  /// window owns the editor. Never null.
  QMdiSubWindow* addChildWindow(QWidget* editor);
  /// Caption of the editor's child window and of its tab.
  void setChildCaption(QWidget* editor, const QString& caption);
  /// Editors in child windows, first to last.
  QList<QWidget*> childWindows() const;
  ChildWindows* childArea() { return children_; }
  Ribbon* ribbon() { return ribbon_; }
  void setStatusText(const QString& text);

  /// A new slip window: created in the frame, Insert afterwards.
  void newSlip();
  /// A slip window on the slip with that id.
  void openSlip(qint64 id);

 protected:
  void showEvent(QShowEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  void formCreate();
  void buildRibbon();
  void buildStatusBar();
  void connectCommands();
  void chooseSlips();
  void timer1Timer();

  Ribbon* ribbon_;
  ChildWindows* children_;
  QLabel* statusText_;
  std::unique_ptr<WorkspaceCommands> commands_;
};

/// The one workspace; null before it is created and after it is gone.
extern TfKvb* fKvb;
