#include "comm/caller_text.h"
#include "comm/list_text.h"
#include "comm/sms_text.h"
#include "tests/support/test.h"

TEST(SmsText, KeysOfTheThreeBoxes) {
  for (const QChar key : u"aZ0 !'-+/()=.@,:*;$?\b\x16\r"_s) EXPECT_TRUE(SmsText::templateKeyPasses(key)) << int(key.unicode());
  for (const QChar key : u"ığ<>&\"\n#_%"_s) EXPECT_FALSE(SmsText::templateKeyPasses(key)) << int(key.unicode());
  QString sent;
  for (const QChar key : u"ŞçğİıÜ<A"_s)
    if (const auto character = SmsText::bulkKey(key, 0)) sent += *character;
  EXPECT_EQ(sent, u"scgiiuA"_s);
  EXPECT_TRUE(SmsText::bulkKey(u'a', 611));
  EXPECT_FALSE(SmsText::bulkKey(u'a', 612));
  EXPECT_TRUE(SmsText::bulkKey(QChar(8), 612));
  for (const char16_t key : {u'0', u',', u'\t'}) EXPECT_TRUE(SmsText::recipientKeyPasses(key));
  for (const char16_t key : {u'\b', u'\x16', u'a', u' ', u'\u0661'}) EXPECT_FALSE(SmsText::recipientKeyPasses(key));
}

TEST(SmsText, RecipientsAndMarkers) {
  EXPECT_EQ(SmsText::quotedRecipients(u"05001112233, 05001112244,"_s), uR"("05001112233","05001112244","")"_s);
  EXPECT_EQ(SmsText::recipients({}).size(), 0);
  const QStringList values{u"ALİ"_s, u"<CİHAZ MARKA>"_s, u"ACER"_s, {}, u"S1"_s, {}, {}, u"BOZUK"_s};
  EXPECT_EQ(SmsText::withMarkers(u"<MÜŞTERİ ADI>: <SERİ NO>/<SERİ NO> <ariza tanimi> <CİHAZ ADI> <TAMİR NOTU>"_s, SmsText::markers(), values),
            u"ALİ: S1/S1 <ariza tanimi> ACER <TAMİR NOTU>"_s);
}

TEST(ListText, PartsAtDelimiterAndBlanks) {
  const QList<std::pair<QString, QStringList>> table{
      {u"a;b c;;d;"_s, {u"a"_s, u"b"_s, u"c"_s, {}, u"d"_s, {}}},
      {u" \"x;y\"\"z\" ; e\r\n"_s, {u"x;y\"z"_s, u"e"_s}},
      {u"\"open"_s, {u"open"_s}},
      {{}, {}},
  };
  for (const auto& [text, items] : table) EXPECT_EQ(ListText::split(text, u';'), items);
  EXPECT_EQ(ListText::asLines(u"a\nb\r"_s), u"a\r\nb\r\n"_s);
}

TEST(CallerText, Notices) {
  const auto check = [](const QByteArray& datagram, const QString& title, const QString& body) {
    const CallerText::Notice notice = CallerText::notice(datagram);
    EXPECT_EQ(notice.title, title);
    EXPECT_EQ(notice.body, body);
  };
  const QString none(10, u'X');
  check("01.02.2026|10:15|1|02121234567|0|", u"Gelen Çağrı"_s, u"01.02.2026 10:15\r\n0(212) 123 4567"_s);
  check("01.02.2026|10:15|1|02121234567|17|Ornek Musteri|", u"Ornek Musteri"_s, u"02121234567\r\n\r\n01.02.2026 10:15"_s);
  check("01.02.2026|10:15|1|5|17|\xDE\xFDk", u""_s, u"5\r\n\r\n01.02.2026 10:15"_s);
  check("nothing", none, none + u"\r\n\r\n"_s + none + u' ' + none);
  check("", none, none + u"\r\n\r\n"_s + none + u' ' + none);
  const QList<std::pair<QString, QString>> numbers{{u"2123456"_s, u"212 3456"_s},
                                                   {u"2121234567"_s, u"(212) 123 4567"_s},
                                                   {u"02121234567"_s, u"0(212) 123 4567"_s},
                                                   {u"212123456"_s, u"212123456"_s},
                                                   {{}, {}}};
  for (const auto& [number, shown] : numbers) EXPECT_EQ(CallerText::grouped(number), shown);
}
