#pragma once

#include "app/application.h"
#include "app/dmUnit.h"
#include "base/guard.h"
#include "app/kvbankUnit.h"
#include "app/parameters.h"
#include "app/ports.h"
#include "app/Unit14.h"
#include "reminders/fhatirlat_unit.h"
#include "service/ffoto_unit.h"
#include "service/fservisfis_unit.h"
#include "tests/support/scripted_dialogs.h"
#include "tests/support/test_database.h"
#include "tests/support/typing.h"
#include "toolkit/edits/balloon.h"
#include "toolkit/edits/edit_box.h"
#include "toolkit/edits/memo_edit.h"
#include "toolkit/edits/text_edit.h"
#include "toolkit/grid/data_grid.h"
#include "toolkit/grid/grid_model.h"
#include "toolkit/grid/grid_view.h"

#include <gmock/gmock.h>

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

/// Failures show texts as texts.
inline void PrintTo(const QString& text, std::ostream* out) { *out << '"' << text.toStdString() << '"'; }

/// The real workspace with slip windows on the real database, dialogs answered by a script.
class SlipFormTest : public testing::Test {
 protected:
  SlipFormTest() : before_(QDir::currentPath()) {
    QDir::setCurrent(folder.path());
    fillPorts();
  }
  ~SlipFormTest() override { QDir::setCurrent(before_); }

  void SetUp() override {
    login.Kullanici->setText(QStringLiteral("QUEND"));
    TestDatabase::open(DM->MySQL);
    database.emptyTables();
    run(u"INSERT INTO servistip (SERVIS_AD) VALUES ('ATÖLYE'), ('YERİNDE')");
    setUnhandledHandler([this](QObject*, const std::exception& error) { unhandled.append(QString::fromUtf8(error.what())); });
    workspace.show();
    workspace.Timer1->stop();
    workspace.resize(1366, 768);
    workspace.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&workspace));
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

  TfServisFis* newSlip();
  TfServisFis* openSlip(qint64 id);
  /// A slip that may be saved as it is.
  TfServisFis* filledSlip(const QString& number);
  qint64 savedId(const QString& number) { return rows(QStringLiteral("select TS_ID from teknikservis where TS_NO='%1'").arg(number)).toLongLong(); }

  static EditBox* box(TfServisFis* slip, const QString& column);
  static QString text(TfServisFis* slip, const QString& column) { return box(slip, column)->text(); }
  static QTabWidget* pages(TfServisFis* slip) { return slip->findChild<QTabWidget*>(QStringLiteral("pages")); }
  static MemoEdit* note(TfServisFis* slip) { return slip->findChild<MemoEdit*>(QStringLiteral("SF_NOT")); }
  static DataGrid* lines(TfServisFis* slip) { return slip->findChild<DataGrid*>(QStringLiteral("lines")); }
  static Balloon* balloon(TfServisFis* slip) { return slip->findChild<Balloon*>(); }
  /// Sends the characters to whatever has the focus, one key each.
  static void type(const QString& characters);
  static void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {});
  /// Puts the cursor into a box and types over what is there.
  static void enter(TfServisFis* slip, const QString& column, const QString& characters);
  void addLine(TfServisFis* slip, const QString& part, const QString& quantity, const QString& amount);
  /// Sets a switch of the parameters; takes a status out of the slips' list.
  void switchOn(int parameter);
  void makePassive(const QString& status);
  void save(TfServisFis* slip) { slip->aKaydet->trigger(); }
  /// Does the work between the re-read of the slip and its write, once.
  static void beforeNextPost(TfServisFis* slip, std::function<void()> work) {
    slip->qServis.BeforePost = [work = std::move(work), isDone = false]() mutable {
      if (!std::exchange(isDone, true)) work();
    };
  }

  QTemporaryDir folder;
  ScriptedDialogs dialogs;
  QStringList unhandled;
  TestDatabase database;
  TfKvb workspace;
  TDM dataModule;
  TfParametreler parameters;
  TfHatirlat reminder;
  TfFoto photo;
  TLogin_Form login;

 private:
  QString before_;
};
