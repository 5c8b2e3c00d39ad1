#include "tests/report/report_fixture.h"
#include "tests/support/screen_test.h"
#include "toolkit/report/paged_output.h"
#include "toolkit/report/report.h"
#include "toolkit/rtf/rich_replace.h"
#include "toolkit/rtf/rtf_reader.h"

using testing::DoubleNear;

namespace {

class RtfLayoutTest : public ReportFixture {
 protected:
  /// A rich text of 80 mm width on pages of that height.
  ReportPages letter(const QByteArray& inside, int height = 200) {
    richTexts.insert(u"Rich1"_s, RtfReader::read("{\\rtf1\\ansi\\ansicpg1254{\\fonttbl{\\f0 Arial;}}\\f0\\fs20 " + inside + "}"));
    return laidOut(R"(<band height="20"><richtext name="Rich1" width="80" height="20"/></band>)", "height=\"" + QByteArray::number(height) + "\"");
  }
  static TextMark markOf(const ReportPage& page, const QString& text) {
    for (const TextMark& mark : lines(page))
      if (mark.text == text) return mark;
    throw std::logic_error("no mark " + text.toStdString());
  }
  static double leftOf(const ReportPage& page, const QString& text) { return markOf(page, text).origin.x() - 10; }
};

}  // namespace

TEST_F(RtfLayoutTest, IndentsTabsAndMarkersStandWhereTheyWereSet) {
  // 567 twips are 10 mm.
  const ReportPages made = letter(R"(\li567\fi-567\tx567\tqr\tx3402 1.1\tab govde\tab sag\par
\pard\li1134\fi-567\sl480\slmult1{\pntext 3.\tab}madde\par \pard\li567\fi0{\pntext 10000000.\tab}uzun\par
\pard\qr sagda\par\pard\qc orta\par\pard\fi567 ilk\line sonra\par\pard a\tab b\par)");
  const ReportPage& page = made.pages[0];
  EXPECT_THAT(leftOf(page, u"1.1"_s), DoubleNear(0, 0.01));
  EXPECT_THAT(leftOf(page, u"govde"_s), DoubleNear(10, 0.05));
  const TextMark right = markOf(page, u"sag"_s);
  EXPECT_THAT(right.origin.x() - 10 + right.width, DoubleNear(60, 0.1));
  EXPECT_THAT(leftOf(page, u"3."_s), DoubleNear(10, 0.01));
  EXPECT_THAT(leftOf(page, u"madde"_s), DoubleNear(20, 0.01));
  EXPECT_EQ(markOf(page, u"3."_s).origin.y(), markOf(page, u"madde"_s).origin.y()) << "whatever the lines' spacing is";
  const TextMark wide = markOf(page, u"10000000."_s);
  EXPECT_GT(markOf(page, u"uzun"_s).origin.x(), wide.origin.x() + wide.width) << "a marker never runs into its text";
  const TextMark last = markOf(page, u"sagda"_s);
  EXPECT_THAT(last.origin.x() + last.width, DoubleNear(90, 0.01));
  EXPECT_THAT(leftOf(page, u"ilk"_s), DoubleNear(10, 0.01));
  EXPECT_THAT(leftOf(page, u"sonra"_s), DoubleNear(0, 0.01));
  EXPECT_THAT(leftOf(page, u"b"_s), DoubleNear(12.7, 0.05)) << "the usual stops";
}

TEST_F(RtfLayoutTest, SpacingAndTablesTakeTheirRoom) {
  const ReportPages made = letter(R"(bir\par\pard\sb567\sl-567 iki\par \'fc\'e7\par
\pard\trowd\trgaph113\trleft0\trrh1134\clbrdrt\brdrs\clbrdrl\brdrs\clbrdrb\brdrs\clbrdrr\brdrs\cellx1134\clvertalb\cellx3402\intbl a\cell b\cell\row\pard son\par)");
  const ReportPage& page = made.pages[0];
  const double line = markOf(page, u"bir"_s).ascent + markOf(page, u"bir"_s).descent;
  EXPECT_THAT(markOf(page, u"iki"_s).origin.y() - markOf(page, u"bir"_s).origin.y(), DoubleNear(line + 10 + (10 - line) / 2, 0.05));
  EXPECT_THAT(markOf(page, u"üç"_s).origin.y() - markOf(page, u"iki"_s).origin.y(), DoubleNear(20, 0.05));
  EXPECT_THAT(leftOf(page, u"a"_s), DoubleNear(2, 0.05));
  EXPECT_THAT(leftOf(page, u"b"_s), DoubleNear(22, 0.05));
  EXPECT_GT(markOf(page, u"b"_s).origin.y(), markOf(page, u"a"_s).origin.y() + 10) << "at the cell's bottom";
  EXPECT_THAT(topOf(page, u"son"_s) - topOf(page, u"a"_s), DoubleNear(20 - 0.5, 0.1));
  EXPECT_EQ(std::count_if(page.primitives.begin(), page.primitives.end(), [](const Primitive& each) { return std::holds_alternative<StrokeMark>(each); }), 4);
}

TEST_F(RtfLayoutTest, ATableThatIsTooWideLosesNoCell) {
  const ReportPages made = letter(R"(\trowd\trleft-100\cellx9000\cellx27000\intbl bir\cell iki\cell\row\pard son\par)");
  EXPECT_THAT(leftOf(made.pages[0], u"iki"_s), testing::AllOf(testing::Gt(20), testing::Lt(40)));
}

TEST_F(RtfLayoutTest, HeadingsAndRowsStayWithWhatTheyBelongTo) {
  QByteArray filler;
  for (int place = 0; place < 10; ++place) filler += "dolgu\\par ";
  // Eleven lines fit on a page.
  const ReportPages heading = letter(filler + R"(\pard\keepn baslik\par\pard metin\par)", 64);
  ASSERT_EQ(heading.pages.size(), 2u);
  EXPECT_EQ(texts(heading.pages[1]), "baslik|metin");
  const ReportPages row = letter(filler + R"(\trowd\cellx1134\intbl a\par b\par c\cell\row)", 64);
  EXPECT_EQ(texts(row.pages[1]), "a|b|c");
  QByteArray tall = "\\trowd\\cellx1134\\intbl ";
  for (int place = 0; place < 30; ++place) tall += "x\\par ";
  EXPECT_EQ(letter(filler + tall + "\\cell\\row", 64).pages.size(), 4u) << "what no page has room for is divided";
}

TEST_F(RtfLayoutTest, TheDeliveredContractIsMergedWholeAndReadBackFromItsPdf) {
  const QString folder = QStringLiteral(KVTK_TEMPLATES);
  Report report;
  report.load(folder + u"/bakim.fr3"_s);
  RichText text = RtfReader::load(folder + u"/bakim.rtf"_s);
  for (const QString& name : {u"musteri"_s, u"firma"_s, u"firmaadres"_s, u"firmatelefon"_s, u"firmafaks"_s, u"sozbastar"_s, u"sozbittar"_s, u"tarih"_s, u"tutar"_s, u"sozsure"_s})
    EXPECT_GT(replaceInRichText(text, u'$' + name + u'$', u"‹İş %1›"_s.arg(name)), 0) << name.toStdString();
  ASSERT_TRUE(report.setRichText(u"Rich1"_s, std::move(text)));
  QTemporaryDir out;
  const QString file = out.filePath(u"sozlesme.pdf"_s);
  writePdf(ReportPagedDocument(report.prepare()), file, u"Sözleşme"_s);
  const QString all = outputOf(u"pdftotext"_s, {u"-layout"_s, file, u"-"_s});
  EXPECT_EQ(all.count(u'\f'), 2) << "pages";
  EXPECT_FALSE(all.contains(u'$'));
  EXPECT_TRUE(all.contains(u"Hizmet Veren’in bildireceği banka hesabına ödenir"_s));
  EXPECT_TRUE(all.contains(u"MADDE 10 — UYUŞMAZLIKLARIN ÇÖZÜMÜ VE YÜRÜRLÜK"_s));
  EXPECT_TRUE(all.contains(u"‹İş firmaadres›"_s));
}
