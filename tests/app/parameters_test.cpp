#include "app/look.h"
#include "app/parameter_models.h"
#include "app/parameters.h"
#include "app/quendUtils.h"
#include "tests/support/screen_test.h"
#include "tests/support/scripted_dialogs.h"
#include "toolkit/edits/combo_edit.h"
#include "toolkit/grid/row_colors.h"

using namespace ParameterFiles;

namespace {

/// The check list's file of a program whose switches all have one state.
QByteArray fileOf(char state) {
  QByteArray bytes;
  for (const CheckItem& item : defaultSwitches()) bytes += QByteArray("@1 ") + state + " --- --- " + item.text.toUtf8() + "\r\n";
  return bytes;
}

TEST(ParameterFiles, EveryFormOfALineIsRead) {
  const std::vector<std::pair<QByteArray, CheckItem>> cases{
      {"@1 1 --- --- Fiş", {u"Fiş"_s, CheckState::Checked}},
      {"@0 2 007 123 a b", {u"a b"_s, CheckState::Greyed, false, 7, 123}},
      {"@1 9 07- 1 2 x", {u"x"_s}},
      {"@", {}},
      {"&0 1 Eski satır", {u"Eski satır"_s, CheckState::Checked, false}},
      {"&1 2", {QString(), CheckState::Greyed}},
      {"Fi\xFE bas\xFDm\xFD", {u"Fiş basımı"_s}},
      {"\xEF\xBB\xBF//Ba\xC5\x9Fl\xC4\xB1k", {u"//Başlık"_s}},
      {"", {}}};
  for (const auto& [line, item] : cases) {
    for (const char* end : {"\r\n", "\n", "\r"}) {
      const auto read = readCheckList(line + end + "son");
      ASSERT_EQ(read.size(), 2u) << line.constData();
      EXPECT_EQ(read[0], item) << line.constData();
      EXPECT_EQ(read[1].text, u"son"_s);
    }
  }
  EXPECT_TRUE(readCheckList({}).empty());
}

TEST(ParameterFiles, TheCheckListIsWrittenToTheByte) {
  std::vector<CheckItem> items{{u"Fiş basımı öncesinde önizleme yapılsın"_s, CheckState::Checked},
                               {u"b"_s, CheckState::Greyed, false, 4, 250}};
  const QByteArray bytes = writeCheckList(items);
  EXPECT_EQ(bytes, QByteArray("@1 1 --- --- Fiş basımı öncesinde önizleme yapılsın\r\n@0 2 004 250 b\r\n"));
  EXPECT_EQ(readCheckList(bytes), items);
  EXPECT_EQ(writeCheckList(defaultSwitches()), fileOf('0'));
}

TEST(ParameterFiles, OnlyAFileWithTheSameTextsIsTaken) {
  QByteArray changed = fileOf('1');
  changed.replace("SMS ile", "SMS Ile");
  const std::vector<std::pair<QByteArray, bool>> cases{
      {fileOf('1'), true}, {changed, false}, {fileOf('1') + "\r\n", false}, {fileOf('1').chopped(2), true}, {{}, false}};
  for (const auto& [bytes, taken] : cases) {
    std::vector<CheckItem> items = defaultSwitches();
    EXPECT_EQ(takeSwitches(bytes, items), taken);
    for (const CheckItem& item : items) EXPECT_EQ(item.state == CheckState::Checked, taken);
  }
  // The signature is a sum, so lines in another order pass: what is at a place counts, under the program's own text.
  QByteArrayList lines = fileOf('0').split('\n');
  lines[4][3] = '1';
  lines.swapItemsAt(4, 5);
  std::vector<CheckItem> items = defaultSwitches();
  EXPECT_TRUE(takeSwitches(lines.join('\n'), items));
  EXPECT_EQ(items[NotifyByMail], (CheckItem{u"E-Posta ile bildirim yapılsın"_s, CheckState::Checked}));
}

TEST(ParameterFiles, StatusesKeepWhatADamagedLineDoesNotTell) {
  const StatusRow red{u"TAMAMLANDI"_s, u"0x00FF0000"_s, false};
  const StatusRow unset{u"TAMAMLANDI"_s, {}, true};
  const std::vector<std::pair<QByteArray, StatusRow>> cases{
      {"TAMAMLANDI\t0x00FF0000\tPASİF\r\n", red},
      {"TAMAMLANDI\t0x00FF0000\tPASİF\nTAMAMLANDI\t\tAKTİF", red},
      {"TAMAMLANDI\t0xFF0000\tPASİF", {u"TAMAMLANDI"_s, {}, false}},
      {"TAMAMLANDI\t0x00+12345\tpasif", unset},
      {"TAMAMLANDI\tkırmızı\t", unset},
      {"TAMAMLANDI\t0x00FF0000", unset},
      {"tamamlandı\t0x00FF0000\tPASİF", unset}};
  for (const auto& [bytes, row] : cases) {
    std::vector<StatusRow> rows = defaultStatuses();
    readStatuses(bytes, rows);
    EXPECT_EQ(rows.size(), 16u);
    EXPECT_EQ(rows[13], row) << bytes.constData();
  }
  std::vector<StatusRow> rows = defaultStatuses();
  rows[0] = {rows[0].islemColorIslemAdi, u"0x00123abc"_s, false};
  std::vector<StatusRow> again = defaultStatuses();
  readStatuses(writeStatuses(rows), again);
  EXPECT_EQ(again, rows);
}

TEST(ParameterFiles, AnyBytesAreTaken) {
  QRandomGenerator random(11);
  for (int round = 0; round < 2000; ++round) {
    QByteArray bytes = round % 2 == 0 ? fileOf('1') : writeStatuses(defaultStatuses());
    bytes.truncate(random.bounded(bytes.size()));
    for (int i = 0; i < 20 && !bytes.isEmpty(); ++i) bytes[random.bounded(bytes.size())] = char(random.bounded(256));
    std::vector<CheckItem> items = defaultSwitches();
    takeSwitches(bytes, items);
    std::vector<StatusRow> rows = defaultStatuses();
    readStatuses(bytes, rows);
    for (const StatusRow& row : rows) EXPECT_TRUE(row.islemColorRenkSec.isEmpty() || rgbOf(row.islemColorRenkSec));
    EXPECT_EQ(items.size(), 10u);
    EXPECT_EQ(rows.size(), 16u);
  }
}

TEST(ParameterFiles, OfATruncatedFileNoSwitchIsTaken) {
  const QByteArray switches = fileOf('1');
  for (qsizetype size = 0; size <= switches.size(); ++size) {
    std::vector<CheckItem> items = defaultSwitches();
    const bool isWhole = size >= switches.size() - 2;  // the last line's end tells nothing
    ASSERT_EQ(takeSwitches(switches.left(size), items), isWhole) << size;
    ASSERT_EQ(writeCheckList(items), fileOf(isWhole ? '1' : '0')) << size;
  }
}

/// The form with its files in a folder of their own.
class ParametersTest : public testing::Test {
 protected:
  ParametersTest() : utilities_(folder.filePath(u"kvtk"_s)) { QuendUtil = &utilities_; }
  ~ParametersTest() override { QuendUtil = nullptr; }

  QByteArray content(const QString& name) const { return contentOf(folder.filePath(name)); }
  void put(const QString& name, const QByteArray& bytes) const { ::put(folder.filePath(name), bytes); }
  static void setPrinters(TfParametreler& form, const QStringList& names) {
    form.systemPrinters = [names] { return names; };
  }

  QTemporaryDir folder;
  ScriptedDialogs dialogs;
  QStringList& messages = dialogs.texts;

 private:
  TQuendUtil utilities_;
};

TEST_F(ParametersTest, WithoutFilesTheDefaultsStand) {
  TfParametreler form;
  setPrinters(form, {});
  form.Load();
  for (int index = -1; index <= 10; ++index) EXPECT_FALSE(form.isChecked(index));
  EXPECT_EQ(form.islemColor(), defaultStatuses());
  EXPECT_FALSE(form.statusRow(u"YOK"_s).has_value());
  EXPECT_EQ(form.yBarkodPrinter->itemIndex(), -1);
  EXPECT_EQ(form.yBarkodPrinterCopyNum->text(), u"1"_s);
  EXPECT_EQ(form.VarsayilanPrinterCopyNum->text(), u"1"_s);
  EXPECT_TRUE(QDir(folder.path()).isEmpty());
}

TEST_F(ParametersTest, WhatIsChosenCountsAtOnceAndComesBack) {
  TfParametreler form;
  setPrinters(form, {u"Zebra"_s, u"Büro"_s});
  form.Load();
  form.show();
  auto* list = form.findChild<QListView*>(u"ParamList"_s);
  auto* table = form.findChild<QTableView*>(u"islemColor"_s);
  QAbstractItemModelTester listTester(list->model());
  QAbstractItemModelTester tableTester(table->model());

  // The heading takes no check mark; the second switch does.
  for (const int row : {0, 2}) {
    list->setCurrentIndex(list->model()->index(row, 0));
    QTest::keyClick(list, Qt::Key_Space);
    EXPECT_EQ(form.isChecked(row), row == 2);
  }
  const auto choose = [&](int row, int column, const QString& text) {
    table->setCurrentIndex(table->model()->index(row, column));
    QTest::keyClick(table, Qt::Key_F2);
    auto* choice = table->findChild<QComboBox*>();
    ASSERT_NE(choice, nullptr);
    choice->setCurrentIndex(choice->findText(text, Qt::MatchStartsWith));
    Q_EMIT choice->activated(choice->currentIndex());
    QTest::qWait(0);
  };
  choose(13, StatusModel::Colour, u"Kırmızı"_s);
  choose(7, StatusModel::State, u"PASİF"_s);
  EXPECT_EQ(form.statusRow(u"TAMAMLANDI"_s)->islemColorRenkSec, u"0x00FF0000"_s);
  EXPECT_FALSE(form.statusRow(u"DIŞ SERVİSTE"_s)->active);
  EXPECT_FALSE(table->model()->flags(table->model()->index(0, StatusModel::Name)).testFlag(Qt::ItemIsEditable));
  form.yBarkodPrinter->setItemIndex(0);
  form.yBarkodPrinterCopyNum->setItemIndex(2);
  form.VarsayilanPrinter->setItemIndex(1);

  form.btnCancel->click();
  EXPECT_EQ(form.result(), TfParametreler::GivenUp);
  EXPECT_TRUE(form.isChecked(PreviewReceipt));
  EXPECT_TRUE(QDir(folder.path()).isEmpty());
  form.btnPost->click();
  EXPECT_EQ(form.result(), TfParametreler::Saved);
  EXPECT_TRUE(content(u"Parametreler.dat"_s).contains("\r\n@1 1 --- --- Fiş basımı öncesinde önizleme yapılsın\r\n"));
  EXPECT_TRUE(content(u"Parametreler.ini"_s).startsWith("[Printer]\r\nyBarkodPrinter=Zebra\r\nyBarkodPrinterCopyNum=3\r\n"));

  TfParametreler next;
  setPrinters(next, {u"Büro"_s});
  next.Load();
  EXPECT_TRUE(next.isChecked(PreviewReceipt));
  EXPECT_EQ(next.islemColor(), form.islemColor());
  EXPECT_EQ(next.yBarkodPrinter->itemIndex(), -1) << "the printer is gone";
  EXPECT_EQ(next.VarsayilanPrinter->text(), u"Büro"_s);
  EXPECT_EQ(next.yBarkodPrinterCopyNum->text(), u"3"_s);
}

TEST_F(ParametersTest, AFileOfOtherSwitchesIsDeleted) {
  put(u"Parametreler.dat"_s, fileOf('1') + "@1 1 --- --- Yeni\r\n");
  put(u"islemrenk.dat"_s, QByteArray("\x00\x01\xFFtree\t\t\n", 9));
  put(u"Parametreler.ini"_s, "[Printer]\r\nyBarkodPrinterCopyNum=77\r\nVarsayilanPrinterCopyNum=");
  TfParametreler form;
  setPrinters(form, {});
  form.Load();
  EXPECT_FALSE(QFile::exists(folder.filePath(u"Parametreler.dat"_s)));
  EXPECT_FALSE(form.isChecked(AskAtEachStep));
  EXPECT_EQ(form.islemColor(), defaultStatuses());
  EXPECT_EQ(form.yBarkodPrinterCopyNum->text(), u"77"_s) << "also one that the list does not have";
  EXPECT_EQ(form.VarsayilanPrinterCopyNum->text(), u"1"_s);
  EXPECT_TRUE(messages.isEmpty());
}

TEST_F(ParametersTest, AFileThatCannotBeWrittenIsNamedAndTheFormStays) {
  for (const QString& name : {u"Parametreler.ini"_s, u"Parametreler.dat"_s, u"islemrenk.dat"_s}) {
    ASSERT_TRUE(QDir(folder.path()).mkdir(name));
    TfParametreler form;
    setPrinters(form, {});
    form.Load();
    form.show();
    messages.clear();
    form.btnPost->click();
    ASSERT_EQ(messages.size(), 1) << qPrintable(name);
    EXPECT_TRUE(messages[0].contains(folder.filePath(name))) << qPrintable(messages[0]);
    EXPECT_TRUE(form.isVisible());
    QDir(folder.path()).rmdir(name);
    form.btnPost->click();
    EXPECT_FALSE(form.isVisible());
    for (const QString& file : QDir(folder.path()).entryList(QDir::Files)) QFile::remove(folder.filePath(file));
  }
}

TEST(LooksTest, MarksThatAreNotSetAreSeenInBoth) {
  for (const LookColors look : {LookColors::Dark, LookColors::Light}) {
    applyLook(*qApp, look);
    QRadioButton radio;
    QCheckBox check;
    for (QAbstractButton* mark : {static_cast<QAbstractButton*>(&radio), static_cast<QAbstractButton*>(&check)}) {
      mark->resize(mark->sizeHint());
      const QImage drawn = mark->grab().toImage();
      double most = 1;
      for (int x = 0; x < drawn.width(); ++x)
        most = std::max(most, RowColors::contrast(drawn.pixelColor(x, drawn.height() / 2), mark->palette().color(QPalette::Base)));
      EXPECT_GE(most, look == LookColors::Dark ? 3 : 1.5) << mark->metaObject()->className();
    }
  }
}

}  // namespace
