#include "base/data/server_wait.h"

#include "base/platform/socket_wait.h"

#include <mysql.h>

#include <algorithm>
#include <limits>
#include <utility>

namespace {

/// Shorter waits go by unnoticed, and most statements take a hundredth of it.
constexpr qint64 patienceMs = 150;
constexpr qint64 turnMs = 20;
/// Between two turns while rows keep coming: each turn costs what painting takes.
constexpr qint64 turnAmongRowsMs = 100;

WaitObserver* observer = nullptr;

}  // namespace

WaitObserver* setWaitObserver(WaitObserver* next) { return std::exchange(observer, next); }

ServerWait::~ServerWait() {
  if (isTold_ && observer != nullptr) observer->waitEnds();
}

int ServerWait::eventsFor(int status) {
  const qint64 begin = statement_.elapsed();
  const qint64 end = (status & MYSQL_WAIT_TIMEOUT) != 0 ? begin + mysql_get_timeout_value_ms(handle_) : std::numeric_limits<int>::max();
  const SocketEvents wanted{(status & MYSQL_WAIT_READ) != 0, (status & MYSQL_WAIT_WRITE) != 0};
  for (qint64 now = begin; now < end; now = statement_.elapsed()) {
    qint64 slice = end - now;
    if (observer != nullptr) slice = std::min(slice, isTold_ ? turnMs : std::max(patienceMs - now, qint64(0)));
    if (const SocketEvents came = waitForSocket(mysql_get_socket(handle_), wanted, int(slice))) {
      if (isTold_ && turned_.elapsed() >= turnAmongRowsMs) turn();
      return (came.readable ? MYSQL_WAIT_READ : 0) | (came.writable ? MYSQL_WAIT_WRITE : 0);
    }
    if (observer != nullptr) turn();
  }
  return MYSQL_WAIT_TIMEOUT;
}

void ServerWait::turn() {
  if (!std::exchange(isTold_, true)) observer->waitBegins();
  observer->waiting();
  turned_.start();
}
