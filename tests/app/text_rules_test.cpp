#include "base/date_text.h"
#include "base/exceptions.h"
#include "app/login_rules.h"
#include "base/data/latin5.h"
#include "base/number_text.h"
#include "base/text_tools.h"
#include "base/turkish_text.h"
#include "tests/support/fixed_environment.h"
#include "tests/support/test.h"

namespace {

const QString smallLetters = u"abcçdefgğhıijklmnoöpqrsştuüvwxyz"_s;
const QString capitals = u"ABCÇDEFGĞHIİJKLMNOÖPQRSŞTUÜVWXYZ"_s;

using TextCase = std::pair<QString, QString>;

TEST(TurkishText, EveryLetterHasItsOtherCase) {
  EXPECT_EQ(TurkishText::upper(smallLetters), capitals);
  EXPECT_EQ(TurkishText::lower(capitals), smallLetters);
  for (int byte = 0; byte < 256; ++byte) {
    const char raw = char(byte);
    const QString character = Latin5::decode({&raw, 1});
    EXPECT_FALSE(Latin5::firstUnstorable(TurkishText::upper(character))) << byte;
  }
  EXPECT_TRUE(TurkishText::contains(u"İSTANBUL ISPARTA"_s, u"istanbul ısp"_s));
  EXPECT_FALSE(TurkishText::contains(u"ISPARTA"_s, u"isp"_s));
  for (qsizetype i = 0; i < smallLetters.size(); ++i) EXPECT_EQ(TurkishText::BuyukHarf(smallLetters[i]), capitals[i]);
  for (const QChar other : u"İŞA5|é€"_s) EXPECT_EQ(TurkishText::BuyukHarf(other), other);
}

TEST(LoginRules, TransliterationsDifferInCaseOnly) {
  EXPECT_EQ(TextTools::LoginTrBuyukHarf(smallLetters + u"İŞ1é"_s), u"ABCCDEFGGHIIJKLMNOOPQRSSTUUVWXYZIS1é"_s);
  EXPECT_EQ(TextTools::LoginTrPassword(smallLetters + capitals + u"é\\'"_s),
            u"abccdefgghiijklmnoopqrsstuuvwxyzABCCDEFGGHIIJKLMNOOPQRSSTUUVWXYZé\\'"_s);
}

TEST(LoginRules, AccountAndPassword) {
  const ScopedEnvironment fixed(std::make_unique<FixedEnvironment>());
  const QList<TextCase> accounts{{u"quend"_s, u"QUEND"_s}, {u"İLKIŞ"_s, u"ILKIS"_s}, {u"o'b\\\"r"_s, u"O'B\\\"R"_s}, {u""_s, u"123456"_s}};
  for (const auto& [typed, account] : accounts) EXPECT_EQ(LoginRules::account(typed), account);
  const QList<TextCase> passwords{{u"quend"_s, u"QUEND@Kp-7H4n"_s},   {u"QuEnD"_s, u"QUEND@Kp-7H4n"_s},
                                  {u"qüend"_s, u"QüEND@Kp-7H4n"_s},  // meant: the master word keeps its Turkish letters
                                  {u"Şifre1"_s, u"Sifre1@Kp-7H4n"_s}, {u"Sifre1"_s, u"Sifre1@Kp-7H4n"_s},
                                  {u"gizli"_s, u"gizli@Kp-7H4n"_s},   {u" q'\\ "_s, u" q'\\ @Kp-7H4n"_s},
                                  {u""_s, u"123456@Kp-7H4n"_s}};
  for (const auto& [typed, password] : passwords) EXPECT_EQ(LoginRules::password(typed), password) << typed.toStdString();
  const QList<TextCase> servers{{u"LocalHost"_s, u"PC-1"_s}, {u"127.0.0.1"_s, u"PC-1"_s}, {u"   "_s, u"PC-1"_s},
                                {u""_s, u"PC-1"_s},          {u"10.0.0.5"_s, u"10.0.0.5"_s}, {u"KASA"_s, u"KASA"_s}};
  for (const auto& [typed, server] : servers) EXPECT_EQ(LoginRules::server(typed, u"PC-1"_s), server);
}

TEST(TextTools, NumaratorCountsTheNumberAtTheEnd) {
  const QList<TextCase> cases{{u"AB-099"_s, u"AB-100"_s}, {u"999"_s, u"1000"_s}, {u"AB"_s, u"AB1"_s}, {u""_s, u"1"_s},
                              {u"A9"_s, u"A10"_s},        {u"9A"_s, u"9A1"_s},   {u"1-9"_s, u"1-10"_s}, {u"٣"_s, u"٣1"_s}};
  for (const auto& [before, after] : cases) EXPECT_EQ(TextTools::Numarator(before), after) << before.toStdString();
}

TEST(TextTools, TarihRotateTurnsDatesAndRefusesTheRest) {
  const QList<TextCase> cases{{u"5.3.2020"_s, u"2020-03-05"_s}, {u"29.02.2024"_s, u"2024-02-29"_s}, {u" 01.12.1999 "_s, u"1999-12-01"_s}};
  for (const auto& [before, after] : cases) EXPECT_EQ(TextTools::TarihRotate(before), after);
  for (const QString& bad : {u""_s, u"29.02.2023"_s, u"31.04.2020"_s, u"5.13.2020"_s, u"dün"_s, u"2020-03-05"_s, u"5.3.2020x"_s, u"0.0.0000"_s})
    EXPECT_THROW(TextTools::TarihRotate(bad), EConvertError) << bad.toStdString();
}

TEST(TextTools, StrToFloatUniversalTakesEitherNotation) {
  const QList<TextCase> cases{{u"1.250,50"_s, u"1250,50"_s}, {u"1,250.50"_s, u"1250,50"_s}, {u"12.5 TL"_s, u"12,5"_s},
                              {u"€ -7,00"_s, u"-7,00"_s},    {u"1250"_s, u"1250"_s},        {u"1.250"_s, u"1,250"_s},
                              {u""_s, u""_s},                {u"1.250.000,5"_s, u"1250000,5"_s}};
  for (const auto& [before, after] : cases) EXPECT_EQ(TextTools::StrToFloat_Universal(before), after) << before.toStdString();
  const QString far = u"1.5"_s + QString(253, u'0');
  EXPECT_EQ(TextTools::StrToFloat_Universal(far), u"15"_s + QString(253, u'0'));
  EXPECT_EQ(TextTools::StrToFloat_Universal(far.chopped(1)), u"1,5"_s + QString(252, u'0'));
}

TEST(TextTools, GetValueReadsClosedFields) {
  const QString text = u"1| 0 |3||5|unclosed"_s;
  const QString none(10, u'X');
  const QList<std::pair<int, QString>> cases{{-1, none}, {0, none},  {1, u"1"_s}, {2, u"0"_s}, {3, u"3"_s},
                                             {4, u""_s}, {5, u"5"_s}, {6, u""_s},  {7, none}};
  for (const auto& [index, field] : cases) EXPECT_EQ(TextTools::GetValue(text, index), field) << index;
  EXPECT_EQ(TextTools::GetValue(u"1|2|"_s, 3), none);
  EXPECT_EQ(TextTools::GetValue(u""_s, 1), none);
  EXPECT_EQ(TextTools::GetValue(u"unclosed"_s, 1), none);
}

TEST(TextTools, ChecksumAndLineBreaks) {
  EXPECT_EQ(TextTools::CalcStrChecksum(u"AB"_s, false), 131);
  EXPECT_EQ(TextTools::CalcStrChecksum(u"AB"_s, true), 1);
  EXPECT_EQ(TextTools::CalcStrChecksum({}, true), 0);
  EXPECT_EQ(TextTools::DeleteLineBreaks(u"a\r\nb\nc\rd "_s), u"abcd "_s);
}

TEST(NumberText, ReadsAndShows) {
  const QList<std::pair<QString, std::optional<double>>> cases{
      {u"12.50"_s, 12.5}, {u"12,50"_s, 12.5}, {u"1.250,50"_s, 1250.5}, {u"1.250"_s, 1250.0}, {u"1250"_s, 1250.0}, {u"-0,5"_s, -0.5},
      {u",5"_s, 0.5},     {u"0.125"_s, 0.125}, {u"1.250.000"_s, 1250000.0}, {u"12.34,5"_s, {}}, {u"1,2,3"_s, {}}, {u""_s, {}},
      {u"-"_s, {}},       {u"12a"_s, {}},     {u"1e5"_s, {}},          {u"nan"_s, {}},       {u"٣"_s, {}}};
  for (const auto& [text, number] : cases) EXPECT_EQ(NumberText::toDouble(text), number) << text.toStdString();
  EXPECT_EQ(NumberText::toDecimal(u"-12.345.678.901.234.567.890,123"_s), u"-12345678901234567890.123"_s);
  for (const double number : {0.0, 0.1, -1250.5, 1e15, 123456789.125, 2.675, 1e-7, 4.9e-324, 1.7e308})
    EXPECT_EQ(NumberText::toDouble(NumberText::fromDouble(number)), number) << number;
}

TEST(NumberText, DisplayFormats) {
  struct Case {
    QString format;
    double number;
    QString shown;
  };
  const QString money = u",0.00;-,0.00"_s;
  const QString balance = u",0.00 (B);,0.00 (A);0"_s;
  const QString distance = u",0 KM;-,0 KM;0"_s;
  const QList<Case> cases{{money, 1234567.891, u"1.234.567,89"_s}, {money, -1250.5, u"-1.250,50"_s}, {money, 0, u"0,00"_s},
                          {money, 2.675, u"2,68"_s},               {money, 999.995, u"1.000,00"_s},  {u",0.00"_s, -0.001, u"0,00"_s},
                          {u",0.##"_s, 12.5, u"12,5"_s},           {u",0.##"_s, 12, u"12"_s},        {u",0.##"_s, -1234.567, u"-1.234,57"_s},
                          {distance, 1500, u"1.500 KM"_s},         {distance, -3, u"-3 KM"_s},       {distance, 0, u"0"_s},
                          {balance, 10, u"10,00 (B)"_s},           {balance, -1000, u"1.000,00 (A)"_s}, {balance, 0, u"0"_s},
                          {u",0 Kayıt"_s, 12345, u"12.345 Kayıt"_s}, {u"0"_s, 12345.6, u"12346"_s},  {u",0.00"_s, 1234.5, u"1.234,50"_s}};
  for (const auto& [format, number, shown] : cases)
    EXPECT_EQ(NumberText::formatted(format, number), shown) << format.toStdString() << " of " << number;
}

TEST(DateText, ReadsWhatItShows) {
  const QDateTime moment(QDate(2020, 3, 5), QTime(8, 7, 6));
  EXPECT_EQ(DateText::dateTime(moment), u"05.03.2020 08:07:06"_s);
  EXPECT_EQ(DateText::toDateTime(DateText::dateTime(moment)), moment);
  EXPECT_EQ(DateText::date({}) + DateText::time({}) + DateText::dateTime({}), QString());
  for (const QString& text : {u"5.3.2020"_s, u"05/03/2020"_s, u"05-03-2020"_s, u"05032020"_s, u"5.3.20"_s, u"050320"_s})
    EXPECT_EQ(DateText::toDate(text), moment.date()) << text.toStdString();
  for (const QString& text : {u"8:07:06"_s, u"080706"_s, u"08.07.06"_s}) EXPECT_EQ(DateText::toTime(text), moment.time()) << text.toStdString();
  EXPECT_EQ(DateText::toDate(u"1.1.80"_s), QDate(1980, 1, 1));
  EXPECT_EQ(DateText::toDate(u"30.02.2020"_s), std::nullopt);
  EXPECT_EQ(DateText::toTime(u"24:00"_s), std::nullopt);
  EXPECT_EQ(DateText::toTime(u"8:7"_s), std::nullopt);
  EXPECT_EQ(DateText::toDateTime(u"5.3.2020 25:00"_s), std::nullopt);
}

}  // namespace
