#include "toolkit/shell/command_updates.h"

#include "base/guard.h"

#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QPointer>
#include <QTimer>
#include <QWidget>
#include <QWindow>

#include <algorithm>
#include <memory>
#include <vector>

namespace {

constexpr int IdleIntervalMs = 200;

struct Entry {
  QPointer<QWidget> screen;
  QPointer<QAction> action;
  std::function<bool()> isEnabled;
  bool failing = false;
};

bool isMinimized(const QWidget* widget) {
  for (; widget != nullptr; widget = widget->parentWidget())
    if (widget->isMinimized()) return true;
  return false;
}

/// A dialog and the windows opened from it stay usable under it, and so does what shows beside a window-modal one.
bool isBlocked(const QWidget* screen) {
  const QWidget* modal = QApplication::activeModalWidget();
  if (modal == nullptr) return false;
  for (const QWidget* widget = screen; widget != nullptr; widget = widget->parentWidget())
    if (widget == modal) return false;
  if (modal->windowModality() != Qt::WindowModal) return true;
  for (const QWidget* owner = modal->parentWidget(); owner != nullptr; owner = owner->parentWidget())
    if (owner == screen->window()) return true;
  return false;
}

bool isShowing(const QWidget* screen) { return screen != nullptr && screen->isVisible() && !isMinimized(screen); }

class Updater : public QObject {
 public:
  explicit Updater(QObject* parent) : QObject(parent) {
    timer_.setInterval(IdleIntervalMs);
    timer_.setSingleShot(true);  // the pause counts from the end of one round to the start of the next
    connectGuarded(&timer_, &QTimer::timeout, this, [this] { round(); });
  }

  void add(QWidget* screen, QAction* action, std::function<bool()> isEnabled) {
    std::erase_if(entries_, [&](const auto& entry) { return entry->screen == screen && entry->action == action; });
    entries_.push_back(std::make_shared<Entry>(Entry{screen, action, std::move(isEnabled)}));
    screen->installEventFilter(this);
    connectGuarded(action, &QObject::destroyed, this, [this] { dropDead(); });
    connectGuarded(screen, &QObject::destroyed, this, [this] { dropDead(); });
    if (!isShowing(screen)) return;
    update(*entries_.back());
    wake();
  }

  void updateScreen(const QWidget* screen) {
    updateWhere([screen](const Entry& entry) { return entry.screen == screen; });
  }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    // A window that comes back may still count as minimised here; the next round sees it.
    if (event->type() == QEvent::Show || event->type() == QEvent::WindowActivate) {
      wake();
      if (event->type() == QEvent::Show && isShowing(qobject_cast<QWidget*>(watched)))
        updateScreen(qobject_cast<QWidget*>(watched));
    } else if (event->type() == QEvent::ShortcutOverride && (watched->isWindowType() || !event->spontaneous())) {
      const QKeySequence pressed(static_cast<QKeyEvent*>(event)->keyCombination());
      updateWhere([&](const Entry& entry) {
        return isShowing(entry.screen) && !isBlocked(entry.screen) && entry.action->shortcuts().contains(pressed);
      });
    }
    return QObject::eventFilter(watched, event);
  }

 private:
  void dropDead() {
    std::erase_if(entries_, [](const auto& entry) { return entry->screen.isNull() || entry->action.isNull(); });
  }

  /// The shortcut's keys are watched as long as the timer runs.
  void wake() {
    if (timer_.isActive()) return;
    timer_.start();
    qApp->installEventFilter(this);
  }

  void round() {
    const bool anyShows = std::ranges::any_of(entries_, [](const auto& entry) { return isShowing(entry->screen); });
    if (!anyShows) {
      qApp->removeEventFilter(this);
      return;
    }
    updateWhere([](const Entry& entry) { return isShowing(entry.screen) && !isBlocked(entry.screen); });
    timer_.start();
  }

  /// A check may open or close screens, so that the list is walked as it was and every entry looked at anew.
  template <class Condition>
  void updateWhere(Condition condition) {
    for (const auto& entry : std::vector(entries_))
      if (entry->screen && entry->action && condition(*entry)) update(*entry);
  }

  static void update(Entry& entry) {
    const QPointer<QAction> action = entry.action;
    bool enabled = false;
    try {
      enabled = entry.isEnabled();
      entry.failing = false;
    } catch (...) {
      if (!entry.failing) {
        entry.failing = true;
        reportUnhandled(action);
      }
    }
    if (action) action->setEnabled(enabled);
  }

  QTimer timer_;
  std::vector<std::shared_ptr<Entry>> entries_;
};

Updater& updater() {
  static QPointer<Updater> instance;
  if (instance.isNull()) instance = new Updater(qApp);
  return *instance;
}

}  // namespace

void keepUpdated(QWidget* screen, QAction* action, std::function<bool()> isEnabled) {
  updater().add(screen, action, std::move(isEnabled));
}

void updateCommands(QWidget* screen) { updater().updateScreen(screen); }
