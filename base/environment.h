#pragma once

#include <QDateTime>

#include <memory>

/// The one door to what a run cannot repeat: clock, random numbers, pauses. Tests put a fixed one in its place.
class Environment {
 public:
  virtual ~Environment() = default;
  /// Local time of the workstation.
  virtual QDateTime now() const;
  /// Milliseconds since the system started.
  virtual quint64 tickCount() const;
  /// Random integer from 0 to bound - 1.
  virtual int randomBelow(int bound);
  /// Blocks the thread for that many milliseconds.
  virtual void sleep(int milliseconds);

  QDate today() const { return now().date(); }
};

Environment& environment();

/// Puts another environment in place for as long as this object lives.
class ScopedEnvironment {
 public:
  explicit ScopedEnvironment(std::unique_ptr<Environment> replacement);
  ~ScopedEnvironment();
  ScopedEnvironment(const ScopedEnvironment&) = delete;
  ScopedEnvironment& operator=(const ScopedEnvironment&) = delete;

 private:
  std::unique_ptr<Environment> previous_;
};
