// Messages as today's mail programs read them: two parsers of others read back what was composed.
#include "comm/mail_message.h"
#include "tests/support/test.h"

namespace {

QStringList readBy(const QString& program, const QString& script, const QByteArray& message) {
  return outputOf(program, {QStringLiteral(READERS) + u'/' + script}, message).split(u'\n');
}

MailMessage compose(const QString& recipients, const QString& subject, const QString& body) {
  return composeMail({u"servis@torvane.example"_s, recipients, subject, body, QDateTime(QDate(2026, 2, 1), QTime(10, 15)), u"k1"_s});
}

}  // namespace

TEST(MailMessage, TwoParsersReadTheTurkishText) {
  const QString subject = u"Cihazınız HAZIR: ŞĞÜİÖÇ şğüıöç € – "_s + u"uzun "_s.repeated(30) + u"😀"_s;
  const QString body = u"Sayın Müşteri,\n.\r\n.nokta\r\n"_s + QString(10000, u'ş') + u"\rFrom x"_s;
  const MailMessage message = compose(u"ali@b.example; \"Öz, Veli\" <veli@b.example>"_s, subject, body);
  EXPECT_EQ(message.recipients, (QList<QByteArray>{"ali@b.example", "veli@b.example"}));
  for (const QByteArray& line : message.text.split('\n')) {
    EXPECT_LE(line.size(), 77) << line.constData();
    EXPECT_FALSE(line.startsWith('.'));
  }
  EXPECT_TRUE(message.text.contains("=?UTF-8?B?" + u"Öz, Veli"_s.toUtf8().toBase64() + "?=")) << "without its quotes";
  QString shown = body;
  shown.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n').replace(u'\n', u"\\n"_s);
  const QString from = u"servis@torvane.example"_s;
  const QStringList python = readBy(u"python3"_s, u"read_mail.py"_s, message.text);
  EXPECT_EQ(python.mid(0, 2), (QStringList{from, from}));
  EXPECT_EQ(python.value(3), subject);
  EXPECT_EQ(python.mid(4, 4), (QStringList{u"multipart/alternative"_s, u"1"_s, u"0"_s, u"8"_s}));
  EXPECT_EQ(python.value(8), u'\'' + shown + u'\'');
  const QStringList perl = readBy(u"perl"_s, u"read_mail.pl"_s, message.text);
  EXPECT_TRUE(perl.value(0).contains(u"Öz, Veli"_s) && perl.value(0).contains(u"<veli@b.example>"_s)) << perl.value(0).toStdString();
  EXPECT_EQ(perl.mid(1, 3), (QStringList{subject, u"multipart/alternative"_s, u"1"_s}));
  EXPECT_EQ(perl.value(4), shown);
}

TEST(MailMessage, NothingAddsAHeaderOrARecipient) {
  const MailMessage message = compose(u"ali@b.example"_s, u"Konu\r\nBcc: x@y.example\r\n\r\nmetin"_s, u"--=_kvtk_part--\r\n.\r\nQUIT\r\n"_s);
  const QStringList python = readBy(u"python3"_s, u"read_mail.py"_s, message.text);
  EXPECT_EQ(python.value(3), u"Konu  Bcc: x@y.example    metin"_s);
  EXPECT_EQ(python.mid(5, 3), (QStringList{u"1"_s, u"0"_s, u"8"_s}));
  for (const char16_t* odd : {u"", u" ; ", u"ali", u"a@b.example\r\nBcc: x@y.example", u"a@b.example>\r\nRCPT TO:<x@y.example", u"ş@b.example",
                              u"a b@c.example", u"a@b@c.example", u"<a@b.example> x"})
    EXPECT_THROW(compose(QString::fromUtf16(odd), u"k"_s, u"m"_s), EMailError) << QString::fromUtf16(odd).toStdString();
}

TEST(MailMessage, AddressesThatTheScreensTake) {
  const QList<std::pair<QString, bool>> table{
      {u"a@b.co"_s, true},   {u"A-b_9.x@c-d.com.tr"_s, true}, {u"a@b.c"_s, false},   {u"a@.com"_s, false}, {u"a@bcd"_s, false},
      {u"a..b@c.co"_s, false}, {u"@b.com"_s, false},           {u"a@b@c.com"_s, false}, {u"a@bcd.e"_s, false}, {u"a@b.com\n"_s, false},
      {u"ş@b.com"_s, false},  {u"a b@c.com"_s, false},        {u"abc.com"_s, false},  {{}, false},
  };
  for (const auto& [text, isValid] : table) EXPECT_EQ(isValidEmail(text), isValid) << text.toStdString();
}
