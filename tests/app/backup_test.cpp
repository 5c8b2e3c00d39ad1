#include "app/backup_store.h"
#include "tests/support/test.h"
#include "tests/support/test_database.h"

TEST(BackupWarning, TellsFailuresAndThreeDaysWithoutACopy) {
  const QDateTime now(QDate(2026, 11, 23), QTime(9, 0));
  const auto warning = [&](const QDateTime& since, const QDateTime& last, const QString& failure) {
    return BackupRules::warning(BackupState{now, since, last, failure});
  };
  const QDateTime longAgo = now.addDays(-90);
  EXPECT_EQ(warning(longAgo, now.addDays(-3).addSecs(1), {}), QString());
  EXPECT_EQ(warning(longAgo, now.addDays(-3), {}), u"Yedek eski: son yedek: 20.11.2026 (3 gün önce)"_s);
  EXPECT_EQ(warning(now.addDays(-2), {}, {}), QString());
  EXPECT_EQ(warning(longAgo, {}, {}), u"Yedek eski: hiç yedek alınmadı"_s);
  EXPECT_EQ(warning(longAgo, now, u"ROOM"_s), u"Yedek alınamadı: diskte yer yok, son yedek: 23.11.2026"_s);
  EXPECT_EQ(warning(longAgo, now.addDays(-1), u"COPY"_s), u"Yedek alınamadı, son yedek: 22.11.2026 (1 gün önce)"_s);
  EXPECT_TRUE(warning(longAgo, now, u"SECOND"_s).contains(u"ikinci"_s));
  EXPECT_TRUE(warning(longAgo, longAgo, u"SECOND"_s).startsWith(u"Yedek eski"_s));
  EXPECT_EQ(BackupRules::warning({}), QString());
}

TEST(BackupWarning, IsReadFromTheServerThatKeepsARecord) {
  TestDatabase database;
  database.run(u"CREATE TEMPORARY TABLE backup_state SELECT 1 AS ID, NOW() AS SINCE, NOW() - INTERVAL 5 DAY AS LAST_COPY, 'ROOM' AS FAILURE");
  const auto state = BackupStore::read(database.connection());
  ASSERT_TRUE(state);
  EXPECT_EQ(state->lastCopy.daysTo(state->now), 5);
  EXPECT_EQ(state->failure, u"ROOM"_s);
  database.run(u"DELETE FROM backup_state");
  EXPECT_FALSE(BackupStore::read(database.connection()));
}
