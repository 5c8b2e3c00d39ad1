#pragma once

#include "base/environment.h"

/// A clock that stands still, a tick counter and random numbers that are known.
class FixedEnvironment : public Environment {
 public:
  explicit FixedEnvironment(QDateTime moment = QDateTime(QDate(2020, 3, 5), QTime(8, 7, 6))) : moment_(std::move(moment)) {}
  QDateTime now() const override { return moment_; }
  quint64 tickCount() const override { return 123456; }
  int randomBelow(int bound) override { return (next_ = next_ + 41) % bound; }
  void sleep(int) override {}

 private:
  QDateTime moment_;
  int next_ = 0;
};
