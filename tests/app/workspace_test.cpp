#include "app/application.h"
#include "app/call_listener.h"
#include "app/dmUnit.h"
#include "app/kvbankUnit.h"
#include "app/parameter_models.h"
#include "app/parameters.h"
#include "app/ports.h"
#include "base/exceptions.h"
#include "base/guard.h"
#include "base/ini_file.h"
#include "base/platform/machine.h"
#include "base/process_end.h"
#include "base/program_paths.h"
#include "app/quendUtils.h"
#include "app/Unit14.h"
#include "reminders/fhatirlat_unit.h"
#include "tests/support/fixed_environment.h"
#include "tests/support/picture.h"
#include "tests/support/screen_test.h"
#include "toolkit/edits/button_edit.h"
#include "toolkit/edits/combo_edit.h"
#include "toolkit/edits/date_edit.h"
#include "toolkit/edits/text_edit.h"
#include "toolkit/shell/child_windows.h"
#include "toolkit/shell/ribbon.h"
#include "toolkit/shell/ribbon_button.h"

#include <optional>

namespace {

/// Runs in a folder of its own, since the geometry file stands in the current one.
class WorkspaceTest : public testing::Test {
 protected:
  WorkspaceTest() : before_(QDir::currentPath()), end_(setProcessEnd([this](int code) { ended = code; })) {
    QDir::setCurrent(folder.path());
    fillPorts();
    machine().processFiles = [] { return QStringList{u"/opt/kvtk/VIGIL.EXE"_s}; };
  }
  ~WorkspaceTest() override {
    machine() = machine_;
    setProcessEnd(end_);
    QDir::setCurrent(before_);
  }

  /// Answers the login form with a result once it is there.
  static void answerLogin(TfKvb& workspace, int result) {
    auto* look = new QTimer(&workspace);
    connectGuarded(look, &QTimer::timeout, look, [look, result] {
      if (!Login_Form->isVisible()) return;
      look->stop();
      Login_Form->done(result);
    });
    look->start(50);
  }
  /// Shows the workspace and answers the login form with a result.
  void start(TfKvb& workspace, int loginResult) {
    answerLogin(workspace, loginResult);
    workspace.show();
    ASSERT_TRUE(QTest::qWaitFor([&] { return ended.has_value() || !workspace.dxBarStatic1->text().isEmpty(); }, 20'000));
  }

  QTemporaryDir folder;
  std::optional<int> ended;

 private:
  QString before_;
  std::function<void(int)> end_;
  Machine machine_ = machine();
};

QStringList captions(const QList<QAction*>& actions) {
  QStringList texts;
  for (const QAction* action : actions) texts.append(action->text());
  return texts;
}

TEST_F(WorkspaceTest, RibbonHoldsTheCommandTable) {
  TfKvb workspace;
  const QList<std::pair<QString, QStringList>> table{
      {u"Fişler"_s, {u"Yeni Servis Fişi"_s, u"Servis Fişleri"_s, u"Bakım Sözleşmesi"_s, u"Kartlar"_s}},
      {u"Pencereler"_s,
       {u"Alt Alta"_s, u"Yan Yana"_s, u"Basamakla"_s, u"Tam Ekran"_s, u"Hepsini Gizle"_s, u"Hepsini Göster"_s}},
      {u"İşlemler"_s, {u"Gelen Aramalar"_s, u"Hatırlatma"_s, u"Ayarlar"_s}},
      {u"Çıkış"_s, {u"Programı Kapat"_s}}};
  ASSERT_EQ(workspace.ribbon()->groups().size(), table.size());
  for (qsizetype i = 0; i < table.size(); ++i) {
    const RibbonGroup* group = workspace.ribbon()->groups()[i];
    QList<QAction*> actions;
    for (const RibbonButton* button : group->buttons()) actions.append(button->defaultAction());
    EXPECT_EQ(group->caption(), table[i].first);
    EXPECT_EQ(captions(actions), table[i].second);
  }
  EXPECT_EQ(captions(workspace.command(u"dxBarSubItem7"_s)->menu()->actions()),
            (QStringList{u"Müşteri Kartları"_s, u"Cihaz Kartları"_s, u"Dış Servis Kartları"_s, u"Servis Tipleri"_s}));
  const QList<QAction*> settings = workspace.command(u"dxBarSubItem1"_s)->menu()->actions();
  EXPECT_EQ(captions(settings), (QStringList{u"Döviz Kurları"_s, u"Şirket Bilgileri"_s, u"Parametreler"_s,
                                             u"SMS Tanımları"_s, u"E-POSTA Tanımları"_s}));
  EXPECT_FALSE(settings[0]->isVisible());
  EXPECT_EQ(captions(workspace.ribbon()->quickAccess()),
            (QStringList{u"Yeni Servis Fişi"_s, u"Servis Fişleri"_s, u"Kartlar"_s, u"Hatırlatma"_s, u"Ayarlar"_s,
                         u"Programı Kapat"_s}));
}

TEST_F(WorkspaceTest, FirstArgumentIsThePort) {
  const QList<std::pair<QStringList, int>> cases{
      {{u"kvtk"_s}, 8091}, {{u"kvtk"_s, u"0"_s}, 8091}, {{u"kvtk"_s, u""_s}, 8091}, {{u"kvtk"_s, u"abc"_s}, 8091}, {{u"kvtk"_s, u"9000"_s}, 9000}};
  for (const auto& [arguments, port] : cases) {
    const TfKvb workspace(arguments);
    EXPECT_EQ(QuendUtil->port, port);
    EXPECT_TRUE(workspace.windowTitle().endsWith(u" v"_s + QuendUtil->GetBuildInfoAsString()));
  }
}

/// A child window's content that may refuse to close.
class Editor : public QWidget {
 public:
  bool refuses = false;

 protected:
  void closeEvent(QCloseEvent* event) override { event->setAccepted(!refuses); }
};

TEST_F(WorkspaceTest, ChildWindowsEnableTheirCommandsAndMayKeepTheProgramOpen) {
  TfKvb workspace;
  const auto enabled = [&] {
    return workspace.command(u"maximizeAll"_s)->isEnabled() && workspace.command(u"restoreAll"_s)->isEnabled();
  };
  EXPECT_FALSE(workspace.command(u"maximizeAll"_s)->isEnabled() || workspace.command(u"restoreAll"_s)->isEnabled());
  auto* editor = new Editor;
  workspace.addChildWindow(editor);
  workspace.setChildCaption(editor, u"(100) Servis Fişi"_s);
  EXPECT_TRUE(enabled());
  editor->refuses = true;
  EXPECT_FALSE(workspace.close());
  editor->refuses = false;
  EXPECT_TRUE(workspace.close());
  EXPECT_TRUE(workspace.childWindows().isEmpty());
  EXPECT_FALSE(enabled());
  EXPECT_TRUE(QFile::exists(u"KvbFORM.INI"_s));
}

TEST_F(WorkspaceTest, TheStatusBarsDateFollowsTheDayUnlessAnotherOneWasChosen) {
  const QDateTime evening(QDate(2020, 3, 5), QTime(18, 0));
  const ScopedEnvironment clock(std::make_unique<FixedEnvironment>(evening));
  TfKvb workspace;
  auto* date = workspace.findChild<DateEdit*>(u"dateBox"_s);
  const auto comeBackAfter = [&](int days) {
    const ScopedEnvironment later(std::make_unique<FixedEnvironment>(evening.addDays(days)));
    QEvent activation(QEvent::ActivationChange);
    QCoreApplication::sendEvent(&workspace, &activation);
  };
  comeBackAfter(1);
  EXPECT_EQ(date->date(), QDate(2020, 3, 6));
  date->setDate(QDate(2019, 1, 1));
  comeBackAfter(2);
  EXPECT_EQ(date->date(), QDate(2019, 1, 1));
}

TEST_F(WorkspaceTest, AFolderThatCannotBeWrittenLeavesOneLineInTheLog) {
  const auto logSize = [] { return contentOf(logFileName()).count('\n'); };
  TfKvb workspace;
  const auto lines = logSize();
  QDir::setCurrent(u"/proc"_s);
  EXPECT_TRUE(workspace.close());
  EXPECT_EQ(logSize(), lines + 1);
}

TEST_F(WorkspaceTest, ACancelledLoginEndsTheProcessWithoutAnotherStep) {
  TfKvb workspace;
  TDM data;
  TLogin_Form login;
  start(workspace, 2);
  EXPECT_EQ(ended, 0);
  EXPECT_TRUE(workspace.dxBarStatic1->text().isEmpty());
  EXPECT_FALSE(data.MySQL.Connected());
}

TEST_F(WorkspaceTest, ALoginFillsPanelsAndShowsThePictureBesideTheProgram) {
  const QString picture = programFolder() + u"masaustu.png"_s;
  put(picture, pictureBytes("PNG"));
  TfKvb workspace;
  TDM data;
  TfParametreler parameters;
  parameters.systemPrinters = [] { return QStringList{u"Büro"_s}; };
  TLogin_Form login;
  start(workspace, 6);
  QFile::remove(picture);
  EXPECT_FALSE(ended.has_value());
  EXPECT_FALSE(workspace.Timer1->isActive());
  EXPECT_EQ(workspace.dxBarStatic1->text(), login.Kullanici->text());
  EXPECT_EQ(workspace.focusWidget(), workspace.childArea()->clientArea()) << "Space presses nothing";
  EXPECT_EQ(workspace.dxBarStatic2->text(), login.eSunucu->text());
  EXPECT_EQ(parameters.VarsayilanPrinter->items(), QStringList{u"Büro"_s});
  EXPECT_EQ(workspace.childArea()->clientArea()->picture().size(), QSize(40, 30));
}

TEST_F(WorkspaceTest, TheStartTakesItsStepsInTheirOrder) {
  const QString picture = programFolder() + u"masaustu.png"_s;
  put(picture, pictureBytes("PNG"));
  TfKvb workspace;
  TDM data;
  TfParametreler parameters;
  TLogin_Form login;
  data.MySQL.Username = u"AYSE"_s;
  QStringList steps;
  const auto step = [&](const QString& name) {
    QString line = name;
    if (!workspace.childArea()->clientArea()->picture().isNull()) line += u", picture"_s;
    if (!workspace.dxBarStatic1->text().isEmpty()) line += u", user"_s;
    if (!workspace.dxBarStatic2->text().isEmpty()) line += u", server"_s;
    if (workspace.UDPCallerID->port() != 0) line += u", calls"_s;
    if (!steps.contains(line)) steps += line;  // printers and rights are asked for several times
  };
  parameters.systemPrinters = [&] {
    step(u"parameters"_s);
    return QStringList();
  };
  ports().openCompany = [&] { step(u"company"_s); };
  ports().openServiceTypes = [&] { step(u"service types"_s); };
  ports().loadMessageSettings = [&] { step(u"message settings"_s); };
  ports().logMark = [&](const QString&, const QString&, const std::exception&) { step(u"rights"_s); };
  ports().showReminders = [&] { step(u"reminders"_s); };
  start(workspace, 6);
  step(u"ready"_s);
  QFile::remove(picture);
  EXPECT_EQ(steps, (QStringList{u"parameters, picture"_s, u"company, picture"_s, u"service types, picture"_s,
                                u"message settings, picture, user, server"_s, u"rights, picture, user, server"_s,
                                u"reminders, picture, user, server"_s, u"ready, picture, user, server, calls"_s}));
}

TEST_F(WorkspaceTest, GuardedCommandsAreDisabledForAllButTheMaster) {
  const QStringList guardedCommands{u"dxBarLargeButton1"_s, u"dxBarSubItem7"_s, u"dxBarButton16"_s, u"dxBarButton17"_s,
                                    u"dxBarButton18"_s,     u"dxBarButton22"_s, u"dxBarSubItem1"_s};
  const QStringList paths{u"Yeni Servis Fişi"_s, u"Kartlar"_s, u"Kartlar\\Müşteri Kartları"_s, u"Kartlar\\Cihaz Kartları"_s,
                          u"Kartlar\\Dış Servis Kartları"_s, u"Kartlar\\Servis Tipleri"_s, u"Ayarlar"_s};
  for (const QString& account : {u"quend"_s, u"AYSE"_s}) {
    QFile::remove(logFileName());
    const bool master = account == u"quend"_s;
    TfKvb workspace;
    TDM data;
    TfParametreler parameters;
    parameters.systemPrinters = [] { return QStringList(); };
    TLogin_Form login;
    data.MySQL.Username = account;
    for (const QString& name : guardedCommands + QStringList{u"dxBarLargeButton2"_s, u"calls"_s}) workspace.connectCommand(name, [] {});
    start(workspace, 6);
    for (const QString& name : guardedCommands) {
      EXPECT_EQ(workspace.command(name)->isEnabled(), master) << name.toStdString();
      EXPECT_TRUE(workspace.command(name)->isVisible());
    }
    for (const QString& name : {u"dxBarLargeButton2"_s, u"calls"_s, u"parameters"_s, u"closeProgram"_s})
      EXPECT_TRUE(workspace.command(name)->isEnabled()) << name.toStdString();
    QStringList logged;
    for (const QString& line : QString::fromUtf8(contentOf(logFileName())).split(u"\r\n"_s))
      if (line.contains(u"Yetki Path hatası...: "_s)) logged.append(line.section(u"...: "_s, 1));
    EXPECT_EQ(logged, master ? QStringList() : paths);
  }
}

TEST_F(WorkspaceTest, AKeyOpensASlipFromAWindowBesideTheWorkspace) {
  TfKvb workspace;
  TDM data;
  TfParametreler parameters;
  parameters.systemPrinters = [] { return QStringList(); };
  TLogin_Form login;
  data.MySQL.Username = u"quend"_s;
  int opened = 0;
  workspace.connectCommand(u"dxBarLargeButton1"_s, [&] { ++opened; });
  start(workspace, 6);
  QWidget beside(&workspace, Qt::Window);
  beside.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&beside));
  QTest::keyClick(&beside, Qt::Key_N, Qt::ControlModifier);
  EXPECT_EQ(opened, 1);
  EXPECT_TRUE(QTest::qWaitForWindowActive(&workspace));
}

TEST_F(WorkspaceTest, CommandsAreEnabledWhenTheyDoSomethingAndMay) {
  TfKvb workspace;
  TDM data;
  TLogin_Form login;
  EXPECT_FALSE(workspace.command(u"rates"_s)->isEnabled()) << "it has no screen";
  int runs = 0;
  workspace.connectCommand(u"rates"_s, [&] { ++runs; });
  workspace.command(u"rates"_s)->trigger();
  EXPECT_EQ(runs, 1);
  // A start sequence that fails leaves what needs a right disabled: there are no parameters to load here.
  setUnhandledHandler([](QObject*, const std::exception&) {});
  machine().processFiles = []() -> QStringList { throw Exception(u"bozuk"_s); };
  workspace.show();
  EXPECT_TRUE(QTest::qWaitFor([&] { return workspace.isVisible() && !workspace.Timer1->isActive(); }, 20'000));
  setUnhandledHandler({});
  for (const auto& [path, name] : ribbonRights()) EXPECT_FALSE(workspace.command(name)->isEnabled()) << name.toStdString();
}

TEST_F(WorkspaceTest, TheRememberedPlaceAndStateComeBackWithTheirFrame) {
  const QRect desktop = QGuiApplication::primaryScreen()->availableGeometry();
  for (const auto& [entry, maximized] : {std::pair(u"10,20,700,500,normal"_s, false), std::pair(u"10,20,700,500,maximized"_s, true),
                                         std::pair(u"0,0,9000,9000,normal"_s, false)}) {
    IniFile::write(u"./KvbFORM.INI"_s, u"fKvb"_s, machine().computerName(), entry);
    TfKvb workspace;
    TDM data;
    TLogin_Form login;
    answerLogin(workspace, 2);
    workspace.show();
    ASSERT_TRUE(QTest::qWaitFor([&] { return ended.has_value(); }, 20'000));
    ended.reset();
    EXPECT_EQ(workspace.isMaximized(), maximized) << entry.toStdString();
    if (maximized) workspace.showNormal();
    QTest::qWait(300);
    EXPECT_TRUE(QTest::qWaitFor([&] { return desktop.contains(workspace.frameGeometry()); })) << entry.toStdString();
    if (entry.contains(u"700"_s)) {
      EXPECT_EQ(workspace.geometry(), QRect(10, 20, 700, 500));
    }
  }
}

TEST_F(WorkspaceTest, ParametersOpenByTheirCommandAndMayHideTheRibbonsGroups) {
  TfKvb workspace;
  TDM data;
  TfParametreler parameters;
  TfHatirlat reminder;
  QTimer::singleShot(0, &parameters, [&] {
    EXPECT_TRUE(parameters.isVisible() && parameters.isModal());
    parameters.reject();
  });
  workspace.command(u"parameters"_s)->trigger();
  EXPECT_EQ(parameters.result(), TfParametreler::GivenUp);

  // Neither slip opens without a server; the ribbon is hidden before that.
  auto* switches = parameters.findChild<CheckListModel*>();
  for (const bool hides : {false, true}) {
    switches->setData(switches->index(ParameterFiles::HideRibbonAtSlip), hides ? Qt::Checked : Qt::Unchecked, Qt::CheckStateRole);
    for (const auto& open : {std::function<void()>([&] { ports().newSlip(); }), std::function<void()>([&] { ports().openSlip(1); })}) {
      workspace.ribbon()->setPageVisible(true);
      EXPECT_ANY_THROW(open());
      EXPECT_EQ(workspace.ribbon()->isPageVisible(), !hides);
    }
  }
}

TEST_F(WorkspaceTest, TheHelperIsStartedUnlessItRuns) {
  const QString helper = programFolder() + u"Vigil.Exe"_s;
  const QString trace = folder.filePath(u"started"_s);
  putScript(helper, "touch '" + trace.toUtf8() + "'\n");
  for (const bool running : {true, false}) {
    ended.reset();
    machine().processFiles = [running] {
      return running ? QStringList{u"/usr/bin/other"_s, u"/opt/kvtk/vigil.exe"_s} : QStringList{u"/usr/bin/other"_s};
    };
    TfKvb workspace;
    TDM data;
    TLogin_Form login;
    start(workspace, 2);
    EXPECT_EQ(QTest::qWaitFor([&] { return QFile::exists(trace); }, running ? 300 : 3000), !running);
  }
  QFile::remove(helper);
}

}  // namespace
