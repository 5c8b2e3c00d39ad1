// Throws damaged answers and datagrams at every reader of the network. KVTK_FUZZ_SECONDS says how long, KVTK_FUZZ_SEED which.
#include "base/data/value.h"
#include "comm/caller_text.h"
#include "comm/list_text.h"
#include "comm/mail_message.h"
#include "comm/sms_gateways.h"
#include "tests/fuzz/damage.h"

#include <iostream>

namespace {

/// What the readers take well, to be damaged.
const QByteArrayList samples{
    R"({"Response":{"Status":{"Code":200,"Description":"OK"},"Senders":[{"Value":"TORVANE"}],"Balance":{"Main":"12"},"MessageId":7}})",
    R"({"Response":{"Status":{"Code":"401","Description":"Olmaz"}}})",
    "DONUS|BASLiKLAR|TORVANE;TEKNIK SERVIS;\"A;B\"",
    "DONUS|ORJiNLi(1250)",
    "DONUS|OK|1001",
    "TORVANE\tTEKNIK SERVIS\t",
    "$1250.0",
    "23",
    "01.02.2026|10:15|1|02121234567|17|Örnek Müşteri|",
    "Öz <a@b.example>, \"x, y\" <c@d.example>; e@f.example\r\n",
    QByteArray(20000, '['),
    {},
};

/// Strewn in.
const QByteArrayList marks{"|", "\"", ";", "\t", "$", "\\", "{", "]", "\r\n", "\xC3", "null", "1e400", "\\ud800", "@", "<"};

/// Runs a reader; only the errors that it announces may leave it.
template <class... Announced, class Read>
void read(Read reader) {
  try {
    reader();
  } catch (const Exception& error) {
    ASSERT_TRUE((... || (dynamic_cast<const Announced*>(&error) != nullptr))) << error.what();
  }
}

void checkMail(const QString& text, const QString& more) {
  read<EMailError>([&] {
    const MailMessage message = composeMail({u"a@b.example"_s, text, more, more, QDateTime(QDate(2026, 2, 1), QTime(1, 2)), u"k"_s});
    const QByteArray heading = message.text.left(message.text.indexOf("\r\n\r\n"));
    qsizetype headers = 0;
    for (const QByteArray& line : heading.split('\n')) headers += line.startsWith(' ') ? 0 : 1;
    ASSERT_EQ(headers, 8) << heading.constData();
    for (const char byte : message.text) ASSERT_TRUE(byte == '\r' || byte == '\n' || (byte >= ' ' && byte <= '~'));
    for (const QByteArray& recipient : message.recipients) ASSERT_EQ(recipient.count('@'), 1);
  });
}

void checkBytes(const QByteArray& bytes, const QByteArray& other) {
  const HttpAnswer answer{200, {}, bytes};
  read<EWireError>([&] { JsonSms::readSenders(answer); });
  read<EWireError>([&] { JsonSms::readBalance(answer); });
  read<EWireError>([&] { JsonSms::readReceipt(answer); });
  read<>([&] { FormSms::readSenders(answer); });
  read<>([&] { FormSms::readBalance(answer); });
  read<>([&] { FormSms::readReceipt(answer); });
  read<>([&] { XmlSms::readSenders(answer, true); });
  read<>([&] { XmlSms::readReceipt(answer); });
  read<EConvertError>([&] { XmlSms::readBalance(answer); });
  read<>([&] { CallerText::notice(bytes); });
  // Nothing is lost on the way to a list but its delimiters and blanks.
  const QString text = answerText(answer);
  qsizetype kept = 0, had = 0;
  for (const QString& item : ListText::split(text, u';')) kept += item.count(u'a');
  had = text.count(u'a');
  ASSERT_EQ(kept, had);
  checkMail(text, answerText({200, {}, other}));
}

}  // namespace

TEST(AnswersFuzz, ReadersHoldForDamagedAnswers) { std::cout << Damage::run(samples, marks, checkBytes) << " answers\n"; }
