// kvtk-bench-designer TEMPLATES: figures of the template designer on the delivered receipt, and on a page of 300 objects.

#include "bench/measuring.h"
#include "toolkit/report/designer/report_designer.h"
#include "toolkit/report/preview/preview_window.h"
#include "toolkit/report/report_file.h"

#include <QAction>
#include <QApplication>
#include <QFile>
#include <QMouseEvent>
#include <QTemporaryDir>

#include <algorithm>

using namespace Qt::StringLiterals;
using Measuring::best;
using Measuring::figure;
using Measuring::milliseconds;

namespace {

constexpr int objectCount = 300;
constexpr int moveCount = 200;
constexpr int nameCount = 50;

/// What waits to be painted is painted.
void paint() {
  QCoreApplication::sendPostedEvents();
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

/// A receipt full of texts, frames and barcodes.
QByteArray crowdedReport() {
  ReportDocument document;
  ReportNode* page = document.root().append(std::make_unique<ReportNode>(NodeKind::Page));
  ReportNode* band = page->append(std::make_unique<ReportNode>(NodeKind::Band));
  band->setValue(u"height", 270.0);
  for (int number = 0; number < objectCount; ++number) {
    const NodeKind kind = number % 10 == 0 ? NodeKind::Barcode : number % 3 == 0 ? NodeKind::Rectangle : NodeKind::Text;
    ReportNode* object = band->append(std::make_unique<ReportNode>(kind));
    object->setValue(u"left", double(number % 6) * 31);
    object->setValue(u"top", double(number / 6) * 5.3);
    object->setValue(u"width", 29.0);
    object->setValue(u"height", 5.0);
    if (kind == NodeKind::Text) object->setValue(u"text", u"Alan %1: [FIS_NO]"_s.arg(number));
  }
  return ReportFile::write(document);
}

void write(const QString& file, const QByteArray& bytes) {
  QFile out(file);
  if (!out.open(QIODevice::WriteOnly) || out.write(bytes) != bytes.size()) qFatal("cannot write");
}

void mouse(DesignCanvas& canvas, QEvent::Type type, QPointF place) {
  QMouseEvent event(type, place, canvas.viewport()->mapToGlobal(place), type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton,
                    type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(canvas.viewport(), &event);
}

/// The slowest frame while the mouse drags what is selected.
double worstFrame(DesignCanvas& canvas, QPointF from) {
  double worst = 0;
  mouse(canvas, QEvent::MouseButtonPress, from);
  for (int move = 0; move <= moveCount; ++move) {
    const QPointF place = from + QPointF(10 + move * 0.7, 6 + (move % 40));
    const double took = milliseconds([&] {
      mouse(canvas, QEvent::MouseMove, place);
      canvas.viewport()->repaint();
      paint();
    });
    // The first one sets out; frames follow it.
    if (move > 0) worst = std::max(worst, took);
  }
  mouse(canvas, QEvent::MouseButtonRelease, from + QPointF(150, 20));
  paint();
  return worst;
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setStyle(u"Fusion"_s);
  const QStringList arguments = QApplication::arguments();
  if (arguments.size() < 2) qFatal("kvtk-bench-designer TEMPLATES");
  const QTemporaryDir folder;
  const QString receipt = folder.filePath(u"0.fr3"_s);
  QFile::copy(arguments[1] + u"/0.fr3"_s, receipt);
  DesignSample sample;
  // About as many names as a slip has.
  for (const QString& name : {u"FIS_NO"_s, u"MUSTERI_ADI"_s}) sample.data.declareVariable(name, u"Fişin bilgisi"_s);
  for (int number = 0; number < nameCount; ++number) {
    const QString name = u"BILGI_%1"_s.arg(number);
    sample.data.declareVariable(name, u"Fişin bilgisi %1"_s.arg(number));
    sample.data.setExpression(name, ReportData::quoted(u"Kağıda yazılan bilgi %1"_s.arg(number)));
  }

  figure(u"designer_open_ms"_s, best([&] {
           ReportDesigner designer;
           designer.resize(1400, 860);
           designer.open(receipt, sample);
           designer.show();
           designer.canvas().fitPage();
           paint();
           designer.repaint();
         }),
         "ms");

  ReportDesigner designer;
  designer.resize(1400, 860);
  designer.show();
  designer.open(receipt, sample);
  paint();
  figure(u"preview_ms"_s, best([&] {
           const ReportDocument filled = filledWith(designer.editor().document(), sample);
           PreviewWindow preview(nullptr, std::make_shared<ReportPagedDocument>(layoutReport(filled, sample.data, {}, QDateTime::currentDateTime())), {});
           preview.show();
           paint();
           preview.repaint();
         }),
         "ms");

  const QString crowded = folder.filePath(u"1.fr3"_s);
  write(crowded, crowdedReport());
  designer.open(crowded, sample);
  DesignCanvas& canvas = designer.canvas();
  canvas.fitPage();
  paint();
  const auto place = [&](size_t object) {
    const ReportNode& node = *designer.editor().page()->children().front()->children()[object];
    return canvas.viewRectOf(node).center();
  };
  figure(u"drag_frame_ms"_s, worstFrame(canvas, place(20)), "ms");
  figure(u"select_all_ms"_s, best([&] {
           designer.editor().select(std::vector<ReportNode*>());
           paint();
           designer.actions().action(u"selectAll"_s)->trigger();
           canvas.viewport()->repaint();
           paint();
         }),
         "ms");
  figure(u"drag_all_frame_ms"_s, worstFrame(canvas, place(20)), "ms");
  figure(u"undo_ms"_s, milliseconds([&] {
           designer.editor().steps().undo();
           canvas.viewport()->repaint();
         }),
         "ms");
}
