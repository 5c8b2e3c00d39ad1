#include "app/quendUtils.h"
#include "base/data/my_query.h"
#include "comm/fGelenAramalarUnit.h"
#include "simulator/telephone_monitor.h"
#include "tests/service/slip_form_fixture.h"

TEST_F(SlipFormTest, TheCallListShowsTodaysCallsWithTheirCustomersAndFollowsNewOnes) {
  run(u"DELETE FROM callerid");
  run(u"INSERT INTO cari (CA_AD, CA_CEP) VALUES ('AYŞE', '05001112233'), ('FATMA', '05001112233')");
  run(u"INSERT INTO callerid (cid_tarih, cid_saat, cid_hat, cid_telefon) VALUES (CURDATE(), '09:00', '1', '02121234567'), "
      "(DATE_SUB(CURDATE(), INTERVAL 1 DAY), '09:00', '1', '05001112233')");
  TfGelenAramalar list(&workspace);
  ports().refreshCalls();  // is not on the screen: nothing is read
  EXPECT_FALSE(list.qCaller.Active());
  list.Giris();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&list));
  const QPoint corner = workspace.mapToGlobal(QPoint(workspace.width(), workspace.height()));
  EXPECT_EQ(list.frameGeometry().bottomRight() + QPoint(1, 54), corner);
  GridModel* model = list.grid()->model();
  ASSERT_EQ(model->rowCount(), 1);
  EXPECT_EQ(list.qCaller.RecordCount(), 1) << "yesterday's are not even read";
  EXPECT_EQ(model->index(0, model->columnOf(u"cid_telefon"_s)).data().toString(), u"0(212) 123 4567"_s);
  list.grid()->clearFilter();
  EXPECT_EQ(model->rowCount(), 3) << "one row for each customer of the number";
  TelephoneMonitor::ring(database.connection(), 2, u"05001112233"_s);
  workspace.UDPCallerIDUDPRead(u"a"_s, u"b"_s);
  EXPECT_EQ(model->rowCount(), 5);
  TelephoneMonitor::ring(database.connection(), 2, u"05001112233"_s);
  workspace.UDPCallerIDUDPRead(u"a"_s, u"b"_s);
  EXPECT_EQ(model->rowCount(), 5) << "the list rests after a reading";
  EXPECT_TRUE(QTest::qWaitFor([&] { return model->rowCount() == 7; }));
  QTest::keyClick(list.grid()->view(), Qt::Key_Escape);
  EXPECT_FALSE(list.qCaller.Active());
  list.Giris();
  EXPECT_EQ(model->rowCount(), 5);
  list.close();
  QFile::remove(u"GelenArama.INI"_s);
  run(u"DELETE FROM callerid");
}
