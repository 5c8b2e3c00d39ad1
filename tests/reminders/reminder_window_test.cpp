#include "base/data/auto_refresh.h"
#include "base/data/my_query.h"
#include "base/data/server_wait.h"
#include "base/date_text.h"
#include "base/environment.h"
#include "reminders/reminder_window.h"
#include "service/slip_hooks.h"
#include "tests/cards/cards_fixture.h"
#include "toolkit/edits/date_edit.h"
#include "toolkit/edits/balloon.h"
#include "toolkit/grid/data_grid.h"
#include "toolkit/grid/grid_view.h"
#include "toolkit/grid/table_content.h"
#include "toolkit/shell/command_updates.h"
#include "toolkit/shell/edge_snap.h"

namespace {

class ReminderWindowTest : public CardsTest {
 protected:
  void SetUp() override {
    CardsTest::SetUp();
    run(u"INSERT INTO cari (CA_ID, CA_AD, CA_CEP) VALUES (1, 'IŞIL KAYA', '0532')");
    run(u"INSERT INTO teknikservis (TS_ID, TS_NO, TS_MUSTERI, TS_CEP, TS_TURU, TS_HATIRLATMA_TARIH, TS_HATIRLATMA_NOTU) VALUES "
        u"(1, '100', 'A', '0555', 'TESLİM EDİLDİ', CURDATE(), 'ARA'), (2, '101', 'B', NULL, 'ARIZA KABUL', CURDATE() + INTERVAL 1 DAY, 'YARIN')");
    run(u"INSERT INTO teknikservis (TS_ID, TS_NO, TS_TURU, TS_DISSERVIS_CIKIS, TS_DISSERVIS_GIRIS, TS_DISSERVIS_TESLIM_SURE) VALUES "
        u"(7, '107', 'DIŞ SERVİSTE', CURDATE() - INTERVAL 9 DAY, '0000-00-00', 7), (8, '108', 'DIŞ SERVİSTE', CURDATE() - INTERVAL 19 DAY, '0000-00-00', 7)");
    run(u"INSERT INTO sozlesme (SOZ_NO, SOZ_CA_ID_REF, SOZ_BAS_TARIH, SOZ_BIT_TARIH, SOZ_HATIRLA_TARIH, SOZ_HATIRLA_DONEM, SOZ_STATU, SOZ_MESAFE) "
        u"VALUES ('500', 1, CURDATE(), CURDATE() + INTERVAL 1 YEAR, CURDATE(), 5, 'AKTİF', 12)");
    ports().openSlip = [this](qint64 id) { opened.append(QString::number(id)); };
  }
  void show() {
    window.Show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  }
  std::string cells(DataGrid& grid, int columns) {
    QStringList lines;
    const auto content = grid.content(false);
    for (int row = 0; row < content->rowCount(); ++row) {
      QStringList texts;
      for (int column = 0; column < columns; ++column) texts.append(content->text(row, column));
      lines.append(texts.join(u'|'));
    }
    return lines.join(u';').toStdString();
  }
  std::string numbers() { return shown(window.qServis, u"TS_NO"_s).join(u' ').toStdString(); }
  static void typeDate(DateEdit& box, const QString& text) {
    box.line()->setFocus();
    box.line()->selectAll();
    QTest::keyClick(box.line(), Qt::Key_Delete);
    QTest::keyClicks(box.line(), text);
    QTest::keyClick(box.line(), Qt::Key_Return);
  }

  QStringList opened;
  TfHatirlaForm window{&workspace};
};

}  // namespace

TEST_F(ReminderWindowTest, EachPageListsItsOwnAndOpensItsSlips) {
  show();
  const std::string today = DateText::date(environment().today()).toStdString();
  EXPECT_EQ(cells(*window.tvFis, 4), today + "||ARA|100");
  QTest::keyClick(window.tvFis->view(), Qt::Key_Return);
  window.RzPageControl1->setCurrentIndex(1);
  EXPECT_EQ(cells(*window.tvBakim, 5), today + "||500|IŞIL KAYA|12 KM");
  window.RzPageControl1->setCurrentIndex(2);
  EXPECT_EQ(numbers(), "108 107");
  window.tvDisServis->setCurrentRow(1);
  QTest::keyClick(window.tvDisServis->view(), Qt::Key_Return);
  EXPECT_EQ(opened.join(u' '), u"1 7"_s);
  window.RzPageControl1->setCurrentIndex(0);
  EXPECT_EQ(numbers(), "100");
}

TEST_F(ReminderWindowTest, TheDayCanBeChangedAndIsTodayAtTheNextShow) {
  show();
  typeDate(*window.GunHatirlatTarih, DateText::date(environment().today().addDays(1)));
  EXPECT_EQ(numbers(), "101");
  EXPECT_EQ(window.GunHatirlatTarih->line()->selectedText(), window.GunHatirlatTarih->text());
  typeDate(*window.GunHatirlatTarih, u"31.02.2024"_s);
  EXPECT_EQ(refusalBalloon().text(), u"\"31.02.2024\" geçerli bir tarih değil."_s);
  EXPECT_EQ(numbers(), "101");
  typeDate(*window.GunHatirlatTarih, {});
  EXPECT_EQ(numbers(), "");
  QTest::keyClick(window.tvFis->view(), Qt::Key_Escape);
  EXPECT_FALSE(window.isVisible());
  show();
  EXPECT_EQ(numbers(), "100");
  EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(ReminderWindowTest, PlaceAndColumnsAreKeptInTheirFiles) {
  show();
  const QPoint corner = workspace.mapToGlobal(QPoint(workspace.width(), workspace.height() - 53));
  EXPECT_LT((corner - window.frameGeometry().bottomRight()).manhattanLength(), 12) << "but for the frame";
  {
    TfHatirlaForm other(&workspace);
    other.tvBakim->setColumnVisible(u"CA_CEP"_s, true);
    other.tvFis->setColumnVisible(u"TS_TEL"_s, true);
    other.setGeometry(50, 60, 700, 300);
  }
  for (const QString& file : {u"bakim.ini"_s, u"hatirla.ini"_s, u"HatirlaForm.INI"_s}) EXPECT_TRUE(QFile::exists(file));
  QFile::remove(u"bakim.ini"_s);  // the other one holds the same
  TfHatirlaForm again(&workspace);
  again.Show();
  EXPECT_TRUE(again.tvBakim->isColumnVisible(u"CA_CEP"_s));
  EXPECT_FALSE(again.tvFis->isColumnVisible(u"TS_TEL"_s));
  EXPECT_EQ(again.geometry(), QRect(50, 60, 700, 300));
}

TEST_F(ReminderWindowTest, TheSlipsAreReadAgainByThemselvesAndALostServerIsToldOnce) {
  using namespace std::chrono_literals;
  EXPECT_EQ(window.qServis.autoRefresh().interval(), 60s);
  EXPECT_TRUE(window.qServis.autoRefresh().isOn());
  EXPECT_EQ(window.qBakim.autoRefresh().interval(), 120s);
  EXPECT_FALSE(window.qBakim.autoRefresh().isOn());
  show();
  window.qServis.autoRefresh().setInterval(20ms);
  run(u"INSERT INTO teknikservis (TS_ID, TS_NO, TS_HATIRLATMA_TARIH) VALUES (3, '103', CURDATE())");
  EXPECT_TRUE(QTest::qWaitFor([this] { return numbers() == "100 103"; }));
  {
    const auto printed = window.tvFis->content(false);  // a preview that stays open
    run(u"DELETE FROM teknikservis WHERE TS_ID = 1");
    QTest::qWait(100);
    EXPECT_EQ(numbers(), "100 103");
  }
  EXPECT_TRUE(QTest::qWaitFor([this] { return numbers() == "103"; }));
  struct Painting : WaitObserver {  // as the program does while the server lets it wait
    void waitBegins() override {}
    void waiting() override { QCoreApplication::processEvents(); }
    void waitEnds() override {}
  } painting;
  setWaitObserver(&painting);
  TMyQuery slow(DM->MySQL, u"slow"_s);
  slow.SQL.setText(u"select sleep(1)"_s);
  slow.Open();
  setWaitObserver(nullptr);
  EXPECT_TRUE(unhandled.isEmpty());
  cutConnection();
  EXPECT_TRUE(QTest::qWaitFor([this] { return !unhandled.isEmpty(); }));
  QTest::qWait(100);
  EXPECT_EQ(std::exchange(unhandled, {}).size(), 1);
  EXPECT_EQ(numbers(), "103") << "what was read stays";
}

TEST_F(ReminderWindowTest, ASavedSlipAndTheSmsButtonsReachTheirPlaces) {
  slipHooks().refreshReminderList();  // not shown: nothing to do
  EXPECT_FALSE(window.qServis.Active());
  show();
  run(u"UPDATE teknikservis SET TS_HATIRLATMA_TARIH = CURDATE() WHERE TS_ID = 2");
  slipHooks().refreshReminderList();
  EXPECT_EQ(numbers(), "100 101");
  ports().openBulkSms = std::function<void(const QString&)>();
  updateCommands(&window);
  auto* sms = window.findChild<QAction*>(u"slipSms"_s);
  EXPECT_FALSE(sms->isEnabled());
  QStringList sent;
  ports().openBulkSms = [&sent](const QString& number) { sent.append(number); };
  updateCommands(&window);
  EXPECT_TRUE(sms->isEnabled());
  sms->trigger();
  window.RzPageControl1->setCurrentIndex(1);
  window.findChild<QAction*>(u"contractSms"_s)->trigger();
  run(u"DELETE FROM sozlesme");
  window.aGuncelle->trigger();
  window.findChild<QAction*>(u"contractSms"_s)->trigger();
  EXPECT_EQ(sent, QStringList({u"0555"_s, u"0532"_s, QString()}));
}

TEST(EdgeSnapTest, AWindowNearAnEdgeGoesToIt) {
  const QRect area(0, 0, 1000, 800);
  const struct {
    QRect frame;
    QPoint place;
  } cases[] = {{{16, 17, 300, 200}, {0, 17}}, {{690, 590, 300, 200}, {700, 600}}, {{-16, 300, 300, 200}, {0, 300}}, {{300, 300, 300, 200}, {300, 300}}};
  for (const auto& row : cases) EXPECT_EQ(EdgeSnap::snapped(row.frame, area, 16), row.place);
}
