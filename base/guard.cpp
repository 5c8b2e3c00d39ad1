#include "base/guard.h"

#include "base/exceptions.h"

#include <QTimer>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {
UnhandledHandler& handler() {
  static UnhandledHandler instance;
  return instance;
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

void postGuarded(QObject* context, std::function<void()> work, int delayMs) {
  QTimer::singleShot(delayMs, context, [context, work = std::move(work)] { guarded(context, work); });
}
