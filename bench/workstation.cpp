// kvtk-bench-workstation NUMBER SECONDS PAUSE WORK SHARED GO: a program at work on the server in KVTK_COMPUTER_NAME, one of several.
// Every PAUSE milliseconds it does the next of what WORK lists, joined by ",":
//   new      a slip with two lines and a note
//   own      another save of one of 50 slips that no other program saves
//   shared   another save of one of the first SHARED slips, which all programs save
//   list     the list of the day's slips
//   search   a customer's slips of another day in that list
// It begins as soon as the file GO is there and writes a line for each: "done", what, milliseconds from the command to its end, and
// of a save the slip's number and the text that it wrote; "taken" where a proposed number was another one's, "refused" where the
// save failed otherwise, which the program's log tells, both followed by another try; "broken" where the screen did not keep what
// was typed. When the server is gone, the last line is "gone" and the result 3.

#include "app/application.h"
#include "app/dmUnit.h"
#include "app/kvbankUnit.h"
#include "app/look.h"
#include "app/parameters.h"
#include "app/ports.h"
#include "app/quendUtils.h"
#include "app/Unit14.h"
#include "base/data/my_query.h"
#include "base/data/value.h"
#include "base/exceptions.h"
#include "base/platform/time_zone.h"
#include "bench/measuring.h"
#include "bench/paint_watch.h"
#include "reminders/fhatirlat_unit.h"
#include "service/ffoto_unit.h"
#include "service/fservisfis_unit.h"
#include "service/fservisfissecUnit.h"
#include "toolkit/edits/balloon.h"
#include "toolkit/edits/edit_box.h"
#include "toolkit/edits/memo_edit.h"
#include "toolkit/edits/task_dialog.h"
#include "toolkit/edits/text_edit.h"

#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QListView>
#include <QTest>

#include <algorithm>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

constexpr int ownSlips = 50;
constexpr int tries = 20;
constexpr int secondThought = 2500;  // until the balloon is gone
constexpr int serverIsGone = 3;

/// Gives up every question and goes past every message.
class SilentDialogs : public DialogDriver {
 public:
  int runTaskDialog(QWidget*, const TaskDialogRequest& request) override { return request.cancelResult; }
};

void say(const char* kind, const QString& what, double time = 0, const QString& number = {}, const QString& token = {}) {
  std::printf("%s %s %.3f %s %s\n", kind, what.toUtf8().constData(), time, number.toUtf8().constData(), token.toUtf8().constData());
  std::fflush(stdout);
}

void settle() {
  QApplication::processEvents();
  QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

QString single(const QString& statement) {
  TMyQuery query(DM->MySQL, u"qBench"_s);
  query.SQL.setText(statement);
  query.Open();
  return query.IsEmpty() ? QString() : query.field(0).asText();
}

bool serverAnswers() {
  try {
    DM->MySQL.execute("SELECT 1");
    return true;
  } catch (const EMyError&) {
    return false;
  }
}

/// Lets the program be idle for that long.
void rest(qint64 pause) {
  QElapsedTimer timer;
  timer.start();
  do QTest::qWait(int(std::min<qint64>(20, std::max<qint64>(0, pause - timer.elapsed()))));
  while (timer.elapsed() < pause);
}

class Workstation {
 public:
  Workstation(int number, int shared) : number_(number), shared_(shared) {
    firstKey_ = single(u"select MIN(TS_ID) from teknikservis"_s).toLongLong();
    customer_ = single(u"select CA_AD from cari order by CA_ID limit %1, 1"_s.arg(number * 7));
    QAbstractItemModel* switches = fParametreler->findChild<QListView*>(u"ParamList"_s)->model();
    switches->setData(switches->index(ParameterFiles::ListSlipsOfTheDay, 0), Qt::Checked, Qt::CheckStateRole);
  }

  void work(const QString& what) {
    ++step_;
    token_ = u"P%1-%2"_s.arg(number_).arg(step_);
    if (what == "new"_L1) newSlip();
    if (what == "own"_L1) change(what, shared_ + ownSlips * number_ + step_ % ownSlips);
    if (what == "shared"_L1) change(what, (step_ * 31 + number_ * 17) % shared_);
    if (what == "list"_L1) say("done", what, openList({}));
    if (what == "search"_L1) say("done", what, openList(single(u"select DATE_FORMAT(TS_TARIH, '%d.%m.%Y') from teknikservis where TS_ID = %1"_s.arg(keyOf(step_ * 97 + number_)))));
  }

 private:
  qint64 keyOf(int place) const { return firstKey_ + place; }

  static EditBox& box(const QString& column) { return *fServisFis->findChild<EditBox*>(column); }

  static bool isWritten(const QString& token) {
    return fServisFis->EditorMode == TfServisFis::Mode::Edit && fServisFis->qServis.state() == QueryState::Browse &&
           fServisFis->qServis.FieldByName(u"TS_ACIKLAMA"_s).asText() == token;
  }

  void type() {
    box(u"TS_ACIKLAMA"_s).setText(token_);
    fServisFis->findChild<MemoEdit*>(u"SF_NOT"_s)->setText(token_);
  }

  void newSlip() {
    ports().newSlip();
    box(u"TS_MUSTERI"_s).setText(customer_);
    box(u"TS_C_AD"_s).setText(u"LAZER YAZICI"_s);
    box(u"TS_C_SERINO"_s).setText(u"SN-"_s + token_);
    TMyQuery& lines = fServisFis->qMalzeme;
    for (int line = 0; line < 2; ++line) {
      lines.Insert();
      lines.FieldByName(u"MZ_PARCA_ADI"_s).set(token_);
      lines.FieldByName(u"MZ_ADET"_s).set(qint64(1));
      lines.Post();
    }
    type();
    save(u"new"_s);
  }

  void change(const QString& what, int place) {
    ports().openSlip(keyOf(place));
    type();
    save(what);
  }

  void save(const QString& what) {
    for (int attempt = 0; attempt < tries; ++attempt) {
      const double time = Measuring::milliseconds([] { fServisFis->aKaydet->trigger(); });
      const QString slip = box(u"TS_NO"_s).text();
      if (isWritten(token_)) {
        say("done", what, time, slip, token_);
        break;
      }
      const bool keeps = box(u"TS_ACIKLAMA"_s).text() == token_ && fServisFis->noteText() == token_ &&
                         (what != "new"_L1 || fServisFis->qMalzeme.RecordCount() == 2);
      if (!keeps) say("broken", what, time, slip, token_);
      if (!serverAnswers()) throw EDatabaseError(u"gone"_s);
      const bool isTaken = fServisFis->findChild<Balloon*>()->text().contains(u"mükerrer"_s);
      say(isTaken ? "taken" : "refused", what, time, slip, token_);
      if (isTaken) {
        rest(secondThought);
        box(u"TS_NO"_s).setText({});
        QTest::keyClick(box(u"TS_NO"_s).line(), Qt::Key_F5);
      }
    }
    for (QWidget* window : fKvb->childWindows()) window->parentWidget()->close();
    settle();
  }

  /// Milliseconds to the painted list of the day, or, with another day, from there to the painted slips of a customer on that day.
  static double openList(const QString& day) {
    DataGrid& grid = *fservisfisSec->findChild<DataGrid*>();
    PaintWatch watch(grid);
    QElapsedTimer timer;
    double time = 0;
    const auto close = [&] {
      time = double(timer.nsecsElapsed()) / 1e6;
      fservisfisSec->reject();
    };
    watch.afterPaint = [&] {
      if (day.isEmpty()) return close();
      timer.restart();
      watch.afterPaint = close;
      grid.setColumnFilter(u"TS_TARIH"_s, FilterOperator::Equal, day);
      grid.setColumnFilter(u"TS_MUSTERI"_s, FilterOperator::Contains, u"YILMAZ"_s);
    };
    timer.start();
    std::vector<QString> ids;
    fservisfisSec->Giris(ids);
    return time;
  }

  int number_;
  int shared_;
  qint64 firstKey_ = 0;
  QString customer_;
  QString token_;
  int step_ = 0;
};

int run(int number, int seconds, int pause, const QStringList& work, int shared, const QString& go) {
  Workstation workstation(number, shared);
  // What is read once is in nobody's way.
  ports().newSlip();
  for (QWidget* window : fKvb->childWindows()) window->parentWidget()->close();
  settle();
  while (!QFile::exists(go)) rest(50);
  QElapsedTimer timer;
  timer.start();
  try {
    for (int step = 0; timer.elapsed() < seconds * 1000; ++step) {
      // Nobody works in step with the others.
      rest(qint64(step) * pause + (number * 7919 + step * 104729) % pause - timer.elapsed());
      workstation.work(work[(step + number) % work.size()]);
    }
  } catch (const EDatabaseError& error) {
    say("gone", error.message().section(u'\n', 0, 0).replace(u' ', u'_'));
    return serverIsGone;
  }
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 7) {
    std::fputs("usage: kvtk-bench-workstation NUMBER SECONDS PAUSE WORK SHARED GO\n", stderr);
    return 2;
  }
  nameTimeZone();
  int programArguments = 1;
  QApplication application(programArguments, argv);
  applyLook(application);
  setDialogDriver(std::make_unique<SilentDialogs>());
  TfKvb workspace;
  fillPorts();
  TDM dataModule;
  TfParametreler parameters;
  TfHatirlat reminder;
  TfFoto photo;
  TfservisfisSec browser;
  TLogin_Form login;
  login.Kullanici->setText(u"QUEND"_s);
  Measuring::open(DM->MySQL);
  workspace.show();
  workspace.Timer1->stop();
  workspace.resize(1366, 768);
  settle();
  const auto number = [argv](int at) { return QByteArray(argv[at]).toInt(); };
  return run(number(1), number(2), number(3), QString::fromLocal8Bit(argv[4]).split(u','), number(5), QString::fromLocal8Bit(argv[6]));
}
