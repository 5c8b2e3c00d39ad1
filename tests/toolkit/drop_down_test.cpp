// An open list, look-up or calendar and what a user does beside it. Keys and clicks go to the window, as the system sends
// them: what reaches a widget is the windows' business.
#include "tests/support/screen_test.h"
#include "tests/toolkit/listed_entries.h"
#include "toolkit/edits/combo_edit.h"
#include "toolkit/edits/date_edit.h"
#include "toolkit/edits/drop_down.h"
#include "toolkit/edits/text_edit.h"

class DropDownTest : public testing::Test {
 protected:
  DropDownTest() {
    auto* column = new QVBoxLayout(&form_);
    for (QWidget* each : std::initializer_list<QWidget*>{combo_, lookUp_, date_, other_, save_}) column->addWidget(each);
    save_->setFocusPolicy(Qt::StrongFocus);
    combo_->setItems({u"BİR"_s, u"İKİ"_s, u"ÜÇ"_s});
    lookUp_->setSource(&cities_);
    lookUp_->setCharCase(CharCase::Upper);
    for (const Qt::Key shortcut : {Qt::Key_F2, Qt::Key_Escape, Qt::Key_Left}) {
      auto* command = new QAction(&form_);
      command->setShortcut(shortcut);
      form_.addAction(command);
      commands_.append(command);
    }
    form_.show();
    form_.activateWindow();
    QApplication::processEvents();
  }
  bool isOpen() const {
    for (const auto* each : form_.findChildren<DropDown*>())
      if (each->isVisible()) return true;
    return false;
  }
  void open(EditBox* box) {
    box->setFocus();
    QTest::keyClick(form_.windowHandle(), Qt::Key_F4);
    ASSERT_TRUE(isOpen());
  }
  void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) { QTest::keyClick(form_.windowHandle(), key, modifiers); }
  void click(QWidget* widget) {
    QTest::mouseClick(form_.windowHandle(), Qt::LeftButton, {}, widget->mapTo(&form_, widget->rect().center()));
  }

  ListedEntries cities_{{u"ADANA"_s, u"BOLU"_s, u"BURSA"_s}};
  QWidget form_;
  ComboEdit* combo_ = new ComboEdit;
  LookupEdit* lookUp_ = new LookupEdit;
  DateEdit* date_ = new DateEdit;
  TextEdit* other_ = new TextEdit;
  QPushButton* save_ = new QPushButton;
  QList<QAction*> commands_;
};

TEST_F(DropDownTest, OneKeyOrClickClosesTheListAndDoesItsWork) {
  QSignalSpy command(commands_[0], &QAction::triggered);
  QSignalSpy saved(save_, &QPushButton::clicked);
  int rounds = 0;
  for (EditBox* box : {static_cast<EditBox*>(combo_), static_cast<EditBox*>(lookUp_), static_cast<EditBox*>(date_)}) {
    SCOPED_TRACE(++rounds);
    open(box);
    key(Qt::Key_Shift);
    EXPECT_TRUE(isOpen());
    key(Qt::Key_F2);
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(command.count(), rounds);

    open(box);
    click(other_->line());
    EXPECT_FALSE(isOpen());
    EXPECT_TRUE(other_->line()->hasFocus());

    open(box);
    click(save_);
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(saved.count(), rounds);

    // The arrow closes what it opened, and opens again at once.
    for (const bool opened : {true, false, true}) {
      click(box->button(0));
      EXPECT_EQ(isOpen(), opened);
    }
    form_.move(form_.pos() + QPoint(15, 10));
    EXPECT_TRUE(QTest::qWaitFor([&] { return !isOpen(); })) << "it does not stay behind";
    open(box);
    QWidget otherWindow;
    otherWindow.show();
    otherWindow.activateWindow();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !isOpen(); })) << "it does not stand over another window";
    otherWindow.hide();
    form_.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form_));
  }
}

TEST_F(DropDownTest, KeysOfTheListAreNoCommands) {
  QSignalSpy escape(commands_[1], &QAction::triggered);
  QSignalSpy left(commands_[2], &QAction::triggered);
  date_->setDate(QDate(2026, 3, 15));
  for (EditBox* box : {static_cast<EditBox*>(combo_), static_cast<EditBox*>(lookUp_), static_cast<EditBox*>(date_)}) {
    open(box);
    if (box != combo_) key(Qt::Key_Left);
    key(Qt::Key_Down);
    key(Qt::Key_Escape);
    EXPECT_FALSE(isOpen());
  }
  EXPECT_EQ(escape.count() + left.count(), 0);
  EXPECT_EQ(combo_->text() + lookUp_->text() + date_->text(), u"15.03.2026"_s) << "Escape chooses nothing";
}

TEST_F(DropDownTest, WhatKeysMovedToIsChosenHoweverTheListCloses) {
  date_->setDate(QDate(2026, 3, 15));
  QSignalSpy taken(lookUp_, &LookupEdit::entryTaken);
  for (EditBox* box : {static_cast<EditBox*>(combo_), static_cast<EditBox*>(lookUp_), static_cast<EditBox*>(date_)}) {
    open(box);
    key(Qt::Key_Down);
    click(other_->line());
  }
  EXPECT_EQ(combo_->text() + lookUp_->text() + date_->text(), u"BİRADANA22.03.2026"_s);
  EXPECT_EQ(taken.count(), 1);
  key(Qt::Key_Tab);
  open(date_);
  key(Qt::Key_End);
  key(Qt::Key_PageUp);
  key(Qt::Key_F2);
  EXPECT_EQ(date_->date(), QDate(2026, 2, 28));
}

TEST_F(DropDownTest, TheCalendarsYearIsTypedAndShownAtOnce) {
  date_->setDate(QDate(2026, 3, 15));
  open(date_);
  auto* year = date_->findChild<QSpinBox*>(u"qt_calendar_yearedit"_s);
  ASSERT_NE(year, nullptr);
  QTest::mouseClick(date_->findChild<QWidget*>(u"qt_calendar_yearbutton"_s), Qt::LeftButton);
  ASSERT_TRUE(year->isVisible());
  for (const Qt::Key digit : {Qt::Key_2, Qt::Key_0, Qt::Key_2, Qt::Key_8}) key(digit);
  EXPECT_EQ(date_->text(), u"15.03.2026"_s);
  key(Qt::Key_Return);
  EXPECT_TRUE(isOpen());
  key(Qt::Key_Return);
  EXPECT_EQ(date_->date(), QDate(2028, 3, 15));
}

TEST_F(DropDownTest, ALookUpsListIsClosedOnAnEntryOrOnNone) {
  QSignalSpy taken(lookUp_, &LookupEdit::entryTaken);
  QSignalSpy dropped(lookUp_, &LookupEdit::entryDropped);
  const auto told = [&] {
    const QString both = QString::number(taken.count()) + u'/' + QString::number(dropped.count());
    taken.clear();
    dropped.clear();
    return both;
  };
  lookUp_->setText(u"SERBEST METİN"_s);
  open(lookUp_);
  key(Qt::Key_F4);
  EXPECT_EQ(told(), u"0/1"_s) << "closed on none, though nothing was typed";
  lookUp_->setText(u"BOLU"_s);
  open(lookUp_);
  key(Qt::Key_F2);
  EXPECT_EQ(told(), u"1/0"_s) << "closed on the entry that stands in the box";
  lookUp_->setText({});
  lookUp_->setFocus();
  click(other_->line());
  EXPECT_EQ(told(), u"0/1"_s) << "an empty box was left";

  // Nobody decided anything.
  lookUp_->setText(u"SERBEST METİN"_s);
  open(lookUp_);
  key(Qt::Key_Escape);
  open(lookUp_);
  lookUp_->closeUp();
  lookUp_->line()->selectAll();
  type(lookUp_->line(), u"bo"_s);
  EXPECT_TRUE(isOpen());
  key(Qt::Key_Escape);
  EXPECT_EQ(lookUp_->text(), u"SERBEST METİN"_s);
  lookUp_->line()->selectAll();
  type(lookUp_->line(), u"xyz"_s);
  EXPECT_FALSE(isOpen());
  key(Qt::Key_Escape);
  EXPECT_EQ(lookUp_->text(), u"SERBEST METİN"_s);
  click(other_->line());
  EXPECT_EQ(told(), u"0/0"_s);

  // What was typed counts, with the list open as well.
  lookUp_->setFocus();
  lookUp_->line()->selectAll();
  type(lookUp_->line(), u"bu"_s);
  EXPECT_TRUE(isOpen());
  click(save_);
  EXPECT_EQ(lookUp_->text(), u"BU"_s);
  EXPECT_EQ(told(), u"0/1"_s);
  lookUp_->setFocus();
  lookUp_->line()->selectAll();
  type(lookUp_->line(), u"bursa"_s);
  click(save_);
  EXPECT_EQ(told(), u"1/0"_s);
}
