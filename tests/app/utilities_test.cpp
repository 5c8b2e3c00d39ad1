#include "base/data/value.h"
#include "base/exceptions.h"
#include "base/platform/machine.h"
#include "base/program_paths.h"
#include "app/quendUtils.h"
#include "tests/support/fixed_environment.h"
#include "tests/support/screen_test.h"
#include "tests/support/scripted_dialogs.h"

namespace {

class Utilities : public testing::Test {
 protected:
  ~Utilities() override { machine() = machine_; }
  void put(const QString& name, const QByteArray& bytes) const { ::put(folder.filePath(name), bytes); }
  QTemporaryDir folder;
  ScopedEnvironment fixed{std::make_unique<FixedEnvironment>()};
  TQuendUtil utilities{folder.filePath(u"kvtk"_s)};

 private:
  Machine machine_ = machine();
};

TEST_F(Utilities, Dialogs) {
  ScriptedDialogs dialogs;
  dialogs.answers = {TQuendUtil::Confirmed};
  EXPECT_EQ(utilities.ErrorMesaj(nullptr, u"bir"_s), 2);
  EXPECT_EQ(utilities.NormalMesaj(nullptr, u"iki"_s), 2);
  EXPECT_EQ(utilities.Mesaj(nullptr, u"üç"_s), TQuendUtil::Confirmed);
  EXPECT_EQ(utilities.mesajTimeOut(nullptr, u"dört"_s, 8000), 2);
  struct Case {
    QString instruction;
    TaskIcon icon;
    QStringList captions;
    int closeAfterMs;
    bool beep;
  };
  const std::vector<Case> cases{{u"Dikkat!"_s, TaskIcon::Error, {u"Kapat"_s}, 0, true},
                                {u"Dikkat!"_s, TaskIcon::Information, {u"Kapat"_s}, 0, false},
                                {u"Dikkat!"_s, TaskIcon::Question, {u"Tamam"_s, u"Vazgeç"_s}, 0, false},
                                {u""_s, TaskIcon::Error, {u"Kapat"_s}, 8000, false}};
  ASSERT_EQ(dialogs.shown.size(), cases.size());
  for (size_t i = 0; i < cases.size(); ++i) {
    const TaskDialogRequest& request = dialogs.shown[i];
    QStringList captions;
    for (const TaskButton& button : request.buttons) captions += button.caption;
    EXPECT_EQ(request.title, QCoreApplication::applicationName());
    EXPECT_EQ(request.instruction, cases[i].instruction);
    EXPECT_EQ(request.icon, cases[i].icon);
    EXPECT_TRUE(request.defaultButton == 0 || request.defaultButton == TQuendUtil::Confirmed);
    EXPECT_EQ(captions, cases[i].captions);
    EXPECT_EQ(request.closeAfterMs, cases[i].closeAfterMs);
    EXPECT_EQ(request.beep, cases[i].beep);
  }
}

TEST_F(Utilities, FactsOfTheMachine) {
  machine().processFiles = [] { return QStringList{u"/opt/Q/Vigil.Exe"_s, u"kworker"_s}; };
  for (const QString& running : {u"vigil.exe"_s, u"/OPT/q/vigil.exe"_s, u"KWORKER"_s}) EXPECT_TRUE(utilities.processExists(running));
  for (const QString& absent : {u"vigil"_s, u"q/vigil.exe"_s, u""_s}) EXPECT_FALSE(utilities.processExists(absent));
  const QString address = utilities.GetRandomAddress();
  EXPECT_THAT(address.toStdString(), testing::MatchesRegex("[0-9A-F]+"));
  EXPECT_EQ(address.size(), 12);
  EXPECT_NE(utilities.GetRandomAddress(), address);
  EXPECT_THAT(utilities.GetBuildInfoAsString().toStdString(), testing::MatchesRegex("[0-9]+\\.[0-9]+\\.[0-9]+"));
  EXPECT_EQ(utilities.FileVersionInfo(programFile(), u"FileVersion"_s), utilities.GetBuildInfoAsString());
  EXPECT_EQ(utilities.FileVersionInfo(folder.path(), u"FileVersion"_s), QString());
}

TEST_F(Utilities, FilesAndNumbers) {
  put(u"a.txt"_s, "x");
  EXPECT_TRUE(utilities.FileLastModified(folder.filePath(u"a.txt"_s)).isValid());
  EXPECT_THROW(utilities.FileLastModified(folder.path()), EInOutError);
  EXPECT_THROW(utilities.FileLastModified(folder.filePath(u"none"_s)), EInOutError);
  const std::vector<std::pair<Value, int>> numbers{{Value(), 0}, {Value(u""_s), 0}, {Value(u" 12 "_s), 12}, {Value(-3), -3}, {Value(2.0), 2}};
  for (const auto& [value, number] : numbers) EXPECT_EQ(utilities.VarToInt(value), number);
  for (const Value& bad : {Value(u"on"_s), Value(u"1,5"_s), Value(qint64(1) << 40)}) EXPECT_THROW(utilities.VarToInt(bad), EConvertError);
}

TEST_F(Utilities, IniFiles) {
  EXPECT_EQ(utilities.load_inifile(u"Sms"_s, u"GENEL"_s, u"5"_s, u"SAYI"_s), u""_s);
  utilities.save_inifile(u"Sms"_s, u"GENEL"_s, u"7"_s, u"SAYI"_s);
  utilities.save_inifile(u"Sms"_s, u"GENEL"_s, u""_s, u"BOŞ"_s);
  EXPECT_TRUE(QFile::exists(folder.filePath(u"Sms.ini"_s)));
  EXPECT_EQ(utilities.load_inifile(u"Sms"_s, u"GENEL"_s, u"5"_s, u"SAYI"_s), u"7"_s);
  EXPECT_EQ(utilities.load_inifile(u"Sms"_s, u"GENEL"_s, u"5"_s, u"BOŞ"_s), u"-1"_s);
  EXPECT_EQ(utilities.load_inifile(u"Sms"_s, u"GENEL"_s, u"5"_s, u"YOK"_s), u"5"_s);
  put(u"Bozuk.ini"_s, QByteArray("\x89PNG\0\xFF[", 7));
  EXPECT_EQ(utilities.load_inifile(u"Bozuk"_s, u"GENEL"_s, u"5"_s, u"SAYI"_s), u"5"_s);
}

}  // namespace
