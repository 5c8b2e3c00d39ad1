#pragma once

#include "app/parameters.h"
#include "base/data/my_query.h"
#include "service/ffoto_unit.h"
#include "service/fservisfis_unit.h"
#include "tests/support/program_test.h"
#include "toolkit/edits/balloon.h"
#include "toolkit/edits/edit_box.h"
#include "toolkit/edits/memo_edit.h"
#include "toolkit/edits/text_edit.h"
#include "toolkit/grid/data_grid.h"
#include "toolkit/grid/grid_model.h"
#include "toolkit/grid/grid_view.h"

/// The workspace with slip windows.
class SlipFormTest : public ProgramTest {
 protected:
  void SetUp() override {
    ProgramTest::SetUp();
    run(u"INSERT INTO servistip (SERVIS_AD) VALUES ('ATÖLYE'), ('YERİNDE')");
    workspace.resize(1366, 768);
    workspace.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&workspace));
  }

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
  /// What the balloon of a save tells.
  QString saying(TfServisFis* slip) {
    balloon(slip)->hide();
    save(slip);
    return balloon(slip)->isUp() ? balloon(slip)->text() : QString();
  }
  static void click(TfServisFis* slip, const QString& button) { slip->findChild<QAbstractButton*>(button)->click(); }
  /// Does the work between the re-read of the slip and its write, once.
  static void beforeNextPost(TfServisFis* slip, std::function<void()> work) {
    slip->qServis.BeforePost = [work = std::move(work), isDone = false]() mutable {
      if (!std::exchange(isDone, true)) work();
    };
  }

  TfParametreler parameters;
  TfFoto photo;
};
