#include "base/data/latin5.h"
#include "base/exceptions.h"
#include "tests/support/test.h"

TEST(Latin5Test, EveryByteComesBackUnchanged) {
  QByteArray all;
  for (int byte = 0; byte < 256; ++byte) all.append(char(byte));
  EXPECT_EQ(Latin5::encode(Latin5::decode(all), u"X"_s), all);
}

TEST(Latin5Test, TurkishLettersAndCodePageRowsHaveTheirBytes) {
  EXPECT_EQ(Latin5::encode(u"ğĞıİşŞçÇöÖüÜ"_s, u"X"_s), QByteArray::fromHex("f0d0fddd" "fede" "e7c7" "f6d6" "fcdc"));
  EXPECT_EQ(Latin5::encode(u"€–’“”…™"_s, u"X"_s), QByteArray::fromHex("80969293948599"));
}

TEST(Latin5Test, NamesTheFirstCharacterThatDoesNotFit) {
  struct {
    QString text;
    QString character;
    QString named;
  } const cases[] = {{u"ABCд"_s, u"д"_s, u"\"д\" (U+0434)"_s},
                     {u"a😀b"_s, u"😀"_s, u"\"😀\" (U+1F600)"_s},
                     {u"ý"_s, u"ý"_s, u"\"ý\" (U+00FD)"_s},
                     {u"1\u0327"_s, u"\u0327"_s, u"\"\u25CC\u0327\" (U+0327)"_s},
                     {u"x\u200B"_s, u"\u200B"_s, u"U+200B"_s},
                     {u"x\u2003"_s, u"\u2003"_s, u"U+2003"_s},
                     {u"x\u0080"_s, u"\u0080"_s, u"U+0080"_s},
                     {QString(QChar(0xD800)), QString(QChar(0xD800)), u"U+D800"_s}};
  for (const auto& row : cases) {
    EXPECT_EQ(Latin5::firstUnstorable(row.text), row.character);
    try {
      Latin5::encode(row.text, u"TS_MUSTERI"_s);
      ADD_FAILURE() << "stored " << qPrintable(row.text);
    } catch (const EUnstorableValue& error) {
      EXPECT_EQ(error.field(), u"TS_MUSTERI"_s);
      EXPECT_EQ(error.character(), row.character);
      EXPECT_EQ(error.message(), u"\"TS_MUSTERI\" alanındaki %1 karakteri veritabanında saklanamaz."_s.arg(row.named));
    }
  }
  EXPECT_FALSE(Latin5::firstUnstorable(u"İĞÜŞÖÇ ığüşöç €"_s));
}
