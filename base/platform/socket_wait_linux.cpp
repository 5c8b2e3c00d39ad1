#include "base/platform/socket_wait.h"

#include <poll.h>

SocketEvents waitForSocket(qintptr socket, SocketEvents wanted, int timeoutMs) {
  pollfd waiting{int(socket), short((wanted.readable ? POLLIN : 0) | (wanted.writable ? POLLOUT : 0)), 0};
  if (poll(&waiting, 1, timeoutMs) <= 0) return {};
  // A socket that has ended or failed is handed on: the next read or write tells why.
  const bool ended = (waiting.revents & (POLLERR | POLLHUP | POLLNVAL)) != 0;
  return {wanted.readable && (ended || (waiting.revents & POLLIN) != 0), wanted.writable && (ended || (waiting.revents & POLLOUT) != 0)};
}
