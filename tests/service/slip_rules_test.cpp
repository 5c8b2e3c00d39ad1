#include "base/environment.h"
#include "service/slip_lists.h"
#include "service/slip_rules.h"
#include "tests/support/test.h"

namespace {

std::vector<SlipText> texts(const QString& number, const QString& customer, const QString& device, const QString& serial) {
  return {{u"TS_NO"_s, u"FİŞ NO"_s, number, 15},
          {u"TS_MUSTERI"_s, u"MÜŞTERİ ADI"_s, customer, 100},
          {u"TS_C_AD"_s, u"CİHAZ TANIMI"_s, device, 100},
          {u"TS_C_SERINO"_s, u"DIŞ SERİ NO"_s, serial, 30}};
}

class FixedEnvironment : public Environment {
 public:
  explicit FixedEnvironment(std::vector<int> draws) : draws_(std::move(draws)) {}
  QDateTime now() const override { return QDateTime::fromSecsSinceEpoch(1700000000); }
  int randomBelow(int bound) override {
    EXPECT_EQ(bound, 25);
    return draws_.at(next_++);
  }

 private:
  std::vector<int> draws_;
  size_t next_ = 0;
};

}  // namespace

TEST(SlipRules, FirstMissingFieldIsTold) {
  const struct {
    std::vector<SlipText> texts;
    QString control;
    QString message;
  } cases[] = {
      {texts(u"  "_s, {}, {}, {}), u"TS_NO"_s, u"\"Fiş No\" alanı için değer girmelisiniz."_s},
      {texts(u"1"_s, u" "_s, {}, {}), u"TS_MUSTERI"_s, u"\"Müşteri Adı\" alanı için değer girmelisiniz."_s},
      {texts(u"1"_s, u"A"_s, {}, {}), u"TS_C_AD"_s, u"\"Cihaz Tanımı\" alanı için değer girmelisiniz."_s},
      {texts(u"1"_s, u"A"_s, u"B"_s, {}), u"TS_C_SERINO"_s, u"\"Seri No\" alanı için değer girmelisiniz."_s},
      {texts(u"1"_s, u"A"_s, u"B"_s, u" 12 "_s), u"TS_C_SERINO"_s, u"\"Seri No\" alanı için en az 3 karater girmelisiniz."_s},
      {texts(u"1"_s, u"A☃B"_s, u"B"_s, u"123"_s), u"TS_MUSTERI"_s, u"\"MÜŞTERİ ADI\" alanındaki \"☃\" (U+2603) karakteri kaydedilemez."_s},
      {texts(u"1"_s, u"A"_s, u"😀"_s, u"123"_s), u"TS_C_AD"_s, u"\"CİHAZ TANIMI\" alanındaki \"😀\" (U+1F600) karakteri kaydedilemez."_s},
      {texts(u"1234567890123456"_s, u"A"_s, u"B"_s, u"123"_s), u"TS_NO"_s, u"\"FİŞ NO\" alanına en fazla 15 karakter girebilirsiniz."_s},
      // What is missing is told before what does not fit.
      {texts(u"☃"_s, u"A"_s, u"B"_s, u"12"_s), u"TS_C_SERINO"_s, u"\"Seri No\" alanı için en az 3 karater girmelisiniz."_s},
  };
  for (const auto& one : cases) {
    const auto message = SlipRules::validate(one.texts);
    ASSERT_TRUE(message.has_value()) << qPrintable(one.message);
    EXPECT_EQ(message->control, one.control);
    EXPECT_EQ(message->text, one.message);
  }
  EXPECT_FALSE(SlipRules::validate(texts(u"123456789012345"_s, u"ŞĞİÜÖÇ şğıüöç € “”"_s, u"'\\\""_s, u"123"_s)).has_value());
}

TEST(SlipRules, NumberFollowsTheHighestOne) {
  const struct {
    QString highest, typed, proposed;
  } cases[] = {{{}, {}, u"100"_s},        {u"0"_s, {}, u"100"_s},     {u"1299"_s, {}, u"1300"_s},
               {u"999"_s, u"9"_s, u"1000"_s}, {{}, u"A"_s, u"A"_s}, {u"0"_s, u"A"_s, u"A"_s}};
  for (const auto& one : cases) EXPECT_EQ(SlipRules::proposedNumber(one.highest, one.typed), one.proposed);
}

TEST(SlipRules, GeneratedSerialHasNoLetterLikeADigit) {
  const struct {
    std::vector<int> draws;
    QString letters;
  } cases[] = {{{0, 24}, u"AY"_s}, {{8, 14}, u"PP"_s}, {{15, 7}, u"PH"_s}};
  for (const auto& one : cases) {
    const ScopedEnvironment fixed(std::make_unique<FixedEnvironment>(one.draws));
    EXPECT_EQ(SlipRules::generatedSerial(), one.letters + u"1700000000"_s);
  }
}

TEST(SlipRules, ListsKeepTheirPlacesAndTheirTwoSpellings) {
  // Stored as they are spelled, and a status's place names its receipt.
  EXPECT_EQ(SlipLists::statuses().join(u'|'),
            u"ARIZA KABUL|SIRA BEKLİYOR|PARÇA BEKLİYOR|İŞLEM YAPILMADI|İADE EDİLDİ|SERVİSE ALINDI|ONARILIYOR|DIŞ SERVİSTE|"
            u"FABRİKA İADESİ BEKLENİYOR|FABRİKA DEĞİŞİM BEKLENİYOR|MÜŞTERİ ONAYI BEKLENİYOR|MÜŞTERİ ONAY VERDİ|MÜŞTERİ ONAYLAMADI|"
            u"TAMAMLANDI|FATURALANDI|TESLİM EDİLDİ"_s);
  EXPECT_EQ(SlipLists::intakeStatus(), u"ARIZA KABUL"_s);
  EXPECT_EQ(SlipLists::outsideServiceStatus(), u"DIŞ SERVİSTE"_s);
  EXPECT_EQ(SlipLists::completedStatus(), u"TAMAMLANDI"_s);
  EXPECT_EQ(SlipLists::historyStatuses().at(4), u"İPTAL EDİLDİ"_s);
  EXPECT_EQ(SlipLists::historyStatuses().at(15), u"TESLİME HAZIR"_s);
  EXPECT_EQ(SlipLists::warrantyStates().join(u'|'), u"|VAR|YOK|BELİRSİZ|ONARIM GRANTİLİ"_s);
  EXPECT_EQ(SlipLists::browserWarrantyStates().last(), u"ONARIM GARANTİLİ"_s);
  EXPECT_EQ(SlipLists::paymentWays().join(u'|'), u"|Nakit|Kredi Kartı|Cari Hesap"_s);
}

TEST(SlipRules, OutsideServiceHintHasFiveLines) {
  const OutsideService service{u"ARÇELİK"_s, u"01.02.2026"_s, {}, u"KART"_s, 15};
  const QString lines = u"Dış Servis: ARÇELİK\nÇık. Tarih: 01.02.2026\nGir. Tarih: \nAçıklama: KART\nTeslim Süre: 15"_s;
  EXPECT_EQ(SlipRules::storedOutsideServiceHint(service), lines + u"Gün"_s);
  EXPECT_EQ(SlipRules::confirmedOutsideServiceHint(service), lines);
  EXPECT_EQ(SlipRules::confirmedOutsideServiceHint({}), QString());
}

TEST(SlipRules, PassiveStatusesLeaveTheList) {
  const struct {
    QStringList passive;
    bool isNewSlip;
    int outsideServicePlace;
    QString last;
  } cases[] = {{{}, true, 7, u"TESLİM EDİLDİ"_s},
               {{u"SERVİSE ALINDI"_s}, true, 6, u"TESLİM EDİLDİ"_s},
               {{u"DIŞ SERVİSTE"_s}, false, -1, u"TESLİM EDİLDİ"_s},
               {{u"TESLİM EDİLDİ"_s}, true, 7, u"FATURALANDI"_s},
               // An existing slip can be delivered whatever the parameters say.
               {{u"TESLİM EDİLDİ"_s, u"FATURALANDI"_s}, false, 7, u"TESLİM EDİLDİ"_s},
               {SlipLists::statuses(), false, -1, u"TESLİM EDİLDİ"_s}};
  for (const auto& one : cases) {
    const QStringList offered = SlipRules::offeredStatuses([&](const QString& status) { return one.passive.contains(status); }, one.isNewSlip);
    EXPECT_EQ(offered.indexOf(SlipLists::outsideServiceStatus()), one.outsideServicePlace);
    EXPECT_EQ(offered.last(), one.last);
    EXPECT_TRUE(SlipRules::isDelivery(int(offered.size()) - 1, int(offered.size())));
  }
  EXPECT_TRUE(SlipRules::offeredStatuses([](const QString&) { return true; }, true).isEmpty());
  EXPECT_FALSE(SlipRules::isDelivery(-1, 0));
}
