#include "base/platform/server_check.h"

#include <QElapsedTimer>

#include <fcntl.h>
#include <netdb.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <memory>

namespace {

bool ready(int handle, short event, int timeoutMs) {
  pollfd waiting{handle, event, 0};
  return timeoutMs > 0 && poll(&waiting, 1, timeoutMs) == 1 && (waiting.revents & event) != 0;
}

/// The server speaks first: one byte of its greeting is answer enough.
bool greets(const addrinfo& address, int timeoutMs) {
  QElapsedTimer timer;
  timer.start();
  const int handle = socket(address.ai_family, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
  if (handle < 0) return false;
  connect(handle, address.ai_addr, address.ai_addrlen);
  char first = 0;
  const bool answered = ready(handle, POLLOUT, timeoutMs) && ready(handle, POLLIN, timeoutMs - int(timer.elapsed())) &&
                        recv(handle, &first, 1, 0) == 1;
  close(handle);
  return answered;
}

}  // namespace

bool serverAnswers(const QString& host, quint16 port, int timeoutMs) {
  addrinfo hints{};
  hints.ai_socktype = SOCK_STREAM;
  addrinfo* found = nullptr;
  const QByteArray service = QByteArray::number(port);
  if (getaddrinfo(host.toUtf8().constData(), service.constData(), &hints, &found) != 0) return false;
  const std::unique_ptr<addrinfo, decltype(&freeaddrinfo)> owner(found, freeaddrinfo);
  QElapsedTimer timer;
  timer.start();
  for (const addrinfo* address = found; address != nullptr; address = address->ai_next)
    if (greets(*address, timeoutMs - int(timer.elapsed()))) return true;
  return false;
}
