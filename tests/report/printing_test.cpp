#include "base/program_paths.h"
#include "tests/report/report_fixture.h"
#include "toolkit/report/printing.h"

#include <QFile>
#include <QImage>
#include <QPrinter>
#include <QProcess>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

using PrintingTest = ReportFixture;

TEST_F(PrintingTest, APrinterThatRefusesLeavesALineInTheLog) {
  const ReportPagedDocument made(laidOut("<text>x</text>"));
  QFile::remove(logFileName());
  EXPECT_FALSE(printPages(made, {.printer = u"Olmayan Yazıcı"_s}));
  QFile log(logFileName());
  ASSERT_TRUE(log.open(QIODevice::ReadOnly));
  EXPECT_THAT(log.readAll().toStdString(), testing::HasSubstr("“Olmayan Yazıcı” yazdıramadı"));
}

TEST_F(PrintingTest, EveryPrinterMovesItsPaper) {
  QTemporaryDir folder;
  const ReportPagedDocument made(laidOut(R"(<rectangle left="0" top="0" width="30" height="20" background="#000000"/>)"));
  const auto darkAt = [&](const QString& name, QPointF offset) {
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFileName(folder.filePath(name));
    setPrinterOffset(printer.printerName(), offset);
    EXPECT_TRUE(printPagesOn(printer, made, {0, 0}, {}));
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
