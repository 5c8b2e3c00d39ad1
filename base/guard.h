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

/// connect() for every slot of the program: the work runs guarded and only while context lives.
template <class Sender, class Signal, class Work>
QMetaObject::Connection connectGuarded(Sender* sender, Signal signal, QObject* context, Work work) {
  if constexpr (std::is_invocable_v<Work&>) {
    return QObject::connect(sender, signal, context, GuardedSlot(sender, context, std::move(work)));
  } else {
    auto shared = std::make_shared<Work>(std::move(work));
    return QObject::connect(sender, signal, context, [sender, context, work = std::move(shared)](auto&&... args) requires std::is_invocable_v<Work&, decltype(args)...> {
      if (GuardedPause::isOn())
        GuardedPause::keep(context, [work, kept = std::tuple<std::decay_t<decltype(args)>...>(args...)]() mutable {
          std::apply([&](auto&... each) { (*work)(std::move(each)...); }, kept);
        });
      else
        guarded(sender, [&] { (*work)(std::forward<decltype(args)>(args)...); });
    });
  }
}

/// Runs work once from the event loop, guarded, while context lives; delay in milliseconds.
void postGuarded(QObject* context, std::function<void()> work, int delayMs = 0);
