#include "toolkit/shell/waiting_run.h"

#include "base/guard.h"
#include "toolkit/shell/hourglass.h"

#include <QApplication>
#include <QEventLoop>
#include <QThread>

#include <exception>
#include <memory>

namespace {

/// The window manager's wish to close a window does not count as the user's input; the person repeats it.
class CloseRefusal : public QObject {
 public:
  CloseRefusal() { QCoreApplication::instance()->installEventFilter(this); }

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() != QEvent::Close || !event->spontaneous()) return false;
    event->ignore();
    return true;
  }
};

}  // namespace

void runWhileWaiting(const std::function<void()>& work) {
  const QCoreApplication* application = QCoreApplication::instance();
  if (application == nullptr || QThread::currentThread() != application->thread()) return work();
  std::exception_ptr error;
  const std::unique_ptr<QThread> thread(QThread::create([&] {
    try {
      work();
    } catch (...) {
      error = std::current_exception();
    }
  }));
  const GuardedPause pause;
  const CloseRefusal refusal;
  const Hourglass hourglass;
  QEventLoop loop;
  QObject::connect(thread.get(), &QThread::finished, &loop, &QEventLoop::quit);
  thread->start();
  // A program that is told to end waits for the work as well: it holds what stands on this frame.
  while (!thread->isFinished()) {
    loop.exec(QEventLoop::ExcludeUserInputEvents);
    if (!thread->isFinished()) thread->wait();
  }
  thread->wait();
  if (error) std::rethrow_exception(error);
}
