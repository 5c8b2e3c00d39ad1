#pragma once

#include "tests/support/test.h"

#include <ctime>
#include <random>

/// Damages samples that a reader takes well.
class Damage {
 public:
  /// marks: what is strewn in.
  Damage(QByteArrayList samples, QByteArrayList marks, quint64 seed)
      : samples_(std::move(samples)), marks_(std::move(marks)), random_(seed) {}

  QByteArray bytes() {
    QByteArray text = samples_[below(int(samples_.size()))];
    for (int hits = below(6); hits > 0; --hits) {
      const int at = below(int(text.size()) + 1);
      switch (below(5)) {
        case 0: text.remove(at, below(8)); break;
        case 1: text.insert(at, char(below(256))); break;
        case 2: text.insert(at, text.mid(below(int(text.size()) + 1), below(60))); break;
        case 3: text.truncate(at); break;
        default: text.insert(at, marks_[below(int(marks_.size()))]);
      }
    }
    return text;
  }

  /// Hands check two damaged samples at a time, as fuzz() does, and gives how often.
  template <class Check>
  static qint64 run(const QByteArrayList& samples, const QByteArrayList& marks, Check check) {
    Damage damage(samples, marks, seed(8903));
    return fuzz([&] {
      const QByteArray bytes = damage.bytes();
      SCOPED_TRACE(bytes.left(200).toPercentEncoding(" |;{}[]:,<>/\\").toStdString());
      check(bytes, damage.bytes());
    });
  }

  /// Takes a step again and again, as long as KVTK_FUZZ_SECONDS or the build says, and gives how often. One that fails fatally is
  /// the last; one that takes five seconds hangs.
  template <class Step>
  static qint64 fuzz(Step step) {
    QElapsedTimer whole;
    whole.start();
    qint64 count = 0;
    do {
      SCOPED_TRACE(count);
      const std::clock_t begin = std::clock();  // of this process alone, however busy the machine is
      step();
      if (testing::Test::HasFatalFailure()) break;
      EXPECT_LT(std::clock() - begin, 5 * CLOCKS_PER_SEC) << "hangs";
      ++count;
    } while (whole.elapsed() < setting("KVTK_FUZZ_SECONDS", FUZZ_SECONDS) * 1000);
    return count;
  }

  static quint64 seed(qint64 usual) { return quint64(setting("KVTK_FUZZ_SEED", usual)); }

 private:
  int below(int bound) { return int(random_() % quint64(bound)); }

  static qint64 setting(const char* name, qint64 usual) {
    bool isNumber = false;
    const qint64 number = qEnvironmentVariable(name).toLongLong(&isNumber);
    return isNumber ? number : usual;
  }

  QByteArrayList samples_;
  QByteArrayList marks_;
  std::mt19937_64 random_;
};
