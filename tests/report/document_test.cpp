#include "tests/support/test.h"
#include "toolkit/report/report_file.h"

using testing::HasSubstr;

namespace {

QString reasonOf(const QByteArray& bytes) {
  try {
    ReportFile::read(bytes);
  } catch (const EReportFile& error) {
    return error.message();
  }
  return {};
}

/// Another value than the initial one for every property.
PropertyValue other(const PropertyInfo& property) {
  switch (property.type) {
    case PropertyType::Boolean: return !std::get<bool>(property.initial);
    case PropertyType::Integer: return std::get<int>(property.initial) + 7;
    case PropertyType::Millimetres: return std::get<double>(property.initial) + 0.125;
    case PropertyType::Color: return QColor(0x12, 0x34, 0x56, 0x78);
    case PropertyType::Font: return ReportFont{u"Liberation Serif"_s, 7.25, true, true, true, true};
    case PropertyType::Picture: return QByteArray("\x89PNG\0bytes", 10);
    case PropertyType::Choice: return property.choices.back().word;
    case PropertyType::Sides: return u"left bottom"_s;
    default: return u" İki \"satır\"\n<ğüşıöç> & [AD]\t€ "_s;
  }
}

}  // namespace

TEST(ReportFileTest, EveryPropertyOfEveryKindComesBack) {
  ReportDocument document;
  ReportNode* page = document.root().append(std::make_unique<ReportNode>(NodeKind::Page));
  ReportNode* band = page->append(std::make_unique<ReportNode>(NodeKind::Band));
  for (int kind = int(NodeKind::Text); kind < int(NodeKind::Foreign); ++kind) band->append(std::make_unique<ReportNode>(NodeKind(kind)));
  document.forEach([](ReportNode& node) {
    for (const PropertyInfo& property : propertiesOf(node.kind())) node.setValue(property.name, other(property));
  });
  const QByteArray bytes = ReportFile::write(document);
  ReportDocument read = ReportFile::read(bytes);
  EXPECT_EQ(ReportFile::write(read), bytes);
  EXPECT_EQ(ReportFile::write(read.clone()), bytes);
  int nodes = 0;
  read.forEach([&](ReportNode& node) {
    ++nodes;
    for (const PropertyInfo& property : propertiesOf(node.kind()))
      EXPECT_TRUE(node.value(property.name) == other(property)) << property.name.toStdString();
  });
  EXPECT_EQ(nodes, 3 + 7);
  EXPECT_THROW(band->text(u"yok"), Exception);
}

TEST(ReportFileTest, WhatANewerVersionWroteSurvives) {
  const QByteArray newer = R"(<?xml version="1.0" encoding="UTF-8"?>
<!-- of the shop -->
<report version="9" name="yeni" zoom="2">
  <!-- the first page -->
  <page name="Sayfa1" shape="round">
    <band name="Bant" glow="3">
      <barcode name="B" symbology="aztec">12</barcode>
      <hologram deep="1">
        <part>  x  </part>
      </hologram>
      <text name="Kara" left="5">iki
satır</text>
    </band>
  </page>
</report>
<!-- end -->
)";
  EXPECT_EQ(ReportFile::write(ReportFile::read(newer)).toStdString(), newer.toStdString());
}

TEST(ReportFileTest, ForeignAndBrokenFilesAreRefusedWithLineAndReason) {
  const struct {
    QByteArray bytes;
    int line;
    const char* reason;
  } cases[] = {
      {"", 1, "XML bozuk, dosyada öge yok"},
      {"{\\rtf1 text}", 1, "XML bozuk"},
      {"<report version=\"1\">\n<page>\n</report>", 3, "XML bozuk, kapanan öge"},
      {"<!-- x -->\n<BaskaRapor Version=\"5\"/>", 2, "rapor şablonu değil"},
      {"<report/>", 1, "version"},
      {"<report version=\"1\">\n<page>\n<band height=\"uzun\"/></page></report>", 3, "“uzun” bir sayı değil"},
      {"<report version=\"1\"><page width=\"1e9\"/></report>", 1, "5 ile 2000 arasında"},
      {"<report version=\"1\"><page width=\"nan\"/></report>", 1, "bir sayı değil"},
      {"<report version=\"1\"><page paper=\"A99\"/></report>", 1, "A4, A3"},
      {"<report version=\"1\"><page columns=\"1.5\"/></report>", 1, "tam sayı değil"},
      {"<report version=\"1\"><text/></report>", 1, "<text> ögesi <report> içinde duramaz"},
      {"<report version=\"1\"><page>söz</page></report>", 1, "yazı duramaz"},
      {"<report version=\"1\"><page name=\"a\" name=\"b\"/></report>", 1, "iki kez"},
      {"<report version=\"1\"><page><text font=\"Arial; 0\"/></page></report>", 1, "1 ile 400"},
      {"<report version=\"1\"><page><picture>?!</picture></page></report>", 1, "base64"},
      {"<report version=\"1\">\n" + QByteArray("<x>").repeated(300) + QByteArray("</x>").repeated(300) + "</report>", 2, "çok iç içe"},
  };
  for (const auto& each : cases) {
    const std::string reason = reasonOf(each.bytes).toStdString();
    EXPECT_THAT(reason, HasSubstr(each.reason)) << each.bytes.constData();
    EXPECT_THAT(reason, testing::StartsWith(std::to_string(each.line) + ". satır"));
  }
}

TEST(ReportFileTest, NeverWritesOverAFileThatIsNoReport) {
  QTemporaryDir folder;
  const QString file = folder.filePath(u"0.fr3"_s);
  put(file, "<other/>");
  try {
    ReportFile::save(ReportDocument(), file);
    ADD_FAILURE() << "written over";
  } catch (const EReportFile& error) {
    EXPECT_THAT(error.message().toStdString(), testing::StartsWith("0.fr3, 1. satır"));
  }
  EXPECT_EQ(contentOf(file), "<other/>");
  QFile::remove(file);
  ReportFile::save(ReportDocument(), file);
  ReportFile::save(ReportFile::load(file), file);
  EXPECT_THROW(ReportFile::load(folder.filePath(u"yok.fr3"_s)), EInOutError);
}
