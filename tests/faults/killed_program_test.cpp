#include "tests/faults/screen_slip.h"
#include "tests/support/test_database.h"

#include <gmock/gmock.h>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <random>
#include <system_error>
#include <thread>

using Clock = std::chrono::steady_clock;

namespace {

/// The program that saves slips, and what it tells; killed at the end of its life if not before.
class SlipSaver {
 public:
  SlipSaver() {
    std::array<int, 2> ends;
    if (pipe2(ends.data(), O_CLOEXEC) != 0) throw std::system_error(errno, std::generic_category(), "pipe");
    output_ = ends[0];
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
    std::string program = SLIP_SAVER;
    std::array<char*, 2> arguments{program.data(), nullptr};
    const int error = posix_spawn(&process_, program.c_str(), &actions, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    close(ends[1]);
    if (error != 0) throw std::system_error(error, std::generic_category(), program);
    QByteArray line;
    for (char letter = readLetter(); letter != '\n'; letter = readLetter()) line += letter;
    connectionId_ = line.toLongLong();
  }
  ~SlipSaver() {
    if (process_ > 0) kill();
    close(output_);
  }
  SlipSaver(const SlipSaver&) = delete;
  SlipSaver& operator=(const SlipSaver&) = delete;

  qint64 connectionId() const { return connectionId_; }

  void waitForSaves(int count) {
    while (count > 0) count -= readLetter() == ')' ? 1 : 0;
  }

  /// Kills it and gives what it has told meanwhile; false when it had ended by itself.
  bool kill() {
    ::kill(process_, SIGKILL);
    int status = 0;
    waitpid(process_, &status, 0);
    process_ = 0;
    std::array<char, 256> buffer;
    for (ssize_t size; (size = read(output_, buffer.data(), buffer.size())) > 0;) told_.append(buffer.data(), size);
    return WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
  }
  int begunSaves() const { return int(told_.count('(')); }
  int doneSaves() const { return int(told_.count(')')); }

 private:
  char readLetter() {
    char letter;
    if (read(output_, &letter, 1) != 1) throw std::runtime_error("the program that saves slips has ended");
    return letter;
  }

  pid_t process_ = 0;
  int output_ = -1;
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
