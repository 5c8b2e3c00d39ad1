#include "base/data/value.h"
#include "base/guard.h"
#include "tests/report/designer_fixture.h"
#include "toolkit/edits/currency_edit.h"
#include "toolkit/report/designer/data_list.h"
#include "toolkit/report/designer/expression_dialog.h"
#include "toolkit/report/designer/fault_list.h"
#include "toolkit/report/designer/inspector.h"
#include "toolkit/report/designer/label_wizard.h"
#include "toolkit/report/designer/page_setup_dialog.h"

namespace {

TEST_F(DesignerTest, MouseGesturesAreOneStepEach) {
  open(R"(<band name="B" height="40"><text name="a" left="10" top="5">A</text><text name="b" left="40" top="5">B</text></band><band name="C" height="20"/>)");
  expectStep(u"Taşı"_s, [&] { drag(at(25, 17), at(35, 22)); });
  EXPECT_NEAR(rect(u"a"_s).left(), 30, 0.3);
  EXPECT_NEAR(rect(u"a"_s).top(), 20, 0.3);
  expectStep(u"Taşı"_s, [&] { drag(at(35, 22), at(35, 60)); });
  EXPECT_EQ(node(u"a"_s)->parent()->name(), u"C") << "it went over to the band below";
  expectStep(u"Boyutlandır"_s, [&] { drag(canvas().toView().map(rect(u"a"_s).bottomRight()).toPoint(), at(70, 70)); });
  EXPECT_NEAR(rect(u"a"_s).right(), 70, 0.3);
  expectStep(u"Kopyasını taşı"_s, [&] { drag(at(55, 17), at(55, 30), Qt::ControlModifier); });
  EXPECT_NEAR(rect(u"b"_s).top(), 15, 0.01) << "the model stayed";
  EXPECT_NEAR(rect(u"b1"_s).top(), 28, 0.3);
  expectStep(u"Bant yüksekliği"_s, [&] { drag(at(15, 50), at(15, 56)); });
  EXPECT_NEAR(node(u"B"_s)->millimetres(u"height"), 46, 0.3);
  drag(at(12, 12), at(80, 35));
  EXPECT_EQ(editor().selectedObjects().size(), 2U) << "rubber band";
  click(15, 70);
  EXPECT_EQ(editor().selection(), std::vector{node(u"C"_s)}) << "a click beside all objects selects the band";
  QTest::mousePress(canvas().viewport(), Qt::LeftButton, {}, at(55, 17));
  QMouseEvent moved(QEvent::MouseMove, at(65, 27), canvas().viewport()->mapToGlobal(at(65, 27)), Qt::NoButton, Qt::LeftButton, {});
  QApplication::sendEvent(canvas().viewport(), &moved);
  const QByteArray before = bytes();
  key(Qt::Key_Escape);
  QTest::mouseRelease(canvas().viewport(), Qt::LeftButton, {}, at(65, 27));
  EXPECT_EQ(bytes(), before) << "Escape takes a gesture back";
}

TEST_F(DesignerTest, EdgesAreCaughtByOtherObjectsAndByTheGrid) {
  open(R"(<band height="60"><text name="a" left="10" top="5">A</text><text name="b" left="43.37" top="30">B</text></band>)");
  canvas().snap(true);
  drag(at(25, 17), at(58, 30));
  EXPECT_DOUBLE_EQ(rect(u"a"_s).left(), 53.37) << "lined up with the other one";
  EXPECT_DOUBLE_EQ(rect(u"a"_s).top(), std::round(rect(u"a"_s).top())) << "on the grid";
  drag(at(58, 30), at(58.2, 34), Qt::AltModifier);
  EXPECT_NE(rect(u"a"_s).left(), 53.37);
}

TEST_F(DesignerTest, EverythingHasAKey) {
  open(R"(<band name="B" height="40"><text name="a" left="10" top="5">A</text><line name="l" left="2" top="20" width="30" height="0"/></band><band name="C"/>)");
  key(Qt::Key_Tab);
  EXPECT_EQ(editor().selection(), std::vector{node(u"a"_s)});
  expectStep(u"Taşı"_s, [&] { key(Qt::Key_Right); });
  expectStep(u"Taşı"_s, [&] { key(Qt::Key_Down, Qt::ControlModifier); });
  EXPECT_EQ(rect(u"a"_s).topLeft(), QPointF(21, 15.1));
  expectStep(u"Boyutlandır"_s, [&] { key(Qt::Key_Left, Qt::ShiftModifier); });
  expectStep(u"Boyutlandır"_s, [&] { key(Qt::Key_Up, Qt::ShiftModifier | Qt::ControlModifier); });
  EXPECT_EQ(rect(u"a"_s).size(), QSizeF(19, 4.9));
  key(Qt::Key_Tab);
  EXPECT_EQ(editor().selection(), std::vector{node(u"l"_s)});
  expectStep(u"Çoğalt"_s, [&] { key(Qt::Key_D, Qt::ControlModifier); });
  expectStep(u"Sil"_s, [&] { key(Qt::Key_Delete); });
  editor().select(node(u"l"_s));
  expectStep(u"Kilitle"_s, [&] { key(Qt::Key_L, Qt::ControlModifier); });
  for (const Qt::Key pressed : {Qt::Key_Delete, Qt::Key_X}) key(pressed, pressed == Qt::Key_X ? Qt::ControlModifier : Qt::NoModifier);
  EXPECT_NE(node(u"l"_s), nullptr) << "locked";
  expectStep(u"Kilidi aç"_s, [&] { key(Qt::Key_L, Qt::ControlModifier); });
  key(Qt::Key_A, Qt::ControlModifier);
  EXPECT_EQ(editor().selection().size(), 2U);
  expectStep(u"Kes"_s, [&] { key(Qt::Key_X, Qt::ControlModifier); });
  expectStep(u"Yapıştır"_s, [&] { key(Qt::Key_V, Qt::ControlModifier); });
  EXPECT_EQ(node(u"a"_s)->parent(), node(u"B"_s)) << "what is pasted goes to a band";
  key(Qt::Key_Escape);
  EXPECT_EQ(editor().selection(), std::vector{node(u"B"_s)});
  expectStep(u"Bant yüksekliği"_s, [&] { key(Qt::Key_Down, Qt::ShiftModifier); });
  expectStep(u"Bandı taşı"_s, [&] { key(Qt::Key_Down, Qt::AltModifier); });
  EXPECT_LT(node(u"C"_s)->index(), node(u"B"_s)->index());
  key(Qt::Key_M);
  EXPECT_EQ(canvas().tool(), NodeKind::Text);
  expectStep(u"Metin ekle"_s, [&] { key(Qt::Key_Return); });
  EXPECT_EQ(node(u"Metin1"_s)->font(u"font"), (ReportFont{.family = u"Arial"_s, .points = 13}));
  EXPECT_FALSE(canvas().findChild<QPlainTextEdit*>(u"textInPlace"_s)->isVisible()) << "undone with its object";
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  key(Qt::Key_F2);
  auto* writing = canvas().findChild<QPlainTextEdit*>(u"textInPlace"_s);
  ASSERT_NE(writing, nullptr);
  writing->setPlainText(u"Teslim alan:\n[FIS_NO]"_s);
  expectStep(u"Metni yaz"_s, [&] { QTest::keyClick(writing, Qt::Key_Return, Qt::ControlModifier); });
  EXPECT_EQ(node(u"Metin1"_s)->text(u"text"), u"Teslim alan:\n[FIS_NO]");
  EXPECT_EQ(designer.editor().selection().front(), node(u"Metin1"_s));
}

TEST_F(DesignerTest, ObjectsAreDrawnWithTheirToolsAndDroppedFromTheData) {
  open(R"(<band name="B" height="60"/>)");
  const std::pair<QString, QString> tools[] = {{u"toolBarcode"_s, u"Barkod ekle"_s}, {u"toolLine"_s, u"Çizgi ekle"_s}, {u"toolRectangle"_s, u"Dikdörtgen ekle"_s}};
  double y = 15;
  for (const auto& [tool, step] : tools) {
    designer.actions().action(tool)->trigger();
    expectStep(step, [&] { drag(at(20, y), at(50, y + 12)); });
    const QRectF drawn = canvas().places().rectOf(*editor().selection().front());
    EXPECT_NEAR(drawn.width(), 30, 0.3);
    EXPECT_NEAR(drawn.height(), 12, 0.3);
    EXPECT_FALSE(canvas().tool()) << "one object, then the mouse selects again";
    y += 14;
  }
  const auto drop = [&](const char* name, QPoint place, Qt::KeyboardModifiers held) {
    QMimeData data;
    data.setData(QString::fromLatin1(dataNameMimeType), name);
    QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, held);
    QApplication::sendEvent(canvas().viewport(), &enter);
    QDropEvent dropped(place, Qt::CopyAction, &data, Qt::LeftButton, held);
    QApplication::sendEvent(canvas().viewport(), &dropped);
  };
  for (const Qt::KeyboardModifiers held : {Qt::NoModifier, Qt::AltModifier}) {
    expectStep(held ? u"Barkod ekle"_s : u"Metin ekle"_s, [&] { drop("FIS_NO", at(55, 20), held); });
    EXPECT_EQ(editor().selection().front()->text(u"text"), u"[FIS_NO]");
  }
  expectStep(u"Metin ekle"_s, [&] { drop("Malzeme.AD", at(20, 60), {}); });
  EXPECT_EQ(node(u"B"_s)->text(u"data"), u"Malzeme") << "the band goes through the field's rows";
  const qsizetype count = std::ssize(node(u"B"_s)->children());
  expectStep(u"Metni yaz"_s, [&] { drop("MUSTERI_ADI", at(25, 18), {}); });
  EXPECT_EQ(editor().root().children().front()->children().front()->children().front()->text(u"text"), u"[MUSTERI_ADI]") << "the empty barcode takes it";
  EXPECT_EQ(std::ssize(node(u"B"_s)->children()), count);
  for (const auto& [name, format] : {std::pair("TUTAR", u",0.00"_s), std::pair("Malzeme.FIYAT", u",0.00"_s), std::pair("Malzeme.ADET", QString())}) {
    drop(name, at(20, 62), {});
    EXPECT_EQ(editor().selection().front()->text(u"format"), format) << name;
  }
  // A picture is asked for when it has been drawn.
  dialogs.file = folder.filePath(u"logo.png"_s);
  QImage(2, 2, QImage::Format_RGB32).save(dialogs.file);
  designer.actions().action(u"toolPicture"_s)->trigger();
  drag(at(60, 50), at(80, 65));
  QCoreApplication::processEvents();
  EXPECT_FALSE(editor().selection().front()->picture(u"picture").isEmpty());
}

TEST_F(DesignerTest, InsideAFrameTheMouseSelectsAndAClickTakesTheFrame) {
  open(R"(<band height="60"><rectangle name="r" left="5" top="5" width="60" height="40"/><text name="a" left="10" top="10">A</text></band>)");
  drag(at(50, 22), at(22, 40));
  EXPECT_EQ(editor().selection(), std::vector{node(u"a"_s)}) << "a band drawn in the frame does not take it";
  click(60, 45);
  EXPECT_EQ(editor().selection(), std::vector{node(u"r"_s)});
  expectStep(u"Taşı"_s, [&] { drag(at(60, 45), at(65, 45)); });
}

TEST_F(DesignerTest, PanesYieldToThePageAndAreFolded) {
  open(R"(<band height="40"><text name="a">A</text></band>)");
  const auto shown = [&] { return std::pair(designer.dataList().isVisible(), designer.inspector().isVisible()); };
  EXPECT_EQ(shown(), std::pair(true, true));
  designer.resize(700, 500);
  EXPECT_EQ(shown(), std::pair(true, false)) << "narrow";
  EXPECT_GT(canvas().width(), 350);
  editor().select(node(u"a"_s));
  key(Qt::Key_F4);
  EXPECT_TRUE(designer.inspector().isVisible()) << "what is gone to unfolds";
  key(Qt::Key_F8);
  designer.resize(1300, 800);
  EXPECT_EQ(shown(), std::pair(false, true)) << "what the user folded stays";
  ReportDesigner other;
  other.resize(1300, 800);
  other.restoreState(designer.state());
  other.show();
  EXPECT_FALSE(other.dataList().isVisible());
  EXPECT_TRUE(other.inspector().isVisible());
}

TEST_F(DesignerTest, TheInspectorShowsWhatAllHaveAndWhereTheyDiffer) {
  open(R"(<band height="40"><text name="a" left="10">A</text><barcode name="b" left="20">B</barcode></band>)");
  PropertyModel& model = designer.inspector().model();
  const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
  editor().select({node(u"a"_s), node(u"b"_s)});
  EXPECT_EQ(model.rowOf(u"name"), -1);
  EXPECT_EQ(model.rowOf(u"symbology"), -1);
  const auto shown = [&](QStringView property) { return model.index(model.rowOf(property), 1).data().toString(); };
  EXPECT_EQ(shown(u"left"), u"farklı");
  EXPECT_EQ(shown(u"top"), u"0 mm");
  const auto write = [&](QStringView property, const QString& text) {
    designer.inspector().edit(property);
    auto* line = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    ASSERT_NE(line, nullptr);
    line->selectAll();
    QTest::keyClicks(line, text);
    QTest::keyClick(line, Qt::Key_Return);
    QCoreApplication::processEvents();
    canvas().setFocus();
  };
  expectStep(u"Sol"_s, [&] { write(u"left", u"12,5"_s); });
  EXPECT_EQ(node(u"b"_s)->millimetres(u"left"), 12.5);
  const QByteArray before = bytes();
  write(u"left", u"abc"_s);
  EXPECT_EQ(bytes(), before);
  EXPECT_TRUE(designer.findChild<QLabel*>(u"designerMessage"_s)->text().contains(u"sayı değil"_s));
  // However the box is left, what was written counts; but not with Escape.
  designer.inspector().edit(u"left");
  expectStep(u"Sol"_s, [&] {
    QTest::keyClicks(QApplication::focusWidget(), u"31"_s);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  });
  EXPECT_EQ(model.property(designer.inspector().table()->currentIndex().row()).name, u"top") << "Tab goes on";
  designer.inspector().edit(u"left");
  expectStep(u"Sol"_s, [&] {
    QTest::keyClicks(QApplication::focusWidget(), u"32"_s);
    canvas().setFocus();
  });
  const QByteArray left = bytes();
  designer.inspector().edit(u"left");
  QTest::keyClicks(QApplication::focusWidget(), u"33"_s);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
  for (int row = 0; row < model.rowCount(); ++row) {
    if (model.index(row, 1).flags() & Qt::ItemIsEditable) designer.inspector().edit(model.property(row).name);
    canvas().setFocus();
  }
  EXPECT_EQ(bytes(), left) << "looking at values changes none";
  editor().change(u"x"_s, *node(u"b"_s), u"font"_s, ReportFont{.family = u"Courier"_s, .points = 20, .bold = true});
  const auto fontPart = [&](const QString& name) {
    for (QWidget* part : designer.inspector().table()->findChildren<QWidget*>())
      if (part->accessibleName() == name && part->isVisible()) return part;
    return static_cast<QWidget*>(nullptr);
  };
  designer.inspector().edit(u"font");
  expectStep(u"Yazı tipi"_s, [&] {
    qobject_cast<QLineEdit*>(fontPart(u"Boy"_s))->setText(u"9"_s);
    canvas().setFocus();
  });
  EXPECT_EQ(node(u"b"_s)->font(u"font"), (ReportFont{.family = u"Courier"_s, .points = 9, .bold = true})) << "the size alone";
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  designer.inspector().edit(u"font");
  expectStep(u"Yazı tipi"_s, [&] { QTest::mouseClick(fontPart(u"Eğik"_s), Qt::LeftButton); });
  EXPECT_EQ(node(u"a"_s)->font(u"font").italic && node(u"b"_s)->font(u"font").italic && !node(u"a"_s)->font(u"font").bold, true) << "a style alone";
  canvas().setFocus();
  expectStep(u"Kilitli"_s, [&] { model.setData(model.index(model.rowOf(u"locked"), 1), Qt::Checked, Qt::CheckStateRole); });
  designer.findChild<QLineEdit*>(u"propertySearch"_s)->setText(u"YÜKSEK"_s);
  EXPECT_EQ(model.rowCount(), 1);
}

TEST_F(DesignerTest, FaultsLeadToTheirObjects) {
  open(R"(<band height="40"><text name="a">[YOK]</text><text name="b" top="8">[FIS_NO]</text></band>)");
  ASSERT_EQ(designer.faults().faults().size(), 1U);
  QTest::mouseClick(designer.faults().viewport(), Qt::LeftButton, {}, designer.faults().visualItemRect(designer.faults().item(0)).center());
  EXPECT_EQ(editor().selection(), std::vector{node(u"a"_s)});
  editor().change(u"x"_s, *node(u"a"_s), u"text"_s, u"[FIS_NO]"_s);
  EXPECT_TRUE(QTest::qWaitFor([&] { return designer.faults().faults().empty(); }));
}

TEST_F(DesignerTest, SampleDataAreSearchedForFaultsAnew) {
  open(R"(<band height="40"><text name="a" width="10" wrap="false">[MUSTERI_ADI]</text></band>)");
  designer.faults().search();
  EXPECT_TRUE(designer.faults().faults().empty());
  designer.actions().action(u"example"_s)->trigger();
  EXPECT_EQ(designer.faults().faults().size(), 1U);
}

TEST_F(DesignerTest, ADragMovesWhatWasTakenThoughAKeySelectsMore) {
  open(R"(<band height="60"><text name="a" left="10" top="5">A</text><text name="b" left="10" top="30">B</text></band>)");
  const QPoint from = canvas().mapFromScene(rect(u"a"_s).center());
  const QPoint to = from + QPoint(40, 0);
  QTest::mousePress(canvas().viewport(), Qt::LeftButton, {}, from);
  for (const QPoint& place : {(from + to) / 2, to}) {
    QMouseEvent moved(QEvent::MouseMove, place, canvas().viewport()->mapToGlobal(QPointF(place)), Qt::NoButton, Qt::LeftButton, {});
    QApplication::sendEvent(canvas().viewport(), &moved);
  }
  designer.actions().action(u"selectAll"_s)->trigger();
  QTest::mouseRelease(canvas().viewport(), Qt::LeftButton, {}, to);
  EXPECT_GT(node(u"a"_s)->millimetres(u"left"), 15);
  EXPECT_EQ(node(u"b"_s)->millimetres(u"left"), 10);
}

TEST_F(DesignerTest, OnlyAChangeIsWrittenAndTheStatesBeforeAreKept) {
  open(R"(<!-- kept --><band x="1" height="40"><text name="a">A</text></band>)");
  const QByteArray first = stored();
  EXPECT_TRUE(designer.save());
  EXPECT_EQ(stored(), first) << "without a change the file stays as it is, in its own hand";
  for (int time = 0; time < 13; ++time) {
    editor().change(u"x"_s, *node(u"a"_s), u"left"_s, 1.0 + time);
    EXPECT_TRUE(designer.save());
    EXPECT_FALSE(editor().isChanged());
  }
  EXPECT_TRUE(stored().contains("left=\"13\""));
  EXPECT_TRUE(stored().contains("<!-- kept -->"));
  const TemplateFile kept(file);
  ASSERT_EQ(kept.versions().size(), size_t(TemplateFile::mostVersions));
  EXPECT_EQ(ReportFile::load(kept.versions().front().file).find(u"a", NodeKind::Text)->millimetres(u"left"), 12);
}

TEST_F(DesignerTest, LeavingAsksAndTheSecondOfTwoDesignersToo) {
  open(R"(<band height="40"><text name="a">A</text></band>)");
  EXPECT_TRUE(designer.mayLeave());
  EXPECT_TRUE(dialogs.shown.empty());
  ReportDesigner other;
  other.open(file, sampleData());
  other.editor().change(u"x"_s, *other.editor().page()->children().front(), u"height"_s, 33.0);
  EXPECT_TRUE(other.save());
  editor().change(u"x"_s, *node(u"a"_s), u"left"_s, 7.0);
  EXPECT_FALSE(designer.mayLeave()) << "stays";
  dialogs.answers = {10, 2};
  EXPECT_FALSE(designer.mayLeave()) << "wanted to save, but not over the other one's";
  EXPECT_TRUE(stored().contains("height=\"33\""));
  EXPECT_TRUE(editor().isChanged());
  dialogs.answers = {10};
  EXPECT_TRUE(designer.save());
  EXPECT_TRUE(stored().contains("left=\"7\""));
  EXPECT_TRUE(QString::fromUtf8(ReportFile::write(ReportFile::load(TemplateFile(file).versions().front().file))).contains(u"height=\"33\""_s));
  dialogs.answers = {11};
  editor().change(u"x"_s, *node(u"a"_s), u"left"_s, 8.0);
  EXPECT_TRUE(designer.mayLeave()) << "discarded";
  editor().select(node(u"a"_s));
  key(Qt::Key_F2);
  canvas().findChild<QPlainTextEdit*>(u"textInPlace"_s)->setPlainText(u"Kalır"_s);
  dialogs.answers = {10};
  EXPECT_TRUE(designer.mayLeave());
  EXPECT_TRUE(stored().contains("Kalır")) << "a text that is still being written is part of the work";
  editor().change(u"x"_s, *node(u"a"_s), u"left"_s, 9.0);
  ASSERT_TRUE(QFile::remove(file));
  dialogs.answers = {10};
  EXPECT_TRUE(designer.save());
  EXPECT_EQ(dialogs.texts.back(), u"Kaydederseniz dosya yeniden oluşturulur.");
  EXPECT_TRUE(stored().contains("left=\"9\""));
}

TEST_F(DesignerTest, WhatNobodyEditsStaysAsItIs) {
  open(R"(<band height="40"><text name="a">x</text></band>)");
  editor().change(u"x"_s, *node(u"a"_s), u"text"_s, u"Bir\u00a0iki⏎ üç\u2028dört"_s);
  const QByteArray before = bytes();
  editor().select(node(u"a"_s));
  key(Qt::Key_F2);
  canvas().endText();
  EXPECT_EQ(bytes(), before);
  designer.inspector().edit(u"text");
  canvas().setFocus();
  EXPECT_EQ(bytes(), before);
  ExpressionDialog dialog(&designer, u"Metin"_s, ExpressionDialog::Kind::Text, node(u"a"_s)->text(u"text"), sampleData());
  EXPECT_EQ(dialog.text(), node(u"a"_s)->text(u"text"));
  dialog.findChild<QPlainTextEdit*>(u"expression"_s)->appendPlainText(u"beş"_s);
  EXPECT_EQ(dialog.text(), u"Bir\u00a0iki⏎ üç\ndört\nbeş");
}

TEST_F(DesignerTest, LongTextsWidenNoWindow) {
  open(R"(<band height="40"><text name="a">A</text></band>)");
  const int least = designer.minimumSizeHint().width();
  const QString endless(10'000, u'X');
  Q_EMIT designer.inspector().refused(endless);
  editor().change(u"x"_s, *editor().page(), u"name"_s, endless);
  for (int page = 0; page < 40; ++page) designer.actions().action(u"addPage"_s)->trigger();
  EXPECT_LT(designer.minimumSizeHint().width(), least + 100);
  ExpressionDialog dialog(&designer, u"Metin"_s, ExpressionDialog::Kind::Text, endless, sampleData());
  EXPECT_LT(dialog.minimumSizeHint().width(), 1000);
}

TEST_F(DesignerTest, AnotherTemplateOfTheFolderIsOpenedInItsPlace) {
  for (const QString& name : {u"10"_s, u"2"_s, u"bakim"_s}) {
    file = folder.filePath(name + u".fr3"_s);
    put(file, "<report version=\"1\" name=\"Makbuz " + name.toUtf8() + "\"><page name=\"S\"/></report>");
  }
  file = folder.filePath(u"0.fr3"_s);
  open(R"(<text name="a">A</text>)");
  editor().change(u"x"_s, *node(u"a"_s), u"left"_s, 7.0);
  const QByteArray before = stored();
  designer.setOpenFolder(folder.path());
  dialogs.answers = {2, 11};
  designer.actions().action(u"open"_s)->trigger();
  EXPECT_NE(node(u"a"_s), nullptr) << "stays";
  postGuarded(&designer, [] {
    auto* picker = QApplication::activeModalWidget();
    auto* list = picker->findChild<QListWidget*>(u"templates"_s);
    EXPECT_EQ(list->currentRow(), 0) << "the one that is open";
    EXPECT_EQ(list->item(2)->text(), u"10 — Makbuz 10");
    list->setCurrentRow(1);
    static_cast<QDialog*>(picker)->accept();
  });
  designer.actions().action(u"open"_s)->trigger();
  EXPECT_EQ(editor().root().name(), u"Makbuz 2");
  EXPECT_FALSE(editor().isChanged());
  editor().change(u"x"_s, *editor().page(), u"name"_s, u"Yeni"_s);
  EXPECT_TRUE(designer.save());
  EXPECT_EQ(stored(), before);
  file = folder.filePath(u"2.fr3"_s);
  EXPECT_TRUE(stored().contains("Yeni"));
}

TEST_F(DesignerTest, WorkUnderWayOutlivesAKilledDesigner) {
  const QString given = qEnvironmentVariable("KVTK_KILLED_DESIGN");
  if (!given.isEmpty()) {  // the program that is killed
    file = given;
    openFile();
    designer.setDraftPause(20);
    click(15, 12);
    key(Qt::Key_Right);
    key(Qt::Key_F2);
    canvas().findChild<QPlainTextEdit*>(u"textInPlace"_s)->setPlainText(u"Yarım"_s);
    QTest::qWait(60'000);
    return;
  }
  open(R"(<band height="40"><text name="a">A</text></band>)");
  QProcess other;
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert(u"KVTK_KILLED_DESIGN"_s, file);
  environment.insert(u"TMPDIR"_s, folder.path());
  other.setProcessEnvironment(environment);
  other.start(QCoreApplication::applicationFilePath(), {u"--gtest_filter=DesignerTest.WorkUnderWayOutlivesAKilledDesigner"_s});
  ASSERT_TRUE(QTest::qWaitFor([&] { return contentOf(folder.filePath(u"onceki/0/taslak-1.xml"_s)).contains("Yarım"); }, 30'000));
  other.kill();
  ASSERT_TRUE(other.waitForFinished());
  dialogs.answers = {10};
  designer.open(file, sampleData());
  QCoreApplication::processEvents();
  ASSERT_EQ(dialogs.shown.size(), 1U);
  EXPECT_EQ(node(u"a"_s)->millimetres(u"left"), 1);
  EXPECT_EQ(node(u"a"_s)->text(u"text"), u"Yarım") << "what was being written as well";
  EXPECT_TRUE(editor().isChanged());
  EXPECT_FALSE(stored().contains("left=\"1\"")) << "the file is written by saving alone";
  ReportDesigner second;
  second.open(file, sampleData());
  QCoreApplication::processEvents();
  EXPECT_EQ(dialogs.shown.size(), 1U) << "the draft belongs to the first one, which lives";
  designer.setDraftPause(20);
  QTest::qWait(60);
  EXPECT_TRUE(designer.save());
  designer.close();
  designer.open(file, sampleData());
  QCoreApplication::processEvents();
  EXPECT_EQ(dialogs.shown.size(), 1U) << "what was saved is no work under way";
  designer.setDraftPause(20);
  editor().select(node(u"a"_s));
  designer.inspector().edit(u"text");
  qobject_cast<QLineEdit*>(QApplication::focusWidget())->setText(u"Yazılıyor"_s);
  EXPECT_TRUE(QTest::qWaitFor([&] { return contentOf(folder.filePath(u"onceki/0/taslak-1.xml"_s)).contains("Yazılıyor"); }));
  EXPECT_EQ(node(u"a"_s)->text(u"text"), u"Yarım") << "kept, not taken over";
}

TEST_F(DesignerTest, ObjectsAreChildrenForAssistiveSoftware) {
  open(R"(<band name="B" height="40"><text name="a" left="10" top="5">A</text><barcode name="b" left="40" top="5" height="10"/></band>)");
  QAccessibleInterface* page = QAccessible::queryAccessibleInterface(&canvas());
  ASSERT_NE(page, nullptr);
  ASSERT_EQ(page->childCount(), 3);
  QAccessibleInterface* text = page->child(1);
  EXPECT_EQ(text->text(QAccessible::Name), u"a, Metin");
  EXPECT_EQ(text->text(QAccessible::Value), u"A");
  EXPECT_EQ(text->role(), QAccessible::StaticText);
  EXPECT_EQ(page->child(2)->role(), QAccessible::Graphic);
  EXPECT_EQ(page->childAt(text->rect().center().x(), text->rect().center().y()), text);
  text->actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
  EXPECT_EQ(editor().selection(), std::vector{node(u"a"_s)});
  EXPECT_TRUE(text->state().selected);
  editor().remove(u"Sil"_s, {node(u"a"_s)});
  EXPECT_FALSE(text->isValid());
  EXPECT_EQ(page->childCount(), 2);
}

TEST_F(DesignerTest, ALabelIsMadeByTheWizardAndAPageBySetUp) {
  open(R"(<band height="40"><text name="a">A</text></band>)");
  const DesignSample sample = sampleData();
  for (const LabelSheet& sheet : usualLabelSheets()) {
    const ReportDocument label = makeLabel(sheet, {u"FIS_NO"_s, u"MUSTERI_ADI"_s}, u"FIS_NO_BARKOD"_s, sample);
    EXPECT_TRUE(findFaults(label, sample).empty()) << sheet.caption.toStdString();
  }
  LabelWizard wizard(nullptr, sample);
  auto* size = wizard.findChild<QComboBox*>(u"labelSize"_s);
  size->setCurrentIndex(size->count() - 1);
  wizard.findChild<CurrencyEdit*>(u"labelWidth"_s)->setValue(70);
  auto* names = wizard.findChild<QListWidget*>(u"labelNames"_s);
  names->item(1)->setCheckState(Qt::Checked);
  QCoreApplication::processEvents();
  names->setCurrentRow(1);
  for (QToolButton* button : wizard.findChildren<QToolButton*>())
    if (button->text().startsWith(u"Yukarı"_s)) button->click();
  QStringList texts;
  ReportDocument made = wizard.document();
  made.forEach([&](ReportNode& each) {
    if (each.kind() == NodeKind::Text) texts += each.text(u"text");
  });
  EXPECT_EQ(texts.join(u' '), u"[MUSTERI_ADI] [FIS_NO]");
  EXPECT_EQ(PagePlaces(*made.root().children().front()).cell().size(), QSizeF(66, 36));
  expectDialogStep(u"wizard"_s, u"Sihirbaz"_s, [](QDialog& dialog) { dialog.findChild<QListWidget*>(u"labelNames"_s)->item(0)->setCheckState(Qt::Checked); });
  expectDialogStep(u"pageSetup"_s, u"Sayfa düzeni"_s, [](QDialog& dialog) {
    for (const EditFrame* box : dialog.findChildren<EditFrame*>()) EXPECT_FALSE(box->findChild<QLineEdit*>()->accessibleName().isEmpty());
    QStringList walked{QApplication::focusWidget()->accessibleName()};
    for (int tab = 0; tab < 4; ++tab) {
      QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
      walked += QApplication::focusWidget()->accessibleName();
    }
    EXPECT_EQ(walked.join(u", "_s), u"Hazır etiket, Kâğıt, Yön, Kâğıt genişliği (mm), Kâğıt yüksekliği (mm)");
    auto* preset = dialog.findChild<QComboBox*>(u"preset"_s);
    preset->setCurrentIndex(9);
    Q_EMIT preset->activated(9);
  });
  EXPECT_EQ(canvas().places().sheet().cell, QSizeF(70, 37));
  EXPECT_TRUE(designer.save());
  expectDialogStep(u"versions"_s, u"Önceki sürüm"_s, [](QDialog& dialog) { dialog.findChild<QListWidget*>(u"templates"_s)->setCurrentRow(0); });
  EXPECT_NE(node(u"a"_s), nullptr) << "as it was opened";
}

}  // namespace
