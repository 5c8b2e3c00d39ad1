// Two workstations on one database, each a process of its own. With KVTK_SHOTS naming a folder, every end is kept there as a
// picture; a display (QT_QPA_PLATFORM=xcb under xvfb-run) gives them in full.
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
  QString slips() { return rows(u"select TS_NO, TS_MUSTERI, ifnull(TS_ACIKLAMA, '') from teknikservis order by TS_NO"_s); }
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
  /// Ayşe's save is brought to where her slip was read anew and not yet written; what the other does then; its end.
  QString saveOfAyseAround(const std::function<void()>& work, const QString& picture) {
    ayse.run({u"hold"_s});
    ayse.run({u"picture"_s, picture});
    ayse.begin({u"save"_s});
    EXPECT_EQ(ayse.answer(), u"held"_s);
    work();
    return ayse.run({u"go"_s});
  }

  TestDatabase database;
  UserProgram ayse{u"AYŞE"_s};
  UserProgram bora{u"BORA"_s};
};

}  // namespace

TEST_F(TwoUsersTest, OneNumberIsTakenAtOnce) {
  EXPECT_EQ(ayse.takeIn(u"AYŞE"_s), u"100"_s);
  EXPECT_EQ(bora.takeIn(u"BORA"_s), u"100"_s);
  bora.run({u"note"_s, u"KALSIN"_s});
  EXPECT_EQ(ayse.save(), saved);
  EXPECT_EQ(bora.save(u"number_taken"_s), u"\"FİŞ NO\" alanı mükerrer değer kabul etmiyor."_s);
  EXPECT_EQ(bora.state(), u"insert"_s);
  EXPECT_EQ(bora.get(u"TS_MUSTERI"_s), u"BORA"_s);
  EXPECT_EQ(bora.run({u"number"_s}), u"101"_s);
  EXPECT_EQ(bora.save(u"number_taken_anew"_s), saved);
  EXPECT_EQ(slips(), u"100|AYŞE|;101|BORA|"_s);
  EXPECT_EQ(rows(u"select SF_NOT from notlar order by SF_TS_ID"_s), u";KALSIN"_s);
}

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
  shareSlip();
  bora.run({u"delete"_s});
  EXPECT_EQ(bora.state(), u"none"_s);
  ayse.set(u"TS_ACIKLAMA"_s, u"YAZILMADI"_s);
  EXPECT_EQ(ayse.save(u"deleted_before_the_save"_s), u"Kayıt başka bir kullanıcı tarafından silinmiştir."_s);
  EXPECT_EQ(ayse.get(u"TS_ACIKLAMA"_s), u"YAZILMADI"_s);
  EXPECT_EQ(ayse.state(), u"edit"_s);
  EXPECT_EQ(slips() + strayRows(), u"0"_s);
  ayse.run({u"close"_s});

  shareSlip();
  ayse.set(u"TS_ACIKLAMA"_s, u"YAZILMADI"_s);
  const auto remove = [this] { bora.run({u"delete"_s}); };
  EXPECT_EQ(saveOfAyseAround(remove, u"deleted_within_the_save"_s), asLine(ConflictText::deletedMeanwhile()));
  EXPECT_EQ(ayse.get(u"TS_ACIKLAMA"_s), u"YAZILMADI"_s);
  EXPECT_EQ(slips() + strayRows(), u"0"_s);
  ayse.run({u"close"_s});

  for (int round = 0; round < 20; ++round) {
    SCOPED_TRACE(round);
    shareSlip();
    ayse.begin({u"save"_s});
    bora.begin({u"delete"_s});
    const QString end = ayse.answer();
    EXPECT_THAT((QStringList{saved, asLine(ConflictText::deletedMeanwhile()), u"Kayıt başka bir kullanıcı tarafından silinmiştir."_s}),
                testing::Contains(end));
    bora.answer();
    EXPECT_EQ(slips() + strayRows(), u"0"_s);
    if (ayse.state() != u"none"_s) ayse.run({u"close"_s});
  }
}

TEST_F(TwoUsersTest, BothEditOneSlip) {
  shareSlip();
  // What was written while this screen stood open is written over without a word: meant.
  bora.set(u"TS_ACIKLAMA"_s, u"BORA YAZDI"_s);
  bora.set(u"TS_TEKNISYEN"_s, u"BORA"_s);
  EXPECT_EQ(bora.save(), saved);
  ayse.set(u"TS_ACIKLAMA"_s, u"AYŞE YAZDI"_s);
  EXPECT_EQ(ayse.save(u"written_over"_s), saved);
  EXPECT_EQ(rows(u"select TS_ACIKLAMA, TS_TEKNISYEN, TS_USER from teknikservis"_s), u"AYŞE YAZDI||AYŞE"_s);

  int round = 0;
  for (const QString& answer : {u"Vazgeç"_s, u"Tamam"_s}) {
    const QString text = u"BORA "_s + QString::number(++round);
    ayse.run({u"answer"_s, answer});
    ayse.set(u"TS_ACIKLAMA"_s, u"AYŞE SON"_s);
    const QString end = saveOfAyseAround(
        [&] {
          bora.set(u"TS_ACIKLAMA"_s, text);
          EXPECT_EQ(bora.save(), saved);
        },
        u"changed_within_the_save_"_s + QString::number(round));
    const QString question = asLine(ConflictText::changedMeanwhile());
    EXPECT_EQ(end, answer == u"Tamam"_s ? question + u'|' + saved : question);
    EXPECT_EQ(slips(), u"100|AYŞE|"_s + (answer == u"Tamam"_s ? u"AYŞE SON"_s : text));
    EXPECT_EQ(ayse.get(u"TS_ACIKLAMA"_s), u"AYŞE SON"_s);
  }
}

TEST_F(TwoUsersTest, OneRenamesTheNumber) {
  shareSlip();
  // The row is looked for by the number on the screen, so a renamed slip counts as deleted: meant.
  ayse.set(u"TS_NO"_s, u"777"_s);
  EXPECT_EQ(saveOfAyseAround([this] { EXPECT_EQ(bora.save(), saved); }, u"renamed_here"_s), asLine(ConflictText::deletedMeanwhile()));
  EXPECT_EQ(slips(), u"100|AYŞE|"_s);
  EXPECT_EQ(ayse.get(u"TS_NO"_s), u"777"_s);

  ayse.set(u"TS_NO"_s, u"100"_s);
  const auto rename = [this] {
    bora.set(u"TS_NO"_s, u"555"_s);
    EXPECT_EQ(bora.save(), saved);
  };
  EXPECT_EQ(saveOfAyseAround(rename, u"renamed_there"_s), asLine(ConflictText::deletedMeanwhile()));
  EXPECT_EQ(slips(), u"555|AYŞE|"_s);

  // Nothing stands in the way of the next save, which gives the slip its number on this screen back.
  EXPECT_EQ(ayse.save(u"renamed_back"_s), saved);
  EXPECT_EQ(slips(), u"100|AYŞE|"_s);
  EXPECT_EQ(bora.takeIn(u"BORA"_s), u"101"_s);
  bora.set(u"TS_NO"_s, u"100"_s);
  EXPECT_EQ(bora.save(), u"\"FİŞ NO\" alanı mükerrer değer kabul etmiyor."_s);
}
