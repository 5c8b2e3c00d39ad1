#pragma once

#include <QElapsedTimer>

struct st_mysql;

/// What a program does while the server lets it wait longer than one notices, on the thread of the statement. The data
/// layer shows nothing itself. None of these may throw or run a statement.
class WaitObserver {
 public:
  virtual ~WaitObserver() = default;
  virtual void waitBegins() = 0;
  /// Comes some fifty times a second, so that windows can be painted.
  virtual void waiting() = 0;
  virtual void waitEnds() = 0;
};

/// Puts an observer in place, or none, and gives back the one before. Without one a statement blocks.
WaitObserver* setWaitObserver(WaitObserver* observer);

/// While one lives, waits are not told to the observer: nobody sees them, and the window stands still.
class UnobservedWait {
 public:
  UnobservedWait() : before_(setWaitObserver(nullptr)) {}
  ~UnobservedWait() { setWaitObserver(before_); }
  UnobservedWait(const UnobservedWait&) = delete;
  UnobservedWait& operator=(const UnobservedWait&) = delete;

 private:
  WaitObserver* before_;
};

/// The waits of one statement: brings the client library's calls to their end, and tells the observer when they take long.
class ServerWait {
 public:
  explicit ServerWait(st_mysql* handle) : handle_(handle) { statement_.start(); }
  ~ServerWait();
  ServerWait(const ServerWait&) = delete;
  ServerWait& operator=(const ServerWait&) = delete;

  /// status: what the library's …_start call gave back; goOn: its …_cont call, which takes the events that came.
  template <class Continue>
  void finish(int status, Continue goOn) {
    while (status != 0) status = goOn(eventsFor(status));
  }

 private:
  int eventsFor(int status);
  void turn();

  st_mysql* handle_;
  QElapsedTimer statement_;
  QElapsedTimer turned_;
  bool isTold_ = false;
};
