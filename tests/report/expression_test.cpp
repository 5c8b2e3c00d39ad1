#include "tests/report/listed_rows.h"
#include "tests/support/test.h"
#include "toolkit/report/report_expression.h"

using testing::HasSubstr;

namespace {

class ExpressionTest : public testing::Test {
 protected:
  ExpressionTest() {
    data_.declareVariable(u"TUTAR"_s, u"Tutar"_s);
    data_.setExpression(u"FIS_NO"_s, ReportData::quoted(u"12'34"_s));
    data_.setExpression(u"FIYAT"_s, u"1250.5"_s);
    data_.setExpression(u"BOZUK"_s, u"1 +"_s);
    data_.setExpression(u"GUN"_s, ReportData::quoted(u"05.03.2026"_s));
    data_.addRows(u"Malzeme"_s, std::make_shared<ListedRows>(QStringList{u"AD"_s, u"ADET"_s, u"PARÇA NO"_s},
                                                              std::vector<std::vector<ReportValue>>{{u"Fan"_s, 2.0, u"x"_s},
                                                                                                    {u"Ekran"_s, 0.5, u"y"_s},
                                                                                                    {u"Vida"_s, std::monostate(), u"z"_s}}));
    context_.data = &data_;
    context_.places = &places_;
    context_.page = 2;
    context_.pageCount = 7;
    context_.now = QDateTime(QDate(2026, 3, 9), QTime(8, 5));
  }
  std::string text(const QString& expression, const QString& format = {}) {
    const auto result = ExpressionText(expression).evaluate(context_, format);
    return (result.faults.isEmpty() ? result.text : u"!"_s + result.text + u'|' + result.faults.join(u'|')).toStdString();
  }

  ReportData data_;
  std::vector<RowPlace> places_ = {{1, 0, 3}};
  EvaluationContext context_;
};

}  // namespace

TEST_F(ExpressionTest, ComesToItsText) {
  const std::pair<const char*, const char*> cases[] = {
      {"düz metin ] ve [[köşeli]", "düz metin ] ve [köşeli]"},
      {"No: [FIS_NO].", "No: 12'34."},
      {"[fis_no] [Fiş_No]", "12'34 12'34"},
      {"[TUTAR]", ""},
      {"[TUTAR + 1]", "1"},
      {"[2 + 3 * 4 - 10 / 4]", "11,5"},
      {"[-(2 + 3) % 3]", "-2"},
      {"[0.1 + 0.2]", "0,30000000000000004"},
      {"[YUVARLA(0.1 + 0.2; 2)]", "0,3"},
      {"['a''b' & \"c\"\"]\"]", "a'bc\"]"},
      {"['1' + 2]", "12"},
      {"['1.250,50' * 2]", "2501"},
      {"[EĞER(FIYAT > 1000; 'çok'; 'az')]", "çok"},
      {"[eger(boş(TUTAR) ve değil yanlış; 1; 1 / 0)]", "1"},
      {"['istanbul' = 'İSTANBUL']", "Evet"},
      {"['ısı' = 'isi']", "Hayır"},
      {"[BÜYÜK('ışık istif')] [KÜÇÜK('IŞIK')]", "IŞIK İSTİF ışık"},
      {"[SAYI(FIYAT)] [SAYI(FIYAT; ',0.00 TL')] [SAYI(TUTAR)]", "1.250,50 1.250,50 TL "},
      {"[TARİH(GUN; 'd MMMM yyyy dddd')]", "5 Mart 2026 Perşembe"},
      {"[BUGÜN] [SAAT] [TARİH(ŞİMDİ; 'HH:mm')]", "09.03.2026 08:05:00 08:05"},
      {"[SAYFA]/[SAYFA_SAYISI]", "2/7"},
      {"[SIRA]. [Malzeme.AD] [Malzeme.'Parça No']", "2. Ekran y"},
      {"[TOPLAM(Malzeme.ADET)] [SAY(Malzeme)] [SAY(Malzeme; Malzeme.ADET > 1)]", "2,5 3 1"},
      {"[TOPLAM(Malzeme.ADET * 10; Malzeme.AD <> 'Fan')] [ENÇOK(Malzeme.ADET)] [ENAZ(Malzeme.ADET)]", "5 2 0,5"},
      {"[ORTALAMA(Malzeme.ADET)] [Malzeme.ADET]", "1,25 0,5"},
      {"[PARÇA('bilgisayar'; 3; 4)] [PARÇA('abc'; 0; 2)] [UZUNLUK('ğüş')] [KIRP('  x ')] [TAM(7 / 2)]", "lgis ab 3 x 3"},
  };
  for (const auto& [expression, expected] : cases) EXPECT_EQ(text(QString::fromUtf8(expression)), expected) << expression;
  EXPECT_EQ(text(u"[FIYAT] x [TUTAR]"_s, u",0.00 TL"_s), "1.250,50 TL x ");
}

TEST_F(ExpressionTest, FaultsAreValuesAndLeaveTheRestOfTheText) {
  const std::pair<const char*, const char*> cases[] = {
      {"a[KIMSE]b", "!ab|“KIMSE” adını kimse bilmiyor"},
      {"[BOZUK]", "yarım"},
      {"[Depo.AD]", "“Depo.AD” adlı veri kümesi yok"},
      {"[Malzeme.RENK]", "böyle bir alan yok"},
      {"[1 / 0]", "sıfıra"},
      {"[1 % TUTAR]", "sıfıra"},
      {"[FIS_NO * 2]", "bir sayı değil"},
      {"[1,5 + 2]", "beklenmiyor"},
      {"[1 2]", "beklenmiyor"},
      {"['a]", "tırnak"},
      {"[(1]", "“)” bekleniyor"},
      {"[]", "boş"},
      {"[KAÇ(1)]", "işlev yok"},
      {"[BÜYÜK()]", "BÜYÜK(metin)"},
      {"[TOPLAM(1)]", "hangi veri kümesi"},
      {"[TARİH('dün')]", "tarih değil"},
      {"[PARÇA('x'; 1 / 0)]", "sıfıra"},
  };
  for (const auto& [expression, fault] : cases) {
    const std::string shown = text(QString::fromUtf8(expression));
    EXPECT_EQ(shown[0], '!') << expression;
    EXPECT_THAT(shown, HasSubstr(fault)) << expression;
  }
}

TEST_F(ExpressionTest, ALongTextIsNoLongExpression) {
  const QString note = u"Uzun bir not'un satırı. "_s.repeated(3000);
  data_.setExpression(u"FIS_NO"_s, ReportData::quoted(note));
  EXPECT_EQ(text(u"[FIS_NO]"_s), note.toStdString());
}

TEST_F(ExpressionTest, HostileExpressionsEndInAFault) {
  const int many = 100'000;
  EXPECT_THAT(text(u'[' + QString(many, u'(')), HasSubstr("çok"));
  EXPECT_THAT(text(u'[' + QString(5000, u'(') + u'1' + QString(5000, u')') + u']'), HasSubstr("iç içe"));
  EXPECT_THAT(text(u'[' + QString(5000, u'-') + u"1]"_s), HasSubstr("iç içe"));
  EXPECT_THAT(text(u"[1"_s + u"+1"_s.repeated(5000) + u']'), HasSubstr("iç içe"));
  EXPECT_THAT(text(u'[' + QString(many, u'9') + u']'), HasSubstr("uzun"));
  EXPECT_THAT(text(u'[' + QString(400, u'9') + u']'), HasSubstr("sayı değil"));
  auto rows = std::make_shared<ListedRows>(QStringList{u"N"_s}, std::vector<std::vector<ReportValue>>(3000, {1.0}));
  data_.addRows(u"Depo"_s, rows);
  places_.push_back({-1, 0, 3000});
  EXPECT_THAT(text(u"[TOPLAM(Depo.N)]"_s), "3000");
  EXPECT_THAT(text(u"[TOPLAM(TOPLAM(TOPLAM(Depo.N)))]"_s), HasSubstr("çok uzun sürüyor"));
  qint64 left = 100;
  context_.stepsLeft = &left;
  EXPECT_THAT(text(u"[TOPLAM(Depo.N)]"_s), HasSubstr("çok uzun sürüyor"));
  EXPECT_LE(left, 0);
}
