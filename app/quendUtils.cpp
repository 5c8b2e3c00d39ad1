#include "app/quendUtils.h"

#include "base/data/value.h"
#include "base/environment.h"
#include "base/exceptions.h"
#include "app/field_binding.h"
#include "base/ini_file.h"
#include "base/platform/file_version.h"
#include "base/platform/machine.h"
#include "base/text_tools.h"
#include "base/turkish_text.h"
#include "toolkit/edits/task_dialog.h"

#include <QCoreApplication>
#include <QFileInfo>

using namespace Qt::StringLiterals;

TQuendUtil* QuendUtil = nullptr;

namespace {

constexpr int closed = 2;

TaskDialogRequest request(const QString& text) {
  TaskDialogRequest made;
  made.title = QCoreApplication::applicationName();
  made.text = text;
  made.buttons = {{closed, u"Kapat"_s}};
  made.cancelResult = closed;
  return made;
}

QString iniName(const QString& folder, const QString& name) { return folder + name + u".ini"_s; }

}  // namespace

// No browser-emulation value is written: nothing here embeds the browser that reads it, which is meant.
TQuendUtil::TQuendUtil(const QString& programFile)
    : randomText(QString::number(environment().tickCount())), programFolder(QFileInfo(programFile).absolutePath() + u'/') {}

int TQuendUtil::ErrorMesaj(QWidget* owner, const QString& text) {
  TaskDialogRequest message = request(text);
  message.instruction = u"Dikkat!"_s;
  message.icon = TaskIcon::Error;
  message.beep = true;
  return runTaskDialog(owner, message);
}

int TQuendUtil::NormalMesaj(QWidget* owner, const QString& text) {
  TaskDialogRequest message = request(text);
  message.instruction = u"Dikkat!"_s;
  message.icon = TaskIcon::Information;
  return runTaskDialog(owner, message);
}

int TQuendUtil::Mesaj(QWidget* owner, const QString& text) {
  TaskDialogRequest message = request(text);
  message.instruction = u"Dikkat!"_s;
  message.icon = TaskIcon::Question;
  message.buttons = {{Confirmed, u"Tamam"_s}, {closed, u"Vazgeç"_s}};
  message.defaultButton = Confirmed;
  return runTaskDialog(owner, message);
}

int TQuendUtil::mesajTimeOut(QWidget* owner, const QString& text, int milliseconds) {
  TaskDialogRequest message = request(text);
  message.icon = TaskIcon::Error;
  message.closeAfterMs = milliseconds;
  return runTaskDialog(owner, message);
}

QString TQuendUtil::BilgisayarAdi() const { return machine().computerName(); }
QString TQuendUtil::BilgisayarIP() const { return machine().firstAddress(); }

bool TQuendUtil::processExists(const QString& name) const {
  for (const QString& file : machine().processFiles())
    if (file.compare(name, Qt::CaseInsensitive) == 0 || QFileInfo(file).fileName().compare(name, Qt::CaseInsensitive) == 0) return true;
  return false;
}

bool TQuendUtil::WindowExists(const QString& windowClass) const { return machine().windowExists(windowClass); }
QString TQuendUtil::GetOSVersion() const { return machine().osVersion(); }

QString TQuendUtil::GetRandomAddress() const {
  // The last six bytes of a GUID are nothing but random.
  QByteArray bytes(6, '\0');
  for (char& byte : bytes) byte = char(environment().randomBelow(256));
  return QString::fromLatin1(bytes.toHex().toUpper());
}

QString TQuendUtil::GetBuildInfoAsString() const { return buildVersion(); }
QString TQuendUtil::FileVersionInfo(const QString& file, const QString& key) const { return versionRecord(file, key); }

QDateTime TQuendUtil::FileLastModified(const QString& file) const {
  const QFileInfo info(file);
  if (!info.isFile()) throw EInOutError(u"%1 dosyası bulunamadı."_s.arg(file));
  return info.lastModified();
}

int TQuendUtil::VarToInt(const Value& value) const {
  const qint64 number = value.toInteger();
  if (number != int(number)) throw EConvertError(u"\"%1\" geçerli bir tam sayı değil."_s.arg(number));
  return int(number);
}

QChar TQuendUtil::BuyukHarf(QChar letter) const { return TurkishText::BuyukHarf(letter); }
QString TQuendUtil::LoginTrBuyukHarf(const QString& text) const { return TextTools::LoginTrBuyukHarf(text); }
QString TQuendUtil::LoginTrPassword(const QString& text) const { return TextTools::LoginTrPassword(text); }
QString TQuendUtil::Numarator(const QString& text) const { return TextTools::Numarator(text); }
QString TQuendUtil::TarihRotate(const QString& date) const { return TextTools::TarihRotate(date); }
QString TQuendUtil::StrToFloat_Universal(const QString& text) const { return TextTools::StrToFloat_Universal(text); }
QString TQuendUtil::GetValue(const QString& text, int index) const { return TextTools::GetValue(text, index); }
int TQuendUtil::CalcStrChecksum(const QString& text, bool less65) const { return TextTools::CalcStrChecksum(text, less65); }
QString TQuendUtil::DeleteLineBreaks(const QString& text) const { return TextTools::DeleteLineBreaks(text); }

void TQuendUtil::save_inifile(const QString& name, const QString& section, const QString& value, const QString& key) {
  IniFile::write(iniName(programFolder, name), section, key, value);
}

QString TQuendUtil::load_inifile(const QString& name, const QString& section, const QString& fallback, const QString& key) const {
  const QString file = iniName(programFolder, name);
  if (!QFileInfo::exists(file)) return {};
  const QString value = IniFile::read(file, section, key, fallback);
  return value.isEmpty() ? u"-1"_s : value;
}

void TQuendUtil::EkrandanAlanlara(QWidget& form, TMyQuery& dataset) { FieldBinding::controlsToFields(form, dataset); }
void TQuendUtil::AlanlardanEkrana(QWidget& form, TMyQuery& dataset) { FieldBinding::fieldsToControls(form, dataset); }
void TQuendUtil::EkranReset(QWidget& form, TMyQuery& dataset) { FieldBinding::resetControls(form, dataset); }
