#include "app/application.h"

#include "app/about_box.h"
#include "app/company_card.h"
#include "app/dmUnit.h"
#include "base/guard.h"
#include "app/kvbankUnit.h"
#include "app/look.h"
#include "app/parameters.h"
#include "app/ports.h"
#include "base/platform/heap.h"
#include "base/platform/time_zone.h"
#include "app/Unit14.h"
#include "cards/customer_devices.h"
#include "cards/customer_editor.h"
#include "cards/customer_list.h"
#include "cards/device_list.h"
#include "cards/firm_editor.h"
#include "cards/firm_list.h"
#include "cards/service_types.h"
#include "contracts/contract_editor.h"
#include "contracts/contract_list.h"
#include "comm/fEpostaUnit.h"
#include "comm/fGelenAramalarUnit.h"
#include "comm/slip_notices.h"
#include "comm/smsGonderUnit.h"
#include "comm/smsUnit.h"
#include "extras/exchange_rates.h"
#include "extras/report_design.h"
#include "extras/statistics.h"
#include "reminders/fhatirlat_unit.h"
#include "reminders/reminder_window.h"
#include "service/ffoto_unit.h"
#include "service/fservisfissecUnit.h"
#include "service/slip_hooks.h"
#include "service/slip_printing.h"
#include "service/slip_windows.h"
#include "toolkit/edits/text_edit.h"
#include "toolkit/shell/focus_links.h"
#include "toolkit/shell/wait_panel.h"
#include "toolkit/shell/window_place.h"

#include <QApplication>
#include <QIcon>
#include <QLabel>

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

/// What the workspace's commands open.
void connectCommands(TfKvb& workspace) {
  workspace.connectCommand(u"dxBarLargeButton1"_s, [] { SlipWindows::openNew(); });
  workspace.connectCommand(u"dxBarLargeButton2"_s, [] { SlipWindows::choose(); });
  workspace.connectCommand(u"rates"_s, [] { fDoviz->Giris(); });
  workspace.connectCommand(u"calls"_s, [] { fGelenAramalar->Giris(); });
  workspace.connectCommand(u"smsSettings"_s, [] { fSMS->Giris(); });
  workspace.connectCommand(u"mailSettings"_s, [] { fEPOSTA->Giris(); });
  workspace.connectCommand(u"company"_s, [] { fSirket->Giris(); });
  workspace.connectCommand(u"contracts"_s, [] { fSozlesme->Giris(); });
  workspace.connectCommand(u"reminders"_s, [] { ports().showReminders(); });
  workspace.connectCommand(u"dxBarButton16"_s, [] { fmusteriler->Giris(); });
  workspace.connectCommand(u"dxBarButton17"_s, [] { fcihazlar->Giris(); });
  workspace.connectCommand(u"dxBarButton18"_s, [] { fDisServisler->Giris(); });
  workspace.connectCommand(u"dxBarButton22"_s, [] { fServisTip->Giris(); });
}

}  // namespace

void fillPorts() {
  Ports& all = ports() = {};
  all.log = [](const QString& message, const std::exception* error) { TLogin_Form::Log(message, error); };
  all.logMark = [](const QString& name, const QString& text, const std::exception& error) {
    if (Login_Form == nullptr) return;  // as the program ends
    QLabel mark(text);
    mark.setObjectName(name);
    Login_Form->ApplicationEvents1Exception(&mark, error);
  };
  all.userName = [] { return Login_Form != nullptr ? Login_Form->Kullanici->text() : QString(); };
  all.rights = [] { return fKvb != nullptr ? &fKvb->Yetkitree : nullptr; };

  all.showChild = [](QWidget* editor, const QString& caption) {
    if (fKvb == nullptr) return false;
    fKvb->addChildWindow(editor);
    fKvb->setChildCaption(editor, caption);
    return true;
  };
  all.childWindows = [] { return fKvb != nullptr ? fKvb->childWindows() : QList<QWidget*>(); };
  all.inSlipFrame = [](const std::function<void()>& work) { fKvb != nullptr ? fKvb->inSlipFrame(work) : work(); };
  all.setStatusText = [](const QString& text) {
    if (fKvb != nullptr) fKvb->setStatusText(text);
  };

  all.newSlip = [] { SlipWindows::openNew(); };
  all.openSlip = [](qint64 id) { SlipWindows::open(id); };
  all.answerSlipConflict = [](const QString& className, const QString& message) { SlipWindows::answerConflict(className, message); };
  all.openCompany = [] {
    if (fSirket != nullptr) fSirket->open();
  };
  all.companyText = [](const QString& column) {
    const auto* box = fSirket != nullptr ? fSirket->findChild<EditBox*>(column) : nullptr;
    return box != nullptr ? box->text() : QString();
  };
  all.report = [] { return fKvb != nullptr ? fKvb->frxReport1.get() : nullptr; };
  all.designReport = [](const QString& file, const DesignSample& sample) {
    if (fRaporTasarla == nullptr) return;
    TfRaporTasarla::forgetState();
    fRaporTasarla->Giris(file, sample);
  };
  all.loadMessageSettings = [] {
    if (fSMS != nullptr) fSMS->LoadParams();
    if (fEPOSTA != nullptr) fEPOSTA->LoadParams();
  };
  all.openBulkSms = [](const QString& numbers) {
    if (smsYollaForm != nullptr) smsYollaForm->Giris(numbers);
  };
  all.openCustomerStatistics = [](const QString& customer) {
    if (IstForm != nullptr) IstForm->GirisMusteri(customer);
  };
  all.openSerialStatistics = [](const QString& serial) {
    if (IstForm != nullptr) IstForm->GirisSeriNo(serial);
  };
  all.refreshCalls = [] {
    if (fGelenAramalar != nullptr) fGelenAramalar->refreshIfShown();
  };
  all.openServiceTypes = [] {
    if (fServisTip != nullptr) fServisTip->open();
  };
  all.showReminders = [] {
    if (fHatirlaForm != nullptr) fHatirlaForm->Show();
  };
  SlipHooks& hooks = slipHooks();
  hooks.printReceipt = SlipPrinting::printReceipt;
  hooks.printLabel = SlipPrinting::printLabel;
  hooks.designReceipt = SlipPrinting::designReceipt;
  hooks.designLabel = SlipPrinting::designLabel;
  hooks.sendIntakeSms = SlipNotices::sendIntakeSms;
  hooks.sendCompletionSms = SlipNotices::sendCompletionSms;
  hooks.sendCompletionMail = SlipNotices::sendCompletionMail;
  hooks.refreshReminderList = [] {
    if (fHatirlaForm != nullptr) fHatirlaForm->refreshIfShown();
  };
}

int runProgram(int argc, char** argv, const std::function<void()>& beforeLoop) {
  giveBackLargeBlocks();
  nameTimeZone();
  Application application(argc, argv);
  QCoreApplication::setApplicationName(u"Torvane Teknik Servis Takip"_s);
  applyLook(application, wantedColors());
  QApplication::setWindowIcon(QIcon(u":/kvtk.svg"_s));
  keepFramesReachable(&application);
  untieClosedWindows(application);
  QApplication::setQuitOnLastWindowClosed(false);  // the main window ends the program, no other one does

  auto splash = std::make_unique<TfAbout>();
  splash->show();
  QCoreApplication::processEvents();
  splash->repaint();

  fillPorts();
  WaitPanel waitPanel;
  // The order is fixed; the screens are destroyed the other way round.
  TfKvb workspace(QCoreApplication::arguments());
  TDM dataModule;
  TfDoviz rates;
  TfParametreler parameters;
  TfservisfisSec browser;
  TfRaporTasarla designer;
  TfSirket company;
  TfHatirlat reminder;
  TfHatirlaForm reminderWindow(&workspace);
  TLogin_Form login;
  Tfmusteriler customers;
  Tfcihazlar devices;
  TfDisServisler firms;
  TfSMS smsSettings;
  TfFoto photo;
  TIstForm statistics;
  TfEPOSTA mailSettings;
  TfDisServisEkle firmEditor(firms.qDisServis);
  TfSozlesme contracts;
  TfCariEkle customerEditor(customers.qCari);
  TfSozlesmeEkle contractEditor(contracts.queries());
  TsmsYollaForm bulkSms;
  TfGelenAramalar calls(&workspace);
  TfServisTip serviceTypes;
  TfMusteriCihaz customerDevices;
  setUnhandledHandler([](QObject* sender, const std::exception& error) {
    Login_Form->ApplicationEvents1Exception(sender, error);
  });
  splash.reset();
  TfAbout about;
  connectCommands(workspace);

  connectGuarded(&workspace, &TfKvb::closed, &workspace, [] { QCoreApplication::exit(0); });  // whatever else is open
  workspace.show();
  if (beforeLoop) beforeLoop();
  // No other program's window keeps this one from starting: there is no guard by a window class, which is meant.
  const int exitCode = QApplication::exec();
  setUnhandledHandler({});
  return exitCode;
}
