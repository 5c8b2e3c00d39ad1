#include "bench/gallery/scene.h"

#include "app/workspace_commands.h"
#include "toolkit/edits/balloon.h"
#include "toolkit/shell/child_tab_strip.h"
#include "toolkit/shell/child_windows.h"
#include "toolkit/shell/key_state_panel.h"
#include "toolkit/shell/ribbon.h"
#include "toolkit/shell/ribbon_button.h"

#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QLabel>
#include <QMainWindow>
#include <QMdiSubWindow>
#include <QMenu>
#include <QStatusBar>
#include <QTabBar>
#include <QTest>
#include <QTimer>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {

/// A workspace without a database: the program's ribbon, child windows and status bar.
class Workspace : public QMainWindow {
 public:
  explicit Workspace(int width = 1180, int height = 420) : ribbon(u"Teknik Servis Menü"_s, this), children(this) {
    setMenuWidget(&ribbon);
    setCentralWidget(&children);
    commands = buildWorkspaceCommands(ribbon, this);
    ribbon.applicationButton()->setIcon(QIcon(u":/kvtk.svg"_s));
    statusBar()->addWidget(new QLabel(u"Hazır"_s), 1);
    statusBar()->addPermanentWidget(new KeyStatePanel(this));
    resize(width, height);
    Gallery::bringUp(*this);
  }
  void open(int count) {
    for (int i = 0; i < count; ++i) {
      auto* page = new QWidget;
      page->setWindowTitle(u"(%1) Servis Fişi"_s.arg(100 + i));
      page->setMinimumSize(360, 120);
      children.add(page);
    }
  }
  RibbonButton* button(const QString& command) {
    for (RibbonButton* candidate : ribbon.findChildren<RibbonButton*>())
      if (candidate->defaultAction() == commands[command]) return candidate;
    qFatal("no such command");
  }

  Ribbon ribbon;
  ChildWindows children;
  WorkspaceCommands commands;
};

QImage ribbonAt(int width) {
  Workspace workspace(width, 240);
  return Gallery::picture(workspace);
}

QImage withoutRights() {
  Workspace workspace(1180, 240);
  for (const auto& [path, name] : ribbonRights()) workspace.commands[name]->setEnabled(false);
  return Gallery::picture(workspace);
}

QImage keyTips(int width) {
  Workspace workspace(width, 240);
  workspace.ribbon.enterByKeyboard();
  return Gallery::picture(workspace);
}

/// The menu of a command, opened by its letter when there is one, by a click otherwise.
QImage menu(Qt::Key letter) {
  Workspace workspace(1180, 420);
  QImage image;
  QTimer::singleShot(500, &workspace, [&] {
    image = Gallery::picture(workspace);
    while (QWidget* popup = QApplication::activePopupWidget()) popup->close();
  });
  if (letter != Qt::Key_unknown) {
    workspace.ribbon.enterByKeyboard();
    QTest::qWait(50);
    QTest::keyClick(workspace.windowHandle(), letter);
    QTest::qWait(600);
  } else {
    workspace.button(u"dxBarSubItem1"_s)->showMenu();
  }
  return image;
}

QImage hovered() {
  Workspace workspace(1180, 240);
  QWidget* button = workspace.button(u"dxBarLargeButton2"_s);
  button->setAttribute(Qt::WA_UnderMouse);
  workspace.button(u"contracts"_s)->setDown(true);
  return Gallery::picture(workspace);
}

QImage folded() {
  Workspace workspace(1180, 240);
  workspace.ribbon.setPageVisible(false);
  workspace.open(1);
  return Gallery::picture(workspace);
}

QImage windows(int count, const std::function<void(Workspace&)>& arrange) {
  Workspace workspace(1180, 520);
  workspace.open(count);
  arrange(workspace);
  return Gallery::picture(workspace);
}

QImage tabMenu() {
  return windows(3, [](Workspace& workspace) {
    QTabBar* tabs = workspace.children.tabStrip()->tabBar();
    const QPoint place = tabs->tabRect(1).center();
    QContextMenuEvent wanted(QContextMenuEvent::Mouse, place, tabs->mapToGlobal(place));
    QCoreApplication::sendEvent(tabs, &wanted);
  });
}

QImage tabList() {
  QImage image;
  Workspace workspace(900, 520);
  workspace.open(8);
  QTimer::singleShot(300, &workspace, [&] {
    image = Gallery::picture(workspace);
    QApplication::activePopupWidget()->close();
  });
  workspace.children.tabStrip()->listButton()->showMenu();
  return image;
}

QImage balloons() {
  Workspace workspace(1180, 300);
  Balloon balloon;
  balloon.showAt(workspace.button(u"reminders"_s), u"Bugün için 3 hatırlatma var."_s, 5000);
  return Gallery::picture(workspace);
}

}  // namespace

std::vector<Scene> Gallery::shellScenes() {
  return {
      {u"ribbon-wide"_s, [] { return ribbonAt(1180); }},
      {u"ribbon-compact"_s, [] { return ribbonAt(820); }},
      {u"ribbon-narrow"_s, [] { return ribbonAt(480); }},
      {u"ribbon-hovered-pressed"_s, hovered},
      {u"ribbon-without-rights"_s, withoutRights},
      {u"ribbon-key-tips"_s, [] { return keyTips(1180); }},
      {u"ribbon-key-tips-narrow"_s, [] { return keyTips(640); }},
      {u"ribbon-menu"_s, [] { return menu(Qt::Key_unknown); }},
      {u"ribbon-menu-key-tips"_s, [] { return menu(Qt::Key_K); }},
      {u"ribbon-folded"_s, folded},
      {u"ribbon-balloon"_s, balloons},
      {u"windows-cascaded"_s, [] { return windows(4, [](Workspace& w) { w.children.cascade(); }); }},
      {u"windows-tiled"_s, [] { return windows(3, [](Workspace& w) { w.children.tileColumns(); }); }},
      {u"windows-minimised"_s, [] { return windows(3, [](Workspace& w) { w.children.minimizeAll(); }); }},
      {u"windows-thirty-tabs"_s, [] { return windows(30, [](Workspace& w) { w.children.maximizeAll(); }); }},
      {u"windows-tab-menu"_s, tabMenu},
      {u"windows-tab-list"_s, tabList},
  };
}
