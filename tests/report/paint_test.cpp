#include "tests/report/report_fixture.h"
#include "tests/support/screen_test.h"
#include "toolkit/report/barcode.h"
#include "toolkit/report/paged_output.h"

using testing::HasSubstr;

namespace {

/// What a reader sees on a picture, in Unicode.
QString decoded(const QString& symbology, const QString& picture) {
  if (symbology != u"datamatrix") return outputOf(u"zbarimg"_s, {u"-q"_s, u"--raw"_s, picture}).trimmed();
  const QString all = outputOf(u"ZXingReader"_s, {picture});
  const qsizetype from = all.indexOf(u"Text:"_s);
  const qsizetype begin = all.indexOf(u'"', from) + 1;
  return from < 0 ? QString() : all.mid(begin, all.indexOf(u"\"\n"_s, begin) - begin);
}

class PaintTest : public ReportFixture {
 protected:
  QTemporaryDir folder_;
};

}  // namespace

TEST_F(PaintTest, ThePdfHoldsItsTextAndFontsOnTheRightPages) {
  fillRows(20);
  const ReportPagedDocument made(laidOut(R"(
    <band kind="title" height="8"><text width="70" font="Arial; 12; bold">Ağır İŞ çığ ₺</text></band>
    <band kind="rows" data="Malzeme" height="8"><text width="60" height="8">[Malzeme.AD]</text></band>
    <band kind="pagefooter" height="6"><text width="70" align="justify">Sayfa [SAYFA]/[SAYFA_SAYISI]</text></band>)"));
  const QString file = folder_.filePath(u"a.pdf"_s);
  writePdf(made, file, u"Fiş"_s);
  EXPECT_THAT(outputOf(u"pdfinfo"_s, {file}).toStdString(), HasSubstr("Pages:           3"));
  const QString text = outputOf(u"pdftotext"_s, {u"-layout"_s, file, u"-"_s});
  EXPECT_THAT(text.toStdString(), HasSubstr("Ağır İŞ çığ ₺"));
  const QStringList pages = text.split(u'\f');
  EXPECT_THAT(pages[2].toStdString(), HasSubstr("Parça 20"));
  EXPECT_THAT(pages[2].toStdString(), HasSubstr("Sayfa 3/3"));
  // name, type, encoding, "emb sub uni": each font is embedded and has a table of its letters.
  const QStringList fonts = outputOf(u"pdffonts"_s, {file}).split(u'\n', Qt::SkipEmptyParts).mid(2);
  EXPECT_GE(fonts.size(), 2);
  for (const QString& font : fonts) EXPECT_THAT(font.toStdString(), testing::ContainsRegex("yes +(yes|no) +yes"));
  EXPECT_THROW(writePdf(made, folder_.filePath(u"yok/a.pdf"_s), {}), EInOutError);
}

TEST_F(PaintTest, FaultsAreMarkedOnTheScreenAndNotOnPaper) {
  auto made = std::make_shared<ReportPagedDocument>(laidOut(R"(<band height="20"><text width="60">Seri: [SERI_N]</text></band>)"));
  const QColor paper = QColor(pagePicture(*made, 0, 100, false).pixel(200, 50));
  EXPECT_EQ(paper, QColor(Qt::white));
  EXPECT_NE(QColor(pagePicture(*made, 0, 100, true).pixel(200, 50)), paper);
  EXPECT_EQ(boundsOf(made->pages().pages[0].primitives.front()).left(), 10.5);
}

TEST_F(PaintTest, AWordIsFoundWhereItStands) {
  const ReportPagedDocument made(laidOut(R"(<band height="10"><text width="80" padding="0">bir istif IŞIK</text></band>)"));
  ASSERT_EQ(made.find(0, u"ışık"_s).size(), 1u);
  const QRectF place = made.find(0, u"İSTİF"_s).at(0);
  EXPECT_NEAR(place.left(), 10 + textWidth(u"bir "_s, layoutFont({})), 0.05);
  EXPECT_TRUE(made.find(0, u"yok"_s).empty());
}

TEST_F(PaintTest, EveryBarcodeIsReadBackFromPrintersDots) {
  const struct {
    const char* symbology;
    QString text;
    QString read;
  } cases[] = {
      {"code128", u"SN-2026/00123 aZ"_s, {}},
      {"code128", u"SN5CD0X24QXNB7KPTR9WZ4827651A0"_s, {}},  // not two dots for each of its bars at 203 dpi
      {"code39", u"ABC-123 $/+%"_s, {}},
      {"ean13", u"869123456789"_s, u"8691234567890"_s},
      {"ean8", u"96385074"_s, {}},
      {"itf", u"0123456789"_s, {}},
      {"codabar", u"31117013206375"_s, u"A31117013206375A"_s},
      {"qr", u"Seri: ĞÜŞİÖÇ-ğüşıöç €"_s, {}},
      {"datamatrix", u"ŞASİ-Iı 42"_s, {}},
  };
  for (const auto& each : cases)
    for (const double dpi : {203.0, 300.0, 600.0})
      for (const char* rotation : {"0", "90"}) {
        const bool isAcross = QByteArray(rotation) == "90";
        const QByteArray size = isAcross ? R"(width="25" height="75")" : R"(width="75" height="25")";
        const ReportPagedDocument made(
            laidOut("<band height=\"75\"><barcode " + size + " symbology=\"" + each.symbology + "\" rotation=\"" + rotation + "\">" +
                    ExpressionText::literal(each.text).toUtf8() + "</barcode></band>"));
        ASSERT_TRUE(made.pages().faults.empty()) << each.symbology << made.pages().faults[0].reason.toStdString();
        const QString picture = folder_.filePath(u"barkod.png"_s);
        const QRect place = QTransform::fromScale(dpi / 25.4, dpi / 25.4).mapRect(QRectF(10, 10, isAcross ? 25 : 75, isAcross ? 75 : 25)).toRect();
        pagePicture(made, 0, dpi).copy(place).convertToFormat(QImage::Format_Mono, Qt::ThresholdDither).save(picture);
        EXPECT_EQ(decoded(QString::fromLatin1(each.symbology), picture).toStdString(), (each.read.isEmpty() ? each.text : each.read).toStdString())
            << each.symbology << ' ' << dpi << ' ' << rotation;
      }
}

TEST_F(PaintTest, WhatASymbologyCannotHoldIsRefusedAndNeverAltered) {
  const std::pair<const char*, const char*> cases[] = {
      {"code128", "ŞASİ"}, {"code39", "abc"}, {"code39", "Ç1"},  {"ean13", "8691234567891"}, {"ean13", "12"},   {"ean8", "1234567a"},
      {"itf", "123"},      {"itf", "12x4"},   {"codabar", "12E"}, {"code128", ""},          {"aztec", "1"},
  };
  for (const auto& [symbology, text] : cases)
    EXPECT_THROW(encodeBarcode(QString::fromUtf8(symbology), QString::fromUtf8(text)), EConvertError) << symbology << ' ' << text;
  EXPECT_THROW(encodeBarcode(u"qr"_s, QString(5000, u'x')), EConvertError);
  EXPECT_THROW(encodeBarcode(u"code128"_s, QString(300, u'x')), EConvertError);
}
