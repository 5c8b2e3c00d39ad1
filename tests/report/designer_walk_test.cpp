#include "tests/report/designer_fixture.h"
#include "toolkit/report/designer/data_list.h"
#include "toolkit/report/designer/fault_list.h"
#include "toolkit/report/designer/inspector.h"

#include <map>
#include <random>

namespace {

/// Commands that ask, or end the work.
const QStringList asking = {u"open"_s, u"save"_s, u"versions"_s, u"delivered"_s, u"pageSetup"_s, u"preview"_s, u"testPrint"_s, u"wizard"_s, u"close"_s};
const QStringList goingBack = {u"undo"_s, u"redo"_s};

class DesignerWalk : public DesignerTest {
 protected:
  /// Every command of menus, bars and keys, but those that ask.
  std::vector<QAction*> commands() {
    std::vector<QAction*> all;
    for (QAction* each : designer.findChildren<QAction*>())
      if (!each->objectName().isEmpty() && !asking.contains(each->objectName()) && !goingBack.contains(each->objectName())) all.push_back(each);
    std::sort(all.begin(), all.end(), [](const QAction* one, const QAction* other) { return one->objectName() < other->objectName(); });
    return all;
  }
  void doSomething() {
    static constexpr void (DesignerWalk::*doings[])() = {&DesignerWalk::giveCommand, &DesignerWalk::giveCommand, &DesignerWalk::giveCommand,
                                                         &DesignerWalk::clickOrDrag, &DesignerWalk::clickOrDrag, &DesignerWalk::clickOrDrag,
                                                         &DesignerWalk::stretch,     &DesignerWalk::pressKey,    &DesignerWalk::pressKey,
                                                         &DesignerWalk::draw,        &DesignerWalk::draw,        &DesignerWalk::writeInPlace,
                                                         &DesignerWalk::setProperty, &DesignerWalk::setProperty, &DesignerWalk::dropName,
                                                         &DesignerWalk::useLists,    &DesignerWalk::replaceAll};
    (this->*doings[size_t(below(int(std::size(doings))))])();
    if (below(20) == 0) QCoreApplication::processEvents();
  }
  /// Objects whose look did not change are not laid out anew: laid out once more, all look as they did.
  void expectAllIsShown() {
    const QImage shown = canvas().grab().toImage();
    canvas().showSample(canvas().showsData());
    EXPECT_EQ(canvas().grab().toImage(), shown);
  }

 private:
  int below(int bound) { return int(random() % unsigned(bound)); }
  Qt::KeyboardModifiers someModifiers() {
    static constexpr Qt::KeyboardModifiers all[] = {Qt::NoModifier, Qt::NoModifier, Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier};
    return all[below(int(std::size(all)))];
  }
  QPoint somewhere() { return {below(canvas().viewport()->width()), below(canvas().viewport()->height())}; }
  QPoint onAnObject() {
    std::vector<ReportNode*> all;
    for (const auto& child : editor().page()->children()) {
      if (isObject(child->kind())) all.push_back(child.get());
      for (const auto& object : child->children())
        if (isObject(object->kind())) all.push_back(object.get());
    }
    return all.empty() ? somewhere() : canvas().viewRectOf(*all[size_t(below(int(all.size())))]).center().toPoint();
  }

  void giveCommand() {
    const std::vector<QAction*> all = commands();
    QAction* chosen = all[size_t(below(int(all.size())))];
    // What grows the report is done as often as what empties it, and the page stays in sight.
    const bool isEmptying = QStringList{u"remove"_s, u"cut"_s, u"removePage"_s}.contains(chosen->objectName());
    if (chosen->objectName().startsWith(u"zoom"_s) || chosen->objectName() == u"emptyPage" || (isEmptying && below(3) > 0)) return;
    chosen->trigger();
  }
  void clickOrDrag() {
    const QPoint from = below(4) ? onAnObject() : somewhere();
    const Qt::KeyboardModifiers held = someModifiers();
    if (below(2) == 0) return QTest::mouseClick(canvas().viewport(), Qt::LeftButton, held, from);
    drag(from, from + QPoint(below(120) - 60, below(120) - 60), held);
  }
  void stretch() {
    const std::vector<ReportNode*> objects = editor().selectedObjects();
    if (objects.empty()) return;
    const QRectF all = canvas().toView().mapRect(Arranging::bounds(objects, canvas().places()));
    const QPoint corner = (below(2) ? all.bottomRight() : all.topLeft()).toPoint();
    drag(corner, corner + QPoint(below(60) - 30, below(60) - 30), someModifiers());
  }
  void pressKey() {
    static constexpr Qt::Key keys[] = {Qt::Key_Left, Qt::Key_Right, Qt::Key_Up,     Qt::Key_Down, Qt::Key_Tab,
                                       Qt::Key_Tab,  Qt::Key_Tab,   Qt::Key_Escape, Qt::Key_A,    Qt::Key_Return};
    const Qt::Key pressed = keys[below(int(std::size(keys)))];
    key(pressed, pressed == Qt::Key_A ? Qt::ControlModifier : pressed == Qt::Key_Tab || pressed == Qt::Key_Return ? Qt::NoModifier : someModifiers());
  }
  void draw() {
    static constexpr Qt::Key tools[] = {Qt::Key_M, Qt::Key_B, Qt::Key_C, Qt::Key_D, Qt::Key_R, Qt::Key_O, Qt::Key_Z};
    key(Qt::Key_Escape);
    key(tools[below(int(std::size(tools)))]);
    const QPoint from = somewhere();
    drag(from, from + QPoint(below(150), below(80)), someModifiers());
  }
  void writeInPlace() {
    if (below(2)) key(Qt::Key_F2);
    for (auto* writing : canvas().findChildren<QPlainTextEdit*>(u"textInPlace"_s)) {
      if (!writing->isVisible()) continue;
      writing->insertPlainText(u"Şırnak <&\" %1][\n"_s.arg(below(100)));
      if (below(3)) QTest::keyClick(writing, below(3) ? Qt::Key_Return : Qt::Key_Escape, Qt::ControlModifier);
      return;
    }
  }
  void setProperty() {
    PropertyModel& model = designer.inspector().model();
    if (model.rowCount() == 0) return;
    const int row = below(model.rowCount());
    const QModelIndex cell = model.index(row, 1);
    if (cell.flags() & Qt::ItemIsUserCheckable) {
      model.setData(cell, below(2) ? Qt::Checked : Qt::Unchecked, Qt::CheckStateRole);
      return;
    }
    designer.inspector().edit(model.property(row).name);
    QWidget* box = QApplication::focusWidget();
    if (auto* line = qobject_cast<QLineEdit*>(box)) {
      line->setText(below(4) ? QString::number(below(600) / 10.0) : u"[FIS_NO] ığüşöç"_s);
      QTest::keyClick(line, below(2) ? Qt::Key_Return : Qt::Key_Tab);
    } else if (auto* choices = qobject_cast<QComboBox*>(box); choices && choices->count() > 0) {
      choices->setCurrentIndex(below(choices->count()));
      Q_EMIT choices->activated(choices->currentIndex());
    }
    if (below(2)) canvas().setFocus();
  }
  void dropName() {
    QMimeData data;
    data.setData(QString::fromLatin1(dataNameMimeType), below(2) ? "FIS_NO" : "Malzeme.AD");
    const QPoint place = somewhere();
    const Qt::KeyboardModifiers held = below(2) ? Qt::NoModifier : Qt::AltModifier;
    QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, held);
    QApplication::sendEvent(canvas().viewport(), &enter);
    QDropEvent drop(place, Qt::CopyAction, &data, Qt::LeftButton, held);
    QApplication::sendEvent(canvas().viewport(), &drop);
  }
  void useLists() {
    auto* pages = designer.findChild<QTabBar*>(u"pages"_s);
    if (below(2)) pages->setCurrentIndex(below(pages->count()));
    auto* tree = designer.findChild<QTreeWidget*>(u"objects"_s);
    if (QTreeWidgetItem* band = tree->topLevelItem(below(tree->topLevelItemCount() + 1))) tree->setCurrentItem(below(2) && band->child(0) ? band->child(0) : band);
    if (below(10)) return;
    designer.faults().search();
    Q_EMIT designer.faults().itemActivated(designer.faults().item(0));
  }
  void replaceAll() {
    if (below(25) == 0) editor().replace(u"Sürüm"_s, ReportFile::load(QStringLiteral(KVTK_TEMPLATES "/13.fr3")));
  }

  std::mt19937 random{20260309};
};

TEST_F(DesignerWalk, TwoThousandStepsGoBackAndForthByteForByte) {
  ASSERT_TRUE(QFile::copy(QStringLiteral(KVTK_TEMPLATES "/0.fr3"), file));
  openFile();
  canvas().fitPage();
  std::map<int, QByteArray> states{{0, bytes()}};
  for (int done = 0; editor().steps().count() < 2000; ++done) {
    ASSERT_LT(done, 20000) << "too few actions do anything";
    doSomething();
    // A step that joined changed the state that is reached after it.
    states.erase(editor().steps().index());
    if (done % 7 == 0) states[editor().steps().index()] = bytes();
    if (done % 25 == 0) expectAllIsShown();
  }
  designer.actions().action(u"toolSelect"_s)->trigger();
  const int last = editor().steps().index();
  states[last] = bytes();
  EXPECT_GT(states[last].size(), 3000) << "something is left to design";
  EXPECT_TRUE(editor().isChanged());
  QAction* undo = designer.actions().action(u"undo"_s);
  while (undo->isEnabled()) {
    const auto state = states.find(editor().steps().index());
    if (state != states.end()) { ASSERT_EQ(bytes(), state->second) << "before undoing step " << state->first; }
    undo->trigger();
  }
  EXPECT_EQ(bytes(), states[0]);
  EXPECT_FALSE(editor().isChanged());
  QAction* redo = designer.actions().action(u"redo"_s);
  while (redo->isEnabled()) redo->trigger();
  EXPECT_EQ(bytes(), states[last]);
}

TEST_F(DesignerWalk, EachCommandIsOneStepThatGoesBackAndForth) {
  open(R"(<band name="B" height="60"><text name="u">U</text><text name="a" left="10" top="5">A</text><text name="b" left="31" top="9" width="9">B</text>
          <text name="c" left="50" top="20" height="8">C</text><text name="o" top="30">O</text></band></page><page name="T">)");
  QStringList changing;
  for (QAction* each : commands()) {
    canvas().setTool({});
    editor().showPage(*editor().pages().front());
    editor().select({node(u"a"_s), node(u"b"_s), node(u"c"_s)});
    if (each->objectName() == u"paste") designer.actions().action(u"copy"_s)->trigger();
    const QByteArray before = bytes();
    const int count = editor().steps().index();
    each->trigger();
    if (bytes() == before) {
      EXPECT_EQ(editor().steps().index(), count) << each->objectName().toStdString();
      continue;
    }
    changing += each->objectName();
    EXPECT_FALSE(editor().steps().undoText().isEmpty());
    expectOneStep(before, count, each->objectName());
    designer.actions().action(u"undo"_s)->trigger();
  }
  const QStringList wanted = {
      u"addPage"_s,     u"alignBottom"_s,   u"alignCenter"_s,   u"alignLeft"_s,        u"alignMiddle"_s,      u"alignRight"_s,     u"alignTop"_s,
      u"align_center"_s, u"align_justify"_s, u"align_right"_s,   u"back"_s,             u"backward"_s,         u"band_groupfooter"_s, u"band_groupheader"_s,
      u"band_pagefooter"_s, u"band_pageheader"_s, u"band_rows"_s, u"band_summary"_s,    u"band_title"_s,       u"bold"_s,           u"cut"_s,
      u"distributeAcross"_s, u"distributeDown"_s, u"duplicate"_s, u"emptyPage"_s, u"forward"_s,  u"front"_s,            u"italic"_s,         u"lock"_s,
      u"paste"_s,       u"remove"_s,        u"removePage"_s,    u"sameHeight"_s,       u"sameSize"_s,         u"sameWidth"_s,      u"underline"_s};
  EXPECT_EQ(changing.join(u' '), wanted.join(u' '));
}

}  // namespace
