#pragma once

#include "app/Unit14.h"
#include "app/application.h"
#include "app/dmUnit.h"
#include "app/kvbankUnit.h"
#include "app/ports.h"
#include "base/guard.h"
#include "reminders/fhatirlat_unit.h"
#include "tests/support/screen_test.h"
#include "tests/support/scripted_dialogs.h"
#include "tests/support/test_database.h"
#include "toolkit/edits/text_edit.h"

/// The program's workspace on the real database, in a folder of its own; dialogs are answered by a script.
class ProgramTest : public testing::Test {
 protected:
  ProgramTest() : before_(QDir::currentPath()) {
    QDir::setCurrent(folder.path());
    ports() = {};  // what an earlier test has put there
    fillPorts();
  }
  ~ProgramTest() override { QDir::setCurrent(before_); }

  void SetUp() override {
    login.Kullanici->setText(u"QUEND"_s);
    TestDatabase::open(DM->MySQL);
    database.emptyTables();
    setUnhandledHandler([this](QObject*, const std::exception& error) { unhandled.append(QString::fromUtf8(error.what())); });
    workspace.show();
    workspace.Timer1->stop();
  }
  void TearDown() override {
    workspace.close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    setUnhandledHandler({});
    EXPECT_TRUE(unhandled.isEmpty()) << qPrintable(unhandled.join(u'\n'));
  }

  /// Runs a statement as another workstation.
  void run(QStringView statement) { database.run(statement); }
  /// Rows of a statement as another workstation sees them: fields joined by "|", rows by ";", NULL as "~".
  QString rows(const QString& statement) { return database.rows(statement); }
  /// Ends the program's connection at the server.
  void cutConnection() { database.cut(DM->MySQL); }

  QTemporaryDir folder;
  ScriptedDialogs dialogs;
  QStringList unhandled;
  TestDatabase database;
  TfKvb workspace;
  TDM dataModule;
  TfHatirlat reminder;
  TLogin_Form login;

 private:
  QString before_;
};
