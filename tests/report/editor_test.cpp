#include "tests/report/listed_rows.h"
#include "tests/support/screen_test.h"
#include "toolkit/report/designer/arranging.h"
#include "toolkit/report/designer/design_faults.h"
#include "toolkit/report/designer/report_fragment.h"
#include "toolkit/report/report_file.h"

namespace {

class EditorTest : public testing::Test {
 protected:
  /// Opens a page with that inside, on paper of 100 by 100 mm with margins of 10 mm.
  void open(const QByteArray& inside) {
    editor.open(ReportFile::read("<report version=\"1\"><page paper=\"own\" width=\"100\" height=\"100\">" + inside + "</page></report>"));
  }
  ReportNode* node(const QString& name) { return nodeNamed(editor.root(), name); }
  PagePlaces places() { return PagePlaces(*editor.root().children().front()); }
  ReportEditor editor;
};

TEST_F(EditorTest, WhatIsTakenOutIsNotSelectedAndComesBackSelected) {
  open(R"(<band name="B"><text name="a"/><text name="b"/><line name="c"/></band><band name="C"><text name="d"/></band>)");
  editor.select({node(u"a"_s), node(u"c"_s), node(u"B"_s)});
  EXPECT_EQ(editor.selection().size(), 2U) << "a band is not selected together with objects";
  ReportNode* a = node(u"a"_s);
  editor.remove(u"Sil"_s, {node(u"B"_s), node(u"c"_s)});
  EXPECT_TRUE(editor.selection().empty());
  EXPECT_EQ(node(u"a"_s), nullptr);
  editor.steps().undo();
  EXPECT_EQ(node(u"a"_s), a);
  EXPECT_EQ(editor.selection(), std::vector{node(u"B"_s)});
  editor.remove(u"Sil"_s, {pageOf(node(u"a"_s))});
  EXPECT_NE(node(u"a"_s), nullptr) << "the last page stays";
}

TEST_F(EditorTest, KeysHeldDownAreOneStepAndNothingIsNone) {
  open(R"(<band><text name="a" left="5"/></band>)");
  editor.change(u"Aynı"_s, *node(u"a"_s), u"left"_s, 5.0);
  { const Gesture nothing(editor, u"Boş"_s); }
  EXPECT_EQ(editor.steps().count(), 0);
  for (const bool isHeld : {false, true, true, false, true}) editor.change(u"Taşı"_s, Arranging::moved({node(u"a"_s)}, {1, 0}), isHeld);
  EXPECT_EQ(editor.steps().count(), 2) << "two keys, both held down";
  editor.steps().undo();
  EXPECT_EQ(node(u"a"_s)->millimetres(u"left"), 8);
  editor.steps().undo();
  EXPECT_EQ(node(u"a"_s)->millimetres(u"left"), 5);
  EXPECT_FALSE(editor.isChanged());
}

TEST_F(EditorTest, ObjectsOfSeveralBandsAreArrangedOnThePaper) {
  open(R"(<band height="20"><text name="a" left="10" top="5"/><text name="b" left="40" width="10"/><text name="k" left="3" locked="true"/></band>
          <band height="20"><text name="c" left="70" top="2" width="5" height="3"/></band>)");
  const std::vector three{node(u"a"_s), node(u"b"_s), node(u"c"_s)};
  const auto rect = [&](const QString& name) { return places().rectOf(*node(name)); };
  EXPECT_EQ(rect(u"c"_s), QRectF(80, 32, 5, 3));
  using Arranging::Edge;
  editor.change(u"x"_s, Arranging::aligned(three, places(), Edge::Bottom));
  EXPECT_EQ(rect(u"a"_s).bottom(), 35);
  EXPECT_EQ(rect(u"b"_s).bottom(), 35);
  editor.change(u"x"_s, Arranging::distributed(three, places(), true));
  EXPECT_EQ(rect(u"b"_s).left(), 55) << "gaps of 15 at both sides";
  editor.change(u"x"_s, Arranging::sameSize(three, true, false));
  EXPECT_EQ(rect(u"c"_s).size(), QSizeF(20, 3));
  editor.change(u"x"_s, Arranging::aligned({node(u"a"_s)}, places(), Edge::Right));
  EXPECT_EQ(rect(u"a"_s).right(), 90) << "one alone goes to the margin";
  for (const auto& changes : {Arranging::moved({node(u"k"_s)}, {1, 1}), Arranging::aligned({node(u"k"_s)}, places(), Edge::Right)})
    EXPECT_TRUE(changes.empty()) << "locked";

  Arranging::reorder(editor, u"x"_s, {node(u"a"_s), node(u"b"_s)}, Arranging::Order::Front);
  EXPECT_LT(node(u"k"_s)->index(), node(u"a"_s)->index());
  EXPECT_LT(node(u"a"_s)->index(), node(u"b"_s)->index()) << "among themselves they keep their order";
}

TEST_F(EditorTest, PartsGoFromReportToReport) {
  open(R"(<band><text name="a" font="Arial; 12; bold">Ağ &amp; [X]</text><picture name="p">iVBORw0KGgo=</picture></band>)");
  const QByteArray bytes = ReportFragment::write({node(u"a"_s), node(u"p"_s)});
  const auto read = ReportFragment::read(bytes);
  ASSERT_EQ(read.size(), 2U);
  EXPECT_EQ(read[0]->text(u"text"), u"Ağ & [X]");
  EXPECT_EQ(read[1]->picture(u"picture"), node(u"p"_s)->picture(u"picture"));
  for (const QByteArray& strange : {QByteArray(), QByteArray("<report"), QByteArray("<html/>"), bytes.left(60)})
    EXPECT_TRUE(ReportFragment::read(strange).empty());
  EXPECT_EQ(freeName(editor.document(), NodeKind::Text, u"a"_s), u"a1");
  EXPECT_EQ(freeName(editor.document(), NodeKind::Text, {}, {u"Metin1"_s}), u"Metin2");
}

struct FaultCase {
  const char* name;
  const char* inside;
  QString reasons;  ///< joined by "|"
};

class DesignFaults : public testing::TestWithParam<FaultCase> {};

TEST_P(DesignFaults, AreFound) {
  DesignSample sample;
  sample.data.declareVariable(u"AD"_s, {});
  sample.data.setExpression(u"AD"_s, u"'Işık'"_s);
  sample.data.addRows(u"Malzeme"_s, std::make_shared<ListedRows>(QStringList{u"P"_s}, std::vector<std::vector<ReportValue>>{{u"a"_s}, {u"çok uzun bir ad"_s}}));
  const ReportDocument document = ReportFile::read("<report version=\"1\"><page paper=\"own\" width=\"100\" height=\"100\">" + QByteArray(GetParam().inside) +
                                                   "</page></report>");
  QStringList reasons;
  for (const DesignFault& fault : findFaults(document, sample)) reasons += fault.reason;
  EXPECT_EQ(reasons.join(u'|').toStdString(), GetParam().reasons.toStdString());
}

INSTANTIATE_TEST_SUITE_P(
    All, DesignFaults,
    testing::Values(
        FaultCase{"Clean", R"(<band height="30" data="Malzeme"><text width="60">[AD] [SAY(Malzeme)] [SAYFA]</text></band>)", {}},
        FaultCase{"UnknownInABranchNotTaken", R"(<band><text>[EĞER(DOĞRU; AD; YOK)]</text></band>)", u"“YOK” adını kimse bilmiyor"_s},
        FaultCase{"UnknownField", R"(<band data="Malzeme"><text visible="Malzeme.X = 1">[AD]</text></band>)",
                  u"“Malzeme” kümesinde böyle bir alan yok: Malzeme.X"_s},
        FaultCase{"UnknownDataSet", R"(<band data="Yok"/>)", u"“Yok” adlı veri kümesi yok"_s},
        FaultCase{"Barcode", R"(<band height="30"><barcode width="60" height="20">[AD]</barcode></band>)",
                  u"Code 128 “ş” harfini yazamaz: Işık"_s},
        FaultCase{"CutInASecondRow", R"(<band data="Malzeme"><text width="10" wrap="false">[Malzeme.P]</text></band>)", u"Metin kutusuna sığmıyor"_s},
        FaultCase{"Outside", R"(<band><text left="75"/></band><rectangle top="80" height="30"/>)",
                  u"Kâğıdın dışına taşıyor|Kâğıdın dışına taşıyor"_s},
        FaultCase{"Covered", R"(<band><text name="a">aaaa</text><rectangle background="#ffffff"/></band>)",
                  u"Metninin üstüne Dikdörtgen geliyor"_s},
        FaultCase{"CoveredByABand", R"(<text name="a">aaaa</text><band height="30"><rectangle background="#ffffff"/></band>)",
                  u"Metninin üstüne Dikdörtgen geliyor"_s},
        FaultCase{"CoveredByAnotherBand", R"(<band height="10"><text name="a" top="5">aaaa</text></band><band><rectangle top="-6" background="#ffffff"/></band>)",
                  u"Metninin üstüne Dikdörtgen geliyor"_s},
        FaultCase{"CoveredByTheNextRow", R"(<band data="Malzeme" height="5"><text name="a" width="60">[Malzeme.P]</text><rectangle top="-4" height="3" background="#ffffff"/></band>)",
                  u"Metninin üstüne Dikdörtgen geliyor"_s},
        FaultCase{"PushedByAGrownText", R"(<band><text grows="true" width="10">aaaa bbbb cccc dddd</text><text top="5">aaaa</text></band><band><text>aaaa</text></band>)", {}},
        FaultCase{"FrameAroundText", R"(<band><text name="a">aaaa</text><rectangle/></band>)", {}},
        FaultCase{"TooHigh", R"(<band height="90"/>)", u"Bant sayfadan yüksek"_s}),
    [](const auto& each) { return each.param.name; });

}  // namespace
