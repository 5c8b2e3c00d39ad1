#include "app/editors/qcx_editors.h"
#include "app/exceptions.h"
#include "toolkit/edits/combo_edit.h"
#include "toolkit/edits/date_edit.h"
#include "toolkit/edits/image_box.h"
#include "toolkit/edits/lookup_edit.h"
#include "toolkit/edits/time_edit.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

/// A form with the box under test first and another stop behind it.
class EditorsTest : public testing::Test {
 protected:
  template <class Box>
  Box* show() {
    auto* box = new Box(&form);
    form.layout()->addWidget(box);
    form.layout()->addWidget(next = new qcxTextEdit(&form));
    form.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&form));
    box->line()->setFocus();
    return box;
  }
  void type(EditBox* box, const QString& text) {
    for (const QChar c : text) {
      QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(c));
      QApplication::sendEvent(box->line(), &press);
    }
  }
  void paste(EditBox* box, const QString& text) {
    QApplication::clipboard()->setText(text);
    QTest::keyClick(box->line(), Qt::Key_V, Qt::ControlModifier);
  }
  void leave() { next->line()->setFocus(); }

  void SetUp() override { new QVBoxLayout(&form); }

  QWidget form;
  qcxTextEdit* next = nullptr;
};

class TwoColumns : public LookupSource {
 public:
  QList<QStringList> rows;
  int rowCount() const override { return int(rows.size()); }
  int columnCount() const override { return 2; }
  QString text(int row, int column) const override { return rows[row][column]; }
  QString caption(int) const override { return u"AD"_s; }
  int width(int) const override { return 100; }
};

}  // namespace

TEST_F(EditorsTest, CapitalsAreTurkishWhetherTypedOrPasted) {
  auto* box = show<qcxTextEdit>();
  box->setCharCase(CharCase::Upper);
  type(box, u"ıiğüşöç iI"_s);
  EXPECT_EQ(box->text(), u"IİĞÜŞÖÇ İI"_s);
  box->setText({});
  paste(box, u"ışıl istanbul"_s);
  EXPECT_EQ(box->text(), u"IŞIL İSTANBUL"_s);
  box->setText({});
  box->setCharCase(CharCase::Lower);
  type(box, u"Iİ"_s);
  EXPECT_EQ(box->text(), u"ıi"_s);
}

TEST_F(EditorsTest, EnterMovesOnAndFunctionKeysPressTheButtons) {
  auto* box = show<qcxButtonEdit>();
  box->setCaption(u"  FİŞ NO"_s);
  box->addButton(ellipsisButton());
  QSignalSpy pressed(box, &EditBox::buttonClicked);
  QTest::keyClick(box->line(), Qt::Key_F4);
  QTest::keyClick(box->line(), Qt::Key_F5);
  QTest::keyClick(box->line(), Qt::Key_F8);
  ASSERT_EQ(pressed.size(), 2);
  EXPECT_EQ(pressed[0][0].toInt(), 0);
  EXPECT_EQ(pressed[1][0].toInt(), 1);
  EXPECT_EQ(box->line()->accessibleName(), u"FİŞ NO"_s);
  QTest::keyClick(box->line(), Qt::Key_Return);
  EXPECT_EQ(QApplication::focusWidget(), next->line());
  EXPECT_TRUE(box->text().isEmpty());
}

TEST_F(EditorsTest, OnlyTheGivenCharactersComeInAndBackspacePasses) {
  auto* box = show<qcxTextEdit>();
  box->setOnlyChars(u"0123456789"_s);
  type(box, u"1a2 ü3"_s);
  EXPECT_EQ(box->text(), u"123"_s);
  QTest::keyClick(box->line(), Qt::Key_Backspace);
  EXPECT_EQ(box->text(), u"12"_s);
  paste(box, u"4x"_s);
  EXPECT_EQ(box->text(), u"12"_s) << "a paste with other characters is kept out as a whole";
}

TEST_F(EditorsTest, APasteThatIsTooLongIsKeptOutAsAWhole) {
  auto* box = show<qcxTextEdit>();
  box->setMaxLength(5);
  type(box, u"abcdefg"_s);
  EXPECT_EQ(box->text(), u"abcde"_s);
  box->setText(u"ab"_s);
  box->line()->end(false);
  paste(box, QString(10000, u'x'));
  EXPECT_EQ(box->text(), u"ab"_s);
}

TEST_F(EditorsTest, CurrencyDropsDigitsAtItsLimitUnlessAllIsSelected) {
  auto* box = show<qcxCurrencyEdit>();
  box->setDataSize(3);
  box->setValue(123);
  box->line()->end(false);
  type(box, u"4"_s);
  EXPECT_EQ(box->value(), 123);
  box->line()->selectAll();
  type(box, u"4"_s);
  EXPECT_EQ(box->value(), 4);
}

TEST_F(EditorsTest, CurrencyReadsWhatPeopleTypeAndKeepsWhatItCannotRead) {
  auto* box = show<qcxCurrencyEdit>();
  struct {
    QString typed;
    double value;
    QString shown;
  } const cases[] = {{u"12.50"_s, 12.5, u"12,50"_s}, {u"12,50"_s, 12.5, u"12,50"_s}, {u"-7"_s, -7, u"-7,00"_s}, {u"1234567,5"_s, 1234567.5, u"1.234.567,50"_s}};
  for (const auto& row : cases) {
    box->line()->setFocus();
    box->line()->selectAll();
    type(box, row.typed);
    leave();
    EXPECT_EQ(box->value(), row.value) << qPrintable(row.typed);
    EXPECT_EQ(box->text(), row.shown) << qPrintable(row.typed);
  }
  box->clear();
  EXPECT_EQ(box->value(), 0);
  EXPECT_TRUE(box->editValue().isNull());
}

TEST_F(EditorsTest, DatesCanBeEmptyAndAWrongOneIsNeverLost) {
  auto* box = show<DateEdit>();
  struct {
    QString typed;
    QDate date;
  } const cases[] = {{u"5.3.2020"_s, {2020, 3, 5}}, {u"05032020"_s, {2020, 3, 5}}, {u""_s, {}}};
  for (const auto& row : cases) {
    box->line()->setFocus();
    box->line()->selectAll();
    QTest::keyClick(box->line(), Qt::Key_Delete);
    type(box, row.typed);
    leave();
    EXPECT_EQ(box->date(), row.date) << qPrintable(row.typed);
  }
  box->line()->setFocus();
  type(box, u"31.02.2020"_s);
  leave();
  EXPECT_EQ(box->text(), u"31.02.2020"_s);
  EXPECT_THROW(box->editValue(), EConvertError);
}

TEST_F(EditorsTest, AListShowsATextThatItLacksAndTellsOfTheUsersChoiceOnly) {
  auto* box = show<ComboEdit>();
  box->setItems({u"ARIZA KABUL"_s, u"ONARILIYOR"_s, u"TAMAMLANDI"_s});
  QSignalSpy chosen(box, &ComboEdit::itemChanged);
  box->setItemIndex(1);
  EXPECT_TRUE(chosen.isEmpty());
  QTest::keyClick(box->line(), Qt::Key_Down);
  ASSERT_EQ(chosen.size(), 1);
  EXPECT_EQ(chosen[0][0].toInt(), 2);
  box->setEditValue(u"ESKİ DURUM"_s);
  EXPECT_EQ(box->itemIndex(), -1);
  EXPECT_EQ(box->editValue(), Value(u"ESKİ DURUM"_s));
}

TEST_F(EditorsTest, ALookupTakesByKeyboardAndTellsWhenNothingMatches) {
  auto* box = show<LookupEdit>();
  TwoColumns source;
  for (int i = 0; i < 20000; ++i) source.rows.append({u"MÜŞTERİ %1"_s.arg(i), u"KADIKÖY"_s});
  source.rows.append({u"ŞÜKRÜ IŞIK"_s, u"İZMİR"_s});
  box->setSource(&source);
  QSignalSpy taken(box, &LookupEdit::entryTaken);
  QSignalSpy dropped(box, &LookupEdit::entryDropped);
  type(box, u"şük"_s);
  EXPECT_TRUE(box->isDropDownOpen());
  QTest::keyClick(box->line(), Qt::Key_Down);
  QTest::keyClick(box->line(), Qt::Key_Return);
  ASSERT_EQ(taken.size(), 1);
  EXPECT_EQ(taken[0][0].toInt(), 20000);
  EXPECT_EQ(box->text(), u"ŞÜKRÜ IŞIK"_s);
  box->line()->setFocus();
  box->line()->selectAll();
  type(box, u"BİLİNMEYEN"_s);
  leave();
  EXPECT_EQ(dropped.size(), 1);
  EXPECT_EQ(box->text(), u"BİLİNMEYEN"_s);
  box->setSource(nullptr);
}

TEST_F(EditorsTest, APictureKeepsItsBytesAndADamagedOneChangesNothing) {
  ImageBox box;
  const QByteArray damaged = "\xff\xd8\xff damaged";
  EXPECT_THROW(box.setImageBytes(damaged), Exception);
  EXPECT_TRUE(box.isEmpty());
  const QByteArray gif = QByteArray::fromHex("47494638396101000100800000ffffff00000021f90401000000002c00000000010001000002024401003b");
  box.setImageBytes(gif);
  EXPECT_EQ(box.imageBytes(), gif);
  EXPECT_THROW(box.setImageBytes(damaged), Exception);
  EXPECT_EQ(box.imageBytes(), gif);
  box.setImageBytes({});
  EXPECT_TRUE(box.isEmpty());
}
