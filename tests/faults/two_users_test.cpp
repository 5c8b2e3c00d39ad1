// Two workstations at one database at the same moment, each on a thread of its own.
#include "base/exceptions.h"
#include "tests/faults/screen_slip.h"
#include "tests/support/test.h"
#include "tests/support/test_database.h"

#include <latch>
#include <thread>

namespace {

class TwoUsersTest : public testing::Test {
 protected:
  TwoUsersTest() { database.emptyTables(); }

  /// Does both works at one moment; what they came to, an error's message or nothing.
  template <class Ayse, class Bora>
  static QStringList together(Ayse aysesWork, Bora borasWork) {
    std::latch start(2);
    const auto outcome = [&start](auto& work, QString& said) {
      start.arrive_and_wait();
      try {
        work();
      } catch (const Exception& error) {
        said = error.message();
      }
    };
    QStringList said{QString(), QString()};
    std::thread other([&] { outcome(borasWork, said[1]); });
    outcome(aysesWork, said[0]);
    other.join();
    return said;
  }
  static auto saving(ScreenSlip& slip) {
    return [&slip] {
      if (const auto failure = slip.save()) throw EDatabaseError(failure->message);
    };
  }
  /// Rows of the slips' other tables that belong to none.
  QString strayRows() {
    return database.rows(u"select (select count(*) from foto where FT_TS_ID not in (select TS_ID from teknikservis)) + "
                         u"(select count(*) from notlar where SF_TS_ID not in (select TS_ID from teknikservis)) + "
                         u"(select count(*) from teknikservis where (select count(*) from foto where FT_TS_ID = TS_ID) <> 1)"_s);
  }

  TestDatabase database;
  TMyConnection& ayse = database.connection();
  TMyConnection& bora = database.secondConnection();
};

}  // namespace

TEST_F(TwoUsersTest, SavesAtTheSameMomentHinderEachOtherByTheNumberOnly) {
  for (int round = 0; round < 40; ++round) {
    SCOPED_TRACE(round);
    const bool isSameNumber = round % 2 == 0;
    ScreenSlip first(ayse, sampleSlip(round));
    ScreenSlip second(bora, sampleSlip(isSameNumber ? round : 1000 + round));
    const QStringList said = together(saving(first), saving(second));
    ASSERT_EQ(said.count(QString()), isSameNumber ? 1 : 2) << qPrintable(said.join(u" / "_s));
    EXPECT_EQ(said.join(QString()).contains(u"for key 'TS_NO'"_s), isSameNumber) << qPrintable(said.join(u" / "_s));
  }
  // Two slips that stand side by side in every table.
  const QStringList keys = database.rows(u"select TS_ID from teknikservis order by TS_ID limit 2"_s).split(u';');
  for (int round = 0; round < 40; ++round) {
    SCOPED_TRACE(round);
    ScreenSlip first(ayse, keys[0].toLongLong());
    ScreenSlip second(bora, keys[1].toLongLong());
    ASSERT_EQ(together(saving(first), saving(second)), QStringList({QString(), QString()}));
  }
  EXPECT_EQ(strayRows(), u"0"_s);
}

TEST_F(TwoUsersTest, OneDeletesWhatTheOtherSaves) {
  for (int round = 0; round < 40; ++round) {
    SCOPED_TRACE(round);
    ScreenSlip fresh(ayse, sampleSlip(round));
    ASSERT_FALSE(fresh.save());
    const qint64 key = database.rows(u"select TS_ID from teknikservis"_s).toLongLong();
    ScreenSlip kept(ayse, key);
    ScreenSlip doomed(bora, key);
    const QStringList said = together(saving(kept), [&doomed] { doomed.remove(); });
    EXPECT_TRUE(said[0].isEmpty() || said[0].endsWith(u"failed. Found 0 records"_s)) << qPrintable(said[0]);
    EXPECT_EQ(database.rows(u"select count(*) from teknikservis"_s) + strayRows(), u"00"_s) << qPrintable(said.join(u" / "_s));
  }
}
