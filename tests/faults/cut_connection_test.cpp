#include "base/data/my_query.h"
#include "base/exceptions.h"
#include "tests/faults/cutting_proxy.h"
#include "tests/faults/screen_slip.h"
#include "tests/support/test_database.h"

#include <gmock/gmock.h>

#include <QElapsedTimer>

using namespace Qt::StringLiterals;

namespace {

struct CutCase {
  const char* name;
  bool isNew;
  Cut cut;
};

void PrintTo(const CutCase& one, std::ostream* out) { *out << one.name; }

class CutConnectionTest : public testing::TestWithParam<CutCase> {
 protected:
  CutConnectionTest() : proxy(qEnvironmentVariable("KVTK_TEST_SERVER"), 3313) {
    changed.number = before.number;
    TestDatabase::open(connection);
    connection.Server = u"127.0.0.1"_s;
    connection.Port = proxy.port();
  }

  /// The slip as a user has it on the screen, typed and not yet written.
  std::unique_ptr<ScreenSlip> typedSlip() {
    database.emptyTables();
    connection.Connect();
    auto slip = std::make_unique<ScreenSlip>(connection);
    if (GetParam().isNew) {
      slip->takeIn(changed);
      return slip;
    }
    ScreenSlip earlier(database.connection());
    earlier.takeIn(before);
    EXPECT_FALSE(earlier.save());
    slip->open(before.number);
    slip->change(changed);
    return slip;
  }

  QStringList rowsBefore() const { return GetParam().isNew ? QStringList() : before.rows(); }

  /// Saves and gives the class of the error that came up; empty when none did.
  std::string errorOfSave(ScreenSlip& slip) {
    QElapsedTimer clock;
    clock.start();
    std::string errorClass;
    try {
      if (const auto failure = slip.save()) errorClass = failure->errorClass.toStdString();
    } catch (const Exception& error) {
      errorClass = error.className().toStdString();
    }
    EXPECT_LT(clock.elapsed(), 10'000);
    return errorClass;
  }

  TestDatabase database;
  CuttingProxy proxy;
  TMyConnection connection;
  SlipContent before = sampleSlip(1);
  SlipContent changed = sampleSlip(2);
};

}  // namespace

TEST_P(CutConnectionTest, SaveLeavesAllOrNothing) {
  const auto uncut = typedSlip();
  proxy.arm(0, GetParam().cut);
  ASSERT_EQ(errorOfSave(*uncut), "");
  ASSERT_EQ(storedRows(database.connection()), changed.rows());
  const int packets = proxy.packets();
  ASSERT_GT(packets, 12);  // six statements at least, each with an answer

  for (int packet = 1; packet <= packets; ++packet) {
    SCOPED_TRACE("packet " + std::to_string(packet) + " of " + std::to_string(packets));
    const auto slip = typedSlip();
    const qint64 id = connectionId(connection);
    const QStringList typedParts = slip->shownParts();
    proxy.arm(packet, GetParam().cut);
    ASSERT_EQ(errorOfSave(*slip), "EMyError");
    ASSERT_TRUE(proxy.hasCut());
    ASSERT_TRUE(waitForEnd(database.connection(), id));
    // The last packet is the COMMIT's answer: by then the server has everything.
    const bool isWritten = packet == packets;
    ASSERT_EQ(storedRows(database.connection()), isWritten ? changed.rows() : rowsBefore());

    EXPECT_FALSE(connection.InTransaction());
    EXPECT_TRUE(slip->linesArePending());
    ASSERT_EQ(slip->shownParts(), typedParts);
    EXPECT_EQ(errorOfSave(*slip), "EMyError") << "no statement may connect anew by itself";
    connection.Close();
    connection.Connect();
    EXPECT_EQ(errorOfSave(*slip).empty(), !isWritten);
    ASSERT_EQ(storedRows(database.connection()), changed.rows());
    connection.Close();
  }
}

INSTANTIATE_TEST_SUITE_P(Saves, CutConnectionTest,
                         testing::Values(CutCase{"NewBeforePacket", true, Cut::BeforePacket},
                                         CutCase{"NewWithinPacket", true, Cut::WithinPacket}, CutCase{"NewReset", true, Cut::Reset},
                                         CutCase{"ExistingBeforePacket", false, Cut::BeforePacket},
                                         CutCase{"ExistingWithinPacket", false, Cut::WithinPacket},
                                         CutCase{"ExistingReset", false, Cut::Reset}),
                         [](const auto& one) { return one.param.name; });

TEST(CutLogin, RaisesAndTheNextOneWorks) {
  TestDatabase database;
  CuttingProxy proxy(qEnvironmentVariable("KVTK_TEST_SERVER"), 3313);
  TMyConnection connection;
  TestDatabase::open(connection);
  connection.Server = u"127.0.0.1"_s;
  connection.Port = proxy.port();
  connection.Connect();
  const int packets = proxy.packets();
  for (const Cut cut : {Cut::BeforePacket, Cut::WithinPacket, Cut::Reset})
    for (int packet = 1; packet <= packets; ++packet) {
      SCOPED_TRACE("packet " + std::to_string(packet) + " of " + std::to_string(packets));
      const qint64 id = connectionId(connection);
      connection.Close();
      ASSERT_TRUE(waitForEnd(database.connection(), id));
      proxy.arm(packet, cut);
      EXPECT_THROW(connection.Connect(), EMyError);
      EXPECT_FALSE(connection.Connected());
      ASSERT_NO_THROW(connection.Connect());
    }
}

TEST(ClosedConnection, StatementsRaise) {
  TMyConnection connection;
  TestDatabase::open(connection);
  ScreenSlip slip(connection);
  connection.Close();
  EXPECT_THROW(slip.open(u"1"_s), EDatabaseError);
  EXPECT_THROW(slip.save(), EDatabaseError);
}
