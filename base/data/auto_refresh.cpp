#include "base/data/auto_refresh.h"

#include "base/data/my_query.h"
#include "base/guard.h"

AutoRefresh::AutoRefresh(TMyQuery& query) : query_(query) {
  timer_.setInterval(standingInterval);
  connectGuarded(&timer_, &QTimer::timeout, &timer_, [this] { tick(); });
}

void AutoRefresh::setOn(bool on) { on ? timer_.start() : timer_.stop(); }

void AutoRefresh::setInterval(std::chrono::milliseconds interval) { timer_.setInterval(interval); }

void AutoRefresh::tick() {
  if (holds_ > 0 || query_.connection().isBusy() || query_.state() != QueryState::Browse || query_.UpdatesPending()) return;
  try {
    query_.refreshIfChanged();
    isTold_ = false;
  } catch (...) {
    if (!std::exchange(isTold_, true)) throw;
  }
}

RefreshHold::RefreshHold(TMyQuery& query) : query_(query) { ++query_.autoRefresh().holds_; }
RefreshHold::~RefreshHold() { --query_.autoRefresh().holds_; }
