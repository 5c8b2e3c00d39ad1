#include "app/kvbankUnit.h"

#include "app/about_box.h"
#include "app/backup_store.h"
#include "app/call_listener.h"
#include "app/dmUnit.h"
#include "base/data/value.h"
#include "base/date_text.h"
#include "base/environment.h"
#include "base/guard.h"
#include "base/log_file.h"
#include "base/exceptions.h"
#include "app/parameters.h"
#include "app/ports.h"
#include "base/platform/shell_open.h"
#include "base/process_end.h"
#include "base/program_paths.h"
#include "app/quendUtils.h"
#include "app/slip_frame.h"
#include "app/Unit14.h"
#include "toolkit/report/report.h"
#include "toolkit/edits/button_edit.h"
#include "toolkit/edits/date_edit.h"
#include "toolkit/edits/text_edit.h"
#include "toolkit/shell/child_tab_strip.h"
#include "toolkit/shell/child_windows.h"
#include "toolkit/shell/key_state_panel.h"
#include "toolkit/shell/passing_notice.h"
#include "toolkit/shell/ribbon.h"
#include "toolkit/shell/window_place.h"

#include <QApplication>
#include <QBoxLayout>
#include <QCloseEvent>
#include <QFileInfo>
#include <QIcon>
#include <QLabel>
#include <QMdiSubWindow>
#include <QMenu>
#include <QScreen>
#include <QShortcut>
#include <QStatusBar>
#include <QSystemTrayIcon>
#include <QTimer>
#include <QToolButton>

using namespace Qt::StringLiterals;

TfKvb* fKvb = nullptr;

namespace {
constexpr QSize LargestDefault(1600, 1000);
constexpr double SmallDesktopShare = 0.9;  ///< of a desktop that the window fills at first, once it no longer does
/// Logical height of a screen below which the ribbon begins folded, so that a slip has room.
constexpr int LeastForRibbon = 450;
constexpr QSize Smallest(640, 480);
constexpr int StartDelayMs = 50;
constexpr int DefaultPort = 8091;

/// The port that the first argument tells; the default when it tells 0 or no number.
int portOf(const QString& argument) {
  try {
    const int port = QuendUtil->VarToInt(Value(argument));
    return port != 0 ? port : DefaultPort;
  } catch (const EConvertError&) {
    return DefaultPort;
  }
}

/// Remembered place of the main window: in the current folder, not beside the program.
WindowPlace formSize1() { return {u"./KvbFORM.INI"_s, u"fKvb"_s, QuendUtil->BilgisayarAdi()}; }

/// What is wrong with the daily copies. That nobody can tell keeps no one from working.
QString backupWarning() {
  try {
    return BackupRules::warning(BackupStore::read(DM->MySQL));
  } catch (const Exception& error) {
    TLogin_Form::Log(u"Yedeklerin durumu okunamadı"_s, &error);
    return {};
  }
}
}  // namespace

TfKvb::TfKvb(const QStringList& arguments)
    : Timer1(new QTimer(this)),
      UDPCallerID(new CallListener([this](const CallerText::Notice& call) { UDPCallerIDUDPRead(call.title, call.body); }, this)),
      ribbon_(new Ribbon(u"Teknik Servis Menü"_s, this)),
      children_(new ChildWindows(this)) {
  fKvb = this;
  setObjectName(u"fKvb"_s);
  ribbon_->setObjectName(u"ribbon"_s);
  children_->tabStrip()->setObjectName(u"AdvOfficeMDITabSet1"_s);
  Timer1->setInterval(StartDelayMs);
  Timer1->setSingleShot(true);
  setMenuWidget(ribbon_);
  setCentralWidget(children_);
  commands_ = buildWorkspaceCommands(*ribbon_, this);
  ribbon_->applicationButton()->setIcon(QApplication::windowIcon());
  ribbon_->applicationButton()->setAccessibleName(u"Program Hakkında"_s);
  ribbon_->applicationButton()->setToolTip(u"Program Hakkında"_s);
  buildStatusBar();
  connectCommands();
  addTrayIcon();
  callNotice_ = new PassingNotice(this, RzTrayIcon1);
  connectGuarded(callNotice_, &PassingNotice::passed, this, [this] {
    if (RzTrayIcon1 != nullptr) RzTrayIcon1->setIcon(QApplication::windowIcon());
  });
  connectGuarded(Timer1, &QTimer::timeout, this, [this] { timer1Timer(); });
  frxReport1 = std::make_unique<Report>();
  formCreate(arguments);
  children_->setFocus();  // not to the first button of the ribbon, which Space would press
}

TfKvb::~TfKvb() {
  QuendUtil = nullptr;
  fKvb = nullptr;
}

void TfKvb::formCreate(const QStringList& arguments) {
  const QRect desktop = screen()->availableGeometry();
  setMinimumSize(Smallest.boundedTo(desktop.size() * SmallDesktopShare));
  const bool isSmall = LargestDefault.boundedTo(desktop.size()) == desktop.size();
  QRect place(QPoint(), isSmall ? desktop.size() * SmallDesktopShare : LargestDefault.boundedTo(desktop.size()));
  place.moveBottomRight(desktop.bottomRight());
  setGeometry(place);
  keepFramesReachable(this);
  ribbon_->setPageVisible(desktop.height() >= LeastForRibbon);  // its tab brings it back

  utilities_ = std::make_unique<TQuendUtil>(programFile());
  QuendUtil = utilities_.get();
  setWindowTitle(QApplication::applicationName() + u" v"_s + QuendUtil->GetBuildInfoAsString());
  QuendUtil->port = portOf(arguments.value(1));
  if (!formSize1().restore(this) && isSmall) setWindowState(Qt::WindowMaximized);
}

void TfKvb::buildStatusBar() {
  const auto panel = [this](const QString& objectName, const QString& hint) {
    auto* label = new QLabel(this);
    label->setObjectName(objectName);
    label->setToolTip(hint);
    label->setAccessibleName(hint);
    label->setContentsMargins(10, 0, 10, 0);
    auto* border = new QFrame(this);
    border->setFrameStyle(QFrame::VLine | QFrame::Plain);
    border->setForegroundRole(QPalette::Mid);
    statusBar()->addPermanentWidget(border);
    statusBar()->addPermanentWidget(label);
    return label;
  };
  statusText_ = new QLabel(this);
  statusText_->setObjectName(u"statusText"_s);
  statusText_->setContentsMargins(8, 0, 8, 0);
  statusBar()->addWidget(statusText_, 1);
  dxBarStatic1 = panel(u"dxBarStatic1"_s, u"Kullanıcı Adı"_s);
  dxBarStatic2 = panel(u"dxBarStatic2"_s, u"Sunucu Adı"_s);
  dateBox_ = new DateEdit(this);
  dateBox_->setObjectName(u"dateBox"_s);
  nameBox(*dateBox_, u"Tarih"_s);
  dateBox_->setToolTip(u"Tarih"_s);
  dateBox_->setFixedWidth(110);
  showDay();
  statusBar()->addPermanentWidget(dateBox_);
  statusBar()->addPermanentWidget(new KeyStatePanel(this));
}

/// Today, also on the morning after a night that the program stood open; a date that somebody chose stays.
void TfKvb::showDay() {
  if (dateBox_->text() != DateText::date(shownDay_)) return;
  shownDay_ = environment().today();
  dateBox_->setDate(shownDay_);
}

void TfKvb::connectCommands() {
  for (const auto& [path, objectName] : ribbonRights()) refused_.insert(objectName);
  for (auto each = commands_.cbegin(); each != commands_.cend(); ++each) {
    if (each.value()->menu() != nullptr) connected_.insert(each.key());
    enableCommand(each.key());
  }
  connectCommand(u"tileRows"_s, [this] { children_->tileRows(); });
  connectCommand(u"tileColumns"_s, [this] { children_->tileColumns(); });
  connectCommand(u"cascade"_s, [this] { children_->cascade(); });
  connectCommand(u"maximizeAll"_s, [this] { children_->maximizeAll(); });
  connectCommand(u"minimizeAll"_s, [this] { children_->minimizeAll(); });
  connectCommand(u"restoreAll"_s, [this] { children_->restoreAll(); });
  connectCommand(u"parameters"_s, [] { fParametreler->Giris(); });
  connectCommand(u"closeProgram"_s, [this] { close(); });
  connectGuarded(ribbon_->applicationButton(), &QToolButton::clicked, this, [] { fAbout->Giris(); });

  const auto enableForChildren = [this](int count) {
    command(u"maximizeAll"_s)->setEnabled(count > 0);
    command(u"restoreAll"_s)->setEnabled(count > 0);
  };
  connectGuarded(children_, &ChildWindows::countChanged, this, enableForChildren);
  enableForChildren(0);

  auto* next = new QShortcut(Qt::CTRL | Qt::Key_Tab, this);
  connectGuarded(next, &QShortcut::activated, this, [this] { children_->activateNext(); });
  auto* previous = new QShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_Tab, this);
  connectGuarded(previous, &QShortcut::activated, this, [this] { children_->activatePrevious(); });
}

QAction* TfKvb::command(const QString& objectName) const {
  if (QAction* found = commands_.value(objectName)) return found;
  throw Exception(u"no command: "_s + objectName);
}

void TfKvb::connectCommand(const QString& objectName, std::function<void()> work) {
  connectGuarded(command(objectName), &QAction::triggered, this, [this, work = std::move(work)] {
    activateWindow();
    work();
  });
  connected_.insert(objectName);
  enableCommand(objectName);
}

void TfKvb::enableCommand(const QString& objectName) {
  command(objectName)->setEnabled(connected_.contains(objectName) && !refused_.contains(objectName));
}

void TfKvb::addTrayIcon() {
  if (!QSystemTrayIcon::isSystemTrayAvailable()) return;
  RzTrayIcon1 = new QSystemTrayIcon(QApplication::windowIcon(), this);
  RzTrayIcon1->setToolTip(QApplication::applicationName());
  RzTrayIcon1->show();
}

void TfKvb::UDPCallerIDUDPRead(const QString& title, const QString& body) {
  constexpr int shownMs = 10000;
  if (RzTrayIcon1 != nullptr) RzTrayIcon1->setIcon(QIcon::fromTheme(u"call-start"_s, QApplication::windowIcon()));
  callNotice_->show(title, body, shownMs);
  ports().refreshCalls();
}

QMdiSubWindow* TfKvb::addChildWindow(QWidget* editor) { return children_->add(editor); }

void TfKvb::setChildCaption(QWidget* editor, const QString& caption) { children_->setCaption(editor, caption); }

QList<QWidget*> TfKvb::childWindows() const { return children_->contents(); }

void TfKvb::setStatusText(const QString& text) {
  statusText_->setText(text);
  statusText_->setToolTip(text);  // a narrow bar shows its beginning
}

/// The ribbon's groups give their room to the slip; they stay away until the user unfolds them.
void TfKvb::hideRibbonWhenAsked() {
  if (fParametreler != nullptr && fParametreler->isChecked(ParameterFiles::HideRibbonAtSlip)) ribbon_->setPageVisible(false);
}

void TfKvb::inSlipFrame(const std::function<void()>& work) {
  const SlipFrame frame(*ribbon_, children_->redrawLock());
  hideRibbonWhenAsked();
  work();
}

void TfKvb::showEvent(QShowEvent* event) {
  QMainWindow::showEvent(event);
  if (!event->spontaneous()) Timer1->start();
}

void TfKvb::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  if (event->type() == QEvent::ActivationChange && dateBox_ != nullptr) guarded(this, [this] { showDay(); });
}

void TfKvb::closeEvent(QCloseEvent* event) {
  event->ignore();
  guarded(this, [&] {
    if (!children_->closeAll()) return;
    if (!formSize1().store(this))
      LogFile::append(logFileName(), LogFile::messageEntry(environment().now(),
                                                           u"Pencere yeri KvbFORM.INI dosyasına yazılamadı."_s, nullptr));
    event->accept();
    Q_EMIT closed();
  });
}

/// The start sequence. An error ends it where it stands; it is not tried again.
void TfKvb::timer1Timer() {
  Timer1->stop();
  startVigil();
  Login_Form->Kullanici->setText(u"quend"_s);
  Login_Form->parola->setText(u"quend"_s);
  if (Login_Form->ShowModal() == TLogin_Form::GivenUp) {
    DM->MySQL.Close();
    endProcess(0);
    return;
  }
  // "trloc.ini" is not read: the toolkit's own texts come from its Turkish translation, loaded at the program's start.
  const QString picture = programFolder() + u"masaustu.png"_s;
  if (QFileInfo::exists(picture)) children_->clientArea()->setPicture(QPixmap(picture));
  fParametreler->Load();
  ports().openCompany();
  ports().openServiceTypes();
  dxBarStatic1->setText(Login_Form->Kullanici->text());
  dxBarStatic2->setText(Login_Form->eSunucu->text());
  ports().loadMessageSettings();
  applyRights();
  const QString warning = backupWarning();
  setStatusText(warning.isEmpty() ? u"Hazır"_s : warning);
  ports().showReminders();
  UDPCallerID->start();
}

/// Enables what the account may open; the commands stay in their places.
void TfKvb::applyRights() {
  for (const auto& [path, objectName] : ribbonRights()) {
    if (DM->Kullanici_Yetkileri(path) != Right::Checked) refused_.remove(objectName);
    enableCommand(objectName);
  }
}

/// Starts the helper program that may stand beside this one; where there is none, nobody is told.
void TfKvb::startVigil() {
  if (QuendUtil->processExists(u"Vigil.Exe"_s)) return;
  startHelper(programFolder() + u"Vigil.Exe"_s);
  QCoreApplication::processEvents();
  activateWindow();
}
