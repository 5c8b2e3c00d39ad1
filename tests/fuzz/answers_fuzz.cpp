// Throws damaged answers and datagrams at every reader of the network. KVTK_FUZZ_SECONDS says how long, KVTK_FUZZ_SEED which.
#include "comm/caller_text.h"
#include "comm/list_text.h"
#include "comm/mail_message.h"
#include "comm/sms_gateways.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>

#include <ctime>
#include <iostream>
#include <random>

using namespace Qt::StringLiterals;

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

class Damage {
 public:
  explicit Damage(quint64 seed) : random_(seed) {}

  int below(int bound) { return int(random_() % quint64(bound)); }

  QByteArray bytes() {
    QByteArray text = samples[below(int(samples.size()))];
    for (int hits = below(6); hits > 0; --hits) {
      const int at = below(int(text.size()) + 1);
      switch (below(5)) {
        case 0: text.remove(at, below(8)); break;
        case 1: text.insert(at, char(below(256))); break;
        case 2: text.insert(at, text.mid(below(int(text.size()) + 1), below(60))); break;
        case 3: text.truncate(at); break;
        default: {
          static const QByteArrayList marks{"|", "\"", ";", "\t", "$", "\\", "{", "]", "\r\n", "\xC3", "null", "1e400", "\\ud800", "@", "<"};
          text.insert(at, marks[below(int(marks.size()))]);
        }
      }
    }
    return text;
  }

 private:
  std::mt19937_64 random_;
};

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

qint64 setting(const char* name, qint64 usual) {
  bool isNumber = false;
  const qint64 number = qEnvironmentVariable(name).toLongLong(&isNumber);
  return isNumber ? number : usual;
}

}  // namespace

TEST(AnswersFuzz, ReadersHoldForDamagedAnswers) {
  const qint64 milliseconds = setting("KVTK_FUZZ_SECONDS", FUZZ_SECONDS) * 1000;
  Damage damage(quint64(setting("KVTK_FUZZ_SEED", 8903)));
  QElapsedTimer whole;
  whole.start();
  qint64 count = 0;
  do {
    const QByteArray bytes = damage.bytes();
    SCOPED_TRACE("answer " + std::to_string(count) + ": " + bytes.left(200).toPercentEncoding(" |;{}[]:,").toStdString());
    const std::clock_t begin = std::clock();  // of this process alone, however busy the machine is
    checkBytes(bytes, damage.bytes());
    if (HasFatalFailure()) return;
    ASSERT_LT(std::clock() - begin, 2 * CLOCKS_PER_SEC) << "hangs";
    ++count;
  } while (whole.elapsed() < milliseconds);
  std::cout << count << " answers\n";
}
