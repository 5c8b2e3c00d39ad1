#include "base/exceptions.h"
#include "tests/faults/cutting_proxy.h"
#include "tests/faults/screen_slip.h"
#include "tests/support/test.h"
#include "tests/support/test_database.h"

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
      const qint64 id = TestDatabase::idOf(connection);
      connection.Close();
      ASSERT_TRUE(waitForEnd(database.connection(), id));
      proxy.arm(packet, cut);
      EXPECT_THROW(connection.Connect(), EMyError);
      EXPECT_FALSE(connection.Connected());
      ASSERT_NO_THROW(connection.Connect());
    }
}
