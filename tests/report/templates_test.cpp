#include "tests/report/report_fixture.h"
#include "tests/support/screen_test.h"
#include "toolkit/report/report.h"

#include <random>

namespace {

const QStringList slipNames =
    u"FIS_NO FIS_TURU FIS_TARIH RANDEVU_TARIH TEKNISYEN_ADI FIS_TESLIM_TARIH FIS_ACIKLAMA FIS_OZELK_KODU FIS_FATURA_NO SERVIS_TIPI "
    "HIZMET_TIPI GARANTI_DURUM CIHAZ_TANIMI CIHAZ_DIS_SERI_NO CIHAZ_IC_SERI_NO CIHAZ_DIS_MODEL_NO CIHAZ_IC_MODEL_NO CIHAZ_URETICI "
    "CIHAZ_EK_BIRIMLER CIHAZ_SIKAYET CIHAZ_TEKNIK_RAPOR MUSTERI_ADI MUSTERI_UNVAN MUSTERI_NO MUSTERI_ADRES MUSTERI_ILCE "
    "MUSTERI_YETKILI MUSTERI_TELEFON MUSTERI_TELEFON_2 MUSTERI_CEP_TELEFON MUSTERI_EPOSTA CIHAZ_GAR_BAS_TAR CIHAZ_GAR_BIT_TAR "
    "TESLIM_TARIH NOTLAR TAMIR_TUTAR ODEME_SEKLI SERVIS_TUTAR ISCILIK_TUTAR PARCA_TUTAR KULLANICI_ADI KULLANICI_ISLEM_TARIH "
    "SIRKET_ADI SIRKET_ADRES SIRKET_ILCE SIRKET_IL SIRKET_TEL SIRKET_FAX SIRKET_EPOSTA SIRKET_WEB"_s.split(u' ');

class TemplatesTest : public testing::Test {
 protected:
  TemplatesTest() {
    QDirIterator files(QStringLiteral(KVTK_TEMPLATES), {u"*.fr3"_s}, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) files_ += files.next();
  }
  /// The template with every name set to its text and that many lines of parts.
  ReportPages filled(const QString& file, const std::function<QString(const QString&)>& textOf, int lines) {
    Report report;
    for (const QString& name : slipNames) report.data().declareVariable(name, {});
    report.load(file);
    for (const QString& name : slipNames)
      if (!name.endsWith(u"TUTAR"_s)) report.data().setExpression(name, ReportData::quoted(textOf(name)));
    std::vector<std::vector<ReportValue>> rows;
    for (int row = 0; row < lines; ++row) rows.push_back({double(row + 1), u"Parça %1"_s.arg(row + 1), 1.0, 10.0});
    report.data().addRows(u"Malzeme"_s, std::make_shared<ListedRows>(QStringList{u"MZ_SIRANO"_s, u"MZ_PARCA_ADI"_s, u"MZ_ADET"_s, u"MZ_TUTAR"_s}, rows));
    return report.prepare();
  }
  QStringList files_;
};

QString faultsOf(const ReportPages& pages) {
  QStringList all;
  for (const ReportFault& fault : pages.faults)
    if (!fault.isNotice) all += fault.object + u": "_s + fault.reason;
  return all.join(u'\n');
}

}  // namespace

TEST_F(TemplatesTest, EveryDeliveredTemplateRoundTripsAndUsesOnlyNamesThatAreSet) {
  ASSERT_EQ(files_.size(), 18);
  for (const QString& name : files_) {
    const QByteArray bytes = contentOf(name);
    EXPECT_EQ(ReportFile::write(ReportFile::read(bytes)).toStdString(), bytes.toStdString()) << name.toStdString();
    const ReportPages usual = filled(name, [](const QString& variable) { return variable.mid(3); }, 3);
    EXPECT_EQ(usual.pages.size(), 1u) << name.toStdString();
    EXPECT_TRUE(usual.faults.empty()) << name.toStdString() << ' ' << faultsOf(usual).toStdString();
    EXPECT_EQ(faultsOf(filled(name, [](const QString&) { return QString(); }, 0)), QString()) << name.toStdString();
    EXPECT_EQ(faultsOf(filled(name, [](const QString&) { return u"Uzun 've' [garip] metin "_s.repeated(12); }, 40)), QString()) << name.toStdString();
  }
}

TEST_F(TemplatesTest, ALoadedTemplateTakesThePlaceOfTheOneBeforeAndAMissingOneLeavesIt) {
  const QString folder = QStringLiteral(KVTK_TEMPLATES);
  Report report;
  report.load(folder + u"/0.fr3"_s);
  report.data().setExpression(u"TAMIR_TUTAR"_s, u"12.5"_s);
  EXPECT_TRUE(report.setBarcodeText(u"FIS_NO_BARKOD1"_s, u"A[B"_s));
  EXPECT_FALSE(report.setBarcodeText(u"CIHAZ_IC_SERI_BARKOD"_s, u"x"_s));
  EXPECT_FALSE(report.loadIfThere(folder + u"/yok.fr3"_s));
  EXPECT_EQ(ReportValues::toText(report.data().variables()[0].value), u"12,5"_s);
  const ReportPages made = report.prepare();
  const bool shows = std::any_of(made.pages[0].primitives.begin(), made.pages[0].primitives.end(), [](const Primitive& each) {
    const auto* mark = std::get_if<TextMark>(&each);
    return mark && mark->text == u"A[B";
  });
  EXPECT_TRUE(shows) << "a barcode's text is no expression";
  EXPECT_TRUE(report.loadIfThere(folder + u"/bakim.fr3"_s));
  EXPECT_TRUE(std::holds_alternative<std::monostate>(report.data().variables()[0].value));
  EXPECT_TRUE(report.hasRichText(u"Rich1"_s));
  EXPECT_THROW(report.load(folder + u"/CMakeLists.txt"_s), EReportFile);
  EXPECT_TRUE(report.hasRichText(u"Rich1"_s)) << "what cannot be read leaves what was there";
}

TEST_F(TemplatesTest, DamagedTemplatesAreReadOrRefusedAndAlwaysEnd) {
  const QByteArray whole = contentOf(QStringLiteral(KVTK_TEMPLATES "/2.fr3"));
  const QList<QByteArray> pieces = {"\"", "<", "</band>", "[", "]]", "99999", "-1", "(((((", "Malzeme", "true", "&#0;", "\xff", " repeat=\"true\"", " newpage=\"true\"", "TOPLAM("};
  std::mt19937 random(20260309);
  ReportData data;
  data.addRows(u"Malzeme"_s, std::make_shared<ListedRows>(QStringList{u"MZ_ADET"_s}, std::vector<std::vector<ReportValue>>(30, {1.0})));
  int read = 0;
  for (int turn = 0; turn < 1500; ++turn) {
    QByteArray bytes = whole;
    for (int change = 0; change < 1 + turn % 3; ++change) {
      const auto place = qsizetype(random() % size_t(bytes.size()));
      const QByteArray piece = pieces[qsizetype(random() % size_t(pieces.size()))];
      if (turn % 2)
        bytes.insert(place, piece);
      else
        bytes.replace(place, qsizetype(random() % 6), piece);
    }
    try {
      const ReportDocument document = ReportFile::read(bytes);
      ++read;
      const QByteArray written = ReportFile::write(document);
      EXPECT_EQ(ReportFile::write(ReportFile::read(written)), written);
      layoutReport(document, data, {}, {});
    } catch (const EReportFile&) {
    }
  }
  EXPECT_GT(read, 120) << "many of the changes must reach the layout";
}
