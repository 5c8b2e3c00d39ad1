#include "demo/road.h"

#include "base/data/my_query.h"
#include "app/about_box.h"
#include "app/dmUnit.h"
#include "app/kvbankUnit.h"
#include "base/data/value.h"
#include "demo/cards_road.h"
#include "demo/contracts_road.h"
#include "demo/designer_road.h"
#include "demo/extras_road.h"
#include "demo/finish_road.h"
#include "demo/messages_road.h"
#include "demo/paper_road.h"
#include "demo/screen_hands.h"
#include "demo/slip_list_road.h"
#include "service/fservisfis_unit.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QLabel>
#include <QPainter>

#include <cstdio>
#include <set>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

/// What the customer at the counter brings, by column.
const std::vector<std::pair<QString, QString>> deviceTakenIn = {
    {u"TS_MUSTERI"_s, u"ayşe ışık"_s},           {u"TS_CEP"_s, u"5321234567"_s},
    {u"TS_ILCE"_s, u"kadıköy / istanbul"_s},     {u"TS_ADRES"_s, u"moda caddesi 12"_s},
    {u"TS_C_AD"_s, u"dizüstü bilgisayar"_s},     {u"TS_C_MARKA"_s, u"tx-500"_s},
    {u"TS_C_SERINO"_s, u"sn00471"_s},            {u"TS_C_EKPARCA"_s, u"şarj aleti"_s},
    {u"TS_C_SIKAYET"_s, u"açılmıyor, fan sesi"_s}, {u"TS_SERVIS_TUTAR"_s, u"250"_s},
    {u"TS_ISCILIK_TUTAR"_s, u"120,50"_s},
};

/// Object name of the control that has the keyboard, or of the nearest named one around it.
QString focusedControl() {
  for (const QWidget* widget = QApplication::focusWidget(); widget != nullptr; widget = widget->parentWidget())
    if (widget->objectName().startsWith(u"TS_")) return widget->objectName();
  return {};
}

/// The title of the slip window in front; empty when there is none.
QString slipTitle() {
  const QWidgetList windows = fKvb->childWindows();
  return windows.isEmpty() ? QString() : windows.back()->windowTitle();
}

bool showsText(const QString& text) {
  for (const QWidget* widget : QApplication::allWidgets()) {
    const auto* label = qobject_cast<const QLabel*>(widget);
    if (label != nullptr && label->isVisible() && label->text().contains(text)) return true;
  }
  return false;
}

QString scalar(const QString& statement) {
  TMyQuery query(DM->MySQL, u"qDemo"_s);
  query.SQL.setText(statement);
  query.Open();
  return query.IsEmpty() ? QString() : query.field(0).asText();
}

/// Fills the form by the keyboard alone, moving on with Enter as a user would.
void fillByKeyboard(ScreenHands& hands) {
  std::set<QString> filled;
  for (int stop = 0; stop < 60 && filled.size() < deviceTakenIn.size(); ++stop) {
    const QString control = hands.ask<QString>(focusedControl);
    for (const auto& [column, text] : deviceTakenIn)
      if (column == control && filled.insert(column).second) hands.type(text);
    hands.press({control == u"TS_C_EKPARCA" || control == u"TS_C_SIKAYET" || control == u"TS_C_TEKNISYEN_NOT" ? u"Tab"_s : u"Return"_s});
    ScreenHands::pause(40);
  }
  if (filled.size() < deviceTakenIn.size()) throw StationMissed("not every field was reached by the keyboard");
}

void execute(const QString& statement) {
  TMyQuery query(DM->MySQL, u"qDemo"_s);
  query.SQL.setText(statement);
  query.Execute();
}

bool isDialogUp(const QString& title) {
  const QWidget* dialog = QApplication::activeModalWidget();
  return dialog != nullptr && dialog->windowTitle() == title && dialog->isAncestorOf(QApplication::focusWidget());
}

/// The slip's dialogs: the list of statuses, the firm that the device goes to, and the reminder.
void useDialogs(ScreenHands& hands) {
  hands.click(u"TS_TURU"_s);
  hands.picture(u"islem-durumlari"_s);
  hands.press({u"Escape"_s, u"ctrl+Return"_s});
  hands.waitFor(u"outside service"_s, [] { return isDialogUp(u"Dış Servis Bilgileri"_s); });
  hands.type(u"yıldız yetkili servis"_s);
  hands.press({u"Return"_s, u"Return"_s, u"Return"_s});
  hands.type(u"anakart değişecek"_s);
  hands.press({u"Return"_s});
  hands.type(u"10"_s);
  hands.picture(u"dis-servis"_s);
  hands.press({u"F2"_s});
  hands.waitFor(u"status of the outside service"_s, [] { return fServisFis->text(u"TS_TURU"_s) == u"DIŞ SERVİSTE"_s; });
  hands.click(u"aHatirlat"_s);
  hands.waitFor(u"reminder"_s, [] { return isDialogUp(u"Hatırlatma Notu"_s); });
  hands.press({u"space"_s, u"Return"_s});
  hands.type(u"0930"_s);
  hands.press({u"Return"_s});
  hands.type(u"müşteriyi ara"_s);
  hands.picture(u"hatirlatma"_s);
  hands.press({u"Escape"_s});
  hands.waitFor(u"slip in front"_s, [] { return QApplication::activeModalWidget() == nullptr && QApplication::activeWindow() == fKvb; });
}

/// A picture as the counter's telephone made it: a notebook on a table.
QString takePhoto() {
  QImage image(960, 720, QImage::Format_RGB32);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.fillRect(image.rect(), QColor(0xc9, 0xa9, 0x82));
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor(0x3a, 0x3f, 0x47));
  painter.drawRoundedRect(QRect(250, 120, 460, 310), 14, 14);
  painter.drawPolygon(QPolygon({{230, 440}, {730, 440}, {820, 600}, {140, 600}}));
  painter.setBrush(QColor(0x9f, 0xc4, 0xe0));
  painter.drawRect(QRect(272, 142, 416, 262));
  painter.setPen(QPen(QColor(0xf5, 0xf5, 0xf5), 3));
  painter.drawPolyline(QPolygon({{420, 142}, {470, 230}, {440, 290}, {520, 404}}));  // the crack
  painter.setPen(QPen(QColor(0x8a, 0x90, 0x98), 5, Qt::DotLine));
  for (int row = 0; row < 4; ++row) painter.drawLine(250 - 16 * row, 470 + 26 * row, 710 + 16 * row, 470 + 26 * row);
  painter.end();
  const QString file = QDir::temp().filePath(u"kvtk-demo-foto.jpg"_s);
  if (!image.save(file)) throw StationMissed("no photo");
  return file;
}

void addPhoto(ScreenHands& hands) {
  const QString file = takePhoto();
  hands.click(u"btnEkle"_s);
  hands.waitFor(u"picture asked for"_s, [] { return isInFront(u"Resim Ekle"_s); });
  hands.type(file);
  hands.press({u"Return"_s});
  hands.waitFor(u"picture taken"_s, [] { return QApplication::activeModalWidget() == nullptr; });
  QFile::remove(file);
}

/// The same device and the same customer have been here before; one of those slips is opened from the page.
void lookAtHistory(ScreenHands& hands) {
  const auto asAnotherWorkstation = [&](const QString& statement) {
    hands.ask<bool>([&] {
      execute(statement);
      return true;
    });
  };
  asAnotherWorkstation(
      u"insert into teknikservis (TS_NO, TS_TARIH, TS_TURU, TS_MUSTERI, TS_C_AD, TS_C_SERINO, TS_TUTAR) values "
      u"('E-1', '2025-11-04', 'TESLİM EDİLDİ', 'AYŞE IŞIK', 'DİZÜSTÜ BİLGİSAYAR', 'SN00471', 650), "
      u"('E-2', '2026-02-17', 'İADE EDİLDİ', 'AYŞE IŞIK', 'DİZÜSTÜ BİLGİSAYAR', 'SN00471', 0)"_s);
  for (const QString& page : {u"malzemeler"_s, u"notlar"_s, u"fotograf"_s, u"seri-no-gecmisi"_s, u"musteri-gecmisi"_s}) {
    hands.press({u"ctrl+Next"_s});
    if (page == u"fotograf"_s) addPhoto(hands);
    hands.picture(page);
  }
  hands.press({u"Down"_s, u"Return"_s});
  hands.waitFor(u"slip of the history"_s, [] { return slipTitle().startsWith(u"(E-"_s); });
  hands.picture(u"gecmisten-acilan-fis"_s);
  hands.press({u"F3"_s});
  hands.waitFor(u"first slip in front"_s, [] { return slipTitle() == u"(100) Servis Fişi"_s; });
  asAnotherWorkstation(u"delete from teknikservis where TS_NO like 'E-%'"_s);
}

/// Two parts on the page behind the first, each typed into a row added by the keyboard.
void addParts(ScreenHands& hands) {
  hands.press({u"ctrl+Next"_s});
  for (const QStringList& part : {QStringList{u"1"_s, u"şarj soketi"_s, u"1"_s, u"300"_s}, QStringList{u"2"_s, u"fan"_s, u"2"_s, u"125,5"_s}}) {
    hands.press({u"Insert"_s});
    for (const QString& text : part) {
      hands.type(text);
      hands.press({u"Return"_s});
    }
  }
  hands.waitFor(u"two parts"_s, [] { return fServisFis->qMalzeme.RecordCount() == 2; });
  hands.picture(u"parcalar"_s);
}

void printSavedRow() {
  TMyQuery query(DM->MySQL, u"qDemo"_s);
  query.SQL.setText(u"select * from teknikservis where TS_NO = '100'"_s);
  query.Open();
  for (int i = 0; i < query.fieldCount(); ++i)
    if (!query.field(i).isNull())
      std::printf("%-26s %s\n", query.fieldInfo(i).name.toUtf8().constData(), query.field(i).asText().toUtf8().constData());
}

void walk(ScreenHands& hands, const Simulator& simulator) {
  hands.waitFor(u"login form"_s, [] { return visibleWidget(u"Tamam_Button"_s) != nullptr; });
  hands.picture(u"oturum"_s);
  hands.press({u"Return"_s});
  ContractsRoad::meetReminders(hands);
  hands.picture(u"calisma-alani"_s);
  hands.click(u"applicationButton"_s);
  hands.waitFor(u"about the program"_s, [] { return fAbout->isActiveWindow(); });
  hands.picture(u"program-hakkinda"_s);
  hands.press({u"Return"_s});
  hands.waitFor(u"about closed"_s, [] { return QApplication::activeModalWidget() == nullptr && QApplication::activeWindow() == fKvb; });
  PaperRoad::fillCompany(hands);

  hands.click(u"dxBarLargeButton1"_s);
  hands.waitFor(u"new slip"_s, [] { return slipTitle() == u"Yeni Servis Fişi"_s && focusedControl() == u"TS_NO"_s; });
  hands.picture(u"yeni-fis"_s);
  fillByKeyboard(hands);
  hands.picture(u"doldurulmus-fis"_s);
  useDialogs(hands);
  addParts(hands);
  hands.press({u"F2"_s});
  hands.waitFor(u"balloon"_s, [] { return showsText(u"Servis fiş kaydı tamamlandı."_s); });
  hands.picture(u"kayit-tamamlandi"_s);
  hands.waitFor(u"saved slip's title"_s, [] { return slipTitle() == u"(100) Servis Fişi"_s; });
  hands.waitFor(u"saved parts"_s, [] { return scalar(u"select sum(MZ_TUTAR) from malzeme"_s).startsWith(u"425,5"); });
  hands.waitFor(u"balloon gone"_s, [] { return !showsText(u"Servis fiş kaydı tamamlandı."_s); });
  lookAtHistory(hands);
  PaperRoad::lookAtReceipt(hands, u"makbuz-onizleme"_s);
  DesignerRoad::changeReceipt(hands);
  hands.press({u"F3"_s});
  hands.waitFor(u"slip closed"_s, [] { return fKvb->childWindows().isEmpty(); });
  hands.picture(u"fis-kapandi"_s);

  SlipListRoad::addSlipsOfOthers(hands);
  SlipListRoad::askForTheDaysList(hands);
  SlipListRoad::openList(hands);
  SlipListRoad::openSlipOf(hands, u"ayşe ış"_s);
  hands.waitFor(u"slip reopened"_s, [] { return slipTitle() == u"(100) Servis Fişi"_s; });
  hands.click(u"TS_ACIKLAMA"_s);
  hands.type(u"müşteri akşam uğrayacak"_s);
  hands.picture(u"degistirilmis-fis"_s);
  hands.press({u"F2"_s});
  hands.waitFor(u"change saved"_s, [] {
    return scalar(u"select TS_ACIKLAMA from teknikservis where TS_NO = '100'"_s) == u"MÜŞTERİ AKŞAM UĞRAYACAK"_s;
  });
  hands.ask<bool>([] {
    printSavedRow();
    return true;
  });
  hands.press({u"F6"_s});
  hands.waitFor(u"question before deleting"_s, [] { return showsText(u"Fiş silinecek onaylıyor musunuz"_s); });
  hands.picture(u"silme-sorusu"_s);
  hands.press({u"Return"_s});
  hands.waitFor(u"slip deleted"_s, [] {
    return fKvb->childWindows().isEmpty() && scalar(u"select count(*) from teknikservis where TS_NO = '100'"_s) == u"0"_s;
  });
  hands.picture(u"silindi"_s);
  SlipListRoad::openList(hands);
  hands.picture(u"kalan-fisler"_s);
  hands.press({u"Escape"_s});
  hands.waitFor(u"list closed"_s, [] { return QApplication::activeModalWidget() == nullptr && QApplication::activeWindow() == fKvb; });
  walkTheCards(hands);
  walkTheExtras(hands);
  ContractsRoad::addContract(hands);
  PaperRoad::lookAtLetter(hands);
  ContractsRoad::lookAtReminders(hands);
  MessagesRoad::signIn(hands, simulator);
  MessagesRoad::sendToMany(hands, simulator);
  MessagesRoad::tryMailAccount(hands, simulator);
  MessagesRoad::tellTheCustomer(hands, simulator);
  FinishRoad::printLabel(hands);
  FinishRoad::complete(hands, simulator);
  FinishRoad::deliver(hands);
  FinishRoad::loseAndRestore(hands);
  MessagesRoad::takeCalls(hands);
}

}  // namespace

int walkTheRoad(const QString& pictureFolder, const Simulator& simulator) {
  ScreenHands hands(pictureFolder);
  try {
    walk(hands, simulator);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "demo: %s\n", error.what());
    return 1;
  }
  std::puts("demo: every station reached");
  return 0;
}
