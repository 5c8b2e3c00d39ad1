#pragma once

#include <QtGlobal>

struct SocketEvents {
  bool readable = false;
  bool writable = false;
  explicit operator bool() const { return readable || writable; }
};

/// Waits at most that many milliseconds (negative: without end) for one of the wanted events of a socket, its end among
/// them. Nothing when the time is over.
SocketEvents waitForSocket(qintptr socket, SocketEvents wanted, int timeoutMs);
