#include "bench/soak/hands.h"

#include "app/kvbankUnit.h"
#include "base/conflict_text.h"
#include "base/guard.h"
#include "comm/fGelenAramalarUnit.h"
#include "reminders/reminder_window.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QThread>

#include <algorithm>
#include <atomic>
#include <memory>
#include <semaphore>

using namespace Qt::StringLiterals;

namespace {

constexpr int tickMs = 5;
constexpr int readingMs = 20;  ///< a message stands that long before its button is pressed
constexpr std::chrono::seconds homeTime(90);

using Done = std::binary_semaphore;

/// Told when the last one who holds it is through, however that ends.
std::shared_ptr<void> teller(const std::shared_ptr<Done>& done) {
  return {nullptr, [done](void*) { done->release(); }};
}

bool isIdle() { return QThread::currentThread()->loopLevel() == 1 && QApplication::activePopupWidget() == nullptr; }

/// One window or popup less; true when nothing is left.
bool closeOne() {
  if (QWidget* popup = QApplication::activePopupWidget()) return !popup->close();
  if (QDialog* dialog = dialogInFront()) {
    dialog->reject();
    return false;
  }
  for (QWidget* window : {static_cast<QWidget*>(fHatirlaForm), static_cast<QWidget*>(fGelenAramalar)}) window->close();
  const QWidgetList slips = fKvb->childWindows();
  if (slips.isEmpty()) return isIdle();
  slips.back()->parentWidget()->close();
  return false;
}

/// Presses the button once the message is in front: another one may have come up over it. isOpen lives as long as the message.
void answer(const QString& message, const QString& caption, const std::weak_ptr<bool>& isOpen) {
  postGuarded(
      qApp,
      [message, caption, isOpen] {
        if (isOpen.expired()) return;
        answer(message, caption, isOpen);
        const QDialog* dialog = dialogInFront();
        if (dialog == nullptr) return;
        const QList<QLabel*> texts = dialog->findChildren<QLabel*>();
        if (std::none_of(texts.begin(), texts.end(), [&](const QLabel* text) { return text->text() == message; })) return;
        for (QPushButton* button : dialog->findChildren<QPushButton*>())
          if (button->text() == caption) return button->click();
      },
      readingMs);
}

}  // namespace

void Hands::run(const std::function<void()>& work, std::chrono::seconds time) {
  const auto done = std::make_shared<Done>(0);
  {
    const std::shared_ptr<void> told = teller(done);
    QMetaObject::invokeMethod(qApp, [work, told] { guardedOrKept(qApp, [work, told] { work(); }); }, Qt::QueuedConnection);
  }
  if (!done->try_acquire_for(time)) throw NotReached("a work did not end");
}

void Hands::start(const std::function<void()>& work) {
  QMetaObject::invokeMethod(qApp, [work] { guardedOrKept(qApp, work); }, Qt::QueuedConnection);
}

bool Hands::waitFor(const std::function<bool()>& question, std::chrono::seconds time) {
  const auto end = std::chrono::steady_clock::now() + time;
  for (;;) {
    const auto answer = std::make_shared<bool>(false);
    run([&question, answer] { *answer = question(); });
    if (*answer) return true;
    if (std::chrono::steady_clock::now() > end) return false;
    QThread::msleep(tickMs);
  }
}

bool Hands::open(const std::function<void()>& work) {
  const auto through = std::make_shared<std::atomic<bool>>(false);
  start([work, through] {
    const std::shared_ptr<void> told(nullptr, [through](void*) { *through = true; });
    work();
  });
  waitFor([through] { return *through || dialogInFront() != nullptr; });
  return !*through;
}

void Hands::goHome() {
  if (!waitFor([] { return closeOne(); }, homeTime)) throw NotReached("windows do not close");
}

QDialog* dialogInFront() { return qobject_cast<QDialog*>(QApplication::activeModalWidget()); }

void runCommand(const QString& objectName) {
  QAction* command = fKvb->command(objectName);
  if (command->isEnabled()) command->trigger();
}

void runCommandIn(const QObject& window, const QString& objectName) {
  auto* command = window.findChild<QAction*>(objectName);
  if (command != nullptr && command->isEnabled()) command->trigger();
}

int Answers::runTaskDialog(QWidget* owner, const TaskDialogRequest& request) {
  // Whoever is asked whether to write over another one's row says now this and now that; everything else is confirmed.
  const bool givesUp = request.text == ConflictText::changedMeanwhile() && chance_.oneIn(2);
  const auto isOpen = std::make_shared<bool>(true);
  answer(request.text, (givesUp ? request.buttons.back() : request.buttons.front()).caption, isOpen);
  return DialogDriver::runTaskDialog(owner, request);
}

QString Answers::askText(QWidget*, const QString&, const QString&) { return u"sahip@torvane.example"_s; }
