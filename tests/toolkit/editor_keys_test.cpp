#include "app/editors/qcx_db_editors.h"
#include "base/data/value.h"
#include "base/exceptions.h"
#include "tests/support/screen_test.h"
#include "toolkit/edits/balloon.h"
#include "toolkit/edits/memo_edit.h"

/// A dialog with a default button, as the program's forms are, with an editor and a box after it.
class EditorsTest : public testing::Test {
 protected:
  template <class Editor>
  Editor* shown() {
    auto* editor = new Editor;
    column_->addWidget(editor);
    next_ = new TextEdit;
    column_->addWidget(next_);
    confirm_ = new QPushButton;
    confirm_->setDefault(true);
    column_->addWidget(confirm_);
    form_.show();
    form_.activateWindow();
    editor->setFocus();
    QApplication::processEvents();
    return editor;
  }
  void TearDown() override { refusalBalloon().hide(); }

  QDialog form_;
  QVBoxLayout* column_ = new QVBoxLayout(&form_);
  TextEdit* next_ = nullptr;
  QPushButton* confirm_ = nullptr;
};

TEST_F(EditorsTest, EnterMovesOnAndDoesNotReachTheForm) {
  auto* edit = shown<qcxTextEdit>();
  QSignalSpy confirmed(confirm_, &QPushButton::clicked);
  QSignalSpy left(edit, &EditBox::left);
  for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
    edit->setFocus();
    QTest::keyClick(edit->line(), key);
    EXPECT_TRUE(next_->line()->hasFocus()) << key;
  }
  EXPECT_EQ(left.count(), 2);
  EXPECT_EQ(confirmed.count(), 0);
  EXPECT_TRUE(form_.isVisible());
}

TEST_F(EditorsTest, FunctionKeysPressButtonsByIndex) {
  auto* edit = shown<qcxButtonEdit>();
  edit->setCaption(u"  MÜŞTERİ ADI"_s);
  edit->addButton(ellipsisButton(u"Ara"_s));
  QSignalSpy clicked(edit, &EditBox::buttonClicked);
  QTest::keyClick(edit->line(), Qt::Key_F4);
  QTest::keyClick(edit->line(), Qt::Key_F5);
  QTest::keyClick(edit->line(), Qt::Key_F8);  // there is no button 4
  QTest::keyClick(edit->line(), Qt::Key_F3);
  QTest::keyClick(edit->line(), Qt::Key_F4, Qt::AltModifier);
  ASSERT_EQ(clicked.count(), 2);
  EXPECT_EQ(clicked[0][0].toInt(), 0);
  EXPECT_EQ(clicked[1][0].toInt(), 1);
  edit->removeButton(0);
  QTest::keyClick(edit->line(), Qt::Key_F4);
  ASSERT_EQ(clicked.count(), 3);
  EXPECT_EQ(clicked[2][0].toInt(), 0);
  EXPECT_EQ(edit->accessibleName(), u"MÜŞTERİ ADI"_s);
  EXPECT_EQ(edit->line()->accessibleName(), u"MÜŞTERİ ADI"_s);

  auto* text = new qcxTextEdit(&form_);
  text->addButton(ellipsisButton());
  QSignalSpy unpressed(text, &EditBox::buttonClicked);
  QTest::keyClick(text->line(), Qt::Key_F4);
  EXPECT_EQ(unpressed.count(), 0);
}

TEST_F(EditorsTest, ALetterAndItsMarksComeInAsOneCharacter) {
  auto* edit = shown<qcxTextEdit>();
  edit->setCharCase(CharCase::Upper);
  edit->setMaxLength(12);
  auto* memo = new MemoEdit(&form_);
  const QString decomposed = u"s\u0327ı i\u0307g\u0306 u\u0308"_s;
  const QString whole = u"ŞI İĞ Ü"_s;
  type(edit->line(), decomposed);
  EXPECT_EQ(edit->text(), whole);
  edit->setText({});
  paste(edit->line(), decomposed);
  EXPECT_EQ(edit->text(), whole);
  type(memo->editor(), decomposed);
  EXPECT_EQ(memo->text(), u"şı iğ ü"_s);
  for (QWidget* each : {static_cast<QWidget*>(edit->line()), memo->editor()}) {
    QInputMethodEvent commit;
    commit.setCommitString(u"C\u0327"_s);
    QApplication::sendEvent(each, &commit);
  }
  EXPECT_EQ(edit->text() + memo->text(), whole + u"Çşı iğ üÇ"_s);
  type(edit->line(), u"1o23\u0308"_s);
  EXPECT_EQ(edit->text(), whole + u"Ç1O23"_s) << "a mark that finds no letter of its own has no room either";
  edit->line()->setCursorPosition(int(whole.size()) + 3);
  type(edit->line(), u"\u0308"_s);
  EXPECT_EQ(edit->text(), whole + u"Ç1Ö23"_s) << "a full box still takes a letter's mark";
}

TEST_F(EditorsTest, LettersAreTurkishInTheCaseAskedFor) {
  auto* edit = shown<qcxTextEdit>();
  edit->setCharCase(CharCase::Upper);
  type(edit->line(), u"ığdır ilçesi şöfö"_s);
  EXPECT_EQ(edit->text(), u"IĞDIR İLÇESİ ŞÖFÖ"_s);
  edit->setText({});
  paste(edit->line(), u"iı 10 µƒ é"_s);
  EXPECT_EQ(edit->text(), u"İI 10 µƒ É"_s) << "no capital that the database lacks";
  edit->setText({});
  edit->setCharCase(CharCase::Lower);
  type(edit->line(), u"IİÇ"_s);
  EXPECT_EQ(edit->text(), u"ıiç"_s);
}

TEST_F(EditorsTest, OnlyCharsAreAskedBeforeTheCaseIsChanged) {
  auto* edit = shown<qcxTextEdit>();
  edit->setOnlyChars(u"0123456789"_s);
  type(edit->line(), u"0a5-3"_s);
  EXPECT_EQ(edit->text(), u"053"_s);
  QTest::keyClick(edit->line(), Qt::Key_Backspace);
  EXPECT_EQ(edit->text(), u"05"_s);
  paste(edit->line(), u"1.250,50"_s);  // its digits alone would be another number
  EXPECT_EQ(edit->text(), u"05"_s);
  EXPECT_THAT(refusalBalloon().text().toStdString(), testing::HasSubstr("0123456789"));
  paste(edit->line(), u"32\r\n"_s);
  EXPECT_EQ(edit->text(), u"0532"_s);

  edit->setText({});
  edit->setOnlyChars(u"İ"_s);
  edit->setCharCase(CharCase::Upper);
  type(edit->line(), u"iİ"_s);
  EXPECT_EQ(edit->text(), u"İ"_s);
}

TEST_F(EditorsTest, CurrencyDigitsEndAtDataSize) {
  auto* edit = shown<qcxCurrencyEdit>();
  edit->setDataSize(13);
  type(edit->line(), u"12345678901,2345"_s);
  EXPECT_EQ(edit->text(), u"12345678901,23"_s);
  EXPECT_EQ(edit->digitCount(), 13);
  edit->line()->setCursorPosition(0);
  type(edit->line(), u"9"_s);
  EXPECT_EQ(edit->digitCount(), 13);
  edit->line()->setSelection(0, 4);  // a part of it does not make room
  type(edit->line(), u"9"_s);
  EXPECT_EQ(edit->text(), u"12345678901,23"_s);
  paste(edit->line(), u"99999"_s);
  EXPECT_EQ(edit->digitCount(), 13 - 4 + 4) << "an over-long paste is kept out";
  edit->line()->selectAll();
  type(edit->line(), u"7"_s);
  EXPECT_EQ(edit->value(), 7);

  edit->setOnlyChars(u"12"_s);
  edit->line()->selectAll();
  type(edit->line(), u"9"_s);
  EXPECT_TRUE(edit->isEmpty()) << "cleared before the digit was dropped";
  EXPECT_EQ(edit->value(), 0);
}

TEST_F(EditorsTest, CurrencyReadsWhatPeopleType) {
  auto* edit = shown<qcxCurrencyEdit>();
  edit->setDecimalPlaces(5);
  const std::vector<std::tuple<QString, double, QString>> cases = {
      {u"12.50"_s, 12.5, u"12,50"_s},      {u"12,50"_s, 12.5, u"12,50"_s},     {u"1.250,50"_s, 1250.5, u"1.250,50"_s},
      {u"-3,5"_s, -3.5, u"-3,50"_s},       {u"0,12345"_s, 0.12345, u"0,12"_s},
      {u"1250000"_s, 1250000, u"1.250.000,00"_s}};
  for (const auto& [typed, value, display] : cases) {
    edit->setFocus();
    edit->clear();
    type(edit->line(), typed);
    next_->setFocus();
    EXPECT_EQ(edit->value(), value) << qPrintable(typed);
    EXPECT_EQ(edit->text(), display) << qPrintable(typed);
    edit->setFocus();
    next_->setFocus();
    EXPECT_EQ(edit->value(), value) << "passing through keeps every digit of " << qPrintable(typed);
  }
  edit->clear();
  EXPECT_EQ(edit->value(), 0);
  EXPECT_TRUE(edit->editValue().isNull());
  edit->resetEdit(0);
  EXPECT_FALSE(edit->editValue().isNull());
  EXPECT_EQ(edit->text(), u"0,00"_s);
  QTest::mouseClick(edit->line(), Qt::LeftButton, {}, QPoint(edit->line()->width() - 20, 5));
  type(edit->line(), u"125"_s);
  EXPECT_EQ(edit->value(), 125) << "and not 1250";

  edit->setValue(12.5);
  edit->setFocus();
  edit->line()->selectAll();
  QTest::keyClick(edit->line(), Qt::Key_Delete);
  EXPECT_EQ(edit->editValue(), Value(0.0)) << "emptied, not left yet";
  next_->setFocus();
  EXPECT_EQ(edit->editValue(), Value(0.0));
  EXPECT_EQ(edit->text(), u"0,00"_s);
}

TEST_F(EditorsTest, NoAmountBecomesAnotherNumber) {
  auto* edit = shown<qcxCurrencyEdit>();
  const std::vector<std::tuple<QString, QString, std::optional<double>>> cases = {
      {u"1.234,56"_s, u"1.234,56"_s, 1234.56},
      {u"1,234.56"_s, u"1,234.56"_s, {}},
      {u"1,234"_s, u"1,234"_s, {}},
      {u"12.5055"_s, u"12.5055"_s, {}},
      {u"5-3"_s, u"5-3"_s, {}},
      {QString(400, u'9'), QString(400, u'9'), {}},
      {u"1,2,3"_s, u"1,2,3"_s, {}}};
  for (const auto& [entered, stays, value] : cases) {
    SCOPED_TRACE(entered.toStdString());
    edit->setFocus();
    edit->clear();
    type(edit->line(), entered);
    next_->setFocus();
    EXPECT_EQ(edit->text(), stays);
    EXPECT_EQ(edit->hasError(), !value);
    if (value)
      EXPECT_EQ(edit->value(), *value);
    else
      EXPECT_THROW(edit->value(), EConvertError);

    edit->clear();
    refusalBalloon().hide();
    paste(edit->line(), entered);
    EXPECT_EQ(refusalBalloon().isUp(), !value);
    EXPECT_EQ(edit->text(), value ? stays : QString());
  }

  // A character of no number: the amount that stood there stays, typed or pasted.
  for (const bool isPasted : {false, true}) {
    edit->setValue(12.5);
    edit->setFocus();
    edit->line()->selectAll();
    refusalBalloon().hide();
    isPasted ? paste(edit->line(), u"1e9"_s) : type(edit->line(), u"1e9"_s);
    EXPECT_EQ(refusalBalloon().text(), u"Bu alana \"1e9\" yazılamaz."_s);
    next_->setFocus();
    EXPECT_EQ(edit->value(), 12.5);
  }
  edit->setFocus();
  edit->line()->selectAll();
  type(edit->line(), u"7x"_s);
  QTest::keyClick(edit->line(), Qt::Key_Delete);
  type(edit->line(), u"8"_s);
  next_->setFocus();
  EXPECT_EQ(edit->value(), 8) << "another try";
}
