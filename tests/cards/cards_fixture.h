#pragma once

#include "app/application.h"
#include "app/dmUnit.h"
#include "base/guard.h"
#include "app/kvbankUnit.h"
#include "app/ports.h"
#include "app/Unit14.h"
#include "cards/customer_devices.h"
#include "cards/customer_editor.h"
#include "cards/customer_list.h"
#include "cards/device_list.h"
#include "cards/firm_editor.h"
#include "cards/firm_list.h"
#include "cards/service_types.h"
#include "reminders/fhatirlat_unit.h"
#include "tests/support/scripted_dialogs.h"
#include "tests/support/test_database.h"
#include "tests/support/typing.h"

#include <gmock/gmock.h>

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QTemporaryDir>
#include <QTest>

#include <functional>

class DataGrid;
class qcxDBTextEdit;

/// The card screens of the program on the real database, worked by keys; dialogs are answered by a script.
class CardsTest : public testing::Test {
 protected:
  CardsTest() : before_(QDir::currentPath()) {
    QDir::setCurrent(folder.path());
    ports() = {};  // what an earlier test has put there
    fillPorts();
  }
  ~CardsTest() override { QDir::setCurrent(before_); }

  void SetUp() override;
  void TearDown() override;

  /// Runs a statement as another workstation.
  void run(QStringView statement) { database.run(statement); }
  /// Rows of a statement as another workstation sees them: fields joined by "|", rows by ";", NULL as "~".
  QString rows(const QString& statement) { return database.rows(statement); }

  /// Opens a modal screen and works on it while it is open; an error that comes out of open() is kept in unhandled. What the
  /// work leaves open is closed.
  void within(const std::function<void()>& open, QDialog& screen, const std::function<void()>& work);
  /// Types over a box of an editor and leaves it.
  static void enter(CardEditor& editor, const QString& column, const QString& text);
  /// Presses a key in a window or control, whose window is made the active one.
  static void press(QWidget& target, Qt::Key key, Qt::KeyboardModifiers modifiers = {});
  /// The list's command as the user finds it: true when it was enabled and has run.
  static bool runCommand(CardList& list, const QString& name);
  /// What is shown in a column, top to bottom.
  static QStringList shown(TMyQuery& query, const QString& column);
  /// Ends DM's connection at the server.
  void cutConnection();

  QTemporaryDir folder;
  ScriptedDialogs dialogs;
  QStringList unhandled;
  TestDatabase database;
  TfKvb workspace;
  TDM dataModule;
  TfHatirlat reminder;
  TLogin_Form login;
  Tfmusteriler customers;
  Tfcihazlar devices;
  TfDisServisler firms;
  TfDisServisEkle firmEditor{firms.qDisServis};
  TfCariEkle customerEditor{customers.qCari};
  TfServisTip serviceTypes;
  TfMusteriCihaz customerDevices;

 private:
  QString before_;
};
