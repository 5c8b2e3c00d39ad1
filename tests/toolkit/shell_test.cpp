#include "base/guard.h"
#include "base/ini_file.h"
#include "tests/support/screen_test.h"
#include "toolkit/shell/child_tab_strip.h"
#include "toolkit/shell/child_windows.h"
#include "toolkit/shell/command_bar.h"
#include "toolkit/shell/focus_links.h"
#include "toolkit/shell/key_state_panel.h"
#include "toolkit/shell/key_tips.h"
#include "toolkit/shell/redraw_lock.h"
#include "toolkit/shell/ribbon.h"
#include "toolkit/shell/ribbon_button.h"
#include "toolkit/shell/screen_room.h"
#include "toolkit/shell/window_place.h"

using testing::ElementsAre;

namespace {

/// A child window's content that may refuse to close.
class Page : public QWidget {
 public:
  explicit Page(const QString& caption) {
    setWindowTitle(caption);
    setMinimumSize(80, 40);
  }
  bool refuses = false;

 protected:
  void closeEvent(QCloseEvent* event) override { event->setAccepted(!refuses); }
};

class ChildWindowsTest : public testing::Test {
 protected:
  ChildWindowsTest() {
    children.resize(900, 600);
    children.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&children));
  }
  Page* add(const QString& caption) {
    auto* page = new Page(caption);
    children.add(page);
    return page;
  }
  QStringList tabs() {
    QStringList captions;
    for (int i = 0; i < children.tabStrip()->count(); ++i) captions.append(children.tabStrip()->caption(i));
    return captions;
  }
  QMdiSubWindow* window(QWidget* page) { return qobject_cast<QMdiSubWindow*>(page->parentWidget()); }
  QToolButton* closeButton(int tab) {
    return qobject_cast<QToolButton*>(children.tabStrip()->tabBar()->tabButton(tab, QTabBar::RightSide));
  }

  ChildWindows children;
};

TEST_F(ChildWindowsTest, OneTabPerWindowFollowsCaptionActivationAndClosing) {
  EXPECT_FALSE(children.tabStrip()->isVisible());
  QSignalSpy counts(&children, &ChildWindows::countChanged);
  Page* first = add(u"Fiş & Kart"_s);
  Page* second = add(u"Yeni Servis Fişi"_s);
  EXPECT_EQ(children.add(first), window(first)) << "a content keeps its window";
  EXPECT_EQ(tabs(), (QStringList{u"Fiş & Kart"_s, u"Yeni Servis Fişi"_s}));
  EXPECT_EQ(children.tabStrip()->currentIndex(), 1);

  children.setCaption(second, u"(100) Servis Fişi"_s);
  EXPECT_EQ(tabs()[1], u"(100) Servis Fişi"_s);
  EXPECT_EQ(window(second)->windowTitle(), u"(100) Servis Fişi"_s);

  children.activateNext();
  EXPECT_EQ(children.clientArea()->activeSubWindow(), window(first));
  EXPECT_EQ(children.tabStrip()->currentIndex(), 0);

  window(second)->showMinimized();
  QTest::mouseClick(children.tabStrip()->tabBar(), Qt::LeftButton, {}, children.tabStrip()->tabBar()->tabRect(1).center());
  EXPECT_FALSE(window(second)->isMinimized());
  EXPECT_EQ(children.clientArea()->activeSubWindow(), window(second));

  EXPECT_EQ(closeButton(0)->toolTip(), u"Kapat"_s);
  first->refuses = true;
  closeButton(0)->click();
  EXPECT_EQ(children.count(), 2) << "a window that refuses keeps its tab";
  first->refuses = false;
  closeButton(0)->click();
  EXPECT_EQ(tabs(), QStringList{u"(100) Servis Fişi"_s});
  EXPECT_THAT(children.contents(), ElementsAre(second));
  closeButton(0)->click();
  EXPECT_FALSE(children.tabStrip()->isVisible());
  EXPECT_THAT(counts, ElementsAre(QVariantList{1}, QVariantList{2}, QVariantList{1}, QVariantList{0}));
}

TEST_F(ChildWindowsTest, ManyTabsScrollWithTurkishHintsAndStandInTheList) {
  for (int i = 0; i < 30; ++i) add(u"(%1) Servis Fişi"_s.arg(100 + i));
  QStringList hints;
  for (const QToolButton* button : children.tabStrip()->tabBar()->findChildren<QToolButton*>(Qt::FindDirectChildrenOnly))
    if (button->objectName() != u"tabClose"_s && button->isVisible()) hints.append(button->toolTip());
  EXPECT_THAT(hints, testing::UnorderedElementsAre(u"Önceki"_s, u"Sonraki"_s));
  EXPECT_LE(children.tabStrip()->width(), children.width());

  QMenu* list = children.tabStrip()->listButton()->menu();
  Q_EMIT list->aboutToShow();
  ASSERT_EQ(list->actions().size(), 30);
  EXPECT_TRUE(list->actions()[29]->isChecked());
  list->actions()[3]->trigger();
  EXPECT_EQ(children.clientArea()->activeSubWindow(), window(children.contents()[3]));
}

TEST_F(ChildWindowsTest, TabsCloseByMiddleButtonKeyAndMenu) {
  for (int i = 0; i < 6; ++i) add(QString::number(i));
  QTabBar* bar = children.tabStrip()->tabBar();
  QTest::mouseClick(bar, Qt::MiddleButton, {}, bar->tabRect(1).center());
  EXPECT_EQ(tabs(), (QStringList{u"0"_s, u"2"_s, u"3"_s, u"4"_s, u"5"_s}));
  EXPECT_EQ(children.tabStrip()->currentIndex(), 4) << "another tab's closing moves nothing";
  QTest::keyClick(bar, Qt::Key_Left);
  QTest::keyClick(bar, Qt::Key_Delete);
  EXPECT_EQ(tabs(), (QStringList{u"0"_s, u"2"_s, u"3"_s, u"5"_s}));

  const auto menu = [&](const QString& caption) {
    QContextMenuEvent wanted(QContextMenuEvent::Mouse, bar->tabRect(1).center(), bar->mapToGlobal(bar->tabRect(1).center()));
    QCoreApplication::sendEvent(bar, &wanted);
    auto* opened = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(opened, nullptr);
    for (QAction* action : opened->actions())
      if (action->text() == caption) action->trigger();
    opened->close();
  };
  static_cast<Page*>(children.contents()[2])->refuses = true;
  menu(u"Diğerlerini Kapat"_s);
  EXPECT_EQ(tabs(), (QStringList{u"2"_s, u"3"_s, u"5"_s})) << "stops at the one that refuses";
  static_cast<Page*>(children.contents()[1])->refuses = false;
  menu(u"Kapat"_s);
  EXPECT_EQ(tabs(), (QStringList{u"2"_s, u"5"_s}));
  menu(u"Hepsini Kapat"_s);
  EXPECT_EQ(tabs(), QStringList());
}

TEST_F(ChildWindowsTest, WindowCommandsGoThroughTheWindowsInTheirOrder) {
  children.clientArea()->setOption(QMdiArea::DontMaximizeSubWindowOnActivation);
  QList<QObject*> windows;
  for (int i = 0; i < 3; ++i) windows.append(window(add(QString::number(i))));
  EventCounter changes(QEvent::WindowStateChange);
  for (QObject* each : windows) changes.watch(each);
  const auto states = [&](auto test) { return std::ranges::all_of(windows, [&](QObject* w) { return test(qobject_cast<QMdiSubWindow*>(w)); }); };

  children.maximizeAll();
  EXPECT_TRUE(states([](QMdiSubWindow* w) { return w->isMaximized(); }));
  children.restoreAll();
  EXPECT_TRUE(states([](QMdiSubWindow* w) { return !w->isMaximized() && !w->isMinimized(); }));
  changes.order.clear();
  children.minimizeAll();
  EXPECT_TRUE(states([](QMdiSubWindow* w) { return w->isMinimized(); }));
  EXPECT_EQ(changes.order, (QList<QObject*>{windows[2], windows[1], windows[0]})) << "last to first";
}

TEST_F(ChildWindowsTest, WindowCommandsLeaveTheActiveWindowAndTheKeyboardWhereTheyAre) {
  children.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&children));
  QList<QLineEdit*> boxes;
  for (int i = 0; i < 3; ++i) {
    Page* page = add(QString::number(i));
    auto* column = new QVBoxLayout(page);
    for (int box = 0; box < 3; ++box) {
      boxes.append(new QLineEdit);
      column->addWidget(boxes.last());
    }
  }
  children.activatePrevious();
  QMdiSubWindow* active = children.clientArea()->activeSubWindow();
  QLineEdit* box = boxes[4];
  ASSERT_TRUE(active->isAncestorOf(box));
  ASSERT_TRUE(QTest::qWaitFor([&] { return box->isVisible(); }));
  box->setFocus();
  const QList<std::pair<std::function<void()>, bool>> commands{{[&] { children.maximizeAll(); }, true},
                                                               {[&] { children.restoreAll(); }, true},
                                                               {[&] { children.minimizeAll(); }, false},
                                                               {[&] { children.restoreAll(); }, true}};
  for (const auto& [command, keepsBox] : commands) {
    command();
    QCoreApplication::processEvents();
    EXPECT_EQ(children.clientArea()->activeSubWindow(), active);
    EXPECT_EQ(children.tabStrip()->currentIndex(), 1);
    if (keepsBox) {
      EXPECT_EQ(QApplication::focusWidget(), box);
    }
  }
  children.minimizeAll();
  Q_EMIT children.tabStrip()->tabChosen(1);
  EXPECT_EQ(QApplication::focusWidget(), box);
}

TEST_F(ChildWindowsTest, TilesFillTheClientAreaWithoutOverlap) {
  for (int count = 1; count <= 7; ++count) {
    add(QString::number(count));
    for (const bool rows : {true, false}) {
      rows ? children.tileRows() : children.tileColumns();
      const QRect room = children.clientArea()->viewport()->rect();
      QRegion covered;
      for (QWidget* page : children.contents()) {
        EXPECT_FALSE(covered.intersects(window(page)->geometry())) << count << " windows, rows " << rows;
        covered += window(page)->geometry();
      }
      EXPECT_EQ(covered, QRegion(room)) << count << " windows, rows " << rows;
      if (count == 3) {
        const QSize size = window(children.contents()[0])->size();
        EXPECT_EQ(rows ? size.width() : size.height(), rows ? room.width() : room.height());
      }
    }
  }
}

TEST_F(ChildWindowsTest, NestedLocksPaintOnceAtTheLastRelease) {
  Page* before = add(u"a"_s);
  QTest::qWait(50);
  RedrawLock& lock = children.redrawLock();
  lock.acquire();
  lock.acquire();
  Page* within = add(u"b"_s);
  lock.release();
  EventCounter paintings(QEvent::Paint);
  paintings.watch(before);
  paintings.watch(within);
  before->update();
  QTest::qWait(50);
  EXPECT_EQ(lock.count(), 1);
  EXPECT_EQ(paintings.count, 0);
  EventCounter passes(QEvent::UpdateRequest);
  passes.watch(&children);
  lock.release();
  QTest::qWait(50);
  EXPECT_EQ(lock.count(), 0);
  EXPECT_EQ(passes.count, 1);
  EXPECT_EQ(paintings.order.size(), 2);
}

TEST(ClientAreaTest, IsWhiteUnderAnyThemeWithThePictureInItsCentre) {
  ClientArea area;
  QPalette dark;
  dark.setColor(QPalette::Window, Qt::black);
  dark.setColor(QPalette::Dark, Qt::black);
  area.setPalette(dark);
  area.resize(300, 200);
  QPixmap red(20, 10);
  red.fill(Qt::red);
  area.setPicture(red);
  const QImage picture = area.grab().toImage();
  EXPECT_EQ(picture.pixelColor(5, 5), QColor(Qt::white));
  EXPECT_EQ(picture.pixelColor(150, 100), QColor(Qt::red));
  EXPECT_EQ(picture.pixelColor(138, 100), QColor(Qt::white));
}

class RibbonTest : public testing::Test {
 protected:
  RibbonTest() : ribbon(u"Menü"_s, &host) {
    auto* column = new QVBoxLayout(&host);
    column->addWidget(&ribbon);
    column->addWidget(&editor);
    for (const int size : {4, 6, 3, 1}) {
      RibbonGroup* group = ribbon.addGroup(u"Grup"_s, {});
      for (int i = 0; i < size; ++i) {
        auto* action = new QAction(u"Uzun Komut Adı %1"_s.arg(commands.size()), &host);
        group->addCommand(action);
        commands.append(action);
      }
    }
  }
  QWidget host;
  Ribbon ribbon;
  QLineEdit editor;
  QList<QAction*> commands;
};

TEST_F(RibbonTest, NoCommandIsCutOffAtAnyWidth) {
  host.show();
  for (int width = 1600; width >= ribbon.minimumSizeHint().width(); width -= 40) {
    ribbon.resize(width, ribbon.height());
    QList<QAction*> reachable;
    for (const RibbonButton* button : ribbon.findChildren<RibbonButton*>()) {
      if (!button->isVisible()) continue;
      EXPECT_LE(button->mapTo(&ribbon, QPoint(button->width(), 0)).x(), width);
      EXPECT_GE(button->width(), button->sizeHint().width());
      if (const QMenu* menu = button->defaultAction()->menu())
        reachable.append(menu->actions());
      else
        reachable.append(button->defaultAction());
    }
    EXPECT_EQ(reachable.size(), commands.size()) << width;
  }
  EXPECT_EQ(ribbon.groups()[3]->mode(), RibbonGroupMode::Collapsed);
  ribbon.resize(3000, ribbon.height());
  for (const RibbonGroup* group : ribbon.groups()) EXPECT_EQ(group->mode(), RibbonGroupMode::Large);
}

TEST_F(RibbonTest, EveryCommandIsReachedByKeyboard) {
  host.resize(2500, 200);
  host.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&host));
  editor.setFocus();
  commands[1]->setEnabled(false);
  QSignalSpy third(commands[2], &QAction::triggered);
  QTest::keyClick(&host, Qt::Key_F10);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  EXPECT_EQ(third.count(), 1) << "the disabled one is passed over";
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Left);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Left);
  EXPECT_EQ(qobject_cast<RibbonButton*>(QApplication::focusWidget())->defaultAction(), commands.last());
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
  EXPECT_EQ(QApplication::focusWidget(), &editor);
  EXPECT_TRUE(ribbon.isPageVisible());
  ribbon.setPageVisible(false);
  QTest::keyClick(&host, Qt::Key_F10);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  EXPECT_TRUE(ribbon.isPageVisible());
  QTest::keyClick(&host, Qt::Key_F10);
  ASSERT_TRUE(QTest::qWaitFor([this] { return host.findChild<QWidget*>(u"keyTip"_s) != nullptr; }));
  QTest::mouseClick(ribbon.groups()[0]->buttons()[2], Qt::LeftButton);
  EXPECT_EQ(third.count(), 2) << "the mouse may run what the keyboard has unfolded";
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
  EXPECT_FALSE(ribbon.isPageVisible()) << "as it was";
}

TEST_F(RibbonTest, OneClickOnTheTabBringsTheGroupsBackAndTwoFoldThem) {
  auto* tab = ribbon.findChild<QToolButton*>(u"ribbonTab"_s);
  const auto doubleClick = [tab] {
    QTest::mouseClick(tab, Qt::LeftButton);
    const QPointF place = tab->rect().center();
    QMouseEvent second(QEvent::MouseButtonDblClick, place, tab->mapToGlobal(place), Qt::LeftButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(tab, &second);
    QTest::mouseRelease(tab, Qt::LeftButton);
  };
  QTest::mouseClick(tab, Qt::LeftButton);
  EXPECT_TRUE(ribbon.isPageVisible());
  doubleClick();
  EXPECT_FALSE(ribbon.isPageVisible());
  doubleClick();
  EXPECT_TRUE(ribbon.isPageVisible());
  ribbon.setPageVisible(false);
  QTest::mouseClick(tab, Qt::LeftButton);
  EXPECT_TRUE(ribbon.isPageVisible());
}

TEST_F(RibbonTest, OnlyTheButtonUnderThePointerIsLitOnceAWindowHasClosed) {
  host.resize(2500, 200);
  host.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&host));
  const QList<RibbonButton*> buttons = ribbon.findChildren<RibbonButton*>();
  QTest::mouseMove(buttons[1]);
  // As when a menu of the first one opened a window and the pointer went on from there: nobody tells the button.
  for (RibbonButton* button : {buttons[0], buttons[1]}) button->setAttribute(Qt::WA_UnderMouse);
  QDialog window(&host);
  QTimer::singleShot(0, &window, &QDialog::accept);
  window.exec();
  EXPECT_TRUE(QTest::qWaitFor([&] { return !buttons[0]->underMouse(); }));
  EXPECT_TRUE(buttons[1]->underMouse());
}

QStringList visibleTips() {
  QStringList letters;
  for (const QWidget* widget : QApplication::allWidgets())
    if (widget->objectName() == u"keyTip"_s && widget->isVisible()) letters.append(widget->accessibleName());
  letters.sort();
  return letters;
}

TEST(CommandBarTest, CommandsTakeAnotherRowInsteadOfHidingAndDialogsEndOnTheScreen) {
  QDialog dialog;
  auto* column = new QVBoxLayout(&dialog);
  auto* content = new QWidget;
  content->setFixedSize(100, 3000);
  column->addWidget(new ScreenRoom(content));
  auto* bar = new CommandBar(&dialog);
  column->addWidget(bar, 0, Qt::AlignRight);
  QList<QAction*> commands;
  for (const QString& caption : {u"F2 » Tamam"_s, u"F3 » Vazgeç"_s, u"F10 » İstatistik"_s})
    commands += bar->addCommand(caption, caption, u"edit-delete"_s, {});
  const auto rows = [&] {
    QSet<int> tops;
    for (QAction* each : commands) {
      EXPECT_EQ(bar->button(each)->visibleRegion().boundingRect().size(), bar->button(each)->sizeHint());
      tops.insert(bar->button(each)->y());
    }
    return tops.size();
  };
  dialog.show();
  EXPECT_EQ(rows(), 1);
  EXPECT_LT(dialog.height(), dialog.screen()->availableSize().height());
  auto* whole = new QWidget;
  whole->setFixedSize(200, 100);
  ScreenRoom rounded(whole);
  rounded.resize(rounded.sizeHint() - QSize(1, 1));
  rounded.show();
  EXPECT_EQ(whole->visibleRegion().boundingRect().size(), QSize(200, 100));
  column->setAlignment(bar, {});
  dialog.resize(bar->sizeHint().width(), dialog.height());
  EXPECT_EQ(rows(), 2);
}

TEST(ScreenRoomTest, WhatCanBeLowerIsNotScrolledAndWhatCannotIsScrolledInHeightOnly) {
  for (const int least : {100, 3000}) {
    QDialog dialog;
    auto* content = new QWidget;
    auto* text = new QPlainTextEdit;
    text->setMinimumHeight(least);
    auto* column = new QVBoxLayout(content);
    column->addWidget(text);
    column->addSpacing(dialog.screen()->availableSize().height() - 300);
    auto* room = new ScreenRoom(content);
    (new QVBoxLayout(&dialog))->addWidget(room);
    dialog.show();
    QCoreApplication::processEvents();
    EXPECT_EQ(room->verticalScrollBar()->isVisible(), least > 100);
    EXPECT_FALSE(room->horizontalScrollBar()->isVisible());
  }
}

TEST(ScreenRoomTest, TheDialogGrowsWithWhatItsContentComesToSay) {
  QDialog dialog;
  auto* content = new QWidget;
  auto* said = new QLabel;
  (new QHBoxLayout(content))->addWidget(said);
  auto* room = new ScreenRoom(content);
  (new QVBoxLayout(&dialog))->addWidget(room);
  dialog.show();
  said->setText(u"Kontör Miktarı: 1250 "_s.repeated(5));
  EXPECT_TRUE(QTest::qWaitFor([&] { return said->width() >= said->sizeHint().width() && room->viewport()->width() >= content->width(); }));
}

TEST(KeyTipsTest, LettersAreUniqueAndBeginWords) {
  const auto letters = [](const QStringList& captions) {
    QString all;
    for (const QChar letter : keyTipLetters(captions)) all += letter.isNull() ? u'-' : letter;
    return all;
  };
  EXPECT_EQ(letters({u"Yeni Servis Fişi"_s, u"Servis Fişleri"_s, u"Servis Formu"_s, u"Yeni"_s, u"ışık"_s, u"İşlem"_s, u"Şu"_s}), u"YSFEILU"_s)
      << "İ and I are one key, Ş and S too";
  EXPECT_EQ(letters({u"1"_s, u""_s, u"-"_s}), u"ABC"_s) << "digits are left free";
  EXPECT_EQ(letters(QStringList(27, u"Ğ"_s)), u"ĞABCDEFHIJKLMNOPQRSTUVWXYZ-"_s);
}

TEST_F(RibbonTest, LettersRunCommandsAndLeaveTheKeyboardWhereItWas) {
  host.resize(2500, 200);
  host.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&host));
  for (int i = 0; i < commands.size(); ++i) commands[i]->setText(u"%1 komutu"_s.arg(QStringLiteral("ÖBCDEFGHIJLMNP").at(i)));
  commands[1]->setEnabled(false);
  QMenu menu;
  QAction* entry = menu.addAction(u"Şirket"_s);
  QAction* off = menu.addAction(u"Parametre"_s);
  off->setEnabled(false);
  commands[3]->setMenu(&menu);
  editor.setFocus();
  QWindow* window = host.windowHandle();
  const auto alt = [&] {
    QTest::keyPress(window, Qt::Key_Alt, Qt::AltModifier);
    QTest::keyRelease(window, Qt::Key_Alt);
    QCoreApplication::processEvents();
  };
  const auto shown = [] { return !visibleTips().isEmpty(); };

  alt();
  QStringList expected{u"0"_s, u"Ö"_s};
  for (const QChar letter : u"CDEFGHIJLMNP"_s) expected.append(letter);
  expected.sort();
  EXPECT_EQ(visibleTips(), expected) << "without the disabled B";
  alt();
  EXPECT_FALSE(shown());
  EXPECT_TRUE(editor.hasFocus());

  QSignalSpy first(commands[0], &QAction::triggered);
  QSignalSpy disabled(commands[1], &QAction::triggered);
  QTest::keyClick(window, Qt::Key_F10);
  QCoreApplication::processEvents();
  QTest::keyClick(window, Qt::Key_B);
  EXPECT_TRUE(shown()) << "a key without a badge";
  QTest::keyClick(window, Qt::Key_O);
  EXPECT_TRUE(QTest::qWaitFor([&] { return first.count() == 1; })) << "O runs Ö";
  EXPECT_EQ(disabled.count(), 0);
  EXPECT_FALSE(shown());
  EXPECT_TRUE(editor.hasFocus());
  EXPECT_EQ(editor.text(), QString());

  alt();
  QTest::keyClick(window, Qt::Key_Escape);
  EXPECT_FALSE(shown());
  EXPECT_TRUE(editor.hasFocus());

  editor.clearFocus();
  alt();
  QTest::keyClick(window, Qt::Key_Escape);
  EXPECT_EQ(QApplication::focusWidget(), nullptr) << "nothing had the keyboard before";
  editor.setFocus();

  // Alt that belongs to something else.
  QTest::keyPress(window, Qt::Key_Alt, Qt::AltModifier);
  QTest::keyClick(window, Qt::Key_X, Qt::AltModifier);
  QTest::keyRelease(window, Qt::Key_Alt);
  QTest::keyPress(window, Qt::Key_Alt, Qt::AltModifier);
  QTest::mouseClick(&editor, Qt::LeftButton, Qt::AltModifier);
  QTest::keyRelease(window, Qt::Key_Alt);
  QTest::keyPress(window, Qt::Key_Alt, Qt::AltModifier | Qt::ShiftModifier);
  QTest::keyRelease(window, Qt::Key_Alt);
  QCoreApplication::processEvents();
  EXPECT_FALSE(shown());

  // A menu's entries have letters of their own.
  QSignalSpy inMenu(entry, &QAction::triggered);
  alt();
  QStringList inside;
  postGuarded(&menu, [&] {
    inside = visibleTips();
    QTest::keyClick(&menu, Qt::Key_P);
    EXPECT_TRUE(menu.isVisible()) << "disabled";
    QTest::keyClick(&menu, Qt::Key_S);
  }, 200);
  QTest::keyClick(window, Qt::Key_D);
  EXPECT_TRUE(QTest::qWaitFor([&] { return inMenu.count() == 1; }));
  EXPECT_EQ(inside, QStringList{u"Ş"_s});
  EXPECT_FALSE(menu.isVisible());
  EXPECT_FALSE(shown());
  EXPECT_TRUE(editor.hasFocus());
}

TEST(GuardTest, AnErrorInTheMiddleOfAWaitIsToldWhenItsMessageCanBeAnswered) {
  int told = 0;
  QTimer event;
  setUnhandledHandler([&](QObject* sender, const std::exception&) { told += sender == &event; });
  {
    const GuardedPause waiting;
    guarded(&event, [] { throw std::runtime_error("lost"); });
    QCoreApplication::processEvents();
    EXPECT_EQ(told, 0);
  }
  EXPECT_TRUE(QTest::qWaitFor([&] { return told == 1; }));
  setUnhandledHandler({});
}

TEST(FocusLinksTest, AStepOfTheFocusIsToldOnceHoweverOftenTheDialogWasOpened) {
  untieClosedWindows(*qApp);
  QDialog dialog;
  auto* first = new QLineEdit(&dialog);
  auto* second = new QLineEdit(&dialog);
  for (int opening = 0; opening < 5; ++opening) {
    dialog.close();
    dialog.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
  }
  first->setFocus();
  const QSignalSpy steps(qApp, &QGuiApplication::focusObjectChanged);
  second->setFocus();
  EXPECT_EQ(steps.count(), 1);
}

TEST(KeyStatePanelTest, InsertTogglesOncePerPress) {
  KeyStatePanel panel;
  QLineEdit editor;
  editor.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&editor));
  const auto shows = [&](const QString& text) {
    return std::ranges::any_of(panel.findChildren<QLabel*>(), [&](QLabel* label) { return label->text() == text; });
  };
  EXPECT_TRUE(shows(u"INS"_s));
  QTest::keyClick(editor.windowHandle(), Qt::Key_Insert);
  EXPECT_TRUE(shows(u"OVR"_s));
  QTest::keyClick(editor.windowHandle(), Qt::Key_Insert, Qt::ShiftModifier);
  EXPECT_TRUE(shows(u"OVR"_s)) << "Shift+Insert pastes";
  QTest::keyClick(editor.windowHandle(), Qt::Key_Insert);
  EXPECT_TRUE(shows(u"INS"_s));
}

class WindowPlaceTest : public testing::Test {
 protected:
  QTemporaryDir folder;
  QString path = folder.filePath(u"KvbFORM.INI"_s);
  WindowPlace place{path, u"fKvb"_s, u"MAKİNE-1"_s};
  QWidget window;
};

TEST_F(WindowPlaceTest, ComesBackPerMachine) {
  window.setGeometry(60, 70, 400, 300);
  EXPECT_TRUE(place.store(&window));
  QWidget next;
  next.setGeometry(1, 2, 333, 222);
  EXPECT_FALSE(WindowPlace(path, u"fKvb"_s, u"MAKİNE-2"_s).restore(&next));
  EXPECT_EQ(next.geometry(), QRect(1, 2, 333, 222));
  EXPECT_TRUE(place.restore(&next));
  EXPECT_EQ(next.geometry(), QRect(60, 70, 400, 300));
}

TEST_F(WindowPlaceTest, DamagedEntriesLeaveTheWindowAsItIs) {
  for (const QString& entry : {u""_s, u"-1"_s, u"1,2,3"_s, u"a,b,c,d,normal"_s, u"0,0,5,5,normal"_s, u"0,0,400,300,upside"_s,
                               u"99999999999,0,400,300,normal"_s, u"2147483647,0,400,300,normal"_s}) {
    IniFile::write(path, u"fKvb"_s, u"MAKİNE-1"_s, entry);
    window.setGeometry(1, 2, 333, 222);
    EXPECT_FALSE(place.restore(&window)) << entry.toStdString();
    EXPECT_EQ(window.geometry(), QRect(1, 2, 333, 222));
  }
  put(path, QByteArray::fromHex("00ff5b664b76625d0a3d3d0a5b"));
  EXPECT_FALSE(place.restore(&window));
}

TEST_F(WindowPlaceTest, ComesBackOntoAScreenThatExists) {
  const QRect screen = window.screen()->availableGeometry();
  for (const QString& entry : {u"-5000,-5000,400,300,normal"_s, u"90000,100,400,300,normal"_s, u"10,10,90000,90000,normal"_s}) {
    IniFile::write(path, u"fKvb"_s, u"MAKİNE-1"_s, entry);
    ASSERT_TRUE(place.restore(&window));
    EXPECT_TRUE(screen.contains(window.geometry())) << entry.toStdString();
  }
}

}  // namespace
