#pragma once

#include "tests/report/listed_rows.h"
#include "tests/support/screen_test.h"
#include "tests/support/scripted_dialogs.h"
#include "toolkit/report/designer/report_designer.h"
#include "toolkit/report/report_file.h"

inline DesignSample sampleData() {
  DesignSample sample;
  sample.data.declareVariable(QStringLiteral("FIS_NO"), QStringLiteral("Fiş numarası"));
  sample.data.setExpression(QStringLiteral("FIS_NO"), QStringLiteral("'10482'"));
  sample.data.declareVariable(QStringLiteral("MUSTERI_ADI"), QStringLiteral("Müşterinin adı"));
  sample.data.declareVariable(QStringLiteral("TUTAR"), QStringLiteral("Tutar"));
  sample.data.setExpression(QStringLiteral("TUTAR"), QStringLiteral("400"));
  sample.data.addRows(QStringLiteral("Malzeme"),
                      std::make_shared<ListedRows>(QStringList{QStringLiteral("AD"), QStringLiteral("ADET"), QStringLiteral("FIYAT")},
                                                   std::vector<std::vector<ReportValue>>{{QStringLiteral("Kayış"), 2.0, 12.0}, {QStringLiteral("Fan"), 1.0, 7.5}}),
                      QStringLiteral("Parçalar"));
  sample.barcodes.insert(QStringLiteral("FIS_NO_BARKOD"), QStringLiteral("10482"));
  return sample;
}

/// A designer on a file of its own, worked by mouse and keys. Places are millimetres on the paper, which is 100 by 100 mm
/// with margins of 10 mm.
class DesignerTest : public testing::Test {
 protected:
  void open(const QByteArray& inside) {
    put(file, "<report version=\"1\"><page name=\"S\" paper=\"own\" width=\"100\" height=\"100\">" + inside + "</page></report>");
    openFile();
  }
  void openFile() {
    designer.resize(1300, 800);
    designer.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&designer));
    designer.open(file, sampleData());
    canvas().zoomTo(1.5);
    canvas().centerOn(50, 50);
    canvas().snap(false);
  }
  QByteArray stored() const { return contentOf(file); }
  DesignCanvas& canvas() { return designer.canvas(); }
  ReportEditor& editor() { return designer.editor(); }
  QByteArray bytes() { return ReportFile::write(editor().document()); }
  ReportNode* node(const QString& name) { return nodeNamed(editor().root(), name); }
  QRectF rect(const QString& name) { return canvas().places().rectOf(*node(name)); }
  QPoint at(double x, double y) { return canvas().mapFromScene(QPointF(x, y)); }
  void click(double x, double y, Qt::KeyboardModifiers modifiers = {}) { QTest::mouseClick(canvas().viewport(), Qt::LeftButton, modifiers, at(x, y)); }
  void drag(QPoint from, QPoint to, Qt::KeyboardModifiers modifiers = {}) {
    QTest::mousePress(canvas().viewport(), Qt::LeftButton, modifiers, from);
    for (const double share : {0.3, 0.7, 1.0}) {
      const QPointF place = QPointF(from) + QPointF(to - from) * share;
      QMouseEvent moved(QEvent::MouseMove, place, canvas().viewport()->mapToGlobal(place), Qt::NoButton, Qt::LeftButton, modifiers);
      QApplication::sendEvent(canvas().viewport(), &moved);
    }
    QTest::mouseRelease(canvas().viewport(), Qt::LeftButton, modifiers, to);
  }
  void key(Qt::Key pressed, Qt::KeyboardModifiers modifiers = {}) { QTest::keyClick(&canvas(), pressed, modifiers); }
  /// What was done is one step of that name; undone and done again it leaves the document byte for byte as it was.
  void expectStep(const QString& name, const std::function<void()>& work) {
    const QByteArray before = bytes();
    const int count = editor().steps().index();
    work();
    EXPECT_NE(bytes(), before) << name.toStdString();
    EXPECT_EQ(editor().steps().undoText(), name);
    expectOneStep(before, count, name);
  }
  void expectOneStep(const QByteArray& before, int count, const QString& name) {
    const QByteArray after = bytes();
    EXPECT_EQ(editor().steps().index(), count + 1) << name.toStdString();
    designer.findChild<QAction*>(QStringLiteral("undo"))->trigger();
    EXPECT_EQ(bytes(), before) << name.toStdString();
    designer.findChild<QAction*>(QStringLiteral("redo"))->trigger();
    EXPECT_EQ(bytes(), after) << name.toStdString();
  }

  /// A command that asks in a dialog of its own is one step as well.
  void expectDialogStep(const QString& command, const QString& name, const std::function<void(QDialog&)>& choose) {
    postGuarded(&designer, [choose] {
      auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      EXPECT_TRUE(QTest::qWaitForWindowActive(dialog));
      choose(*dialog);
      dialog->accept();
    });
    expectStep(name, [&] { designer.actions().action(command)->trigger(); });
  }

  ScriptedDialogs dialogs;
  QTemporaryDir folder;
  QString file = folder.filePath(QStringLiteral("0.fr3"));
  ReportDesigner designer;
};
