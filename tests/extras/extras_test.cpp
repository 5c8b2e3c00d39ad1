// Exchange rates against the simulator and statistics, on the real database.
#include "app/application.h"
#include "app/dmUnit.h"
#include "app/editors/qcx_editors.h"
#include "app/ports.h"
#include "app/quendUtils.h"
#include "base/data/my_query.h"
#include "base/guard.h"
#include "extras/exchange_rates.h"
#include "extras/statistics.h"
#include "simulator/practice.h"
#include "simulator/simulator.h"
#include "tests/support/fixed_environment.h"
#include "tests/support/screen_test.h"
#include "tests/support/test_database.h"

using testing::ElementsAre;

namespace {

class ExtrasTest : public testing::Test {
 protected:
  ExtrasTest() {
    TestDatabase::open(data.MySQL);
    database.emptyTables();
    utilities.programFolder = folder.path() + u'/';
    ports() = {};
    fillPorts();
    ports().setStatusText = [this](const QString& text) { status += text; };
    ports().log = [](const QString&, const std::exception*) {};
    setUnhandledHandler([this](QObject*, const std::exception& error) { unhandled.append(QString::fromUtf8(error.what())); });
  }
  ~ExtrasTest() override {
    setUnhandledHandler({});
    ports() = {};
  }

  QTemporaryDir folder;
  QStringList status;
  QStringList unhandled;
  ScopedEnvironment clock{std::make_unique<FixedEnvironment>()};  // 05.03.2020
  TestDatabase database;
  TDM data;
  TQuendUtil utilities{u"/tmp/kvtk"_s};
};

class Rates : public ExtrasTest {
 protected:
  Rates() {
    QuendUtil = &utilities;
    qputenv("KVTK_SETTINGS", folder.filePath(u"settings.ini"_s).toUtf8());
    Practice::prepare(simulator, utilities.programFolder);
    database.run(u"UPDATE doviz SET TARIH = '2000-01-01', DOLARSATIS = 1, EUROSATIS = 1, STERLINSATIS = 1");
  }
  ~Rates() override { QuendUtil = nullptr; }

  QString row() { return database.rows(u"SELECT * FROM doviz"_s); }
  QStringList shown() {
    return {screen.eTarih->text(), screen.eDolar->text(), screen.eEuro->text(), screen.eSterlin->text()};
  }

  Simulator simulator;
  TfDoviz screen;
};

const QString success = u"05.03.2020 tarihli serbest piyasa kurları yüklendi."_s;

class Statistics : public ExtrasTest {
 protected:
  Statistics() {
    add(u"AYŞE IŞIK", u"S1", 2020, {u"TAMAMLANDI", u"FATURALANDI", u"TESLİM EDİLDİ", u"İADE EDİLDİ", u"İPTAL EDİLDİ", u"ARIZA KABUL"});
    add(u"AYŞE IŞIK", u"S2", 2019, {u"İŞLEM YAPILMADI", u"TAMAMLANDI", u"TAMAMLANDI"});
    add(u"BAŞKA", u"S1", 2020, {u"TAMAMLANDI"});
    database.run(u"INSERT INTO teknikservis (TS_NO, TS_TARIH, TS_C_SERINO, TS_TURU) VALUES ('X', '2020-01-01', 'S3', 'TAMAMLANDI')");
  }
  void add(QStringView customer, QStringView serial, int year, const std::vector<QStringView>& statuses) {
    for (const QStringView turu : statuses)
      database.run(u"INSERT INTO teknikservis (TS_NO, TS_TARIH, TS_MUSTERI, TS_C_SERINO, TS_TURU) VALUES ('%1', '%2-12-31', '%3', '%4', '%5')"_s
                       .arg(++number_).arg(year).arg(customer, serial, turu));
  }
  /// Good, bad, in the shop, all, and the bars' numbers.
  QStringList shown() {
    return {screen.eOLUMLU->text(), screen.eOLUMSUZ->text(), screen.eSERVIS->text(), screen.eTOPLAM->text(),
            screen.findChild<QWidget*>(u"chart"_s)->accessibleDescription()};
  }
  void chooseYear(const QString& year) {
    screen.eYil->line()->selectAll();
    type(screen.eYil->line(), year);
    QTest::keyClick(screen.eYil->line(), Qt::Key_F5);
  }

  TIstForm screen;

 private:
  int number_ = 0;
};

}  // namespace

TEST_F(Rates, FirstOpeningOfADayAsksTheServiceAndTheNextOneTheTable) {
  within([&] { screen.Giris(); }, screen, [&] {
    EXPECT_THAT(shown(), ElementsAre(u"05.03.2020"_s, u"41,25000"_s, u"48,12500"_s, u"54,93750"_s));
    EXPECT_EQ(row(), u"05.03.2020|41,25|48,125|54,9375"_s);
    screen.eDolar->setText(u"40,5"_s);
  });
  EXPECT_EQ(row(), u"05.03.2020|41,25|48,125|54,9375"_s) << "given up";
  EXPECT_EQ(status.back(), success);
  ASSERT_EQ(simulator.requests().size(), 1U);
  EXPECT_EQ(simulator.requests()[0].http.path, u"/doviz.xml"_s);
  EXPECT_EQ(simulator.requests()[0].http.body, QByteArray());
  EXPECT_EQ(QDir(folder.path()).entryList({u"temp*"_s}, QDir::Files).size(), 0);

  within([&] { screen.Giris(); }, screen, [&] {
    EXPECT_EQ(screen.eDolar->value(), 41.25);
    screen.eDolar->setText(u"12.5.5"_s);
    screen.Tamam_Button->click();
    EXPECT_FALSE(screen.isVisible());
  });
  EXPECT_EQ(row(), u"05.03.2020|41,25|48,125|54,9375"_s) << "a text that is no number: nothing is stored, and nobody told";
  EXPECT_EQ(unhandled, QStringList());
  within([&] { screen.Giris(); }, screen, [&] {
    screen.eDolar->setText(u"40,12345"_s);
    screen.Tamam_Button->click();
  });
  EXPECT_EQ(row(), u"05.03.2020|40,12345|48,125|54,9375"_s);
  EXPECT_EQ(simulator.requests().size(), 1U);
  EXPECT_FALSE(data.MySQL.InTransaction());
}

TEST_F(Rates, AServiceThatFailsLeavesTheTableAndTheWordsOfSuccess) {
  const QString before = row();
  for (const Behaviour& bad : {Behaviour{Mood::Status, u"500"_s, 0}, Behaviour{Mood::Cut, {}, 0}, Behaviour{Mood::Rubbish, u"7"_s, 0}}) {
    simulator.behave(Service::Rates, bad);
    status.clear();
    screen.LoadRates(u"05.03.2020"_s);
    EXPECT_THAT(status, ElementsAre(u"Günlük döviz kurları alınamadı."_s, success));
    EXPECT_THAT(shown(), ElementsAre(u"05.03.2020"_s, u"1,00000"_s, u"1,00000"_s, u"1,00000"_s));
  }
  EXPECT_EQ(row(), before);
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
  EXPECT_FALSE(QFile::exists(utilities.programFolder + u"temp.adpheadlines.xml"_s));

  QFile::remove(utilities.programFolder + u"Sunucular.ini"_s);
  screen.LoadRates(u"05.03.2020"_s);
  EXPECT_EQ(status[status.size() - 2], u"Günlük döviz kurları alınamadı."_s);
}

TEST_F(Statistics, CustomerIsCountedByNameAndYearAndAnotherYearPutsTheGoodOnesIntoTheBadOnesBox) {
  within([] { ports().openCustomerStatistics(u"AYŞE IŞIK"_s); }, screen, [&] {
    EXPECT_EQ(screen.windowTitle(), u"AYŞE IŞIK İSTATİSTİK"_s);
    EXPECT_THAT(shown(), ElementsAre(u"3"_s, u"1"_s, u"2"_s, u"6"_s, u"OLUMSUZ İŞLEM: 1, OLUMLU İŞLEM: 3, SERVİSDE OLAN: 2, TOPLAM İŞLEM: 6"_s));
    chooseYear(u"20x19"_s);
    EXPECT_THAT(shown(), ElementsAre(u"3"_s, u"2"_s, u"0"_s, u"3"_s, u"OLUMSUZ İŞLEM: 1, OLUMLU İŞLEM: 2, SERVİSDE OLAN: 0, TOPLAM İŞLEM: 3"_s));
    chooseYear({});
    EXPECT_EQ(shown().mid(1, 3), (QStringList{u"2"_s, u"0"_s, u"3"_s}));
    screen.eYil->setText({});
    screen.eYil->pressButton(1);
    EXPECT_EQ(shown().mid(1, 3), (QStringList{u"0"_s, u"0"_s, u"0"_s}));
  });
  EXPECT_TRUE(unhandled.isEmpty());
}

TEST_F(Statistics, SerialHasNoTotalAndAnotherYearIsRefused) {
  within([&] { screen.GirisMusteri(u"AYŞE IŞIK"_s); }, screen, [] {});
  within([] { ports().openSerialStatistics(u"S1"_s); }, screen, [&] {
    EXPECT_EQ(screen.windowTitle(), u"S1 İSTATİSTİK"_s);
    EXPECT_THAT(shown(), ElementsAre(u"4"_s, u"1"_s, u"2"_s, u"0"_s, u"OLUMSUZ İŞLEM: 1, OLUMLU İŞLEM: 4, SERVİSDE OLAN: 2, TOPLAM İŞLEM: 0"_s));
    chooseYear(u"2019"_s);
    EXPECT_FALSE(screen.qSeri.Active());
    EXPECT_EQ(shown().back(), QString());
    EXPECT_EQ(screen.eOLUMLU->text(), u"4"_s);
  });
  ASSERT_EQ(unhandled.size(), 1);
  EXPECT_TRUE(unhandled[0].contains(u"SERINO"_s)) << qPrintable(unhandled[0]);
}
