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
#include "toolkit/edits/task_dialog.h"
#include "toolkit/edits/text_edit.h"

#include <QAction>
#include <QApplication>
#include <QDir>
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
    return told.join(u'|');
  }

  TfKvb& workspace_;
  QStringList said_;
  QString answer_ = u"Vazgeç"_s;
  const std::map<QString, std::function<QString(const QStringList&)>> commands_{
      {u"new"_s, [this](const QStringList&) { ports().newSlip(); return box(u"TS_NO"_s).text(); }},
      {u"open"_s, [this](const QStringList& words) { return open(words[1]); }},
      {u"close"_s, [this](const QStringList&) { slip().parentWidget()->close(); return QString(); }},
      {u"set"_s, [this](const QStringList& words) { box(words[1]).setText(words[2]); return QString(); }},
      {u"answer"_s, [this](const QStringList& words) { answer_ = words[1]; return QString(); }},
      {u"save"_s, [this](const QStringList&) { return trigger(slip().aKaydet); }},
      {u"delete"_s, [this](const QStringList&) { return trigger(slip().aSil); }},
      {u"isOpen"_s, [](const QStringList&) { return fServisFis != nullptr ? u"yes"_s : u"no"_s; }},
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
