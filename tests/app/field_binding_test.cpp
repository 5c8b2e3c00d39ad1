#include "base/data/my_query.h"
#include "base/exceptions.h"
#include "app/quendUtils.h"
#include "tests/support/test_database.h"
#include "toolkit/edits/combo_edit.h"
#include "toolkit/edits/currency_edit.h"
#include "toolkit/edits/date_edit.h"
#include "toolkit/edits/image_box.h"
#include "toolkit/edits/lookup_edit.h"
#include "toolkit/edits/memo_edit.h"
#include "toolkit/edits/text_edit.h"
#include "toolkit/edits/time_edit.h"

#include <gmock/gmock.h>

#include <QBuffer>
#include <QCheckBox>
#include <QListWidget>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QTextEdit>

using namespace Qt::StringLiterals;

namespace {

QByteArray jpeg(QColor colour) {
  QImage image(8, 6, QImage::Format_RGB32);
  image.fill(colour);
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  image.save(&buffer, "JPG");
  return bytes;
}

/// A form with one control of each class, and a table with a column for each and one more that no control has.
class FieldBindingTest : public testing::Test {
 protected:
  FieldBindingTest() : query(database.connection(), u"qBag"_s) {
    database.connection().execute("DROP TABLE IF EXISTS bag");
    database.connection().execute(
        "CREATE TABLE bag (ID BIGINT AUTO_INCREMENT PRIMARY KEY, B_RESIM LONGBLOB, B_CARI VARCHAR(30), B_LISTE VARCHAR(20), B_LISTENO INT, "
        "B_ONAY SMALLINT, B_SECIM SMALLINT, B_TIP VARCHAR(20), B_TIPNO INT, B_AD VARCHAR(12), B_TUTAR DOUBLE, B_TARIH DATE, B_SAAT TIME, "
        "B_NOT LONGTEXT, B_ZENGIN LONGTEXT, B_YOK VARCHAR(10)) ENGINE=InnoDB CHARSET=latin5");
    query.SQL.setText(u"select * from bag"_s);
    query.Options.SetEmptyStrToNull = true;
    query.Open();
    named(picture, u"B_RESIM"_s);
    named(customer, u"B_CARI"_s);
    named(list, u"B_LISTE"_s);
    named(numberedList, u"B_LISTENO"_s);
    named(agreed, u"B_ONAY"_s);
    named(chosen, u"B_SECIM"_s);
    named(type, u"B_TIP"_s);
    named(numberedType, u"B_TIPNO"_s);
    named(name, u"B_AD"_s);
    named(amount, u"B_TUTAR"_s);
    named(day, u"B_TARIH"_s);
    named(hour, u"B_SAAT"_s);
    named(note, u"B_NOT"_s);
    named(rich, u"B_ZENGIN"_s);
    for (QListWidget* widget : {list, numberedList})
      for (const auto& [text, number] : entries) {
        auto* item = new QListWidgetItem(text, widget);
        item->setData(Qt::UserRole, number);
      }
    numberedList->setProperty("Tag", 1);
    for (ComboEdit* combo : {type, numberedType})
      for (const auto& [text, number] : entries) combo->addItem(text, number);
    numberedType->setTag(1);
  }
  ~FieldBindingTest() override {
    query.Close();
    database.connection().execute("DROP TABLE bag");
  }

  void named(QWidget* control, const QString& column) {
    control->setParent(&form);
    control->setObjectName(column);
    control->setAccessibleName(u"Başlık "_s + column);
  }
  void fill() {
    picture->setImageBytes(bytes);
    customer->setText(u"IŞIK TİCARET"_s);
    list->setCurrentRow(1);
    numberedList->setCurrentRow(1);
    agreed->setChecked(true);
    chosen->setChecked(false);
    type->setItemIndex(0);
    numberedType->setItemIndex(1);
    name->setText(u"Ayşe"_s);
    amount->setValue(1250.5);
    day->setText(u"5.3.2020"_s);
    hour->setText(u"08:30"_s);
    note->setText(u"bir\niki"_s);
    rich->setPlainText(u"zengin"_s);
  }
  QStringList stored() {
    QStringList texts;
    for (int i = 2; i < query.fieldCount(); ++i) texts += query.field(i).isNull() ? u"NULL"_s : query.field(i).asText();
    return texts;
  }

  const std::vector<std::pair<QString, int>> entries{{u"İLK"_s, 10}, {u"SON"_s, 20}};
  const QByteArray bytes = jpeg(Qt::red);
  TestDatabase database;
  TMyQuery query;
  QTemporaryDir folder;
  TQuendUtil utilities{folder.filePath(u"kvtk"_s)};
  QWidget form;
  ImageBox* picture = new ImageBox;
  LookupEdit* customer = new LookupEdit;
  QListWidget* list = new QListWidget;
  QListWidget* numberedList = new QListWidget;
  QCheckBox* agreed = new QCheckBox;
  QRadioButton* chosen = new QRadioButton;
  ComboEdit* type = new ComboEdit;
  ComboEdit* numberedType = new ComboEdit;
  TextEdit* name = new TextEdit;
  CurrencyEdit* amount = new CurrencyEdit;
  DateEdit* day = new DateEdit;
  TimeEdit* hour = new TimeEdit;
  MemoEdit* note = new MemoEdit;
  QTextEdit* rich = new QTextEdit;
};

TEST_F(FieldBindingTest, ControlsGoToTheRowAndComeBack) {
  fill();
  query.Insert();
  utilities.EkrandanAlanlara(form, query);
  query.Post();
  query.Refresh();
  EXPECT_EQ(stored(), (QStringList{u"IŞIK TİCARET"_s, u"SON"_s, u"20"_s, u"-1"_s, u"0"_s, u"İLK"_s, u"20"_s, u"Ayşe"_s, u"1250,5"_s,
                                   u"05.03.2020"_s, u"08:30:00"_s, u"bir\niki"_s, u"zengin"_s, u"NULL"_s}));
  EXPECT_EQ(query.FieldByName(u"B_RESIM"_s).asBytes(), bytes);

  utilities.EkranReset(form, query);
  EXPECT_TRUE(picture->isEmpty());
  EXPECT_EQ(list->currentRow() + numberedList->currentRow() + type->itemIndex() + numberedType->itemIndex(), -4);
  EXPECT_FALSE(agreed->isChecked());
  EXPECT_EQ(customer->text() + name->text() + day->text() + hour->text() + note->text() + rich->toPlainText(), QString());
  EXPECT_EQ(amount->value(), 0.0);
  EXPECT_EQ(name->maxLength(), 12);

  chosen->setChecked(true);
  utilities.AlanlardanEkrana(form, query);
  EXPECT_EQ(picture->imageBytes(), bytes);
  EXPECT_EQ(customer->text(), u"IŞIK TİCARET"_s);
  EXPECT_EQ(list->currentRow(), 1);
  EXPECT_EQ(numberedList->currentRow(), 1);
  EXPECT_TRUE(agreed->isChecked());
  EXPECT_FALSE(chosen->isChecked());
  EXPECT_EQ(type->itemIndex(), 0);
  EXPECT_EQ(numberedType->itemIndex(), 1);
  EXPECT_EQ(amount->value(), 1250.5);
  EXPECT_EQ(day->text(), u"05.03.2020"_s);
  EXPECT_EQ(note->text(), u"bir\niki"_s);
  EXPECT_EQ(rich->toPlainText(), u"zengin"_s);
}

TEST_F(FieldBindingTest, NullsEmptyTheControls) {
  database.connection().execute("INSERT INTO bag () VALUES ()");
  query.Refresh();
  fill();
  utilities.AlanlardanEkrana(form, query);
  EXPECT_TRUE(picture->isEmpty());
  EXPECT_EQ(list->currentRow() + numberedList->currentRow() + type->itemIndex() + numberedType->itemIndex(), -4);
  EXPECT_FALSE(agreed->isChecked());
  EXPECT_EQ(name->text() + day->text() + hour->text(), QString());
  query.Edit();
  utilities.EkrandanAlanlara(form, query);
  query.Post();
  query.Refresh();
  QStringList empty(14, u"NULL"_s);
  empty[3] = empty[4] = u"0"_s;
  EXPECT_EQ(stored(), empty);
}

TEST_F(FieldBindingTest, WhatDoesNotConvertIsToldByItsCaption) {
  query.Insert();
  day->setText(u"31.02.2020"_s);
  try {
    utilities.EkrandanAlanlara(form, query);
    ADD_FAILURE() << "a date that does not exist was taken";
  } catch (const EConvertError& error) {
    EXPECT_TRUE(error.message().contains(u"Başlık B_TARIH"_s)) << error.what();
  }
  EXPECT_EQ(day->text(), u"31.02.2020"_s);
  day->setText({});
  name->setText(u"Ay日"_s);
  try {
    utilities.EkrandanAlanlara(form, query);
    ADD_FAILURE() << "a letter that latin5 lacks was taken";
  } catch (const EUnstorableValue& error) {
    EXPECT_EQ(error.field(), u"B_AD"_s);
    EXPECT_EQ(error.character(), u"日"_s);
  }
}

}  // namespace
