#include "base/environment.h"

#include <QRandomGenerator>
#include <QThread>

#include <chrono>
#include <utility>

QDateTime Environment::now() const { return QDateTime::currentDateTime(); }

quint64 Environment::tickCount() const {
  using namespace std::chrono;
  return quint64(duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count());
}

int Environment::randomBelow(int bound) { return QRandomGenerator::global()->bounded(bound); }

void Environment::sleep(int milliseconds) { QThread::msleep(ulong(milliseconds)); }

namespace {
std::unique_ptr<Environment>& current() {
  static std::unique_ptr<Environment> instance = std::make_unique<Environment>();
  return instance;
}
}  // namespace

Environment& environment() { return *current(); }

ScopedEnvironment::ScopedEnvironment(std::unique_ptr<Environment> replacement)
    : previous_(std::exchange(current(), std::move(replacement))) {}

ScopedEnvironment::~ScopedEnvironment() { current() = std::move(previous_); }
