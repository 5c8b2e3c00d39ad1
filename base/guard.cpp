#include "base/guard.h"

#include "base/exceptions.h"

#include <QCoreApplication>
#include <QPointer>
#include <QTimer>

#include <cstdio>
#include <exception>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace {
UnhandledHandler& handler() {
  static UnhandledHandler instance;
  return instance;
}

struct KeptWork {
  QPointer<QObject> context;
  std::function<void()> work;
};

std::vector<KeptWork>& keptWorks() {
  thread_local std::vector<KeptWork> works;
  return works;
}

int& pauses() {
  thread_local int count = 0;
  return count;
}

void deliver(QObject* sender, const std::exception& error) {
  if (handler())
    handler()(sender, error);
  else
    std::fprintf(stderr, "%s\n", error.what());
}
}  // namespace

UnhandledHandler setUnhandledHandler(UnhandledHandler next) { return std::exchange(handler(), std::move(next)); }

void reportUnhandled(QObject* sender) noexcept {
  try {
    if (GuardedPause::isOn() && QCoreApplication::instance() != nullptr)
      // A message would wait for a click on its button, which is kept until the pause ends.
      return GuardedPause::keep(QCoreApplication::instance(), [error = std::current_exception(), from = QPointer<QObject>(sender)] {
        guarded(from, [&] { std::rethrow_exception(error); });
      });
    try {
      throw;
    } catch (const EAbort&) {
      // Told already by whoever raised it.
    } catch (const std::exception& error) {
      deliver(sender, error);
    } catch (...) {
      deliver(sender, Exception(u"Beklenmeyen hata."_s));
    }
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
  } catch (...) {
    std::fputs("error in the error handler\n", stderr);
  }
}

struct GuardedSlot::Kept {
  std::function<void()> work;
  bool waits = false;  ///< for the end of a pause
};

GuardedSlot::GuardedSlot(QObject* sender, QObject* context, std::function<void()> work)
    : sender_(sender), context_(context), kept_(std::make_shared<Kept>(Kept{std::move(work)})) {}

void GuardedSlot::operator()() const {
  if (!GuardedPause::isOn()) return guarded(sender_, kept_->work);
  // A timer's ticks are one, however often it ticked.
  if (std::exchange(kept_->waits, true)) return;
  GuardedPause::keep(context_, [kept = kept_] {
    kept->waits = false;
    kept->work();
  });
}

void postGuarded(QObject* context, std::function<void()> work, int delayMs) {
  QTimer::singleShot(delayMs, context, [context, work = std::move(work)] { guardedOrKept(context, work); });
}

void guardedOrKept(QObject* context, std::function<void()> work) {
  if (GuardedPause::isOn())
    GuardedPause::keep(context, std::move(work));
  else
    guarded(context, work);
}

GuardedPause::GuardedPause() { ++pauses(); }

GuardedPause::~GuardedPause() {
  if (--pauses() > 0) return;
  for (KeptWork& kept : std::exchange(keptWorks(), {}))
    if (kept.context) postGuarded(kept.context, std::move(kept.work));
}

bool GuardedPause::isOn() { return pauses() > 0; }

void GuardedPause::keep(QObject* context, std::function<void()> work) { keptWorks().push_back({context, std::move(work)}); }
