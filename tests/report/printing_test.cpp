#include "base/program_paths.h"
#include "base/whole_file.h"
#include "tests/report/report_fixture.h"
#include "tests/support/screen_test.h"
#include "tests/support/scripted_dialogs.h"
#include "toolkit/edits/currency_edit.h"
#include "toolkit/report/preview/offset_dialog.h"
#include "toolkit/report/printing.h"
#include "toolkit/report/report_output.h"

#include <QPrinter>

namespace {

using PrintingTest = ReportFixture;

/// A print service of the test's own with one queue that keeps what it receives.
class PrintService {
 public:
  PrintService() {
    const QString script = u". '%1'; trap 'kill $print_pid' TERM; print_service '%2' MAKBUZ; echo ready; wait"_s;
    process_.start(u"bash"_s, {u"-c"_s, script.arg(QStringLiteral(KVTK_PRINT_SERVICE), folder_.path())});
    qputenv("CUPS_SERVER", (folder_.path() + u"/sock"_s).toUtf8());
  }
  ~PrintService() {
    process_.terminate();
    process_.waitForFinished();
    qputenv("CUPS_SERVER", outerService_);
  }
  PrintService(const PrintService&) = delete;
  PrintService& operator=(const PrintService&) = delete;

  bool works() { return process_.waitForReadyRead() && process_.readAll() == "ready\n"; }
  /// What the queue has received: the first job's document, and its attributes as bytes.
  QString document() const { return folder_.filePath(u"spool/d00001-001"_s); }
  QByteArray attributes() const { return contentOf(folder_.filePath(u"spool/c00001"_s)); }

 private:
  QTemporaryDir folder_;
  QByteArray outerService_ = qgetenv("CUPS_SERVER");
  QProcess process_;
};

}  // namespace

TEST_F(PrintingTest, AQueueReceivesTheDocumentAndItsCopies) {
  PrintService service;
  ASSERT_TRUE(service.works());
  fillRows(9);
  const ReportPagedDocument made(laidOut(R"(<band kind="rows" data="Malzeme" height="10"><text width="60">[Malzeme.AD]</text></band>)", "height=\"60\""));
  ASSERT_TRUE(printPages(made, {.printer = u"MAKBUZ"_s, .copies = 2, .documentName = u"Makbuz 7"_s}));
  const QString text = outputOf(u"pdftotext"_s, {u"-layout"_s, service.document(), u"-"_s});
  EXPECT_THAT(text.toStdString(), testing::HasSubstr("Parça 9"));
  EXPECT_EQ(text.count(u'\f'), 3) << "pages";
  QByteArray attributes = service.attributes();
  for (int attempt = 0; attempt < 50 && attributes.isEmpty(); ++attempt, attributes = service.attributes()) QThread::msleep(100);
  EXPECT_THAT(attributes.toStdString(), testing::HasSubstr(std::string("copies\0\4\0\0\0\2", 12)));
  EXPECT_THAT(attributes.toStdString(), testing::HasSubstr("Makbuz 7"));
  EXPECT_THAT(attributes.toStdString(), testing::HasSubstr("Custom.100x60mm")) << "own paper lies as it was drawn";
  QProcess::execute(u"cupsreject"_s, {u"MAKBUZ"_s});
  EXPECT_FALSE(printPages(made, {.printer = u"MAKBUZ"_s}));
  EXPECT_THAT(contentOf(logFileName()).toStdString(), testing::HasSubstr("kuyruğu iş kabul etmiyor"));
  QProcess::execute(u"cupsaccept"_s, {u"MAKBUZ"_s});
  EXPECT_TRUE(printPages(made, {.printer = u"MAKBUZ"_s})) << "a refusal is forgotten";
}

TEST_F(PrintingTest, RefusalsAndFaultsLeaveTheirLinesInTheLog) {
  QTemporaryDir folder;
  const QString file = folder.filePath(u"7.fr3"_s);
  WholeFile::replace(file, R"(<report version="1"><page><band height="20"><text name="Seri">[SERI_N]</text></band></page></report>)");
  QFile::remove(logFileName());
  Report report;
  report.load(file);
  report.printer = u"Olmayan Yazıcı"_s;
  EXPECT_FALSE(printReport(report, u"Makbuz"_s));
  const std::string lines = contentOf(logFileName()).toStdString();
  EXPECT_THAT(lines, testing::HasSubstr("“Olmayan Yazıcı” yazdıramadı"));
  EXPECT_THAT(lines, testing::HasSubstr("Şablon 7.fr3, Seri: “SERI_N”"));
}

TEST_F(PrintingTest, AnOffsetIsTypedPerPrinter) {
  ScriptedDialogs dialogs;
  setPrinterOffset(u"Etiket [1]"_s, {1.5, -2});
  setPrinterOffset(u"Makbuz"_s, {});
  OffsetDialog dialog(nullptr, {u"Makbuz"_s, u"Etiket [1]"_s}, u"Etiket [1]"_s);
  auto* right = dialog.findChild<CurrencyEdit*>(u"right"_s);
  auto* down = dialog.findChild<CurrencyEdit*>(u"down"_s);
  EXPECT_EQ(right->value(), 1.5);
  right->setValue(120);
  dialog.findChild<QPushButton*>(u"save"_s)->click();
  ASSERT_EQ(dialogs.shown.size(), 1u);
  EXPECT_EQ(printerOffset(u"Etiket [1]"_s), QPointF(1.5, -2));
  right->setValue(-0.75);
  down->setValue(3);
  dialog.findChild<QPushButton*>(u"save"_s)->click();
  EXPECT_EQ(printerOffset(u"Etiket [1]"_s), QPointF(-0.75, 3));
  EXPECT_EQ(printerOffset(u"Makbuz"_s), QPointF());
  EXPECT_EQ(printerDots(u"Etiket [1]"_s), 0);
}

TEST_F(PrintingTest, ALongSerialIsReadFromALabelPrintersDots) {
  QTemporaryDir folder;
  const ReportPagedDocument made(laidOut(R"(<barcode width="54" height="12" showtext="false">SN5CD0X24QXNB7KPTR9WZ4827</barcode>)", "height=\"40\""));
  QPrinter printer(QPrinter::HighResolution);
  printer.setOutputFileName(folder.filePath(u"etiket.pdf"_s));
  setPrinterDots(printer.printerName(), 203);
  EXPECT_TRUE(printPagesOn(printer, made, {0}, {}));
  setPrinterDots(printer.printerName(), 0);
  // One bit for each dot, as the printer's own driver does it.
  QProcess::execute(u"pdftoppm"_s, {u"-r"_s, u"203"_s, u"-mono"_s, u"-singlefile"_s, folder.filePath(u"etiket.pdf"_s), folder.filePath(u"etiket"_s)});
  EXPECT_EQ(outputOf(u"zbarimg"_s, {u"-q"_s, u"--raw"_s, folder.filePath(u"etiket.pbm"_s)}).trimmed(), u"SN5CD0X24QXNB7KPTR9WZ4827"_s);
}

TEST_F(PrintingTest, ThePagesThatWereChosenArePrinted) {
  QTemporaryDir folder;
  fillRows(9);
  const ReportPagedDocument made(laidOut(R"(<band kind="rows" data="Malzeme" height="10" newpage="true"><text>[Malzeme.AD]</text></band>)"));
  QPrinter printer(QPrinter::HighResolution);
  printer.setOutputFileName(folder.filePath(u"a.pdf"_s));
  EXPECT_TRUE(printPagesOn(printer, made, {1, 4}, {}));
  EXPECT_EQ(outputOf(u"pdftotext"_s, {folder.filePath(u"a.pdf"_s), u"-"_s}).simplified(), u"Parça 2 Parça 5"_s);
}

TEST_F(PrintingTest, EveryPrinterMovesItsPaper) {
  QTemporaryDir folder;
  const ReportPagedDocument made(laidOut(R"(<rectangle left="0" top="0" width="30" height="20" background="#000000"/>)"));
  const auto darkAt = [&](const QString& name, QPointF offset) {
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFileName(folder.filePath(name));
    setPrinterOffset(printer.printerName(), offset);
    EXPECT_TRUE(printPagesOn(printer, made, {0}, {}));
    setPrinterOffset(printer.printerName(), {});
    QProcess::execute(u"pdftoppm"_s, {u"-r"_s, u"254"_s, u"-png"_s, u"-singlefile"_s, folder.filePath(name), folder.filePath(name)});
    const QImage picture(folder.filePath(name + u".png"_s));
    EXPECT_NEAR(picture.width(), 1000, 3) << "the paper is as large as the page";
    QPointF place;
    while (place.x() < picture.width() && qGray(picture.pixel(int(place.x()), 200)) > 128) place.rx() += 1;
    while (place.y() < picture.height() && qGray(picture.pixel(200, int(place.y()))) > 128) place.ry() += 1;
    return place / 10;
  };
  const QPointF plain = darkAt(u"a.pdf"_s, {});
  EXPECT_NEAR(plain.x(), 9.9, 0.25);
  EXPECT_NEAR(plain.y(), 9.9, 0.25);
  const QPointF moved = darkAt(u"b.pdf"_s, {2.5, -1.5});
  EXPECT_NEAR(moved.x() - plain.x(), 2.5, 0.15);
  EXPECT_NEAR(moved.y() - plain.y(), -1.5, 0.15);
}
