#include "tests/faults/screen_slip.h"
#include "tests/support/test.h"
#include "tests/support/test_database.h"

#include <chrono>
#include <random>
#include <thread>

using Clock = std::chrono::steady_clock;

namespace {

/// The program that saves slips, and what it tells; killed at the end of its life if not before.
class SlipSaver {
 public:
  SlipSaver() {
    process_.start(QStringLiteral(SLIP_SAVER));
    while (!process_.canReadLine()) wait();
    connectionId_ = process_.readLine().toLongLong();
  }

  qint64 connectionId() const { return connectionId_; }

  void waitForSaves(int count) {
    for (count += doneSaves(); doneSaves() < count; told_ += process_.readAll()) wait();
  }

  /// Kills it and takes what it has told meanwhile; false when it had ended by itself.
  bool kill() {
    process_.kill();
    process_.waitForFinished();
    told_ += process_.readAll();
    return process_.exitStatus() == QProcess::CrashExit;
  }
  int begunSaves() const { return int(told_.count('(')); }
  int doneSaves() const { return int(told_.count(')')); }

 private:
  void wait() {
    if (!process_.waitForReadyRead()) throw std::runtime_error("the program that saves slips has ended");
  }

  QProcess process_;
  qint64 connectionId_ = 0;
  QByteArray told_;
};

/// Time that a save takes here and now.
Clock::duration saveDuration(TMyConnection& observer) {
  constexpr int saves = 30;
  SlipSaver saver;
  saver.waitForSaves(1);
  const auto begin = Clock::now();
  saver.waitForSaves(saves);
  const auto duration = (Clock::now() - begin) / saves;
  saver.kill();
  waitForEnd(observer, saver.connectionId());
  return duration;
}

QStringList rowsOfSlips(int count) {
  QStringList all;
  for (int number = 1; number <= count; ++number) all += sampleSlip(number).rows();
  all.sort();
  return all;
}

}  // namespace

TEST(KilledProgram, EverySlipIsWholeOrNotThere) {
  constexpr int kills = 200;
  TestDatabase database;
  database.emptyTables();
  const auto duration = saveDuration(database.connection());
  std::mt19937 random(3313);  // the same moments in every run, in parts of a save's time
  std::uniform_real_distribution<double> moment(0, 3);
  int withinSave = 0;
  int takenBack = 0;
  for (int run = 1; run <= kills; ++run) {
    SCOPED_TRACE("kill " + std::to_string(run));
    database.emptyTables();
    SlipSaver saver;
    std::this_thread::sleep_for(duration * moment(random));
    ASSERT_TRUE(saver.kill());
    ASSERT_TRUE(waitForEnd(database.connection(), saver.connectionId()));
    const QStringList stored = storedRows(database.connection());
    // Killed between the COMMIT and the word of it, the program has written one slip more than it told.
    const bool isWithinSave = saver.begunSaves() > saver.doneSaves();
    withinSave += isWithinSave ? 1 : 0;
    if (isWithinSave && stored == rowsOfSlips(saver.begunSaves())) continue;
    takenBack += isWithinSave ? 1 : 0;
    ASSERT_EQ(stored, rowsOfSlips(saver.doneSaves()));
  }
  // The moments must have met saves under way, or nothing was tried.
  EXPECT_GT(withinSave, kills / 2);
  EXPECT_GT(takenBack, kills / 4);
}
