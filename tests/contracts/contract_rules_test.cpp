#include "contracts/contract_rules.h"
#include "tests/support/test.h"

namespace {

enum Period { Once, Daily, Weekly, Monthly, Yearly, TwoMonths };

ContractInput input(const QString& start, const QString& end, const QString& reminder, int period) {
  return {u"100"_s, u"AYŞE IŞIK"_s, start, end, reminder, period};
}

std::string faultOf(const ContractInput& given) {
  const auto fault = ContractRules::firstFault(given);
  return fault ? (fault->box + u'|' + fault->message).toStdString() : "";
}

}  // namespace

TEST(ContractRulesTest, TheTestsSpeakInTheirOrderAtTheirBoxes) {
  ContractInput given;
  const std::pair<QString ContractInput::*, std::string> steps[] = {
      {&ContractInput::number, "SOZ_NO|\"Sözleşme No\" alanı için değer girmelisiniz."},
      {&ContractInput::customer, "TS_MUSTERI|\"Müşteri Adı\" alanı için değer girmelisiniz."},
      {&ContractInput::start, "BAS_TAR|\"Sözleşme Başlama Tarih\" alanı için değer girmelisiniz."},
      {&ContractInput::end, "BIT_TAR|\"Sözleşme Bitiş Tarih\" alanı için değer girmelisiniz."},
      {&ContractInput::firstReminder, "HAT_TAR|\"İlk Hatırlatma Tarih\" alanı için değer girmelisiniz."},
  };
  for (const auto& [box, message] : steps) {
    given.*box = u"  "_s;
    EXPECT_EQ(faultOf(given), message);
    given.*box = u"5.1.2024"_s;
  }
  EXPECT_EQ(faultOf(given), "");
}

TEST(ContractRulesTest, TheDatesMustFitTheTermAndThePeriod) {
  const std::string order = "BIT_TAR|\"Sözleşme Bitiş Tarih\" Başlama tarihden önce olamaz.";
  const std::string outside = "HAT_TAR|\"İlk Hatırlatma Tarih\" Başlama ve Bitiş tarihleri arasında olmalı.";
  const std::string weekly = "HAT_TAR|\"Haftalık Hatırlatma\" için Sözleşme Başlama ve Bitiş Tarihleri hatalı.";
  const std::string monthly = "HAT_TAR|\"Aylık Hatırlatma\" için Sözleşme Başlama ve Bitiş Tarihleri hatalı.";
  const std::string yearly = "BIT_TAR|\"Yıllık Hatırlatma\" için Sözleşme Başlama ve Bitiş Tarihleri hatalı.";
  const struct {
    QString start, end, reminder;
    int period;
    std::string fault;
  } cases[] = {
      {u"31.02.2024"_s, u"01.03.2024"_s, u"01.03.2024"_s, Once, "BAS_TAR|\"31.02.2024\" geçerli bir tarih değil."},
      {u"02.01.2024"_s, u"01.01.2024"_s, u"01.01.2024"_s, Once, order},
      {u"02.01.2024"_s, u"09.01.2024"_s, u"01.01.2024"_s, Once, outside},
      {u"02.01.2024"_s, u"09.01.2024"_s, u"10.01.2024"_s, Once, outside},
      {u"02.01.2024"_s, u"02.01.2024"_s, u"02.01.2024"_s, Daily, ""},
      {u"01.01.2024"_s, u"08.01.2024"_s, u"08.01.2024"_s, Weekly, ""},
      {u"01.01.2024"_s, u"07.01.2024"_s, u"01.01.2024"_s, Weekly, weekly},
      {u"01.02.2024"_s, u"02.03.2024"_s, u"01.02.2024"_s, Monthly, ""},  // over the 29th of February
      {u"01.02.2024"_s, u"01.03.2024"_s, u"01.02.2024"_s, Monthly, monthly},
      {u"01.01.2023"_s, u"05.02.2024"_s, u"11.04.2023"_s, Yearly, yearly},  // 400 days, of which 300 are left
      {u"01.01.2023"_s, u"01.01.2024"_s, u"01.01.2023"_s, Yearly, ""},
      {u"01.01.2023"_s, u"31.12.2023"_s, u"01.01.2023"_s, Yearly, yearly},
      {u"01.01.2024"_s, u"02.01.2024"_s, u"01.01.2024"_s, TwoMonths, ""},
      {u"01.01.2024"_s, u"02.01.2024"_s, u"01.01.2024"_s, -1, ""},
  };
  for (const auto& row : cases)
    EXPECT_EQ(faultOf(input(row.start, row.end, row.reminder, row.period)), row.fault) << row.start.toStdString() << " " << row.period;
}

TEST(ContractRulesTest, ANumberFollowsTheLargestOrTheTypedTextStays) {
  const struct {
    QString largest, typed, proposed;
  } cases[] = {{u""_s, u" "_s, u"100"_s}, {u"0"_s, u""_s, u"100"_s},  {u"199"_s, u""_s, u"200"_s},
               {u"999"_s, u"9"_s, u"1000"_s}, {u""_s, u"7"_s, u"7"_s}, {u"0"_s, u"AB"_s, u"AB"_s}};
  for (const auto& row : cases) EXPECT_EQ(ContractRules::proposedNumber(row.largest, row.typed), row.proposed);
}
