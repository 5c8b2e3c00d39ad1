#include "cards/card_rules.h"
#include "cards/device_import.h"

#include "base/exceptions.h"
#include "base/save_conflict.h"
#include "tests/support/test.h"

TEST(SaveConflict, FailureIsKnownByClassAndExactWords) {
  const QString duplicate = u"#23000Duplicate entry 'AYŞE' for key 'CA_AD'"_s;
  const struct {
    QString className;
    QString message;
    SaveConflict answer;
  } cases[] = {
      {u"EDatabaseError"_s, u"Update failed. Found 0 records"_s, SaveConflict::RowNotFound},
      {u"EMyError"_s, u"Update failed. Found 0 records"_s, SaveConflict::None},
      {u"EDatabaseError"_s, u"Update failed. Found 0 records."_s, SaveConflict::None},
      {u"EDatabaseError"_s, u"Refresh failed. Found 0 records"_s, SaveConflict::RowGone},
      {u"EMyError"_s, duplicate, SaveConflict::ValueTaken},
      {u"EDatabaseError"_s, duplicate, SaveConflict::None},
      {u"EMyError"_s, u"#23000Duplicate entry '7' for key 'PRIMARY'"_s, SaveConflict::None},
      {u"EMyError"_s, u"#HY000Server has gone away: CA_AD"_s, SaveConflict::None},
  };
  for (const auto& each : cases) EXPECT_EQ(saveConflictOf(each.className, each.message, u"CA_AD"_s), each.answer) << each.message.toStdString();
}

TEST(CardRules, NumbersKeepThePlacesOfThoseThatAreMissing) {
  const struct {
    std::vector<QString> numbers;
    QString joined;
  } cases[] = {{{}, u""_s},
               {{u"532"_s}, u"532"_s},
               {{u"532"_s, u""_s, u"533"_s}, u"532,,533"_s},
               {{u"532"_s, u""_s}, u"532,"_s},
               {{u""_s}, u""_s}};
  for (const auto& each : cases) EXPECT_EQ(CardRules::joinedNumbers(each.numbers), each.joined);
}

TEST(DeviceImport, LettersBecomeTheCapitalsOfTheTurkishAlphabetAndAreNamedWhenTheyCannotBeStored) {
  const DeviceFile read = DeviceImport::read(u"C_AD\nKondansatör 10 µf café es\u0327\nа\n"_s.toUtf8());
  ASSERT_EQ(read.devices.size(), 1u);
  EXPECT_EQ(read.devices.front().name, u"KONDANSATÖR 10 µF CAFé EŞ"_s);
  ASSERT_EQ(read.refused.size(), 1u);
  EXPECT_TRUE(read.refused.front().reason.contains(u"\"а\" (U+0430)"_s)) << read.refused.front().reason.toStdString();
}

// No bytes of a file may bring the import down or past the columns' widths.
TEST(DeviceImport, HostileBytesAreRefusedOrFit) {
  const QByteArrayList pieces{"C_AD", "C_MARKA", "CİHAZ ADI"_ba, ";", ",", "\t", "\"", "\"\"", "\r\n", "\n", "\r", "sep=;", "sep=", "\xef\xbb\xbf",
                              "\xff\xfe", "\xdd\xfe", "\xc2", " ", "'", "\\", QByteArray(101, 'x'), "a", "\xf0\x9f\x98\x80"};
  quint32 state = 1;
  int used = 0;
  for (int round = 0; round < 20'000; ++round) {
    QByteArray file = round % 2 ? "C_AD;C_MARKA\n"_ba : QByteArray();
    for (int i = 0; i < 12; ++i) file += pieces[int((state = state * 1664525 + 1013904223) >> 8) % pieces.size()];
    try {
      const DeviceFile read = DeviceImport::read(file);
      for (const CatalogueDevice& device : read.devices) {
        ASSERT_FALSE(device.name.isEmpty());
        ASSERT_LE(device.name.size(), 100);
        ASSERT_LE(device.make.size(), 50);
        ++used;
      }
      ASSERT_FALSE(DeviceImport::statements(read.devices).isEmpty());
    } catch (const Exception& error) {
      ASSERT_FALSE(error.message().isEmpty());
    }
  }
  EXPECT_GT(used, 1000);
}
