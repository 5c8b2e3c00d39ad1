#include "app/parameter_files.h"
#include "base/data/value.h"
#include "base/exceptions.h"
#include "base/ini_file.h"
#include "base/log_file.h"
#include "base/platform/settings_store.h"
#include "base/whole_file.h"
#include "tests/support/full_disk.h"
#include "tests/support/screen_test.h"
#include "tests/support/scripted_dialogs.h"
#include "tests/toolkit/listed_content.h"
#include "toolkit/grid/grid_layout.h"
#include "toolkit/grid/grid_preview.h"
#include "toolkit/grid/xls_export.h"
#include "toolkit/report/designer/report_designer.h"

#include <functional>

namespace {

TEST(FullDiskTest, AFileOfAnyLengthIsWholeOrTheOneBefore) {
  FullDisk disk;
  const QString file = disk.path(u"a"_s);
  const QByteArray before(540, 'b');
  const QByteArray text(64 * 1024, 'n');
  for (const int blocks : {0, 3}) {
    disk.leavePlenty();
    WholeFile::replace(file, before);
    disk.leave(blocks);
    for (qsizetype length = 1; length <= text.size(); ++length) {
      bool failed = false;
      try {
        WholeFile::replace(file, text.left(length));
      } catch (const EInOutError&) {
        failed = true;
      }
      ASSERT_EQ(failed, length > qsizetype(blocks) * FullDisk::blockSize) << length;
      ASSERT_EQ(contentOf(file), failed ? before : text.left(length)) << length;
      ASSERT_EQ(disk.files(), QStringList{u"a"_s}) << length;
      if (!failed) WholeFile::replace(file, before);
    }
    WholeFile::replace(file, {});
    EXPECT_TRUE(QFile::exists(file) && contentOf(file).isEmpty()) << "an empty file needs no room";
  }
}

TEST(FullDiskTest, ATemplateStaysAndSoDoesTheWorkOnIt) {
  FullDisk disk;
  const ScriptedDialogs dialogs;
  const QString file = disk.path(u"0.fr3"_s);
  const QByteArray before = "<report version=\"1\"><page name=\"S\"><band name=\"B\"/></page></report>";
  WholeFile::replace(file, before);
  ReportDesigner designer;
  designer.open(file, {});
  designer.editor().change(u"x"_s, *designer.editor().page(), u"name"_s, QString(20 * FullDisk::blockSize, u'n'));
  disk.leave(3);
  EXPECT_FALSE(designer.save());
  EXPECT_EQ(contentOf(file), before);
  EXPECT_TRUE(designer.editor().isChanged());
  EXPECT_EQ(dialogs.shown.size(), 1U);
  disk.leavePlenty();
  EXPECT_TRUE(designer.save());
  EXPECT_EQ(dialogs.shown.size(), 1U);
}

std::unique_ptr<ListedContent> table(int rows) {
  auto content = std::make_unique<ListedContent>();
  ContentColumn name;
  name.caption = u"Ad"_s;
  content->columns = {name};
  for (int row = 0; row < rows; ++row) content->rows.push_back({.cells = {Value(u"satır %1"_s.arg(row))}});
  return content;
}

/// Writes a file with the program's own means; the larger the size, the more.
struct Writer {
  QString file;
  std::function<void(const QString& path, int size)> write;
};

QList<Writer> writers() {
  const QString key = u"SOFTWARE\\Quendrine"_s;
  return {
      {u"a.ini"_s, [](const QString& path, int size) { IniFile::write(path, u"Printer"_s, u"k"_s, QString(size, u'v')); }},
      {u"settings.ini"_s,
       [key](const QString& path, int size) {
         qputenv("KVTK_SETTINGS", path.toLocal8Bit());
         SettingsStore::write(key, u"KVTK"_s, u"k"_s, QString(size, u'v'));
       }},
      {u"Parametreler.dat"_s,
       [](const QString& path, int size) { ParameterFiles::save(path, ParameterFiles::writeCheckList({{QString(size, u'ş')}})); }},
      {u"layout.ini"_s,
       [](const QString& path, int size) { GridLayouts::write({{{QString(size, u'C'), 80, true}}, {}, {}}, path); }},
      {u"a.xls"_s, [](const QString& path, int size) { exportXls(*table(size), u"Liste"_s, path); }},
      {u"a.pdf"_s,
       [](const QString& path, int size) {
         GridPreview(nullptr, table(size), {.texts = {}, .documentName = u"Liste"_s}).writePdf(path);
       }},
      {u"a.log"_s,
       [](const QString& path, int size) {
         if (!LogFile::append(path, QString(20 * size, u'e'))) throw EInOutError(u"log"_s);
       }},
  };
}

TEST(FullDiskTest, EveryWriterKeepsTheFileBeforeAndSaysSo) {
  for (const auto& [name, write] : writers()) {
    FullDisk disk;
    const QString file = disk.path(name);
    write(file, 300);
    const QByteArray before = contentOf(file);
    write(file, 900);
    const qsizetype whole = contentOf(file).size();
    ASSERT_LT(before.size(), whole) << name.toStdString();
    QFile::remove(file);
    write(file, 300);
    bool failed = true;
    for (int blocks = 0; failed && blocks < FullDisk::mostBlocks; ++blocks) {
      disk.leave(blocks);
      failed = false;
      try {
        write(file, 900);
      } catch (const EInOutError&) {
        failed = true;
      }
      EXPECT_TRUE(failed || blocks > 0) << name.toStdString() << " was written on a full disk";
      if (failed)
        ASSERT_EQ(contentOf(file).size(), before.size()) << name.toStdString() << " at " << blocks;
      else
        EXPECT_NEAR(double(contentOf(file).size()), double(whole), 32) << name.toStdString();
      ASSERT_EQ(disk.files(), QStringList{name});
    }
    EXPECT_FALSE(failed) << name.toStdString();
  }
  qunsetenv("KVTK_SETTINGS");
}

}  // namespace
