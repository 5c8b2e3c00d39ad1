#include "app/rights.h"

#include "app/application.h"
#include "app/dmUnit.h"
#include "base/exceptions.h"
#include "app/kvbankUnit.h"
#include "base/program_paths.h"
#include "app/Unit14.h"
#include "tests/support/fixed_environment.h"
#include "tests/support/screen_test.h"
#include "tests/support/scripted_dialogs.h"
#include "toolkit/edits/text_edit.h"

namespace {

TEST(RightsTest, TheTreeDecidesForAllButTheMaster) {
  CheckTree tree;
  tree.setStateIndex(u"Kartlar\\Müşteri Kartları\\Sil"_s, Right::Checked);
  tree.setStateIndex(u"Kartlar\\Cihaz Kartları"_s, Right::PartlyChecked);
  int failures = 0;
  const auto check = [&](const QString& account, const QString& path) {
    return Rights::check(account, tree, path, [&](const std::exception&) { ++failures; });
  };
  for (const QString& master : {u"QUEND"_s, u"quend"_s, u"QuEnD"_s})
    for (const QString& path : {u"Kartlar"_s, u"Kartlar\\Müşteri Kartları\\Sil"_s, u"Yok"_s, u""_s})
      EXPECT_EQ(check(master, path), 0) << path.toStdString();
  const QString dashes(13, u'—');
  const QList<std::pair<QString, int>> allowed{{dashes, 1}, {u"Yok\\"_s + dashes + u"x"_s, 1}, {u"Kartlar"_s, 1},
      {u"Kartlar\\Müşteri Kartları"_s, 1}, {u"Kartlar\\Müşteri Kartları\\Sil"_s, 2}, {u"Kartlar\\Cihaz Kartları"_s, 3}};
  for (const auto& [path, state] : allowed) EXPECT_EQ(check(u"AYSE"_s, path), state) << path.toStdString();
  EXPECT_EQ(failures, 0);
  const QStringList unknown{u"Kartlar\\Yok"_s, u"Yok\\Kartlar"_s, u"KARTLAR"_s, u"Kartlar\\"_s, u"\\"_s, u""_s, QString(12, u'—')};
  for (const QString& path : unknown) EXPECT_EQ(check(u"AYSE"_s, path), 2) << path.toStdString();
  EXPECT_EQ(failures, unknown.size());
  for (const QString& other : {u"QUENDX"_s, u"QÜEND"_s, u" QUEND"_s, u""_s}) EXPECT_EQ(check(other, u"Yok"_s), 2);
  EXPECT_EQ(Rights::check(u"AYSE"_s, tree, u"Yok"_s, [](const std::exception&) { throw Exception(u"x"_s); }), 2);
}

/// Counts the log's entries from an empty file on.
class RightsLogTest : public testing::Test {
 protected:
  RightsLogTest() {
    fillPorts();
    QFile::remove(logFileName());
    data.MySQL.Username = u"AYSE"_s;
    login.Kullanici->setText(u"AYŞE"_s);
  }
  ~RightsLogTest() override { QFile::remove(logFileName()); }
  static QString log() { return QString::fromUtf8(contentOf(logFileName())); }

  ScopedEnvironment fixed{std::make_unique<FixedEnvironment>()};
  ScriptedDialogs dialogs;
  TfKvb workspace;
  TDM data;
  TLogin_Form login;
};

TEST_F(RightsLogTest, AHundredDeniedChecksLeaveAHundredEntriesAndNoDialog) {
  QString expected;
  for (int i = 0; i < 100; ++i) {
    EXPECT_EQ(data.Kullanici_Yetkileri(u"Kartlar\\Komut %1"_s.arg(i)), 2);
    expected += u"05.03.2020 08:07:06|AYŞE|||Yetki| Yetki Path hatası...: Kartlar\\Komut %1\r\n--------------------\r\n"_s.arg(i);
  }
  EXPECT_EQ(log(), expected);
  EXPECT_TRUE(dialogs.shown.empty());
  data.MySQL.Username = u"Quend"_s;
  EXPECT_EQ(data.Kullanici_Yetkileri(u"Kartlar"_s), 0);
  EXPECT_EQ(log(), expected) << "the master leaves none";
}

TEST_F(RightsLogTest, AMarkedNodeOfTheWorkspaceForbidsItsCommand) {
  workspace.Yetkitree.setStateIndex(u"Kartlar\\Cihaz Kartları"_s, Right::Checked);
  EXPECT_EQ(data.Kullanici_Yetkileri(u"Kartlar\\Cihaz Kartları"_s), 2);
  EXPECT_EQ(data.Kullanici_Yetkileri(u"Kartlar"_s), 1);
  EXPECT_EQ(log(), QString());
}

}  // namespace
