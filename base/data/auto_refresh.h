#pragma once

#include <QTimer>

#include <chrono>

class TMyQuery;

/// Reads a query's rows again from time to time, while the query is open with nothing in edit or pending. Off at first.
/// A failure goes to the application's handler once, then to nobody until the server has answered again.
class AutoRefresh {
 public:
  static constexpr std::chrono::seconds standingInterval{60};

  /// The query must outlive this object.
  explicit AutoRefresh(TMyQuery& query);
  AutoRefresh(const AutoRefresh&) = delete;
  AutoRefresh& operator=(const AutoRefresh&) = delete;

  void setOn(bool on);
  bool isOn() const { return timer_.isActive(); }
  void setInterval(std::chrono::milliseconds interval);
  std::chrono::milliseconds interval() const { return timer_.intervalAsDuration(); }

 private:
  friend class RefreshHold;
  void tick();

  TMyQuery& query_;
  QTimer timer_;
  bool isTold_ = false;  ///< that the server does not answer
  int holds_ = 0;
};

/// No automatic refresh of a query while this lives: somebody walks over its rows.
class RefreshHold {
 public:
  explicit RefreshHold(TMyQuery& query);
  ~RefreshHold();
  RefreshHold(const RefreshHold&) = delete;
  RefreshHold& operator=(const RefreshHold&) = delete;

 private:
  TMyQuery& query_;
};
