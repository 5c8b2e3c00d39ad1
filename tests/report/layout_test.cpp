#include "tests/report/report_fixture.h"
#include "tests/support/screen_test.h"

using testing::DoubleNear;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

using LayoutTest = ReportFixture;

const QByteArray rowsBand = R"(<band kind="rows" data="Malzeme" height="8"><text width="60" height="8">[Malzeme.AD]</text></band>)";

double lineHeight(double points) {
  return breakText(u"x"_s, layoutFont({.points = points}), 100, true).lineHeight;
}

}  // namespace

TEST_F(LayoutTest, GrowingTextPushesWhatStandsBelowItAndNothingBeside) {
  const ReportPages made = laidOut(R"(<band height="20">
      <rectangle name="Kutu" left="0" top="0" width="30" height="12" stretches="true"/>
      <text left="0" top="0" width="30" height="5" padding="0" grows="true">bir
iki
üç
dört</text>
      <text left="0" top="6" width="30" height="5" padding="0">alt</text>
      <text left="40" top="6" width="30" height="5" padding="0">yan</text>
    </band><band height="5"><text width="20" height="5" padding="0">son</text></band>)");
  ASSERT_EQ(made.pages.size(), 1u);
  const double grown = 4 * lineHeight(10) - 5;
  EXPECT_THAT(topOf(made.pages[0], u"alt"_s), DoubleNear(10 + 6 + grown, 0.01));
  EXPECT_THAT(topOf(made.pages[0], u"yan"_s), DoubleNear(10 + 6, 0.01));
  EXPECT_THAT(topOf(made.pages[0], u"son"_s), DoubleNear(10 + std::max(20.0, 12 + grown + 8), 0.01));
  ASSERT_TRUE(std::holds_alternative<BoxMark>(made.pages[0].primitives[0]));
  EXPECT_THAT(std::get<BoxMark>(made.pages[0].primitives[0]).rect.height(), DoubleNear(12 + grown, 0.01));
}

TEST_F(LayoutTest, WhatShrinksLetsTheRestUp) {
  const ReportPages made = laidOut(R"(<band height="20" shrinks="true">
      <text top="0" height="5" padding="0">bir</text><text top="5" height="5" shrinks="true">[YOK]</text><text top="10" height="5" padding="0">iki</text>
      <text top="5" left="30" height="5" padding="0">yan</text><text top="12" width="60" height="3" padding="0">alt</text>
    </band>)");
  EXPECT_THAT(topOf(made.pages[0], u"iki"_s), DoubleNear(10 + 5, 0.01)) << "behind the one that is gone";
  EXPECT_THAT(topOf(made.pages[0], u"alt"_s), DoubleNear(10 + 12, 0.01)) << "one beside has not moved";
}

TEST_F(LayoutTest, RowsBreakOverPagesWithTheirHeaderAndTotalsOfThePage) {
  fillRows(20);
  const ReportPages made = laidOut(R"(
    <band kind="title" height="8"><text>Başlık</text></band>
    <band kind="pageheader" height="6" firstpage="false"><text width="60">Nakil [TOPLAM(Malzeme.ADET)]</text></band>
    <band kind="groupheader" repeat="true" height="6"><text width="60">Adı ([SAY(Malzeme)])</text></band>)" +
                                   rowsBand + R"(
    <band kind="groupfooter" height="6"><text width="60">Toplam [TOPLAM(Malzeme.ADET)]</text></band>
    <band kind="summary" height="6"><text width="60">Bitti [Malzeme.AD]</text></band>
    <band kind="pagefooter" height="6"><text width="70">[SAYFA]/[SAYFA_SAYISI] bu sayfada [TOPLAM(Malzeme.ADET)]</text></band>)");
  ASSERT_EQ(made.pages.size(), 3u);
  EXPECT_EQ(texts(made.pages[0]), "Başlık|Adı (20)|Parça 1|Parça 2|Parça 3|Parça 4|Parça 5|Parça 6|Parça 7|1/3 bu sayfada 28");
  EXPECT_EQ(texts(made.pages[1]), "Nakil 28|Adı (20)|Parça 8|Parça 9|Parça 10|Parça 11|Parça 12|Parça 13|Parça 14|2/3 bu sayfada 77");
  EXPECT_EQ(texts(made.pages[2]), "Nakil 105|Adı (20)|Parça 15|Parça 16|Parça 17|Parça 18|Parça 19|Parça 20|Toplam 210|Bitti |3/3 bu sayfada 105");
  EXPECT_THAT(topOf(made.pages[2], u"3/3 bu sayfada 105"_s), DoubleNear(84.5, 0.01));
  EXPECT_TRUE(made.faults.empty());
}

TEST_F(LayoutTest, GroupsHaveTheirOwnSumsAndHeadersStayWithTheirRows) {
  fillRows(6);
  const QByteArray groups = R"(<band kind="groupheader" group="Malzeme.GRUP" height="6"><text>Grup [Malzeme.GRUP]</text></band>)" + rowsBand +
                            R"(<band kind="groupfooter" group="Malzeme.GRUP" height="6"><text>= [TOPLAM(Malzeme.ADET)] [SAY(Malzeme)]</text></band>)";
  const ReportPages made = laidOut(groups);
  EXPECT_EQ(texts(made.pages[0]), "Grup A|Parça 1|Parça 2|Parça 3|= 6 3|Grup B|Parça 4|Parça 5|Parça 6|= 15 3");
  // Room for the header of B, but not for its first row as well.
  const ReportPages narrow = laidOut(groups, "height=\"62\"");
  ASSERT_EQ(narrow.pages.size(), 2u);
  EXPECT_EQ(texts(narrow.pages[1]), "Grup B|Parça 4|Parça 5|Parça 6|= 15 3");
}

TEST_F(LayoutTest, BandsAreCutBetweenLinesUnlessTheyKeepTogether) {
  QByteArray text;
  for (int line = 1; line <= 12; ++line) text += "satır " + QByteArray::number(line) + "\n";
  text.chop(1);
  const auto report = [&](const QByteArray& attributes) {
    return laidOut("<band height=\"40\"/><band height=\"10\" " + attributes +
                   "><text width=\"60\" height=\"10\" padding=\"0\" grows=\"true\" border=\"all\" font=\"Arial; 12\">" + text + "</text></band>");
  };
  const ReportPages cut = report("");
  ASSERT_EQ(cut.pages.size(), 2u);
  const auto fitting = size_t(40 / lineHeight(12));
  EXPECT_EQ(lines(cut.pages[0]).size(), fitting);
  EXPECT_EQ(lines(cut.pages[1]).size(), 12 - fitting);
  EXPECT_THAT(topOf(cut.pages[1], lines(cut.pages[1])[0].text), DoubleNear(10, 0.01));
  const ReportPages kept = report("keeptogether=\"true\"");
  EXPECT_EQ(lines(kept.pages[0]).size(), 0u);
  EXPECT_EQ(lines(kept.pages[1]).size(), 12u);
}

TEST_F(LayoutTest, LettersFitTheirBoxAndSignaturesStandAtThePagesEnd) {
  fillRows(3);
  const ReportPages made = laidOut(R"(
    <band height="20"><text width="20" height="20" padding="0" valign="middle">orta</text>
      <text left="30" width="15" height="5" padding="0" wrap="false" fit="true">sığmayan yazı</text></band>
    <band kind="rows" data="Malzeme" height="5" alternate="#eeeeee"><text padding="0">[Malzeme.AD]</text></band>
    <band kind="summary" height="10" atbottom="true"><text padding="0">imza</text></band>)");
  const ReportPage& page = made.pages[0];
  EXPECT_THAT(topOf(page, u"orta"_s), DoubleNear(10 + (20 - lineHeight(10)) / 2, 0.01));
  EXPECT_GE(topOf(page, u"sığmayan yazı"_s), 0) << "not cut";
  EXPECT_THAT(topOf(page, u"imza"_s), DoubleNear(80, 0.01));
  std::vector<double> tinted;
  for (const Primitive& each : page.primitives)
    if (const auto* box = std::get_if<BoxMark>(&each)) tinted.push_back(box->rect.top());
  EXPECT_THAT(tinted, ElementsAre(DoubleNear(10 + 20 + 5, 0.01)));
}

TEST_F(LayoutTest, FaultsAreMarkedAndPrintNothing) {
  data.declareVariable(u"BOS_AD"_s, {});
  const ReportPages made = laidOut(R"(<band height="30">
      <text name="Bilinen">[BOS_AD]</text><text name="Bilinmeyen" top="6">x[KIMSE]</text>
      <barcode name="Kod" top="12" width="40" height="10" symbology="ean13">12</barcode>
      <text name="Dar" top="24" width="8" height="4">uzun metin</text></band>
      <band kind="rows" data="Depo" name="Satirlar"/>)");
  EXPECT_EQ(texts(made.pages[0]), "x|u…");
  std::vector<std::string> faults;
  for (const ReportFault& fault : made.faults)
    faults.push_back((fault.isNotice ? "(" : "") + fault.object.toStdString() + ": " + fault.reason.toStdString());
  EXPECT_THAT(faults, ElementsAre(HasSubstr("Bilinmeyen: “KIMSE”"), HasSubstr("Kod: EAN-13 için 13 rakam"), HasSubstr("(Dar: "),
                                  HasSubstr("Satirlar: “Depo”")));
  const auto marks = std::count_if(made.pages[0].primitives.begin(), made.pages[0].primitives.end(),
                                   [](const Primitive& each) { return std::holds_alternative<FaultMark>(each); });
  EXPECT_EQ(marks, 2);
}

TEST_F(LayoutTest, LabelsFillTheirSheet) {
  fillRows(5);
  const ReportPages made = laidOut(R"(<band kind="rows" data="Malzeme" height="5" newpage="true"><text>[Malzeme.AD]</text></band>)",
                                   R"(height="100" columns="2" rows="2" columngap="4" rowgap="2" repeat="2")");
  ASSERT_EQ(made.pages.size(), 3u);
  EXPECT_EQ(texts(made.pages[0]), "Parça 1|Parça 1|Parça 2|Parça 2");
  EXPECT_EQ(texts(made.pages[2]), "Parça 5|Parça 5");
  const auto all = lines(made.pages[0]);
  EXPECT_THAT(all[1].origin.x() - all[0].origin.x(), DoubleNear(38 + 4, 0.01));
  EXPECT_THAT(all[2].origin.y() - all[0].origin.y(), DoubleNear(39 + 2, 0.01));
}

TEST_F(LayoutTest, ARichTextGoesOnOnTheNextPage) {
  RichText text = richTextFromPlain(u"Bir paragraf daha. "_s.repeated(30), {}, Qt::AlignJustify);
  RichParagraph last;
  last.startsPage = true;
  last.runs = {{u"Sonra "_s, {}}, {u"kalın"_s, {.font = {.bold = true}}}};
  text.blocks.emplace_back(last);
  RichTable table;
  table.rows.push_back({0, {{30, {last}, u"left right"_s, Qt::yellow}, {20, {}, {}, {}}}});
  std::get<RichParagraph>(text.blocks[1]).left = 5;
  table.rows[0].cells[0].paragraphs[0].startsPage = false;
  text.blocks.emplace_back(table);
  richTexts.insert(u"Rich1"_s, text);
  const ReportPages made = laidOut(R"(<band height="20"><richtext name="Rich1" width="80" height="20"/></band>)", "height=\"50\"");
  ASSERT_EQ(made.pages.size(), 3u);
  EXPECT_EQ(texts(made.pages[2]), "Sonra |kalın|Sonra |kalın");
  const auto first = lines(made.pages[0]);
  EXPECT_THAT(first[0].width, DoubleNear(80, 0.05)) << "justified";
  EXPECT_THAT(topOf(made.pages[2], u"Sonra "_s), DoubleNear(10, 0.01));
  EXPECT_TRUE(lines(made.pages[2])[1].font.bold());
}

TEST_F(LayoutTest, HostileTemplatesEnd) {
  fillRows(5000);
  data.declareVariable(u"X"_s, {});
  EXPECT_EQ(laidOut(R"(<band kind="rows" data="Malzeme" height="70" newpage="true"><text>a</text></band>)").pages.size(), 3000u);
  EXPECT_LE(laidOut(R"(<band kind="pageheader" height="300"/><band kind="pagefooter" height="300"/>)" + rowsBand).pages.size(), 3000u);
  EXPECT_LE(laidOut(R"(<band height="500"><picture height="400">iVBORw0KGgo=</picture><text font="Arial; 400" width="1" height="1" grows="true">Ağır</text></band>)").pages.size(), 20u);
  EXPECT_EQ(layoutReport(ReportDocument(), data, {}, {}).pages.size(), 1u) << "what has no page is an empty sheet";
  const ReportPages slow = laidOut(R"(<band kind="rows" data="Malzeme" height="0"><text width="90">[TOPLAM(Malzeme.ADET; Malzeme.ADET > 1)]</text></band>)");
  EXPECT_THAT(slow.faults.back().reason.toStdString(), HasSubstr("çok uzun sürüyor"));
  EXPECT_EQ(laidOut(R"(<text width="0" height="0" grows="true" fit="true" rotation="90">uzun bir metin</text><line/><rectangle width="0"/>)").pages.size(), 1u);
}
