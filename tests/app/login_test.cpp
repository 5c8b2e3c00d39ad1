#include "app/Unit14.h"
#include "base/data/latin5.h"
#include "app/dmUnit.h"
#include "base/data/my_query.h"
#include "base/data/value.h"
#include "base/exceptions.h"
#include "base/guard.h"
#include "base/platform/machine.h"
#include "base/platform/settings_store.h"
#include "base/process_end.h"
#include "base/program_paths.h"
#include "app/quendUtils.h"
#include "tests/support/screen_test.h"
#include "tests/support/scripted_dialogs.h"
#include "toolkit/edits/button_edit.h"
#include "toolkit/edits/text_edit.h"

#include <optional>

namespace {

class LoginTest : public testing::Test {
 protected:
  LoginTest() : end_(setProcessEnd([this](int code) { ended = code; })) {
    qputenv("KVTK_SETTINGS", folder.filePath(u"settings.ini"_s).toLocal8Bit());
    QFile::remove(logFileName());
    machine().computerName = [] { return qEnvironmentVariable("KVTK_TEST_SERVER"); };
    QuendUtil = &utilities_;
  }
  ~LoginTest() override {
    QuendUtil = nullptr;
    machine() = machine_;
    setProcessEnd(end_);
  }

  /// Shows the form and runs the work as its user; the result that closed the form, nothing when the work left it open.
  std::optional<int> use(TLogin_Form& login, const std::function<void()>& work) {
    bool open = false;
    postGuarded(&login, [&] {
      EXPECT_TRUE(QTest::qWaitForWindowActive(&login));
      work();
      open = login.isVisible();
      if (open) login.done(0);
    });
    const int result = login.ShowModal();
    return open ? std::nullopt : std::optional(result);
  }
  void type(TextEdit* edit, const QString& text) {
    edit->setFocus();
    edit->line()->selectAll();
    QTest::keyClick(edit->line(), Qt::Key_Delete);
    ::type(edit->line(), text);
  }
  void attempt(TLogin_Form& login, const QString& name, const QString& password) {
    type(login.Kullanici, name);
    type(login.parola, password);
    QTest::keyClick(login.parola->line(), Qt::Key_Return);
  }
  QString log() const { return QString::fromUtf8(contentOf(logFileName())); }
  /// Runs statements as the server's owner, in the program's own character set.
  static void runAsOwner(const QString& statements) {
    QProcess tool;
    tool.start(QString::fromUtf8(KVTK_SERVER_TOOL), {u"sql"_s});
    tool.write("SET NAMES latin5;\n" + Latin5::encode(statements, u"test"_s));
    tool.closeWriteChannel();
    ASSERT_TRUE(tool.waitForFinished() && tool.exitCode() == 0) << tool.readAllStandardError().toStdString();
  }

  QTemporaryDir folder;
  ScriptedDialogs dialogs;
  std::optional<int> ended;

 private:
  std::function<void(int)> end_;
  Machine machine_ = machine();
  TQuendUtil utilities_{programFile()};
};

TEST_F(LoginTest, ShowsTheComputersNameAndAsksForTheMissingPart) {
  SettingsStore::write(u"SOFTWARE\\Quendrine"_s, u"KVTK"_s, u"Kullanici"_s, u"AYŞE"_s);
  SettingsStore::write(u"SOFTWARE\\Quendrine"_s, u"KVTK"_s, u"eSunucu"_s, u"KASA-2"_s);
  TDM data;
  TLogin_Form login;
  EXPECT_EQ(login.eSunucu->text(), u"KASA-2"_s);
  use(login, [&] {
    EXPECT_EQ(login.windowTitle(), QCoreApplication::applicationName());
    EXPECT_EQ(login.Kullanici->text(), u"AYŞE"_s);
    EXPECT_EQ(login.eSunucu->text(), qEnvironmentVariable("KVTK_TEST_SERVER"));
    EXPECT_FALSE(login.eSunucu->isEnabled());
    EXPECT_TRUE(login.parola->line()->hasFocus());
  });
  login.Kullanici->setText({});
  machine().computerName = [] { return QString(); };
  machine().firstAddress = [] { return u"192.168.1.7"_s; };
  use(login, [&] {
    EXPECT_EQ(login.eSunucu->text(), u"192.168.1.7"_s);
    EXPECT_TRUE(login.Kullanici->line()->hasFocus());
    type(login.Kullanici, u"iıİIşq"_s);
    EXPECT_EQ(login.Kullanici->text(), u"İIİIŞQ"_s);
    type(login.parola, u"gizlı"_s);
    EXPECT_EQ(login.parola->text(), u"GİZLI"_s);
    EXPECT_EQ(login.parola->line()->displayText(), u"*****"_s);
  });
  EXPECT_EQ(use(login, [&] { QTest::keyClick(login.parola->line(), Qt::Key_Escape); }), 2);
  EXPECT_EQ(use(login, [&] { QTest::mouseClick(login.RzBitBtn2, Qt::LeftButton); }), 2);
  EXPECT_EQ(use(login, [&] { login.close(); }), 2);
  EXPECT_TRUE(dialogs.shown.empty());
}

TEST_F(LoginTest, ConnectsAndKeepsNoPassword) {
  TDM data;
  TLogin_Form login;
  EXPECT_EQ(use(login, [&] { attempt(login, u"quend"_s, u"quend"_s); }), 6);
  EXPECT_TRUE(data.MySQL.Connected());
  EXPECT_EQ(data.MySQL.Username, u"QUEND"_s);
  EXPECT_EQ(data.MySQL.Password, QString());
  EXPECT_EQ(data.MySQL.Port, 3313);
  EXPECT_EQ(login.Tag, 1);
  EXPECT_EQ(SettingsStore::read(u"SOFTWARE\\Quendrine"_s, u"KVTK"_s, u"Kullanici"_s), u"QUEND"_s);
  data.pGetQ.SQL.setText(u"select USER() as BEN, DATABASE() as VT"_s);
  data.pGetQ.Open();
  EXPECT_TRUE(data.pGetQ.FieldByName(u"BEN"_s).asText().startsWith(u"QUEND@"_s));
  EXPECT_EQ(data.pGetQ.FieldByName(u"VT"_s).asText(), u"kvtk"_s);
  EXPECT_TRUE(dialogs.shown.empty());
  EXPECT_EQ(log(), QString());
}

TEST_F(LoginTest, TheThirdFailureIsShownAndEndsTheProcess) {
  TDM data;
  TLogin_Form login;
  const auto result = use(login, [&] {
    attempt(login, u"o'b\\\"é;--"_s, u"yanlış gizli"_s);
    attempt(login, u"quend"_s, u""_s);
    EXPECT_TRUE(dialogs.shown.empty());
    EXPECT_FALSE(ended.has_value());
    attempt(login, u"o'b\\\"é;--"_s, u"yanlış gizli"_s);
  });
  EXPECT_EQ(result, std::nullopt);
  ASSERT_EQ(dialogs.shown.size(), 1U);
  EXPECT_TRUE(dialogs.texts[0].startsWith(u"#28000Access denied for user 'O'B\\\"É;--'@"_s)) << dialogs.texts[0].toStdString();
  EXPECT_EQ(ended, 0);
  EXPECT_FALSE(data.MySQL.Connected());
  EXPECT_EQ(log().count(u"Bağlantı kurulamadı: "_s), 3);
  EXPECT_FALSE(log().contains(u"GİZLİ"_s) || log().contains(u"GIZLI"_s) || log().contains(u"@Kp"_s));
}

TEST_F(LoginTest, NamesAndPasswordsReachTheServerAsTyped) {
  runAsOwner(u"CREATE OR REPLACE USER 'O''B\\\\\"ISIK'@'%' IDENTIFIED BY 'GUL''\\\\\" SIFREÂ@Kp-7H4n';"
             "GRANT SELECT ON kvtk.* TO 'O''B\\\\\"ISIK'@'%';"_s);
  TDM data;
  TLogin_Form login;
  for (const auto& [name, password] : {std::pair(u"o'b\\\"ışık"_s, u"gül'\\\" şifreâ"_s), std::pair(u"O'B\\\"ISIK"_s, u"GUL'\\\" SIFREÂ"_s)})
    EXPECT_EQ(use(login, [&] { attempt(login, name, password); }), 6) << name.toStdString();
  // Cut at the NUL these would be the master account.
  login.Kullanici->setText(u"QUEND"_s + QChar(0) + u"X"_s);
  login.parola->setText(u"QUEND"_s);
  EXPECT_EQ(use(login, [&] { QTest::mouseClick(login.Tamam_Button, Qt::LeftButton); }), std::nullopt);
  EXPECT_FALSE(data.MySQL.Connected());
  runAsOwner(u"DROP USER 'O''B\\\\\"ISIK'@'%';"_s);
}

TEST_F(LoginTest, ACharacterOfThePasswordIsNeitherShownNorLogged) {
  TDM data;
  TLogin_Form login;
  use(login, [&] {
    for (int i = 0; i < 3; ++i) attempt(login, u"quend"_s, u"日本"_s);
  });
  ASSERT_EQ(dialogs.shown.size(), 1U);
  EXPECT_TRUE(dialogs.texts[0].contains(u"Kullanıcı Parolası"_s));
  EXPECT_FALSE((dialogs.texts[0] + log()).contains(u"日"_s));
}

TEST_F(LoginTest, WithoutAServerTheFormStaysAndNoAttemptIsCounted) {
  TDM data;
  TLogin_Form login;
  use(login, [&] {
    login.eSunucu->setText(u"127.0.0.250"_s);
    for (int i = 0; i < 3; ++i) attempt(login, u"quend"_s, u"quend"_s);
    ASSERT_EQ(dialogs.shown.size(), 3U);
    EXPECT_TRUE(dialogs.texts[0].startsWith(u"Kurulum işlemi doğru olarak tamamlanamadı.\r\nYardım için iletişime geçebilirsiniz.\r\n"_s));
    EXPECT_EQ(dialogs.texts[0].count(u'\n'), 2);
    EXPECT_EQ(login.Tag, 0);
    EXPECT_FALSE(ended.has_value());
    login.eSunucu->setText(u"LOCALHOST"_s);
    attempt(login, u"quend"_s, u"quend"_s);
    EXPECT_TRUE(data.MySQL.Connected());
  });
}

TEST_F(LoginTest, UnhandledErrorsAreLoggedAndShownByTheirSender) {
  TDM data;
  TLogin_Form login;
  login.Kullanici->setText(u"QUEND"_s);
  QLabel mark(u"Yetki Path hatası...: x"_s);
  mark.setObjectName(u"lYetki"_s);
  login.ApplicationEvents1Exception(&mark, Exception(u"gizli"_s));
  EXPECT_TRUE(dialogs.shown.empty());
  EXPECT_TRUE(log().endsWith(u"|QUEND|||lYetki| Yetki Path hatası...: x\r\n--------------------\r\n"_s)) << log().toStdString();

  login.ApplicationEvents1Tag = 1;
  const EMyError refusal(1146, u"42S02"_s, u"Table 'kvtk.sirket' doesn't exist"_s, u"qSirket"_s, u"select * from sirket"_s);
  login.ApplicationEvents1Exception(&login, refusal);
  EXPECT_TRUE(dialogs.shown.empty());
  EXPECT_EQ(login.ApplicationEvents1Tag, 0);
  EXPECT_TRUE(log().endsWith(u"--------------------\r\nqSirket| select * from sirket\r\n"_s)) << log().toStdString();
  login.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&login));
  login.parola->setFocus();
  login.ApplicationEvents1Tag = 1;
  login.ApplicationEvents1Exception(nullptr, Exception(u"x"_s));
  EXPECT_TRUE(log().contains(u"|parola|x\r\n"_s)) << "the box's name, whose line has none";
  login.hide();
  login.ApplicationEvents1Exception(nullptr, refusal);
  ASSERT_EQ(dialogs.shown.size(), 1U);
  EXPECT_TRUE(dialogs.texts[0].contains(refusal.message()));

  // A log that cannot be written: the error itself is still shown, with a word on the log.
  QFile::remove(logFileName());
  ASSERT_TRUE(QFile::link(u"/dev/full"_s, logFileName()));
  login.ApplicationEvents1Exception(nullptr, Exception(u"asıl hata"_s));
  login.Log(u"kimse görmez"_s);
  QFile::remove(logFileName());
  ASSERT_EQ(dialogs.shown.size(), 2U);
  EXPECT_TRUE(dialogs.texts[1].startsWith(u"asıl hata"_s) && dialogs.texts[1].contains(logFileName())) << dialogs.texts[1].toStdString();
}

}  // namespace
