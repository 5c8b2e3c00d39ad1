// From a datagram to the notice on the screen.
#include "app/call_listener.h"
#include "app/kvbankUnit.h"
#include "app/ports.h"
#include "base/guard.h"
#include "comm/http_exchange.h"
#include "simulator/telephone_monitor.h"
#include "tests/support/screen_test.h"
#include "toolkit/shell/passing_notice.h"

namespace {

QString labelOf(const PassingNotice& notice, const QString& name) {
  const auto* label = notice.panel() ? notice.panel()->findChild<QLabel*>(name) : nullptr;
  return label ? label->text() : u"(none)"_s;
}

}  // namespace

TEST(CallListener, FirstAtOnceAndTheLastOfAFlood) {
  QStringList told;
  CallListener listener([&told](const CallerText::Notice& call) { told += call.title; }, nullptr);
  listener.start(0);
  const quint16 port = listener.port();
  QElapsedTimer clock;
  clock.start();
  TelephoneMonitor::announce("a|b|c|d|1|ILK|", port);
  for (int i = 0; i < 1000; ++i) {
    TelephoneMonitor::announce(QByteArray(i * 31 % 5000, char(i)), port);
    if (i % 20 == 0) QCoreApplication::processEvents();
  }
  TelephoneMonitor::announce("a|b|c|d|1|SON|", port);
  EXPECT_TRUE(QTest::qWaitFor([&] { return told.contains(u"SON"_s); }, 5000));
  EXPECT_EQ(told.last(), u"SON"_s);
  EXPECT_LE(told.size(), 4 + clock.elapsed() / 100) << "it rests behind each one";
  TelephoneMonitor::announce({}, port);
  EXPECT_TRUE(QTest::qWaitFor([&] { return told.last() == QString(10, u'X'); }, 5000));

  CallListener second([](const CallerText::Notice&) {}, nullptr);
  EXPECT_THROW(second.start(port), ENetworkError);
}

TEST(PassingNotice, ShowsPassesAndLeavesTheKeyboardAlone) {
  QWidget window;
  auto* box = new QLineEdit(&window);
  window.resize(400, 300);
  window.show();
  box->setFocus();
  if (!QTest::qWaitForWindowActive(&window)) ADD_FAILURE();
  PassingNotice notice(&window, nullptr);
  int passed = 0;
  connectGuarded(&notice, &PassingNotice::passed, &window, [&passed] { ++passed; });

  notice.show(u"Gelen Çağrı"_s, u"01.02.2026 10:15\r\n0(212) 123 4567"_s, 10000);
  notice.show(u"<b>Veli</b>"_s, u"05\r\n\r\n01.02.2026"_s, 200);
  EXPECT_EQ(labelOf(notice, u"passingNoticeTitle"_s), u"<b>Veli</b>"_s);
  EXPECT_EQ(labelOf(notice, u"passingNoticeBody"_s), u"05\n\n01.02.2026"_s);
  const QRect screen = window.screen()->availableGeometry();
  EXPECT_TRUE(screen.contains(notice.panel()->frameGeometry()));
  EXPECT_GT(notice.panel()->x(), screen.center().x());
  QCoreApplication::processEvents();
  EXPECT_EQ(QApplication::activeWindow(), &window);
  EXPECT_TRUE(box->hasFocus());
  EXPECT_TRUE(QTest::qWaitFor([&] { return passed == 1; }, 5000));
  EXPECT_FALSE(notice.isUp());

  notice.show(QString(100000, u'W'), QString(3000, QChar(0)) + QString(5000, u'\n') + QString(100000, u'x'), 10000);
  EXPECT_TRUE(screen.contains(notice.panel()->frameGeometry()));
  QTest::mouseClick(notice.panel(), Qt::LeftButton);
  EXPECT_EQ(passed, 2);
}

TEST(Workspace, CallComesUpAndTheListReadsAnew) {
  const TfKvb workspace;
  int refreshed = 0;
  ports().refreshCalls = [&refreshed] { ++refreshed; };
  fKvb->show();
  fKvb->Timer1->stop();
  fKvb->UDPCallerID->start(0);
  TelephoneMonitor::announce("01.02.2026|10:15|1|02121234567|0|", fKvb->UDPCallerID->port());
  EXPECT_TRUE(QTest::qWaitFor([] { return fKvb->callNotice()->isUp(); }, 5000));
  EXPECT_EQ(refreshed, 1);
  EXPECT_EQ(labelOf(*fKvb->callNotice(), u"passingNoticeBody"_s), u"01.02.2026 10:15\n0(212) 123 4567"_s);
  ports().refreshCalls = std::function<void()>();
}
