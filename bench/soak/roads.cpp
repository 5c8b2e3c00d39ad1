#include "base/data/value.h"
#include "bench/soak/station.h"

#include "app/call_listener.h"
#include "app/dmUnit.h"
#include "app/kvbankUnit.h"
#include "app/ports.h"
#include "base/data/my_query.h"
#include "cards/customer_editor.h"
#include "cards/customer_list.h"
#include "comm/fEpostaUnit.h"
#include "comm/smsGonderUnit.h"
#include "comm/smsUnit.h"
#include "contracts/contract_editor.h"
#include "contracts/contract_list.h"
#include "reminders/reminder_window.h"
#include "service/fservisfis_unit.h"
#include "service/fservisfissecUnit.h"
#include "service/slip_picture_page.h"
#include "simulator/telephone_monitor.h"
#include "toolkit/edits/combo_edit.h"
#include "toolkit/edits/edit_box.h"
#include "toolkit/edits/memo_edit.h"
#include "toolkit/grid/data_grid.h"

#include <QAction>
#include <QApplication>
#include <QBuffer>
#include <QCryptographicHash>
#include <QDateTime>
#include <QGroupBox>
#include <QImage>
#include <QPushButton>
#include <QTabWidget>

#include <array>
#include <cstdio>
#include <functional>

using namespace Qt::StringLiterals;

namespace {

constexpr int roadNumbers = 40;
const std::array names{u"AYŞE"_s, u"MEHMET"_s, u"ÇİĞDEM"_s, u"IŞIL"_s, u"ÖMER"_s};
const std::array statuses{u"ARIZA KABUL"_s, u"ONARILIYOR"_s, u"PARÇA BEKLİYOR"_s, u"TAMAMLANDI"_s, u"TESLİM EDİLDİ"_s};

void setBox(const QString& column, const QString& text) {
  if (auto* box = fServisFis->findChild<EditBox*>(column)) box->setText(text);
}

QByteArray noisyPicture(unsigned seed) {
  Chance noise(seed);
  QImage image(320, 240, QImage::Format_RGB32);
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x) image.setPixel(x, y, qRgb(noise.below(256), x % 256, y));
  QByteArray bytes;
  QBuffer buffer(&bytes);
  image.save(&buffer, "JPG", 70);
  return bytes;
}

/// Narrows the list in front to what a column begins with.
void narrow(DataGrid& grid, const QString& column, const QString& text) {
  grid.setColumnFilter(column, FilterOperator::StartsWith, text);
  grid.goToFirstRow();
}

}  // namespace

void Telling::line(const QStringList& words) {
  const QString time = QString::number(QDateTime::currentMSecsSinceEpoch());
  std::printf("%s\t%s\t%s\n", words.first().toUtf8().constData(), time.toUtf8().constData(), words.mid(1).join(u'\t').toUtf8().constData());
  std::fflush(stdout);
}

void Telling::begins(const QString& kind, const QString& serial, const QString& token, int parts, const QString& picture) {
  line({u"begins"_s, kind, serial, token, QString::number(parts), picture});
}

void Telling::ends(const QString& word) { line({word}); }

Roads::Roads(QString name, unsigned seed, LineState& line) : name_(std::move(name)), chance_(seed), line_(line) {}

QString Roads::nextToken() { return u"%1-%2"_s.arg(name_).arg(++tokens_); }

struct Roads::Road {
  int times;  ///< among one walk of all
  QString name;
  std::function<void(Roads&)> go;
};

const std::vector<Roads::Road>& Roads::all() {
  static const std::vector<Road> roads{
      {10, u"new slip"_s, &Roads::takeIn},
      {9, u"changed slip"_s, &Roads::change},
      {2, u"deleted slip"_s, &Roads::remove},
      {2, u"list of slips"_s, &Roads::lookAtSlips},
      {1, u"customers"_s, [](Roads& each) { each.lookAtCards(u"dxBarButton16"_s); }},
      {1, u"devices"_s, [](Roads& each) { each.lookAtCards(u"dxBarButton17"_s); }},
      {1, u"firms"_s, [](Roads& each) { each.lookAtCards(u"dxBarButton18"_s); }},
      {1, u"service types"_s, [](Roads& each) { each.lookAtCards(u"dxBarButton22"_s); }},
      {1, u"customer"_s, &Roads::changeCustomer},
      {1, u"statistics"_s, &Roads::lookAtStatistics},
      {1, u"contract"_s, &Roads::writeContract},
      {1, u"reminders"_s, &Roads::lookAtReminders},
      {1, u"call"_s, &Roads::takeCall},
      {1, u"SMS account"_s, &Roads::signIn},
      {1, u"bulk SMS"_s, &Roads::sendToMany},
      {1, u"mail account"_s, &Roads::tryMail},
      {2, u"receipt"_s, &Roads::previewReceipt},
      {1, u"parameters"_s, [](Roads& each) { each.openAndClose(u"parameters"_s); }},
      {1, u"company"_s, [](Roads& each) { each.openAndClose(u"company"_s); }},
      {1, u"windows"_s, &Roads::arrangeWindows},
  };
  return roads;
}

void Roads::goOne() {
  // Each once, so that what a road keeps for the next time is there when the memory is measured; then as it comes.
  int number = gone_ < roadNumbers ? gone_ : chance_.below(roadNumbers);
  ++gone_;
  auto road = all().begin();
  for (; number >= road->times; ++road) number -= road->times;
  Telling::line({u"goes"_s, road->name});
  road->go(*this);
  Hands::goHome();
  Telling::line({u"came"_s, road->name});
}

bool Roads::hasGoneAll() const { return gone_ >= roadNumbers; }

/// The screen says that a slip is written by the time of the save, which it shows then; the balloon that says it too does not come
/// when another one is up.
bool Roads::save() {
  bool isSaved = false;
  line_.isBusy = true;
  Hands::run([&] {
    setBox(u"TS_USER_TIME"_s, {});
    fServisFis->aKaydet->trigger();
    isSaved = fServisFis != nullptr && !fServisFis->text(u"TS_USER_TIME"_s).isEmpty();
  });
  line_.isBusy = false;
  Telling::ends(isSaved ? u"saved"_s : line_.isCut ? u"unknown"_s : u"refused"_s);
  return isSaved;
}

/// Parts that carry the token, so that each is known again.
int Roads::addParts(const QString& token) {
  const int parts = chance_.below(4);
  Hands::run([&] {
    for (int part = 1; part <= parts; ++part) {
      TMyQuery& lines = fServisFis->qMalzeme;
      lines.Append();
      lines.FieldByName(u"MZ_SIRANO"_s).set(part);
      lines.FieldByName(u"MZ_PARCA_ADI"_s).set(u"%1/%2"_s.arg(token).arg(part));
      lines.FieldByName(u"MZ_ADET"_s).set(1);
      lines.FieldByName(u"MZ_TUTAR"_s).set(12.5);
      lines.Post();
    }
  });
  return parts;
}

void Roads::takeIn() {
  Hands::run([] { runCommand(u"dxBarLargeButton1"_s); });
  if (!Hands::waitFor([] { return fServisFis != nullptr; }, std::chrono::seconds(1))) return;
  const QString token = nextToken();
  const QByteArray picture = chance_.oneIn(4) ? noisyPicture(unsigned(tokens_)) : QByteArray();
  const int parts = addParts(token);
  const QString customer = names[size_t(chance_.below(int(names.size())))] + u" SOAK"_s;
  const bool isTold = chance_.oneIn(3);
  Hands::run([&] {
    setBox(u"TS_MUSTERI"_s, customer);
    setBox(u"TS_C_AD"_s, u"DİZÜSTÜ BİLGİSAYAR"_s);
    setBox(u"TS_C_SERINO"_s, token);
    setBox(u"TS_ACIKLAMA"_s, token);
    setBox(u"TS_EPOSTA"_s, u"musteri@torvane.example"_s);
    if (isTold) setBox(u"TS_CEP"_s, u"05321234567"_s);
    fServisFis->findChild<MemoEdit*>(u"SF_NOT"_s)->setText(token);
    if (!picture.isEmpty()) fServisFis->findChild<SlipPicturePage*>()->setBytes(picture);
  });
  const QString fingerprint =
      picture.isEmpty() ? QString() : QString::fromLatin1(QCryptographicHash::hash(picture, QCryptographicHash::Sha1).toHex());
  // The number that was proposed may be taken by now, by another station.
  constexpr int tries = 5;
  for (int attempt = 0; attempt < tries; ++attempt) {
    Telling::begins(u"new"_s, token, token, parts, fingerprint);
    if (save() || line_.isCut) return;
    Hands::run([] {
      setBox(u"TS_NO"_s, {});
      fServisFis->findChild<EditBox*>(u"TS_NO"_s)->pressButton(1);
    });
  }
}

QString Roads::openAny() {
  qint64 id = 0;
  QString serial;
  const int back = chance_.below(30);
  Hands::run([&] {
    TMyQuery query(DM->MySQL, u"qSoak"_s);
    query.SQL.setText(u"select TS_ID, TS_C_SERINO from teknikservis where TS_C_SERINO like 'SK%' order by TS_ID desc limit 30"_s);
    query.Open();
    if (query.IsEmpty()) return;
    const int row = back % query.RecordCount();
    id = query.valueAt(row, 0).toInteger();
    serial = query.valueAt(row, 1).toText();
  });
  if (id == 0) return {};
  Hands::run([id] { ports().openSlip(id); });
  bool isOpen = false;
  Hands::run([&] { isOpen = fServisFis != nullptr && fServisFis->EditorMode == TfServisFis::Mode::Edit && !fServisFis->qServis.IsEmpty(); });
  return isOpen ? serial : QString();
}

void Roads::change() {
  const QString serial = openAny();
  if (serial.isEmpty()) return;
  const QString token = nextToken();
  const int parts = addParts(token);
  const QString status = statuses[size_t(chance_.below(int(statuses.size())))];
  const bool looksAround = chance_.oneIn(3);
  Hands::run([&] {
    setBox(u"TS_ACIKLAMA"_s, token);
    setBox(u"TS_TURU"_s, status);
    fServisFis->findChild<MemoEdit*>(u"SF_NOT"_s)->setText(token);
    auto* pages = fServisFis->findChild<QTabWidget*>(u"pages"_s);
    for (int page = 0; looksAround && page < pages->count(); ++page) pages->setCurrentIndex(page);
  });
  Telling::begins(u"change"_s, serial, token, parts, {});
  save();
}

void Roads::remove() {
  const QString serial = openAny();
  if (serial.isEmpty()) return;
  Telling::begins(u"delete"_s, serial, {}, 0, {});
  bool isDeleted = false;
  Hands::run([&] {
    fServisFis->aSil->trigger();
    isDeleted = fKvb->childWindows().isEmpty();
  });
  Telling::ends(isDeleted ? u"saved"_s : line_.isCut ? u"unknown"_s : u"refused"_s);
}

void Roads::lookAtSlips() {
  if (!Hands::open([] { runCommand(u"dxBarLargeButton2"_s); })) return;
  const QString customer = names[size_t(chance_.below(int(names.size())))];
  Hands::run([&] { narrow(*fservisfisSec->findChild<DataGrid*>(), u"TS_MUSTERI"_s, customer); });
  if (chance_.oneIn(2)) Hands::run([] { fservisfisSec->aGuncelle->trigger(); });
  if (chance_.oneIn(2)) Hands::run([] { fservisfisSec->aSec->trigger(); });
}

void Roads::lookAtCards(const QString& command) {
  if (!Hands::open([command] { runCommand(command); })) return;
  Hands::run([] {
    if (QDialog* list = dialogInFront()) runCommandIn(*list, u"aGuncelle"_s);
  });
}

void Roads::changeCustomer() {
  if (!Hands::open([] { runCommand(u"dxBarButton16"_s); })) return;
  const QString customer = names[size_t(chance_.below(int(names.size())))];
  Hands::run([&] { narrow(*fmusteriler->grid(), u"CA_AD"_s, customer); });
  if (!Hands::open([] { runCommandIn(*fmusteriler, u"aDuzelt"_s); })) return;
  const QString place = QString::number(chance_.below(1000));
  Hands::run([&] {
    if (!fCariEkle->isVisible()) return;
    fCariEkle->box(u"CA_ADRES"_s)->setText(u"ATATÜRK CAD. NO: "_s + place);
    fCariEkle->aKaydet->trigger();
  });
}

void Roads::lookAtStatistics() {
  const QString customer = names[size_t(chance_.below(int(names.size())))] + u" SOAK"_s;
  Hands::open([customer] { ports().openCustomerStatistics(customer); });
}

void Roads::writeContract() {
  if (!Hands::open([] { runCommand(u"contracts"_s); })) return;
  Hands::start([] { runCommandIn(*fSozlesme, u"aEkle"_s); });
  Hands::waitFor([] { return fSozlesmeEkle->isVisible(); }, std::chrono::seconds(5));
  Hands::run([] {
    if (fSozlesmeEkle->isVisible()) fSozlesmeEkle->aKaydet->trigger();  // asks for what is missing
  });
}

void Roads::lookAtReminders() {
  Hands::run([] { runCommand(u"reminders"_s); });
  for (int page = 0; page < 3; ++page) Hands::run([page] { fHatirlaForm->RzPageControl1->setCurrentIndex(page); });
}

void Roads::takeCall() {
  Hands::run([] { TelephoneMonitor::ring(DM->MySQL, 1, u"05321234567"_s, fKvb->UDPCallerID->port()); });
  Hands::run([] { runCommand(u"calls"_s); });
}

void Roads::signIn() {
  if (!Hands::open([] { runCommand(u"smsSettings"_s); })) return;
  const int gateway = chance_.below(3);
  Hands::run([gateway] {
    fSMS->servis->setItemIndex(gateway);
    fSMS->SpeedButton1->click();
  });
}

void Roads::sendToMany() {
  if (!Hands::open([] { ports().openBulkSms(u"05321234567,05331234567"_s); })) return;
  Hands::waitFor([] { return !smsYollaForm->isVisible() || smsYollaForm->cxGroupBox1->isEnabled(); }, std::chrono::seconds(40));
  Hands::run([] {
    if (!smsYollaForm->isVisible() || !smsYollaForm->cxGroupBox1->isEnabled()) return;
    smsYollaForm->smsMESAJ->setText(u"Bakim kampanyamiz basladi."_s);
    smsYollaForm->btnPost->click();
  });
}

void Roads::tryMail() {
  if (!Hands::open([] { runCommand(u"mailSettings"_s); })) return;
  Hands::run([] { fEPOSTA->SpeedButton1->click(); });
}

void Roads::previewReceipt() {
  if (openAny().isEmpty()) return;
  Hands::open([] { fServisFis->MakbuzBask1->trigger(); });
}

void Roads::openAndClose(const QString& command) {
  Hands::open([command] { runCommand(command); });
}

void Roads::arrangeWindows() {
  for (int slip = 0; slip < 3; ++slip) openAny();
  for (const QString& command : {u"tileRows"_s, u"tileColumns"_s, u"cascade"_s, u"minimizeAll"_s, u"restoreAll"_s, u"maximizeAll"_s})
    Hands::run([command] { runCommand(command); });
}
