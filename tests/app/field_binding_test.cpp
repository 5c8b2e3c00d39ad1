#include "base/data/my_query.h"
#include "base/data/value.h"
#include "base/exceptions.h"
#include "app/quendUtils.h"
#include "tests/support/picture.h"
#include "tests/support/screen_test.h"
#include "tests/support/test_database.h"
#include "toolkit/edits/combo_edit.h"
#include "toolkit/edits/currency_edit.h"
#include "toolkit/edits/date_edit.h"
#include "toolkit/edits/image_box.h"
#include "toolkit/edits/lookup_edit.h"
#include "toolkit/edits/memo_edit.h"
#include "toolkit/edits/text_edit.h"
#include "toolkit/edits/time_edit.h"

namespace {

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
    const std::initializer_list<std::pair<QWidget*, QString>> controls{
        {picture, u"B_RESIM"_s}, {customer, u"B_CARI"_s}, {list, u"B_LISTE"_s}, {numberedList, u"B_LISTENO"_s}, {agreed, u"B_ONAY"_s},
        {chosen, u"B_SECIM"_s}, {type, u"B_TIP"_s}, {numberedType, u"B_TIPNO"_s}, {name, u"B_AD"_s}, {amount, u"B_TUTAR"_s},
        {day, u"B_TARIH"_s}, {hour, u"B_SAAT"_s}, {note, u"B_NOT"_s}, {rich, u"B_ZENGIN"_s}};
    for (const auto& [control, column] : controls) {
      control->setParent(&form);
      control->setObjectName(column);
      control->setAccessibleName(u"Başlık "_s + column);
    }
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
  /// What the controls show, from the picture's size to the last text.
  QStringList shown() const {
    const auto number = [](auto value) { return QString::number(value); };
    return {number(picture->imageBytes().size()), customer->text(), number(list->currentRow()), number(numberedList->currentRow()),
            number(agreed->isChecked()), number(chosen->isChecked()), number(type->itemIndex()), number(numberedType->itemIndex()), name->text(),
            number(amount->value()), day->text(), hour->text(), note->text(), rich->toPlainText()};
  }
  QStringList stored() {
    QStringList texts;
    for (int i = 2; i < query.fieldCount(); ++i) texts += query.field(i).isNull() ? u"NULL"_s : query.field(i).asText();
    return texts;
  }

  const std::vector<std::pair<QString, int>> entries{{u"İLK"_s, 10}, {u"SON"_s, 20}};
  const QByteArray bytes = pictureBytes("JPG");
  const QStringList empty = u"0||-1|-1|0|0|-1|-1||0||||"_s.split(u'|');
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

  utilities.AlanlardanEkrana(form, query);
  const QStringList filled = shown();
  utilities.EkranReset(form, query);
  EXPECT_EQ(shown(), empty);
  EXPECT_EQ(name->maxLength(), 12);

  chosen->setChecked(true);
  utilities.AlanlardanEkrana(form, query);
  EXPECT_EQ(shown(), filled);
  EXPECT_EQ(picture->imageBytes(), bytes);
  EXPECT_EQ(filled.mid(1).join(u'|'), u"IŞIK TİCARET|1|1|1|0|0|1|Ayşe|1250.5|05.03.2020|08:30|bir\niki|zengin"_s);
}

TEST_F(FieldBindingTest, NullsEmptyTheControls) {
  database.connection().execute("INSERT INTO bag () VALUES ()");
  query.Refresh();
  fill();
  utilities.AlanlardanEkrana(form, query);
  EXPECT_EQ(shown(), empty);
  query.Edit();
  utilities.EkrandanAlanlara(form, query);
  query.Post();
  query.Refresh();
  QStringList nulls(14, u"NULL"_s);
  nulls[3] = nulls[4] = u"0"_s;
  EXPECT_EQ(stored(), nulls);
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
