// Two workstations on one database at the same moment, each a process of its own.
#include "base/conflict_text.h"
#include "base/data/my_query.h"
#include "tests/faults/user_program.h"
#include "tests/support/test_database.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

/// Failures show texts as texts.
static void PrintTo(const QString& text, std::ostream* out) { *out << '"' << text.toStdString() << '"'; }

namespace {

const QString saved = UserProgram::saved();

/// A message as it comes through the line.
QString asLine(QString text) { return text.replace(u"\r\n"_s, u"\\n"_s).replace(u'\n', u"\\n"_s); }

class TwoUsersTest : public testing::Test {
 protected:
  TwoUsersTest() {
    database.emptyTables();
    for (UserProgram* user : {&ayse, &bora}) user->run({u"answer"_s, u"Tamam"_s});
  }

  QString rows(const QString& statement) {
    TMyQuery query(database.connection(), u"check"_s);
    query.SQL.setText(statement);
    query.Open();
    QStringList all;
    for (int row = 0; row < query.RecordCount(); ++row) {
      QStringList cells;
      for (int field = 0; field < query.fieldCount(); ++field) cells.append(query.valueAt(row, field).toText());
      all.append(cells.join(u'|'));
    }
    return all.join(u';');
  }
  /// Rows of the slips' other tables that belong to none.
  QString strayRows() {
    return rows(u"select (select count(*) from foto where FT_TS_ID not in (select TS_ID from teknikservis)) + "
                u"(select count(*) from notlar where SF_TS_ID not in (select TS_ID from teknikservis)) + "
                u"(select count(*) from teknikservis where (select count(*) from foto where FT_TS_ID = TS_ID) <> 1)"_s);
  }
  /// One slip, open at both.
  void shareSlip() {
    ASSERT_EQ(ayse.takeIn(u"AYŞE"_s), u"100"_s);
    ASSERT_EQ(ayse.save(), saved);
    ASSERT_EQ(bora.run({u"open"_s, u"100"_s}), u"(100) Servis Fişi"_s);
  }

  TestDatabase database;
  UserProgram ayse{u"AYŞE"_s};
  UserProgram bora{u"BORA"_s};
};

}  // namespace

TEST_F(TwoUsersTest, SavesAtTheSameMomentHinderEachOtherByTheNumberOnly) {
  for (int round = 0; round < 40; ++round) {
    SCOPED_TRACE(round);
    const bool isSameNumber = round % 2 == 0;
    const QString number = ayse.takeIn(u"AYŞE"_s);
    ASSERT_EQ(bora.takeIn(u"BORA"_s), number);
    if (!isSameNumber) bora.set(u"TS_NO"_s, number + u"B"_s);
    for (UserProgram* user : {&ayse, &bora}) user->begin({u"save"_s});
    const QStringList ends{ayse.answer(), bora.answer()};
    ASSERT_EQ(ends.count(saved), isSameNumber ? 1 : 2) << qPrintable(ends.join(u" / "_s));
    for (UserProgram* user : {&ayse, &bora}) user->run({u"close"_s});
  }
  // Two slips that stand side by side in every table.
  ayse.run({u"open"_s, u"100"_s});
  bora.run({u"open"_s, u"101"_s});
  for (int round = 0; round < 40; ++round) {
    SCOPED_TRACE(round);
    for (UserProgram* user : {&ayse, &bora}) user->begin({u"save"_s});
    ASSERT_EQ(ayse.answer(), saved);
    ASSERT_EQ(bora.answer(), saved);
  }
  EXPECT_EQ(strayRows(), u"0"_s);
}

TEST_F(TwoUsersTest, OneDeletesWhatTheOtherSaves) {
  for (int round = 0; round < 20; ++round) {
    SCOPED_TRACE(round);
    shareSlip();
    ayse.begin({u"save"_s});
    bora.begin({u"delete"_s});
    const QString end = ayse.answer();
    EXPECT_THAT((QStringList{saved, asLine(ConflictText::deletedMeanwhile()), u"Kayıt başka bir kullanıcı tarafından silinmiştir."_s}),
                testing::Contains(end));
    bora.answer();
    EXPECT_EQ(rows(u"select count(*) from teknikservis"_s) + strayRows(), u"00"_s);
    if (ayse.isOpen()) ayse.run({u"close"_s});
  }
}
