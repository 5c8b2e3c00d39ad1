#include "base/data/value.h"
#include "base/exceptions.h"
#include "tests/support/fixed_environment.h"
#include "tests/support/screen_test.h"
#include "toolkit/edits/balloon.h"
#include "toolkit/edits/combo_edit.h"
#include "toolkit/edits/date_edit.h"
#include "toolkit/edits/date_time_edit.h"
#include "toolkit/edits/mask_edit.h"
#include "toolkit/edits/memo_edit.h"
#include "toolkit/edits/spin_edit.h"
#include "toolkit/edits/task_dialog.h"
#include "toolkit/edits/text_edit.h"
#include "toolkit/edits/time_edit.h"
#include "toolkit/edits/time_mask_edit.h"

class EditsTest : public testing::Test {
 protected:
  template <class Edit>
  Edit* shown() {
    auto* edit = new Edit;
    column_->addWidget(edit);
    if (!other_) column_->addWidget(other_ = new TextEdit);
    form_.show();
    form_.activateWindow();
    edit->setFocus();
    QApplication::processEvents();
    return edit;
  }
  void leave() { other_->setFocus(); }
  void TearDown() override { refusalBalloon().hide(); }

  QWidget form_;
  QVBoxLayout* column_ = new QVBoxLayout(&form_);
  TextEdit* other_ = nullptr;
};

TEST_F(EditsTest, NothingPastedIsCutInSilence) {
  auto* edit = shown<TextEdit>();
  edit->setMaxLength(10);
  edit->setText(u"stored text that is longer than ten"_s);
  EXPECT_EQ(edit->text().size(), 35);
  edit->line()->selectAll();
  struct Case {
    QString pasted;
    QString result;
    QString told;  ///< a part of the balloon's text
  };
  const std::vector<Case> cases = {{QString(10000, u'x'), u"abxxxxxxxx"_s, u"sonundaki 9992 karakter"_s},
                                   {u"0123456789"_s, u"ab01234567"_s, u"sonundaki 2 karakter"_s},
                                   {u"01234567"_s, u"ab01234567"_s, {}},
                                   {u"bir\r\niki\n"_s, u"abbir iki"_s, {}},
                                   {u"a\0b"_s, u"ab"_s, u"kullanılamayan"_s},
                                   {u"\U0001F600"_s, u"ab\U0001F600"_s, {}},
                                   {u"0123456\U0001F600"_s, u"ab0123456"_s, u"sonundaki 2 karakter"_s}};
  for (const Case& one : cases) {
    edit->setText(u"ab"_s);
    edit->line()->end(false);
    if (one.told.isEmpty()) refusalBalloon().hide();
    edit->line()->pasteText(one.pasted);
    EXPECT_EQ(edit->text(), one.result) << qPrintable(one.pasted.left(20));
    EXPECT_EQ(refusalBalloon().isUp(), !one.told.isEmpty()) << qPrintable(one.pasted.left(20));
    EXPECT_TRUE(refusalBalloon().text().contains(one.told)) << qPrintable(refusalBalloon().text());
  }
  // A stored text longer than the limit stays, and so does what was selected to be typed over when nothing fits.
  edit->setText(u"0123456789abcdef"_s);
  edit->line()->setSelection(1, 2);
  edit->line()->pasteText(u"x"_s);
  EXPECT_EQ(edit->text(), u"0123456789abcdef"_s);
  edit->setText(u"0123456789"_s);
  edit->line()->setSelection(2, 3);
  paste(edit->line(), u"abc"_s);
  EXPECT_EQ(edit->text(), u"01abc56789"_s);
  type(edit->line(), u"x"_s);
  EXPECT_EQ(edit->text(), u"01abc56789"_s);
  edit->setReadOnly(true);
  paste(edit->line(), u"y"_s);
  EXPECT_EQ(edit->text(), u"01abc56789"_s);
}

TEST_F(EditsTest, ABoxThatWasLeftShowsItsTextFromTheBeginning) {
  auto* edit = shown<TextEdit>();
  type(edit->line(), u"UZUN BİR AÇIKLAMA"_s);
  leave();
  EXPECT_EQ(edit->line()->cursorPosition(), 0);
}

TEST_F(EditsTest, DatesAreTypedInEveryUsualForm) {
  auto* edit = shown<DateEdit>();
  const std::vector<std::pair<QString, QString>> good = {
      {u"05032020"_s, u"05.03.2020"_s}, {u"5.3.2020"_s, u"05.03.2020"_s}, {u"29/02/2024"_s, u"29.02.2024"_s}, {u"050320"_s, u"05.03.2020"_s}};
  for (const auto& [typed, shown] : good) {
    edit->setFocus();
    edit->clear();
    type(edit->line(), typed);
    leave();
    EXPECT_EQ(edit->text(), shown);
    EXPECT_FALSE(edit->hasError());
  }
  for (const QString& typed : {u"31.02.2020"_s, u"29022023"_s, u"1"_s, u"00.00.0000"_s, u"01.01.0000"_s}) {
    edit->setFocus();
    edit->clear();
    type(edit->line(), typed);
    leave();
    EXPECT_EQ(edit->text(), typed) << "what was typed stays";
    EXPECT_TRUE(edit->hasError());
    EXPECT_THROW(edit->editValue(), EConvertError);
  }
  edit->setEditValue(Value(ZeroDate()));
  refusalBalloon().hide();
  type(edit->line(), u"y"_s);
  EXPECT_EQ(refusalBalloon().text(), u"Bu alana \"y\" yazılamaz."_s);
  paste(edit->line(), u"5 Mart"_s);
  EXPECT_EQ(refusalBalloon().text(), u"Bu alana \"5 Mart\" yazılamaz."_s);
  paste(edit->line(), QString(10000, u'1'));
  EXPECT_LT(refusalBalloon().text().size(), 100);
  EXPECT_TRUE(edit->editValue().isNull());
  EXPECT_FALSE(edit->hasError());
}

TEST_F(EditsTest, ArrowsChangeThePartAtTheCursor) {
  ScopedEnvironment still(std::make_unique<FixedEnvironment>());
  auto* date = shown<DateEdit>();
  auto* time = shown<TimeEdit>();
  auto* moment = shown<DateTimeEdit>();
  auto* number = shown<SpinEdit>();
  const struct {
    EditBox* box;
    QString text;
    int cursor;  ///< -1: all is selected
    Qt::Key key;
    QString becomes, selected;
  } cases[] = {{date, {}, 0, Qt::Key_Up, u"05.03.2020"_s, u"05"_s},
               {date, u"31.12.2019"_s, 0, Qt::Key_Up, u"01.01.2020"_s, u"01"_s},
               {date, u"31.03.2020"_s, 4, Qt::Key_Down, u"29.02.2020"_s, u"02"_s},
               {date, u"29.02.2020"_s, 10, Qt::Key_Up, u"28.02.2021"_s, u"2021"_s},
               {date, u"29.02.2020"_s, -1, Qt::Key_Down, u"28.02.2020"_s, u"28"_s},
               {date, u"5.3.2020"_s, 3, Qt::Key_Up, u"05.04.2020"_s, u"04"_s},
               {date, u"31.12.9999"_s, 0, Qt::Key_Up, u"31.12.9999"_s, {}},
               {date, u"01.01.0001"_s, 9, Qt::Key_Down, u"01.01.0001"_s, {}},
               {date, u"31.02.2020"_s, 0, Qt::Key_Up, u"31.02.2020"_s, {}},
               {time, {}, 0, Qt::Key_Down, u"08:07"_s, u"08"_s},
               {time, u"23:59"_s, 5, Qt::Key_Up, u"00:00"_s, u"00"_s},
               {time, u"00:10:59"_s, 0, Qt::Key_Down, u"23:10:59"_s, u"23"_s},
               {moment, u"05.03.2020 08:07:06"_s, 19, Qt::Key_Down, u"05.03.2020 08:07:05"_s, u"05"_s},
               {moment, u"05.03.2020   08:07:06"_s, 21, Qt::Key_Up, u"05.03.2020 08:07:07"_s, u"07"_s},
               {moment, u"05.03.2020 08:07:06"_s, 8, Qt::Key_Up, u"05.03.2021 08:07:06"_s, u"2021"_s},
               {number, u"7"_s, 0, Qt::Key_Up, u"8"_s, u"8"_s}};
  for (const auto& one : cases) {
    SCOPED_TRACE(one.text.toStdString() + " at " + std::to_string(one.cursor));
    one.box->setFocus();
    one.box->setText(one.text);
    one.box->line()->setCursorPosition(one.cursor);
    if (one.cursor < 0) one.box->line()->selectAll();
    QTest::keyClick(one.box->line(), one.key);
    EXPECT_EQ(one.box->text(), one.becomes);
    EXPECT_EQ(one.box->line()->selectedText(), one.selected);
  }
  date->setReadOnly(true);
  QTest::keyClick(date->line(), Qt::Key_Up);
  EXPECT_EQ(date->text(), u"31.02.2020"_s);
}

TEST_F(EditsTest, TheCalendarTakesAndEmpties) {
  ScopedEnvironment still(std::make_unique<FixedEnvironment>());
  auto* edit = shown<DateEdit>();
  QSignalSpy taken(edit, &DateEdit::dateTaken);
  QSignalSpy left(edit, &EditBox::left);
  QTest::keyClick(edit->line(), Qt::Key_F4);
  ASSERT_TRUE(edit->isDropDownOpen());
  QTest::keyClick(edit->line(), Qt::Key_Right);
  QTest::keyClick(edit->line(), Qt::Key_Return);
  EXPECT_FALSE(edit->isDropDownOpen());
  EXPECT_EQ(edit->date(), QDate(2020, 3, 6));
  EXPECT_EQ(taken.count(), 1);
  EXPECT_EQ(left.count(), 0) << "its own calendar is no leaving";
}

TEST_F(EditsTest, TimesAndMoments) {
  auto* time = shown<TimeEdit>();
  type(time->line(), u"0830"_s);
  leave();
  EXPECT_EQ(time->text(), u"08:30"_s);
  time->setEditValue(Value(QTime(8, 30, 15)));
  EXPECT_EQ(time->editValue(), Value(QTime(8, 30, 15))) << "stored seconds are not lost";
  time->setText(u"25:00"_s);
  EXPECT_THROW(time->time(), EConvertError);

  TimeMaskEdit masked;
  masked.setEditValue(Value(u"-01:00:00"_s));
  EXPECT_TRUE(masked.isEmpty()) << "no list fails to open by a time that no clock shows";

  DateTimeEdit moment;
  moment.setEditValue(Value(u"1.2.2020 03:04:05"_s));
  EXPECT_EQ(moment.dateTime(), QDateTime(QDate(2020, 2, 1), QTime(3, 4, 5)));
  EXPECT_THROW(moment.setEditValue(Value(u"yarın"_s)), EConvertError);
  EXPECT_EQ(moment.text(), u"01.02.2020 03:04:05"_s);
  moment.setEditValue(Value());
  EXPECT_FALSE(moment.dateTime().isValid());
}

TEST_F(EditsTest, ComboChoosesByKeys) {
  auto* combo = shown<ComboEdit>();
  combo->setItems({u"ARIZA KABUL"_s, u"İADE EDİLDİ"_s, u"ISITICI"_s, u"İŞLEM YAPILMADI"_s});
  QSignalSpy changed(combo, &ComboEdit::itemChanged);
  QTest::keyClick(combo->line(), Qt::Key_Down);
  EXPECT_EQ(combo->itemIndex(), 0);
  type(combo->line(), u"i"_s);
  EXPECT_EQ(combo->text(), u"İADE EDİLDİ"_s);
  type(combo->line(), u"i"_s);
  EXPECT_EQ(combo->text(), u"İŞLEM YAPILMADI"_s) << "the dotless letter is another one";
  QTest::keyClick(combo->line(), Qt::Key_F4);
  ASSERT_TRUE(combo->isDropDownOpen());
  QTest::qWait(20);
  QTest::keyClick(combo->line(), Qt::Key_Home);
  EXPECT_EQ(combo->itemIndex(), 3) << "not chosen yet";
  QTest::keyClick(combo->line(), Qt::Key_Escape);
  EXPECT_EQ(combo->itemIndex(), 3);
  EXPECT_EQ(changed.count(), 3);
  combo->dropDown();
  QTest::keyClick(combo->line(), Qt::Key_Up);
  QTest::keyClick(combo->line(), Qt::Key_Return);
  EXPECT_EQ(combo->text(), u"ISITICI"_s);
  EXPECT_TRUE(QTest::qWaitFor([&] { return combo->line()->hasFocus(); }));
  QTest::keyClick(combo->line(), Qt::Key_Return);
  EXPECT_FALSE(combo->line()->hasFocus());
  combo->setFocus();
  QTest::keyClick(combo->line(), Qt::Key_Delete);
  EXPECT_EQ(combo->text(), u"ISITICI"_s) << "one of the list's words, always";
  combo->setCanBeEmpty(true);
  QTest::keyClick(combo->line(), Qt::Key_Delete);
  EXPECT_EQ(combo->itemIndex(), -1);
  EXPECT_TRUE(combo->editValue().isNull());
  EXPECT_EQ(changed.last()[0].toInt(), -1);
  combo->setItems({u"VAR"_s, QString()});
  combo->setItemIndex(0);
  QTest::keyClick(combo->line(), Qt::Key_Delete);
  EXPECT_EQ(combo->itemIndex(), 1);
}

TEST_F(EditsTest, ComboKeepsWhatItsListDoesNotHave) {
  ComboEdit combo;
  combo.setItems({u"A"_s, u"B"_s, u"C"_s});
  QSignalSpy changed(&combo, &ComboEdit::itemChanged);
  combo.setEditValue(Value(u"eski durum"_s));
  EXPECT_EQ(combo.itemIndex(), -1);
  EXPECT_EQ(combo.editValue(), Value(u"eski durum"_s));
  combo.setItemIndex(1);
  combo.removeItem(0);
  EXPECT_EQ(combo.itemIndex(), 0);
  combo.removeItem(0);
  EXPECT_EQ(combo.itemIndex(), -1);
  EXPECT_EQ(combo.text(), u"B"_s);
  combo.clearItems();
  combo.addItem(u"Nakit"_s, 10);
  combo.addItem(u"Kart"_s, 20);
  combo.setTag(1);
  combo.setEditValue(Value(20));
  EXPECT_EQ(combo.text(), u"Kart"_s);
  EXPECT_EQ(combo.editValue(), Value(20));
  EXPECT_EQ(changed.count(), 0) << "only the user's choice is told";
}

TEST_F(EditsTest, TheWheelTurnsOnlyTheFocusedBox) {
  auto* spin = shown<SpinEdit>();
  const auto turn = [&] {
    QWheelEvent wheel({5, 5}, spin->line()->mapToGlobal(QPointF(5, 5)), {}, {0, 120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(spin->line(), &wheel);
  };
  turn();
  EXPECT_EQ(spin->value(), 1);
  leave();
  turn();
  EXPECT_EQ(spin->value(), 1);
  spin->setRange(-2, 2);
  spin->setText(u"3"_s);
  EXPECT_THROW(spin->value(), EConvertError);
  QTest::keyClick(spin->line(), Qt::Key_Up);
  EXPECT_EQ(spin->text(), u"3"_s);
}

TEST_F(EditsTest, MaskIsEmptyUntilAPlaceIsFilled) {
  auto* mask = shown<MaskEdit>();
  mask->setMask(u"9999 999;_"_s);
  EXPECT_TRUE(mask->editValue().isNull());
  mask->line()->setCursorPosition(0);
  type(mask->line(), u"0532x1"_s);
  leave();
  EXPECT_FALSE(mask->editValue().isNull());
  EXPECT_TRUE(mask->hasError()) << "places are left";
  mask->setText(u"0532 123"_s);
  EXPECT_EQ(mask->editValue(), Value(u"0532 123"_s));
}

TEST_F(EditsTest, MemoKeepsForeignLineEndsAndCutsALongPaste) {
  auto* memo = shown<MemoEdit>();
  const QString stored = u"bir\r\niki\u00A0üç"_s;
  memo->setText(stored);
  EXPECT_EQ(memo->text(), stored);
  memo->setCharCase(CharCase::Upper);
  type(memo->editor(), u"i"_s);
  EXPECT_EQ(memo->text(), u"İ"_s + stored);
  memo->resetEdit(5);
  EXPECT_TRUE(memo->editValue().isNull());
  paste(memo->editor(), u"12\r\n3456"_s);
  EXPECT_EQ(memo->text(), u"12\n34"_s);
  EXPECT_TRUE(refusalBalloon().text().contains(u"sonundaki 2 karakter"_s));
  memo->setText({});
  paste(memo->editor(), u"12\r\n4"_s);
  EXPECT_EQ(memo->text(), u"12\n4"_s);
  type(memo->editor(), u"56"_s);
  EXPECT_EQ(memo->text(), u"12\n45"_s);
  QTest::keyClick(memo->editor(), Qt::Key_Return);
  EXPECT_EQ(memo->text(), u"12\n45"_s);
  EXPECT_EQ(refusalBalloon().text(), u"Bu alana en çok 5 karakter sığar."_s);
  QTest::keyClick(memo->editor(), Qt::Key_Tab);
  EXPECT_TRUE(other_->line()->hasFocus());
}

TEST_F(EditsTest, TheSecondBalloonIsDroppedAndNoneTakesTheFocus) {
  auto* edit = shown<TextEdit>();
  Balloon balloon;
  EXPECT_TRUE(balloon.showAt(edit, u"ilk"_s, 150));
  EXPECT_FALSE(balloon.showAt(edit, u"ikinci"_s));
  EXPECT_EQ(balloon.text(), u"ilk"_s);
  EXPECT_TRUE(edit->line()->hasFocus());
  EXPECT_EQ(Balloon::anchorOf(edit).x() - edit->mapToGlobal(QPoint()).x(), 95);
  EXPECT_EQ(Balloon::anchorOf(&form_), form_.mapToGlobal(form_.rect().center()));
  EXPECT_TRUE(QTest::qWaitFor([&] { return !balloon.isUp(); }, 5000));
  EXPECT_TRUE(balloon.showAt(edit, u"ikinci"_s));
  balloon.hide();

  auto* area = new QScrollArea;
  auto* page = new QWidget;
  auto* far = new TextEdit(page);
  page->setFixedSize(300, 2000);
  far->setGeometry(0, 1900, 200, 24);
  area->setWidget(page);
  column_->addWidget(area);
  QApplication::processEvents();
  EXPECT_TRUE(far->visibleRegion().isEmpty());
  balloon.showAt(far, u"üçüncü"_s);
  EXPECT_EQ(far->visibleRegion().boundingRect(), far->rect()) << "a box is in sight when a balloon points at it";
}

TEST_F(EditsTest, ADialogAnswersByButtonEscapeAndTime) {
  auto* edit = shown<TextEdit>();
  const TaskDialogRequest request{u"Program"_s, u"Dikkat!"_s, u"Silinsin mi?"_s, TaskIcon::Question, {{6, u"Tamam"_s}, {7, u"Vazgeç"_s}}, 7};
  const auto answerTo = [&](TaskDialogRequest asked, Qt::Key key, const QString& button) {
    if (key != Qt::Key_unknown)
      QTimer::singleShot(0, &form_, [=] {
        QWidget* dialog = QApplication::activeModalWidget();
        for (auto* one : dialog->findChildren<QPushButton*>())
          if (one->text() == button) return one->click();
        QTest::keyClick(dialog, key);
      });
    return runTaskDialog(&form_, asked);
  };
  EXPECT_EQ(answerTo(request, Qt::Key_A, u"Tamam"_s), 6);
  EXPECT_EQ(answerTo(request, Qt::Key_Return, {}), 7) << "the default button";
  EXPECT_EQ(answerTo(request, Qt::Key_Escape, {}), 2);
  TaskDialogRequest timed = request;
  timed.closeAfterMs = 50;
  EXPECT_EQ(answerTo(timed, Qt::Key_unknown, {}), 2);
  EXPECT_TRUE(QTest::qWaitFor([&] { return edit->line()->hasFocus(); }));
}
