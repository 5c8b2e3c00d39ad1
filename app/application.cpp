#include "app/application.h"

#include "app/about_box.h"
#include "app/dmUnit.h"
#include "base/guard.h"
#include "app/kvbankUnit.h"
#include "app/look.h"
#include "app/parameters.h"
#include "base/platform/time_zone.h"
#include "app/Unit14.h"
#include "cards/customer_devices.h"
#include "cards/customer_editor.h"
#include "cards/customer_list.h"
#include "cards/device_list.h"
#include "cards/firm_editor.h"
#include "cards/firm_list.h"
#include "cards/service_types.h"
#include "reminders/fhatirlat_unit.h"
#include "service/ffoto_unit.h"
#include "service/fservisfissecUnit.h"

#include <QApplication>
#include <QIcon>

#include <memory>

using namespace Qt::StringLiterals;

namespace {
/// Last net under every handler: no exception reaches the toolkit's own frames.
class Application : public QApplication {
 public:
  using QApplication::QApplication;

  bool notify(QObject* receiver, QEvent* event) override {
    try {
      return QApplication::notify(receiver, event);
    } catch (...) {
      reportUnhandled(receiver);
      return false;
    }
  }
};
}  // namespace

int runProgram(int argc, char** argv, const std::function<void()>& beforeLoop) {
  nameTimeZone();
  Application application(argc, argv);
  QCoreApplication::setApplicationName(u"Torvane Teknik Servis Takip"_s);
  applyLook(application, wantedColors());
  QApplication::setWindowIcon(QIcon(u":/kvtk.svg"_s));
  QApplication::setQuitOnLastWindowClosed(false);  // the main window ends the program, no other one does

  auto splash = std::make_unique<TfAbout>();
  splash->show();
  QCoreApplication::processEvents();
  splash->repaint();

  // The order is fixed; the screens are destroyed the other way round.
  TfKvb workspace(QCoreApplication::arguments());
  TDM dataModule;
  TfParametreler parameters;
  TfservisfisSec browser;
  TfHatirlat reminder;
  TfFoto photo;
  TLogin_Form login;
  Tfmusteriler customers;
  Tfcihazlar devices;
  TfDisServisler firms;
  TfDisServisEkle firmEditor;
  TfCariEkle customerEditor;
  TfServisTip serviceTypes;
  TfMusteriCihaz customerDevices;
  setUnhandledHandler([](QObject* sender, const std::exception& error) {
    Login_Form->ApplicationEvents1Exception(sender, error);
  });
  splash.reset();
  TfAbout about;

  connectGuarded(&workspace, &TfKvb::closed, &workspace, [] { QCoreApplication::exit(0); });  // whatever else is open
  workspace.show();
  if (beforeLoop) beforeLoop();
  const int exitCode = QApplication::exec();
  setUnhandledHandler({});
  return exitCode;
}
