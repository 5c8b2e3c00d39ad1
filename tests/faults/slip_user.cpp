// One workstation: the real slip windows on the real database, driven over the standard input. A line is a command and its
// fields, parted by tabs; the answer is a line as well, with "\n" for its line breaks. Dialogs are the real ones; what they
// said and the balloon that is up come with the answer of the command that brought them.
#include "app/application.h"
#include "app/dmUnit.h"
#include "base/data/my_query.h"
#include "base/guard.h"
#include "app/kvbankUnit.h"
#include "app/look.h"
#include "app/parameters.h"
#include "app/ports.h"
#include "app/Unit14.h"
#include "reminders/fhatirlat_unit.h"
#include "service/ffoto_unit.h"
#include "service/fservisfis_unit.h"
#include "tests/support/test_database.h"
#include "toolkit/edits/balloon.h"
#include "toolkit/edits/edit_box.h"
#include "toolkit/edits/memo_edit.h"
#include "toolkit/edits/task_dialog.h"
#include "toolkit/edits/text_edit.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QPainter>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

#include <iostream>
#include <map>
#include <optional>
#include <string>

using namespace Qt::StringLiterals;

namespace {

std::optional<QStringList> readCommand() {
  std::string line;
  if (!std::getline(std::cin, line)) return std::nullopt;
  return QString::fromStdString(line).split(u'\t');
}

void tell(QString text) {
  text.replace(u"\r\n"_s, u"\\n"_s).replace(u'\n', u"\\n"_s);
  std::cout << text.toStdString() << std::endl;
}

/// All windows that are up, as they lie on the screen.
void keepPicture(QWidget& workspace, const QString& name) {
  const QString folder = qEnvironmentVariable("KVTK_SHOTS");
  if (folder.isEmpty()) return;
  QDir().mkpath(folder);
  QPixmap picture(workspace.size());
  QPainter painter(&picture);
  painter.drawPixmap(0, 0, workspace.grab());
  for (QWidget* window : QApplication::topLevelWidgets())
    if (window->isVisible() && window != &workspace) painter.drawPixmap(window->mapToGlobal(QPoint()) - workspace.mapToGlobal(QPoint()), window->grab());
  painter.end();
  picture.save(QDir(folder).filePath(name + u".png"_s));
}

class Workstation : public DialogDriver {
 public:
  explicit Workstation(TfKvb& workspace) : workspace_(workspace) {}

  /// The answer to a command; throws std::out_of_range for one that is none.
  QString run(const QStringList& words) {
    said_.clear();
    const QString result = commands_.at(words.first())(words);
    QCoreApplication::processEvents();
    return result;
  }

  int runTaskDialog(QWidget* owner, const TaskDialogRequest& request) override {
    said_.append(request.text);
    const QString answer = request.buttons.size() == 1 ? request.buttons.front().caption : answer_;
    postGuarded(&workspace_, [this, answer] {
      QTest::qWait(20);
      if (!picture_.isEmpty()) keepPicture(workspace_, picture_);
      for (auto* button : QApplication::activeModalWidget()->findChildren<QPushButton*>())
        if (button->text() == answer) return button->click();
    });
    return DialogDriver::runTaskDialog(owner, request);
  }

 private:
  TfServisFis& slip() const { return *fServisFis; }
  EditBox& box(const QString& column) const { return *slip().findChild<EditBox*>(column); }
  Balloon& balloon() const { return *slip().findChild<Balloon*>(); }

  QString open(const QString& number) {
    TMyQuery query(DM->MySQL, u"find"_s);
    query.SQL.setText(u"select TS_ID from teknikservis where TS_NO = :TS_NO"_s);
    query.ParamByName(u"TS_NO"_s) = number;
    query.Open();
    ports().openSlip(query.FieldByName(u"TS_ID"_s).asInteger());
    return slip().windowTitle();
  }

  QString trigger(QAction* action) {
    balloon().hide();
    action->trigger();
    QStringList told = said_;
    if (fServisFis != nullptr && balloon().isUp()) told.append(balloon().text());
    if (!picture_.isEmpty() && said_.isEmpty()) keepPicture(workspace_, picture_);
    picture_.clear();
    return told.join(u'|');
  }

  /// The next write of the slip waits, after the slip was read anew, until "go" comes.
  void hold() {
    slip().qServis.BeforePost = [this, isDone = false]() mutable {
      if (std::exchange(isDone, true)) return;
      tell(u"held"_s);
      readCommand();
    };
  }

  TfKvb& workspace_;
  QStringList said_;
  QString answer_ = u"Vazgeç"_s;
  QString picture_;
  const std::map<QString, std::function<QString(const QStringList&)>> commands_{
      {u"new"_s, [this](const QStringList&) { ports().newSlip(); return box(u"TS_NO"_s).text(); }},
      {u"open"_s, [this](const QStringList& words) { return open(words[1]); }},
      {u"close"_s, [this](const QStringList&) { slip().parentWidget()->close(); return QString(); }},
      {u"set"_s, [this](const QStringList& words) { box(words[1]).setText(words[2]); return QString(); }},
      {u"get"_s, [this](const QStringList& words) { return box(words[1]).text(); }},
      {u"note"_s, [this](const QStringList& words) { slip().findChild<MemoEdit*>(u"SF_NOT"_s)->setText(words[1]); return QString(); }},
      {u"number"_s, [this](const QStringList&) { box(u"TS_NO"_s).pressButton(1); return box(u"TS_NO"_s).text(); }},
      {u"answer"_s, [this](const QStringList& words) { answer_ = words[1]; return QString(); }},
      {u"picture"_s, [this](const QStringList& words) { picture_ = words[1]; return QString(); }},
      {u"hold"_s, [this](const QStringList&) { hold(); return QString(); }},
      {u"save"_s, [this](const QStringList&) { return trigger(slip().aKaydet); }},
      {u"delete"_s, [this](const QStringList&) { return trigger(slip().aSil); }},
      {u"state"_s, [this](const QStringList&) {
         if (fServisFis == nullptr) return u"none"_s;
         return slip().EditorMode == TfServisFis::Mode::Insert ? u"insert"_s : u"edit"_s;
       }},
  };
};

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  applyLook(application);
  const QTemporaryDir folder;  // window places are kept in the current one
  QDir::setCurrent(folder.path());
  fillPorts();
  TfKvb workspace;
  TDM dataModule;
  TfParametreler parameters;
  TfHatirlat reminder;
  TfFoto photo;
  TLogin_Form login;
  login.Kullanici->setText(QString::fromUtf8(argv[1]));
  TestDatabase::open(DM->MySQL);
  setUnhandledHandler([](QObject*, const std::exception& error) {
    std::cerr << error.what() << std::endl;
    _exit(3);
  });
  workspace.show();
  workspace.Timer1->stop();
  workspace.resize(1366, 768);
  workspace.activateWindow();
  auto driver = std::make_unique<Workstation>(workspace);
  Workstation& workstation = *driver;
  setDialogDriver(std::move(driver));
  tell(u"ready"_s);
  while (const auto words = readCommand()) tell(workstation.run(*words));
  workspace.close();
  setDialogDriver(nullptr);
  return 0;
}
