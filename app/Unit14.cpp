#include "app/Unit14.h"

#include "app/dmUnit.h"
#include "base/environment.h"
#include "base/error_text.h"
#include "base/guard.h"
#include "base/log_file.h"
#include "app/login_rules.h"
#include "base/platform/settings_store.h"
#include "base/process_end.h"
#include "base/program_paths.h"
#include "app/quendUtils.h"
#include "base/turkish_text.h"
#include "toolkit/edits/button_edit.h"
#include "toolkit/edits/password_line.h"
#include "toolkit/edits/text_edit.h"
#include "toolkit/shell/hourglass.h"

#include <QApplication>
#include <QFileDialog>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>

using namespace Qt::StringLiterals;

TLogin_Form* Login_Form = nullptr;

namespace {

constexpr quint16 serverPort = 3313;
constexpr int allowedAttempts = 3;
const QString databaseName = u"kvtk"_s;
const QString serviceName = u"MySQL_Quendrine"_s;
const QString settingsPath = u"SOFTWARE\\Quendrine"_s;
const QString settingsSection = u"KVTK"_s;
const QString fingerprintKey = u"SunucuParmakIzi"_s;

/// What a failed connection is told with. A character of the password is not shown, though the error names it.
QString failureText(const std::exception& error, const QString& passwordCaption) {
  const auto* unstorable = dynamic_cast<const EUnstorableValue*>(&error);
  if (unstorable == nullptr || unstorable->field() != passwordCaption) return LogFile::messageOf(error);
  return u"\"%1\" alanında veritabanında saklanamayan bir karakter var."_s.arg(passwordCaption);
}

/// Name of the first widget from the focused one outward that has one of its own: a box's line has none, a grid's cells
/// have the toolkit's.
QString activeControl() {
  for (const QWidget* widget = QApplication::focusWidget(); widget != nullptr && !widget->isWindow(); widget = widget->parentWidget())
    if (!widget->objectName().isEmpty() && !widget->objectName().startsWith("qt_"_L1)) return widget->objectName();
  return {};
}

LogFile::Context context() {
  const QWidget* form = QApplication::activeWindow();
  return {environment().now(), Login_Form != nullptr ? Login_Form->Kullanici->text() : QString(),
          form != nullptr ? form->objectName() : QString(), activeControl()};
}

}  // namespace

TLogin_Form::TLogin_Form() {
  Login_Form = this;
  setObjectName(u"Login_Form"_s);
  buildForm();
  Kullanici->setText(SettingsStore::read(settingsPath, settingsSection, Kullanici->objectName()));
  eSunucu->setText(SettingsStore::read(settingsPath, settingsSection, eSunucu->objectName()));
  connectGuarded(Tamam_Button, &QPushButton::clicked, this, [this] { tamamButtonClick(); });
  connectGuarded(RzBitBtn2, &QPushButton::clicked, this, [this] { done(GivenUp); });
  connectGuarded(eSunucu, &EditBox::buttonClicked, this, [this] { chooseServer(); });
}

TLogin_Form::~TLogin_Form() { Login_Form = nullptr; }

void TLogin_Form::buildForm() {
  auto* heading = new QLabel(u"Oturum Açın"_s);
  QFont font = heading->font();
  font.setPointSizeF(font.pointSizeF() * 1.6);
  heading->setFont(font);

  auto* fields = new QFormLayout;
  fields->setHorizontalSpacing(12);
  fields->setVerticalSpacing(10);
  const auto addRow = [fields](EditBox* edit, const QString& name, const QString& caption) {
    edit->setObjectName(name);
    edit->setAccessibleName(caption.chopped(1));
    edit->line()->setAccessibleName(caption.chopped(1));
    edit->setMinimumWidth(240);
    auto* label = new QLabel(caption);
    label->setBuddy(edit);
    fields->addRow(label, edit);
  };
  Kullanici = new TextEdit;
  parola = new TextEdit;
  eSunucu = new ButtonEdit;
  Kullanici->setCharCase(CharCase::Upper);
  parola->setCharCase(CharCase::Upper);
  maskPassword(*parola->line());
  eSunucu->addButton(ellipsisButton(u"Sunucu Seçin"_s));
  addRow(Kullanici, u"Kullanici"_s, u"Kullanıcı Adı:"_s);
  addRow(parola, u"parola"_s, u"Kullanıcı Parolası:"_s);
  addRow(eSunucu, u"eSunucu"_s, u"Sunucu Adı:"_s);

  Tamam_Button = new QPushButton(u"&Tamam"_s);
  Tamam_Button->setObjectName(u"Tamam_Button"_s);
  Tamam_Button->setDefault(true);
  RzBitBtn2 = new QPushButton(u"Vazgeç"_s);
  RzBitBtn2->setObjectName(u"RzBitBtn2"_s);
  RzBitBtn2->setAutoDefault(false);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(Tamam_Button);
  buttons->addWidget(RzBitBtn2);

  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(24, 20, 24, 20);
  layout->setSpacing(18);
  layout->addWidget(heading);
  layout->addLayout(fields);
  layout->addLayout(buttons);
  layout->setSizeConstraint(QLayout::SetFixedSize);
}

int TLogin_Form::ShowModal() {
  formShow();
  return exec();
}

void TLogin_Form::formShow() {
  setWindowTitle(QCoreApplication::applicationName());
  Kullanici->setText(TurkishText::upper(Kullanici->text()));
  parola->setText(TurkishText::upper(parola->text()));
  // The computer's own name each time: the program works with the machine that it runs on, and a kept value never counts.
  const QString name = QuendUtil->BilgisayarAdi();
  eSunucu->setText(name.isEmpty() ? QuendUtil->BilgisayarIP() : name);
  eSunucu->setEnabled(false);
  (Kullanici->text().isEmpty() ? Kullanici : parola)->setFocus();
}

bool TLogin_Form::serviceRuns() const {
  const Hourglass waiting;
  return DM->MyServerControl1.serviceStatus(serviceName) == ServerControl::Running;
}

void TLogin_Form::tamamButtonClick() {
  DM->MySQL.Server = LoginRules::server(eSunucu->text(), QuendUtil->BilgisayarAdi());
  DM->MySQL.Port = serverPort;
  if (!serviceRuns()) {
    QuendUtil->ErrorMesaj(this, u"Kurulum işlemi doğru olarak tamamlanamadı.\r\nYardım için iletişime geçebilirsiniz.\r\n"
                                "Destek: programı kuran yetkili servis."_s);
    setResult(0);
    return;
  }
  Tag = 1;
  connectToServer();
}

void TLogin_Form::connectToServer() {
  eSunucu->setText(DM->MySQL.Server);
  try {
    DM->MySQL.Username = LoginRules::account(Kullanici->text());
    DM->MySQL.Password = LoginRules::password(parola->text());
    DM->MySQL.Database = databaseName;
    DM->MySQL.CertificateFingerprint = SettingsStore::read(settingsPath, settingsSection, fingerprintKey).trimmed();
    const Hourglass waiting;
    DM->MySQL.Connect();
  } catch (const std::exception& error) {
    DM->MySQL.Password.clear();
    connectionFailed(error);
    return;
  }
  DM->MySQL.Password.clear();  // nothing connects a second time, so that it is kept nowhere
  try {
    SettingsStore::write(settingsPath, settingsSection, Kullanici->objectName(), Kullanici->text());
    SettingsStore::write(settingsPath, settingsSection, eSunucu->objectName(), eSunucu->text());
  } catch (const Exception& error) {
    Log(u"Oturum bilgileri saklanamadı"_s, &error);
  }
  done(Connected);
}

/// The first two failures are shown to nobody, so that a mistyped word costs no click; they are logged.
void TLogin_Form::connectionFailed(const std::exception& error) {
  ++failedAttempts_;
  // An error's text may hold a part of what was typed, so that only its kind goes to the log.
  const auto* refusal = dynamic_cast<const EMyError*>(&error);
  const auto* own = dynamic_cast<const Exception*>(&error);
  Log(u"Bağlantı kurulamadı: %1"_s.arg(refusal != nullptr ? QString::number(refusal->code())
                                       : own != nullptr   ? own->className()
                                                          : QString()));
  if (failedAttempts_ < allowedAttempts) return;
  QuendUtil->ErrorMesaj(this, failureText(error, parola->accessibleName()));
  endProcess(0);
}

void TLogin_Form::chooseServer() {
  const QString folder = QFileDialog::getExistingDirectory(this, u"Sunucu Seçin"_s);
  if (!folder.isEmpty()) eSunucu->setText(QFileInfo(folder).fileName());
}

void TLogin_Form::Log(const QString& message, const std::exception* error) {
  LogFile::append(logFileName(), LogFile::messageEntry(environment().now(), message, error));
}

void TLogin_Form::ApplicationEvents1Exception(QObject* sender, const std::exception& error) {
  const auto* label = qobject_cast<const QLabel*>(sender);
  const QString entry = label != nullptr ? LogFile::markerEntry(context(), label->objectName(), label->text())
                                         : LogFile::errorEntry(context(), error);
  const bool logged = LogFile::append(logFileName(), entry);
  const bool silent = label != nullptr || ApplicationEvents1Tag != 0;
  ApplicationEvents1Tag = 0;
  if (silent) return;
  QString text = shownText(error);
  if (!logged) text += u"\r\n\r\nHata kayıt dosyasına yazılamadı: "_s + logFileName();
  QuendUtil->ErrorMesaj(QApplication::activeWindow(), text);
}
