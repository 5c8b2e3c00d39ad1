#include "demo/screen_hands.h"

#include "toolkit/shell/ribbon_button.h"
#include "toolkit/shell/ribbon_group.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QMenu>
#include <QPixmap>
#include <QProcess>
#include <QScreen>
#include <QScrollArea>
#include <QThread>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {

constexpr int settleMs = 80;  ///< in which keys that were pressed before have come to the program: they may move what is clicked on

/// Widgets go by their own name, buttons of a command by the command's.
bool goesBy(const QWidget& widget, const QString& objectName) {
  const auto* button = qobject_cast<const QToolButton*>(&widget);
  const QAction* command = button != nullptr ? button->defaultAction() : nullptr;
  return widget.objectName() == objectName || (command != nullptr && command->objectName() == objectName);
}

/// The button of the command of that name in a group of the ribbon, or null.
const RibbonButton* commandOf(const RibbonGroup& group, const QString& objectName) {
  for (const RibbonButton* button : group.buttons())
    if (goesBy(*button, objectName)) return button;
  return nullptr;
}

/// Where the ribbon has folded that command away, by its page or its group; null when it stands anywhere in sight.
RibbonGroup* foldedGroupOf(const QString& objectName) {
  if (visibleWidget(objectName) != nullptr) return nullptr;
  for (QWidget* widget : QApplication::allWidgets())
    if (auto* group = qobject_cast<RibbonGroup*>(widget); group != nullptr && commandOf(*group, objectName) != nullptr) return group;
  return nullptr;
}

/// Small screens scroll.
void bringIntoSight(const QString& objectName) {
  for (QWidget* widget : QApplication::allWidgets()) {
    if (!goesBy(*widget, objectName) || !widget->isVisible()) continue;
    for (QWidget* each = widget->parentWidget(); each != nullptr; each = each->parentWidget())
      if (auto* area = qobject_cast<QScrollArea*>(each)) area->ensureWidgetVisible(widget);
  }
}

}  // namespace

QWidget* visibleWidget(const QString& objectName) {
  for (QWidget* widget : QApplication::allWidgets())
    if (goesBy(*widget, objectName) && widget->isVisible() && !widget->visibleRegion().isEmpty()) return widget;
  return nullptr;
}

void chooseFromMenu(ScreenHands& hands, const QString& caption, const QString& picture) {
  hands.waitFor(u"menu with "_s + caption, [] { return QApplication::activePopupWidget() != nullptr; });
  for (int step = 0; step < 20; ++step) {
    hands.press({u"Down"_s});
    const auto stands = hands.ask<bool>([&] {
      const auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
      return menu != nullptr && menu->activeAction() != nullptr && menu->activeAction()->text().remove(u'&') == caption;
    });
    if (!stands) continue;
    if (!picture.isEmpty()) hands.picture(picture);
    return hands.press({u"Return"_s});
  }
  throw StationMissed("no entry " + caption.toStdString());
}

bool isInFront(const QString& title) {
  const QWidget* dialog = QApplication::activeModalWidget();
  return dialog != nullptr && dialog->windowTitle() == title;
}

ScreenHands::ScreenHands(QString pictureFolder) : pictureFolder_(std::move(pictureFolder)) {}

void ScreenHands::onMainThread(const std::function<void()>& work) {
  QMetaObject::invokeMethod(qApp, work, Qt::BlockingQueuedConnection);
}

void ScreenHands::waitFor(const QString& station, const std::function<bool()>& question, int seconds) {
  QElapsedTimer timer;
  timer.start();
  while (!ask<bool>(question)) {
    if (timer.elapsed() > seconds * 1000) {
      picture(u"missed"_s);
      throw StationMissed("station not reached: " + station.toStdString());
    }
    pause(30);
  }
}

void ScreenHands::tool(const QStringList& arguments) {
  QProcess process;
  process.start(u"xdotool"_s, arguments);
  if (!process.waitForFinished(60000) || process.exitCode() != 0) throw StationMissed("xdotool failed");
}

void ScreenHands::awaitKeyboard() {
  waitFor(u"window with the keyboard"_s, [] {
    const QWidget* modal = QApplication::activeModalWidget();
    const QWidget* active = QApplication::activeWindow();
    return QApplication::activePopupWidget() != nullptr || (active != nullptr && (modal == nullptr || active == modal));
  });
}

void ScreenHands::press(const QStringList& keys) {
  awaitKeyboard();
  tool(QStringList{u"key"_s, u"--delay"_s, u"15"_s} + keys);
}

void ScreenHands::type(const QString& text) {
  awaitKeyboard();
  tool({u"type"_s, u"--delay"_s, u"12"_s, u"--"_s, text});
}

void ScreenHands::click(const QString& objectName) {
  pause(settleMs);
  if (const auto group = ask<RibbonGroup*>([&] { return foldedGroupOf(objectName); }); group != nullptr) {
    if (!ask<bool>([&] { return group->isVisible(); })) press({u"F10"_s});  // the page folds again when the keyboard leaves it
    waitFor(u"ribbon of "_s + objectName, [&] { return group->isVisible(); });
    if (ask<bool>([&] { return group->mode() == RibbonGroupMode::Collapsed; })) {
      clickInto([&] { return group->dropDownButton(); });
      chooseFromMenu(*this, ask<QString>([&] { return commandOf(*group, objectName)->text(); }));
      return;
    }
  }
  waitFor(u"control "_s + objectName, [&] {
    bringIntoSight(objectName);
    return visibleWidget(objectName) != nullptr;
  });
  clickInto([&] { return visibleWidget(objectName); });
}

void ScreenHands::clickInto(const std::function<QWidget*()>& find) {
  const QPoint place = ask<QPoint>([&] {
    const QWidget* widget = find();
    return widget->mapToGlobal(widget->rect().center()) * widget->devicePixelRatio();
  });
  tool({u"mousemove"_s, QString::number(place.x()), QString::number(place.y()), u"click"_s, u"1"_s});
}

void ScreenHands::picture(const QString& name) {
  pause(150);
  const QString file = QDir(pictureFolder_).filePath(u"%1-%2.png"_s.arg(++pictures_, 2, 10, QChar(u'0')).arg(name));
  if (!ask<bool>([&] { return QApplication::primaryScreen()->grabWindow(0).save(file); }))
    throw StationMissed("picture not written: " + file.toStdString());
}

void ScreenHands::pause(int milliseconds) { QThread::msleep(ulong(milliseconds)); }
