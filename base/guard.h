#pragma once

#include <QObject>

#include <functional>
#include <memory>
#include <tuple>
#include <type_traits>
#include <utility>

/// The one handler for what nobody caught. sender is whose event failed (may be null); error is never null.
using UnhandledHandler = std::function<void(QObject* sender, const std::exception& error)>;

/// Sets the application's handler and gives back the one before. Without one, errors go to the standard error stream.
UnhandledHandler setUnhandledHandler(UnhandledHandler handler);

/// Hands the exception in flight to the handler, after the pause that is on. Call inside a catch block only; lets nothing out.
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

/// While one lives, events may be handled in the middle of other work, such as waiting for the server: slots connected by
/// connectGuarded and works posted by postGuarded are kept, and run in their order from the event loop when it ends. It holds
/// for its own thread alone.
class GuardedPause {
 public:
  GuardedPause();
  ~GuardedPause();
  GuardedPause(const GuardedPause&) = delete;
  GuardedPause& operator=(const GuardedPause&) = delete;

  static bool isOn();
  /// Keeps a work for the pause's end; it runs guarded, while context lives. Only while a pause is on.
  static void keep(QObject* context, std::function<void()> work);
};

/// Runs what an event handler has to do: guarded, at once or after the pause that is on.
void guardedOrKept(QObject* context, std::function<void()> work);

/// The slot of a work that needs nothing of what its signal tells; compiled once for all of them.
class GuardedSlot {
 public:
  GuardedSlot(QObject* sender, QObject* context, std::function<void()> work);
  void operator()() const;

 private:
  struct Kept;
  QObject* sender_;
  QObject* context_;
  std::shared_ptr<Kept> kept_;
};

/// The same for a work that takes these; compiled once for all works that take the same.
template <class... Args>
class GuardedSlotOf {
 public:
  GuardedSlotOf(QObject* sender, QObject* context, std::function<void(Args...)> work)
      : sender_(sender), context_(context), work_(std::make_shared<std::function<void(Args...)>>(std::move(work))) {}
  void operator()(Args... args) const {
    if (!GuardedPause::isOn()) return guarded(sender_, [&] { (*work_)(args...); });
    GuardedPause::keep(context_, [work = work_, kept = std::tuple<std::decay_t<Args>...>(args...)] { std::apply(*work, kept); });
  }

 private:
  QObject* sender_;
  QObject* context_;
  std::shared_ptr<std::function<void(Args...)>> work_;
};

/// connect() for every slot of the program: the work runs guarded and only while context lives. It takes nothing, or all that the
/// signal tells.
template <class Sender, class Object, class... Args, class Work>
QMetaObject::Connection connectGuarded(Sender* sender, void (Object::*signal)(Args...), QObject* context, Work work) {
  if constexpr (std::is_invocable_v<Work&>)
    return QObject::connect(sender, signal, context, GuardedSlot(sender, context, std::move(work)));
  else
    return QObject::connect(sender, signal, context, GuardedSlotOf<Args...>(sender, context, std::move(work)));
}

/// Runs work once from the event loop, guarded, while context lives; delay in milliseconds.
void postGuarded(QObject* context, std::function<void()> work, int delayMs = 0);
