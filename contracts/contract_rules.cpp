#include "contracts/contract_rules.h"

#include "base/date_text.h"
#include "base/text_tools.h"

#include <QStringList>

#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {

const QString startBox = u"BAS_TAR"_s;
const QString endBox = u"BIT_TAR"_s;
const QString reminderBox = u"HAT_TAR"_s;

/// Places of the periods that ask for a term of some length.
enum Position { Weekly = 2, Monthly = 3, Yearly = 4 };

struct TextTest {
  const QString& text;
  QString box;
  QString message;
};

std::optional<ContractFault> firstEmpty(const ContractInput& input) {
  const TextTest tests[] = {
      {input.number, u"SOZ_NO"_s, u"\"Sözleşme No\" alanı için değer girmelisiniz."_s},
      {input.customer, u"TS_MUSTERI"_s, u"\"Müşteri Adı\" alanı için değer girmelisiniz."_s},
      {input.start, startBox, u"\"Sözleşme Başlama Tarih\" alanı için değer girmelisiniz."_s},
      {input.end, endBox, u"\"Sözleşme Bitiş Tarih\" alanı için değer girmelisiniz."_s},
      {input.firstReminder, reminderBox, u"\"İlk Hatırlatma Tarih\" alanı için değer girmelisiniz."_s},
  };
  for (const TextTest& test : tests)
    if (test.text.trimmed().isEmpty()) return ContractFault{test.box, test.message};
  return std::nullopt;
}

std::optional<ContractFault> firstThatIsNoDate(const ContractInput& input) {
  const std::pair<const QString&, const QString&> boxes[] = {
      {input.start, startBox}, {input.end, endBox}, {input.firstReminder, reminderBox}};
  for (const auto& [text, box] : boxes)
    if (!DateText::toDate(text)) return ContractFault{box, u"\"%1\" geçerli bir tarih değil."_s.arg(text.trimmed())};
  return std::nullopt;
}

/// Whole days between two dates, whichever is the earlier.
int daysBetween(QDate one, QDate other) { return int(std::abs(one.daysTo(other))); }

/// The weekly and the monthly test measure the term and speak at the first reminder; the yearly one measures from the first
/// reminder and speaks at the end: meant. So are the longer periods, which ask for no length.
std::optional<ContractFault> tooShort(int period, QDate start, QDate end, QDate reminder) {
  const auto message = [](const QString& name) {
    return u"\"%1 Hatırlatma\" için Sözleşme Başlama ve Bitiş Tarihleri hatalı."_s.arg(name);
  };
  if (period == Weekly && daysBetween(start, end) < 7) return ContractFault{reminderBox, message(u"Haftalık"_s)};
  if (period == Monthly && daysBetween(start, end) < 30) return ContractFault{reminderBox, message(u"Aylık"_s)};
  if (period == Yearly && daysBetween(reminder, end) < 365) return ContractFault{endBox, message(u"Yıllık"_s)};
  return std::nullopt;
}

}  // namespace

const std::vector<ContractPeriod>& ContractRules::periods() {
  static const std::vector<ContractPeriod> all{
      {u"Birkez"_s, 1}, {u"Hergün"_s, 3}, {u"Haftalık"_s, 5}, {u"Aylık"_s, 7},  {u"Yıllık"_s, 9},
      {u"2 Ay"_s, 11},  {u"3 Ay"_s, 13},  {u"4 Ay"_s, 15},    {u"5 Ay"_s, 17},  {u"6 Ay"_s, 19},
      {u"7 Ay"_s, 21},  {u"8 Ay"_s, 23},  {u"9 Ay"_s, 25},    {u"10 Ay"_s, 27}, {u"11 Ay"_s, 29}};
  return all;
}

QStringList ContractRules::states() { return {u"PASİF"_s, active, u"BİTTİ"_s}; }

QString ContractRules::proposedNumber(const QString& largest, const QString& typed) {
  if (!largest.isEmpty() && largest != "0"_L1) return TextTools::Numarator(largest);
  return typed.trimmed().isEmpty() ? u"100"_s : typed;
}

std::optional<ContractFault> ContractRules::firstFault(const ContractInput& input) {
  if (auto fault = firstEmpty(input)) return fault;
  if (auto fault = firstThatIsNoDate(input)) return fault;
  const QDate start = *DateText::toDate(input.start);
  const QDate end = *DateText::toDate(input.end);
  const QDate reminder = *DateText::toDate(input.firstReminder);
  if (end < start) return ContractFault{endBox, u"\"Sözleşme Bitiş Tarih\" Başlama tarihden önce olamaz."_s};
  if (reminder < start || reminder > end)
    return ContractFault{reminderBox, u"\"İlk Hatırlatma Tarih\" Başlama ve Bitiş tarihleri arasında olmalı."_s};
  return tooShort(input.period, start, end, reminder);
}
