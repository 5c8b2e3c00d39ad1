#include "tests/support/screen_test.h"
#include "tests/toolkit/listed_entries.h"
#include "toolkit/edits/drop_down.h"
#include "toolkit/edits/lookup_model.h"
#include "toolkit/edits/text_edit.h"

class LookupTest : public testing::Test {
 protected:
  LookupTest() {
    auto* column = new QVBoxLayout(&form_);
    column->addWidget(edit_);
    column->addWidget(other_);
    edit_->setSource(&names_);
    form_.show();
    form_.activateWindow();
    edit_->setFocus();
    QApplication::processEvents();
  }
  void key(Qt::Key key) { QTest::keyClick(edit_->line(), key); }

  ListedEntries names_{{u"ALİ VELİ"_s, u"IRMAK"_s, u"ALİ"_s, u"VELİ ALİOĞLU"_s, u"İSMAİL"_s, u"ALİ"_s}};
  QWidget form_;
  LookupEdit* edit_ = new LookupEdit;
  TextEdit* other_ = new TextEdit;
  QSignalSpy taken_{edit_, &LookupEdit::entryTaken};
  QSignalSpy dropped_{edit_, &LookupEdit::entryDropped};
};

TEST_F(LookupTest, BeginningsStandBeforeWhatHoldsTheText) {
  LookupModel model;
  QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
  model.setSource(&names_);
  const std::vector<std::pair<QString, std::vector<int>>> cases = {
      {u""_s, {0, 1, 2, 3, 4, 5}}, {u"ali"_s, {0, 2, 5, 3}}, {u"i"_s, {4, 0, 2, 3, 5}}, {u"ı"_s, {1}}, {u"x"_s, {}}};
  for (const auto& [filter, rows] : cases) {
    model.setFilter(filter);
    std::vector<int> found;
    for (int row = 0; row < model.rowCount(); ++row) found.push_back(model.sourceRow(row));
    EXPECT_EQ(found, rows) << qPrintable(filter);
  }
  // A longer text leaves the same rows as if it had been typed at once; a source that has changed is read anew.
  for (const QString& typed : {u"i"_s, u"li"_s, u"l"_s, u"li"_s}) model.setFilter(typed);
  EXPECT_EQ(model.rowCount(), 4);
  EXPECT_EQ(model.equalRow(), -1);
  model.setFilter(u"veli"_s);
  EXPECT_EQ(model.sourceRow(0), 3);
  EXPECT_EQ(model.sourceRow(1), 0);
  for (const QString& typed : {u"a"_s, u"al"_s, u"ali"_s}) model.setFilter(typed);
  EXPECT_EQ(model.equalRow(), 2);
  names_.names[4] = u"ALİ"_s;
  model.setSource(&names_);
  model.setFilter(u"ali v"_s);
  EXPECT_EQ(model.rowCount(), 1);
  model.setFilter(u"ali"_s);
  EXPECT_EQ(model.rowCount(), 5);
}

TEST_F(LookupTest, TheSizeThatADropDownIsDrawnToStaysForAllBoxesOfItsName) {
  const auto openSize = [](LookupEdit* edit) {
    QApplication::processEvents();
    QTest::keyClick(edit->line(), Qt::Key_F4);
    return edit->findChild<DropDown*>()->size();
  };
  edit_->setObjectName(u"TS_MUSTERI"_s);
  const QSize usual = openSize(edit_);
  auto* popup = edit_->findChild<DropDown*>();
  QWidget* grip = popup->childAt(popup->width() - 5, popup->height() - 5);
  QTest::mousePress(grip, Qt::LeftButton, {}, {5, 5});
  QMouseEvent move(QEvent::MouseMove, {5, 5}, grip->mapToGlobal(QPointF(85, 45)), Qt::NoButton, Qt::LeftButton, {});
  QApplication::sendEvent(grip, &move);
  EXPECT_EQ(popup->size(), usual + QSize(80, 40));
  key(Qt::Key_Escape);
  EXPECT_EQ(openSize(edit_), usual + QSize(80, 40));
  key(Qt::Key_Escape);

  for (const bool isSameName : {true, false}) {
    auto* next = new LookupEdit;
    next->setObjectName(isSameName ? u"TS_MUSTERI"_s : u"TS_C_AD"_s);
    form_.layout()->addWidget(next);
    next->setSource(&names_);
    next->setFocus();
    EXPECT_EQ(openSize(next), isSameName ? usual + QSize(80, 40) : usual);
    next->closeUp();
    delete next;
  }
}

TEST_F(LookupTest, AHighlightedEntryIsTakenByEnterAndTab) {
  type(edit_->line(), u"veli"_s);
  ASSERT_TRUE(edit_->isDropDownOpen());
  key(Qt::Key_Down);
  key(Qt::Key_Return);
  EXPECT_EQ(edit_->text(), u"VELİ ALİOĞLU"_s);
  ASSERT_EQ(taken_.count(), 1);
  EXPECT_EQ(taken_[0][0].toInt(), 3);
  EXPECT_TRUE(edit_->line()->hasFocus());

  edit_->line()->selectAll();
  type(edit_->line(), u"ali"_s);  // equal to an entry: marked by itself
  key(Qt::Key_Down);              // the other one of that name
  key(Qt::Key_Tab);
  EXPECT_TRUE(other_->line()->hasFocus());
  ASSERT_EQ(taken_.count(), 2) << "told once, not again on leaving";
  EXPECT_EQ(taken_[1][0].toInt(), 5);
  EXPECT_EQ(dropped_.count(), 0);
}

TEST_F(LookupTest, ANewTextStandsThoughItBeginsAKnownOne) {
  type(edit_->line(), u"VELİ"_s);
  ASSERT_TRUE(edit_->isDropDownOpen());
  key(Qt::Key_Return);
  EXPECT_EQ(edit_->text(), u"VELİ"_s);
  EXPECT_FALSE(edit_->isDropDownOpen());
  EXPECT_TRUE(other_->line()->hasFocus());
  EXPECT_EQ(taken_.count(), 0);
  EXPECT_EQ(dropped_.count(), 1);
}

TEST_F(LookupTest, LeavingTellsOnlyOfWhatTheUserChanged) {
  edit_->setText(u"kayıtlı metin"_s);
  edit_->line()->end(false);
  type(edit_->line(), u"x"_s);
  key(Qt::Key_Backspace);
  other_->setFocus();
  EXPECT_EQ(taken_.count() + dropped_.count(), 0) << "typed and taken back";

  edit_->setFocus();
  edit_->line()->selectAll();
  type(edit_->line(), u"ismail"_s);
  edit_->closeUp();
  other_->setFocus();
  EXPECT_EQ(edit_->text(), u"ismail"_s) << "as the user wrote it";
  ASSERT_EQ(taken_.count(), 1);
  EXPECT_EQ(taken_[0][0].toInt(), 4);

  edit_->setFocus();
  edit_->line()->selectAll();
  key(Qt::Key_Delete);
  EXPECT_EQ(dropped_.count(), 1) << "at once when emptied";
}

TEST_F(LookupTest, AClickTakesAndAnEmptySourceOpensNothing) {
  key(Qt::Key_F4);
  ASSERT_TRUE(edit_->isDropDownOpen());
  auto* table = edit_->findChild<QTableView*>();
  ASSERT_TRUE(table);
  EXPECT_EQ(table->model()->headerData(1, Qt::Horizontal, Qt::DisplayRole).toString(), u"TELEFON"_s);
  const QRect cell = table->visualRect(table->model()->index(1, 1));
  QTest::mouseClick(table->viewport(), Qt::LeftButton, Qt::NoModifier, cell.center());
  EXPECT_EQ(edit_->text(), u"IRMAK"_s);
  ASSERT_EQ(taken_.count(), 1);
  names_.names.clear();
  edit_->sourceChanged();
  key(Qt::Key_F4);
  EXPECT_FALSE(edit_->isDropDownOpen());
}
