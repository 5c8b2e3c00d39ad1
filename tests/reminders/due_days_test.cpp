#include "base/data/my_query.h"
#include "base/data/value.h"
#include "base/date_text.h"
#include "base/exceptions.h"
#include "reminders/reminder_store.h"
#include "tests/support/test.h"
#include "tests/support/test_database.h"

#include <random>

namespace {

constexpr int contracts = 2100;
const QDate firstDay(2023, 3, 1);   // two years, the 29th of February 2024 in their middle
const QDate lastDay(2025, 2, 28);

/// Days between two reminders by the stored code; 0 for "once".
const QMap<int, int> cycleOfCode{{1, 0},    {3, 1},    {5, 7},    {7, 30},   {9, 365},  {11, 60},  {13, 90}, {15, 120},
                                 {17, 150}, {19, 180}, {21, 210}, {23, 240}, {25, 270}, {27, 300}, {29, 330}};

struct Contract {
  int number;
  QDate start, end, reminder;
  int code;
  QString state;
};

/// Walks from the first reminder day to the days of its cycle, backward as well, as far as the term goes.
QSet<QDate> dueDays(const Contract& contract) {
  QSet<QDate> days;
  const auto take = [&](QDate day) {
    if (day >= contract.start && day <= contract.end) days.insert(day);
  };
  if (contract.state != u"AKTİF"_s || !cycleOfCode.contains(contract.code)) return days;
  take(contract.reminder);
  const int cycle = cycleOfCode[contract.code];
  if (cycle == 0) return days;
  for (QDate day = contract.reminder.addDays(cycle); day <= contract.end; day = day.addDays(cycle)) take(day);
  for (QDate day = contract.reminder.addDays(-cycle); day >= contract.start; day = day.addDays(-cycle)) take(day);
  return days;
}

class DueDaysTest : public testing::Test {
 protected:
  DueDaysTest() { database.emptyTables(); }

  void add(const std::vector<Contract>& all) {
    QStringList rows;
    for (const Contract& each : all)
      rows.append(u"('%1','%2','%3','%4',%5,'%6',%7)"_s.arg(QString::number(each.number), each.start.toString(Qt::ISODate),
                                                        each.end.toString(Qt::ISODate), each.reminder.toString(Qt::ISODate),
                                                        QString::number(each.code), each.state, QString::number(each.number % 90)));
    database.run(u"INSERT INTO sozlesme (SOZ_NO, SOZ_BAS_TARIH, SOZ_BIT_TARIH, SOZ_HATIRLA_TARIH, SOZ_HATIRLA_DONEM, SOZ_STATU, "
                 u"SOZ_MESAFE) VALUES "_s + rows.join(u','));
  }

  QSet<int> listed(QDate day) {
    ReminderStore::openDueContracts(qBakim, DateText::date(day));
    QSet<int> numbers;
    for (const QString& number : TestDatabase::column(qBakim, u"SOZ_NO"_s)) numbers.insert(number.toInt());
    EXPECT_EQ(numbers.size(), qBakim.RecordCount());
    return numbers;
  }

  TestDatabase database;
  TMyQuery qBakim{database.connection(), u"qBakim"_s};
  TMyQuery qServis{database.connection(), u"qServis"_s};
};

}  // namespace

TEST_F(DueDaysTest, TheServerFindsTheDaysOfTheTable) {
  std::mt19937 random(20240229);
  const auto below = [&random](int bound) { return int(random() % unsigned(bound)); };
  const QList<int> codes = cycleOfCode.keys();
  std::vector<Contract> all;
  QMap<QDate, QSet<int>> expected;
  for (int number = 1; number <= contracts; ++number) {
    Contract contract;
    contract.number = number;
    contract.start = firstDay.addDays(below(800) - 60);
    contract.end = contract.start.addDays(below(3) == 0 ? below(40) : below(900));
    contract.reminder = contract.start.addDays(below(int(contract.start.daysTo(contract.end)) + 1));
    contract.code = number % 40 == 0 ? 2 * below(20) : codes[number % codes.size()];
    contract.state = number % 25 == 1 ? u"PASİF"_s : number % 25 == 2 ? u"BİTTİ"_s : u"AKTİF"_s;
    for (const QDate day : dueDays(contract)) expected[day].insert(number);
    all.push_back(contract);
  }
  add(all);
  qsizetype found = 0;
  for (QDate day = firstDay; day <= lastDay; day = day.addDays(1)) {
    const QSet<int> numbers = listed(day);
    found += numbers.size();
    ASSERT_EQ(numbers, expected.value(day)) << day.toString(Qt::ISODate).toStdString();
  }
  EXPECT_GT(found, contracts * 10);
}

TEST_F(DueDaysTest, DaysThatAreKnownByHand) {
  const QDate end(2025, 12, 31);
  add({{1, {2024, 3, 1}, end, {2024, 3, 15}, 5, u"AKTİF"_s},       // weekly, also before its first reminder
       {2, {2024, 1, 1}, end, {2024, 1, 1}, 9, u"AKTİF"_s},        // yearly from a leap year
       {3, {2024, 3, 1}, {2024, 3, 31}, {2024, 3, 20}, 3, u"AKTİF"_s},  // daily
       {4, {2024, 3, 1}, end, {2024, 3, 2}, 1, u"AKTİF"_s}});      // once
  const std::pair<QDate, QSet<int>> days[] = {
      {{2024, 2, 29}, {}},     {{2024, 3, 1}, {1, 3}},  {{2024, 3, 2}, {3, 4}}, {{2024, 3, 8}, {1, 3}},   {{2024, 3, 22}, {1, 3}},
      {{2024, 3, 31}, {3}},    {{2024, 4, 1}, {}},      {{2024, 12, 31}, {2}},  {{2025, 1, 1}, {}},       {{2025, 12, 31}, {2}},
  };
  for (const auto& [day, numbers] : days) EXPECT_EQ(listed(day), numbers) << day.toString(Qt::ISODate).toStdString();
}

TEST_F(DueDaysTest, DueContractsComeByTimeThenNearestWithTheirDayAndWithoutACustomerToo) {
  database.run(u"INSERT INTO cari (CA_ID, CA_AD) VALUES (1, 'AYŞE')");
  database.run(u"INSERT INTO sozlesme (SOZ_NO, SOZ_CA_ID_REF, SOZ_BAS_TARIH, SOZ_BIT_TARIH, SOZ_HATIRLA_TARIH, SOZ_HATIRLA_DONEM, "
               u"SOZ_STATU, SOZ_HATIRLA_SAAT, SOZ_MESAFE) VALUES ('A', 1, '2024-01-01', '2024-12-31', '2024-01-01', 3, 'AKTİF', '10:00', 5), "
               u"('B', 1, '2024-01-01', '2024-12-31', '2024-01-01', 3, 'AKTİF', '09:00', 30), "
               u"('C', NULL, '2024-01-01', '2024-12-31', '2024-01-01', 3, 'AKTİF', '09:00', 7)");
  ReminderStore::openDueContracts(qBakim, u"5.3.2024"_s);
  EXPECT_EQ(TestDatabase::column(qBakim, u"SOZ_NO"_s).join(u' '), u"C B A"_s);
  EXPECT_EQ(TestDatabase::column(qBakim, u"CA_AD"_s), QStringList({QString(), u"AYŞE"_s, u"AYŞE"_s}));
  EXPECT_EQ(TestDatabase::column(qBakim, u"HTARIH"_s), QStringList(3, u"2024-03-05"_s));
  ReminderStore::openDueContracts(qBakim, u""_s);  // an emptied box
  EXPECT_TRUE(qBakim.IsEmpty());
  EXPECT_THROW(ReminderStore::openDueContracts(qBakim, u"31.02.2024"_s), EConvertError);
}

TEST_F(DueDaysTest, SlipsOfADayAndOverdueJobs) {
  database.run(u"INSERT INTO teknikservis (TS_NO, TS_TURU, TS_HATIRLATMA_TARIH) VALUES ('1', 'TESLİM EDİLDİ', '2024-03-05'), "
               u"('2', 'ARIZA KABUL', '2024-03-06'), ('3', 'ARIZA KABUL', NULL)");
  const auto numbers = [this] { return TestDatabase::column(qServis, u"TS_NO"_s).join(u' '); };
  ReminderStore::openSlipsOfDay(qServis, u"05.03.2024"_s);
  EXPECT_EQ(numbers(), u"1"_s);
  ReminderStore::openSlipsOfDay(qServis, u""_s);
  EXPECT_EQ(numbers(), u""_s);

  database.run(u"INSERT INTO teknikservis (TS_NO, TS_TURU, TS_DISSERVIS_CIKIS, TS_DISSERVIS_GIRIS, TS_DISSERVIS_TESLIM_SURE) VALUES "
               u"('10', 'DIŞ SERVİSTE', CURDATE() - INTERVAL 8 DAY, '0000-00-00', 7), "
               u"('11', 'DIŞ SERVİSTE', CURDATE() - INTERVAL 30 DAY, '0000-00-00', 20), "
               u"('12', 'DIŞ SERVİSTE', CURDATE() - INTERVAL 7 DAY, '0000-00-00', 7), "   // due today
               u"('13', 'DIŞ SERVİSTE', CURDATE() - INTERVAL 90 DAY, '0000-00-00', 0), "
               u"('14', 'DIŞ SERVİSTE', CURDATE() - INTERVAL 90 DAY, CURDATE(), 7), "
               u"('15', 'TAMAMLANDI', CURDATE() - INTERVAL 90 DAY, '0000-00-00', 7), "
               u"('16', 'DIŞ SERVİSTE', NULL, NULL, NULL)");
  ReminderStore::openOverdueSlips(qServis);
  EXPECT_EQ(numbers(), u"11 10"_s);
  qServis.First();
  EXPECT_EQ(qServis.FieldByName(u"GECIKME_GUN"_s).asInteger(), 10);
}
