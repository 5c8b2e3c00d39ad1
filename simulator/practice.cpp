#include "simulator/practice.h"

#include "app/parameter_files.h"
#include "base/ini_file.h"
#include "base/platform/settings_store.h"
#include "base/whole_file.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace {

void keep(const QString& key, const QString& value) {
  const QString path = uR"(SOFTWARE\Quendrine)"_s;
  if (SettingsStore::read(path, u"KVTK"_s, key).isEmpty()) SettingsStore::write(path, u"KVTK"_s, key, value);
}

}  // namespace

void Practice::prepare(const Simulator& simulator, const QString& folder) {
  const QString addresses = folder + u"Sunucular.ini"_s;
  const QString certificate = folder + u"deneme-sertifikasi.pem"_s;
  WholeFile::replace(certificate, simulator.certificate());
  IniFile::write(addresses, u"Sms"_s, u"JsonSmsProvider"_s, simulator.hostOf(Service::Json));
  IniFile::write(addresses, u"Sms"_s, u"FormSmsProvider"_s, simulator.hostOf(Service::Form));
  IniFile::write(addresses, u"Sms"_s, u"XmlSmsProvider"_s, simulator.hostOf(Service::Xml));
  IniFile::write(addresses, u"Sms"_s, u"SertifikaDosyasi"_s, certificate);
  IniFile::write(addresses, u"Kur"_s, u"Adres"_s, simulator.hostOf(Service::Rates));
  if (const QString sms = folder + u"Sms.ini"_s; !QFile::exists(sms)) {
    IniFile::write(sms, u"Sms"_s, u"servis"_s, u"0"_s);
    IniFile::write(sms, u"Sms"_s, u"sProfil"_s, u"TORVANE"_s);
    IniFile::write(sms, u"Sms"_s, u"smsMESAJAK"_s, u"Sn. <MÜŞTERİ ADI>, <CİHAZ ADI> cihaziniz <SERİ NO> seri no ile alindi."_s);
    IniFile::write(sms, u"Sms"_s, u"SmsMesajTam"_s, u"Sn. <MÜŞTERİ ADI>, <CİHAZ ADI> cihaziniz hazir. Tutar: <TAMİR TUTAR>"_s);
  }
  if (const QString mail = folder + u"Smtp.ini"_s; !QFile::exists(mail)) IniFile::write(mail, u"Smtp"_s, u"eSMTPAUTH"_s, u"1"_s);
  if (const QString text = folder + u"smtpsablon.txt"_s; !QFile::exists(text))
    WholeFile::replace(text, u"Sayın <MÜŞTERİ ADI>,\r\n<CİHAZ ADI> cihazınız hazırdır.\r\n<TAMİR NOTU>\r\n"_s.toUtf8());
  keep(u"sKullanici"_s, u"deneme"_s);
  keep(u"sParola"_s, u"1234"_s);
  keep(u"eSMTPName"_s, simulator.hostOf(Service::Mail).section(u':', 0, 0));
  keep(u"eSMTPPORT"_s, QString::number(simulator.portOf(Service::Mail)));
  keep(u"eSMTPUserName"_s, u"deneme"_s);
  keep(u"eSMTPPassword"_s, u"1234"_s);
  keep(u"eSMTPOWNER"_s, u"servis@torvane.example"_s);
  keep(u"eSubject"_s, u"Cihazınız hazır"_s);
}

void Practice::turnOnNotices(const QString& folder) {
  const QString file = folder + u"Parametreler.dat"_s;
  if (QFile::exists(file)) return;
  auto switches = ParameterFiles::defaultSwitches();
  for (const int notice : {ParameterFiles::NotifyBySms, ParameterFiles::NotifyByMail})
    switches[size_t(notice)].state = ParameterFiles::CheckState::Checked;
  ParameterFiles::save(file, ParameterFiles::writeCheckList(switches));
}

std::optional<Practice::Command> Practice::commandIn(const QString& line) {
  const QStringList words = line.simplified().split(u' ');
  const QString value = words.value(2);
  Command command;
  if (words[0] == u"son"_s) return command;
  if (words[0] == u"ara"_s && words.size() == 2) {
    command.kind = Command::Kind::Ring;
    command.number = words[1];
    return command;
  }
  bool isNumber = false;
  if (words[0] == u"kontor"_s) {
    command.kind = Command::Kind::Credit;
    command.credit = words.value(1).toInt(&isNumber);
    return isNumber ? std::optional(command) : std::nullopt;
  }
  const qsizetype service = QStringList{u"json"_s, u"form"_s, u"xml"_s, u"posta"_s, u"kur"_s}.indexOf(words[0]);
  if (service < 0) return std::nullopt;
  command.kind = Command::Kind::Behave;
  command.service = Service(service);
  command.behaviour.code = value;
  if (words.value(1) == u"yavas"_s) {
    command.behaviour.delayMs = value.toInt(&isNumber) * 1000;
    return isNumber ? std::optional(command) : std::nullopt;
  }
  const qsizetype mood =
      QStringList{u"normal"_s, u"ret"_s, u"durum"_s, u"kes"_s, u"cop"_s, u"sus"_s}.indexOf(words.value(1));
  if (mood < 0) return std::nullopt;
  command.behaviour.mood = Mood(mood);
  if (command.behaviour.mood == Mood::Status && (value.toInt() < 100 || value.toInt() > 999)) return std::nullopt;
  return command;
}

QString Practice::help() {
  return u"ara NUMARA                  telefon çalar\n"
         "SERVİS normal               json, form, xml, posta, kur: olağan yanıt verir\n"
         "SERVİS ret [KOD]            reddeder; posta için KOD: selam, giris, alici, veri\n"
         "SERVİS durum KOD            HTTP durum koduyla yanıtlar (örnek: durum 500)\n"
         "SERVİS yavas SANİYE         geç yanıt verir\n"
         "SERVİS kes                  yanıtın ortasında bağlantıyı keser\n"
         "SERVİS cop [SAYI]           anlamsız yanıt verir\n"
         "SERVİS sus                  hiç yanıt vermez\n"
         "kontor SAYI                 SMS kontörünü belirler\n"
         "son                         kapatır; açık bir program varsa önce o kapatılır\n"_s;
}
