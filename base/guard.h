#pragma once

#include <QObject>

#include <functional>
#include <utility>

/// The one handler for what nobody caught. sender is whose event failed (may be null); error is never null.
using UnhandledHandler = std::function<void(QObject* sender, const std::exception& error)>;

/// Sets the application's handler and gives back the one before. Without one, errors go to the standard error stream.
UnhandledHandler setUnhandledHandler(UnhandledHandler handler);

/// Hands the exception in flight to the handler. Call inside a catch block only; lets nothing out.
void reportUnhandled(QObject* sender) noexcept;

/// Runs what an event handler has to do; no exception leaves it, so none crosses a Qt frame.
template <class Work>
void guarded(QObject* sender, Work&& work) noexcept {
  try {
    std::forward<Work>(work)();
  } catch (...) {
    reportUnhandled(sender);
  }
}

/// connect() for every slot of the program: the work runs guarded and only while context lives.
template <class Sender, class Signal, class Work>
QMetaObject::Connection connectGuarded(Sender* sender, Signal signal, QObject* context, Work work) {
  return QObject::connect(sender, signal, context, [sender, work = std::move(work)](auto&&... args) mutable {
    guarded(sender, [&] {
      if constexpr (requires { work(std::forward<decltype(args)>(args)...); })
        work(std::forward<decltype(args)>(args)...);
      else
        work();
    });
  });
}

/// Runs work once from the event loop, guarded, while context lives; delay in milliseconds.
void postGuarded(QObject* context, std::function<void()> work, int delayMs = 0);
