#include "base/exceptions.h"
#include "tests/support/screen_test.h"
#include "tests/support/scripted_dialogs.h"
#include "tests/toolkit/listed_content.h"
#include "toolkit/grid/grid_preview.h"

namespace {

std::unique_ptr<ListedContent> table(int rows, int columns, int width) {
  auto content = std::make_unique<ListedContent>();
  for (int column = 0; column < columns; ++column)
    content->columns.push_back({u"SÜTUN %1"_s.arg(column + 1), width, column % 3 == 2, {}});
  for (int row = 0; row < rows; ++row) {
    ListedContent::Row made;
    if (row % 10 == 0) {
      made.kind = ContentRowKind::Group;
      made.group = u"GRUP %1"_s.arg(row / 10);
    } else {
      for (int column = 0; column < columns; ++column) made.cells.push_back(u"İçerik %1/%2"_s.arg(row).arg(column));
    }
    content->rows.push_back(made);
  }
  return content;
}

GridPreviewRequest request() {
  GridPreviewRequest made;
  made.texts = {u"Cari Hesaplar"_s, u"Müşteri Listesi Raporu"_s, u"[Date & Time Printed]"_s, u"Torvane Teknik Servis Programı"_s,
                u" Sayfa: [Page #]-[Total Pages]"_s};
  made.documentName = u"CariHesaplar"_s;
  return made;
}

}  // namespace

TEST(GridPagesTest, EveryRowStandsOnOnePageAndColumnsFitThePaper) {
  for (const int rows : {0, 1, 30, 200, 100000}) {
    const auto content = table(rows, 5, 100);
    const GridPages pages(*content, request().texts, QApplication::font());
    int expected = 0;
    for (int page = 0; page < pages.pageCount(); ++page) {
      const auto [first, behind] = pages.rowsOn(page);
      ASSERT_EQ(first, expected) << rows << ' ' << page;
      ASSERT_TRUE(behind > first || rows == 0);
      expected = behind;
    }
    EXPECT_EQ(expected, rows);
    EXPECT_EQ(pages.scale(), 1) << "what fits is not drawn in";
  }
  const auto wide = table(5, 48, 120);
  const GridPages drawnIn(*wide, {}, QApplication::font());
  EXPECT_LT(drawnIn.scale() * 48 * 120, drawnIn.pageSize(0).width() * 96 / 25.4);
}

// Two sums that differ in their last letter alone look different only when both are drawn to their end.
TEST(GridPagesTest, ASumIsNeverCut) {
  const auto picture = [](const QString& sum, int neighbours) {
    ListedContent content;
    content.columns = {{u"NO"_s, 30, false, {}}, {u"TUTAR"_s, 30, true, {}}, {u"MALİYET"_s, 30, true, {}}};
    ListedContent::Row footer;
    footer.kind = ContentRowKind::Footer;
    footer.cells = {neighbours > 1 ? u"1"_s : QString(), neighbours > 0 ? u"5"_s : QString(), sum};
    content.rows = {footer};
    const GridPages pages(content, {}, QApplication::font());
    const double scale = 96 / 25.4;
    QImage paper((pages.pageSize(0) * scale).toSize(), QImage::Format_RGB32);
    paper.fill(Qt::white);
    QPainter painter(&paper);
    painter.scale(scale, scale);
    pages.paint(painter, 0, false);
    return paper;
  };
  for (const int neighbours : {0, 1, 2})
    EXPECT_NE(picture(u"-1.234.567,89 TL"_s, neighbours), picture(u"-1.234.567,89 TM"_s, neighbours)) << neighbours;
}

TEST(GridPreviewTest, TurnsPagesZoomsAndWritesThemAll) {
  int exports = 0;
  GridPreviewRequest asked = request();
  asked.exportToExcel = [&](QWidget*) { ++exports; };
  GridPreview preview(nullptr, table(400, 6, 140), asked);
  preview.show();
  EXPECT_EQ(preview.windowTitle(), u"Önizleme"_s);
  const int pages = preview.pages().pageCount();
  ASSERT_GT(pages, 5);
  preview.findChild<QToolButton*>(u"last_button"_s)->click();
  EXPECT_EQ(preview.page(), pages - 1);
  preview.findChild<QToolButton*>(u"next_button"_s)->click();
  EXPECT_EQ(preview.page(), pages - 1);
  preview.findChild<QSpinBox*>()->setValue(3);
  EXPECT_EQ(preview.page(), 2);
  QToolButton* excel = preview.findChild<QToolButton*>(u"excel_button"_s);
  EXPECT_EQ(excel->text(), u"Excel`e Aktar"_s);
  excel->click();
  EXPECT_EQ(exports, 1);

  QTemporaryDir folder;
  const QString file = folder.filePath(u"liste.pdf"_s);
  preview.writePdf(file);
  const QByteArray bytes = contentOf(file);
  EXPECT_TRUE(bytes.startsWith("%PDF"));
  EXPECT_EQ(bytes.count("/Type /Page\n"), pages);

  preview.goTo(1);
  EXPECT_TRUE(preview.findWord(u"içerik 5/2"_s)) << "on the first page again, over the end";
  EXPECT_EQ(preview.page(), 0);
  EXPECT_TRUE(preview.findWord(u"içerik 399/5"_s));
  EXPECT_EQ(preview.page(), pages - 1);
  EXPECT_TRUE(preview.findWord(u"GRUP 0"_s, -1));
  EXPECT_EQ(preview.page(), 0);
  EXPECT_FALSE(preview.findWord(u"hiçbir yerde"_s));
  EXPECT_THROW(preview.writePdf(folder.filePath(u"yok/liste.pdf"_s)), EInOutError);
}

TEST(GridPreviewTest, APdfIsProposedUnderTheDocumentsName) {
  GridPreviewRequest asked = request();
  asked.documentName = u"Arıza formu 2024/17: \"acil\""_s;
  GridPreview preview(nullptr, table(3, 2, 100), asked);
  preview.show();
  QStringList proposed;
  postGuarded(&preview, [&] {
    auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    proposed = dialog->selectedFiles();
    dialog->reject();
  });
  preview.findChild<QToolButton*>(u"pdf_button"_s)->click();
  ASSERT_EQ(proposed.size(), 1);
  EXPECT_EQ(proposed[0].section(u'/', -1), u"Arıza formu 2024-17- -acil-.pdf");
}

TEST(GridPreviewTest, WithoutAPrinterItSaysSo) {
  ScriptedDialogs dialogs;
  GridPreview preview(nullptr, table(3, 2, 100), request());
  preview.show();
  EXPECT_EQ(preview.findChild<QToolButton*>(u"excel_button"_s), nullptr) << "only where a screen wants it";
  preview.findChild<QToolButton*>(u"print_button"_s)->click();
  ASSERT_EQ(dialogs.shown.size(), 1u);
  EXPECT_EQ(dialogs.shown[0].instruction, u"Yazıcı bulunamadı"_s);
}
