#include "comm/smsUnit.h"

#include "app/quendUtils.h"
#include "base/guard.h"
#include "base/ini_file.h"
#include "comm/marker_memo.h"
#include "comm/sms_screen.h"
#include "comm/sms_text.h"
#include "toolkit/edits/combo_edit.h"
#include "toolkit/edits/memo_edit.h"
#include "toolkit/edits/password_line.h"
#include "toolkit/edits/text_edit.h"
#include "toolkit/shell/screen_room.h"

#include <QBoxLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTabWidget>

using namespace Qt::StringLiterals;

TfSMS* fSMS = nullptr;

namespace {

constexpr int boxWidth = 330;
constexpr int markerWidth = 170;
constexpr int memoHeight = 90;
const QString file = u"Sms"_s;
const QString section = u"Sms"_s;
const QString nothingKept = u"-1"_s;

/// The services' names, in the order of their indices.
QStringList providers() { return {u"Nac Telekom"_s, u"Form SMS Servisi"_s, u"XML SMS Servisi"_s}; }

QString kept(const QWidget* control, const QString& fallback) {
  return QuendUtil->load_inifile(file, section, fallback, control->objectName());
}

QString templateOf(const MemoEdit* memo) {
  const QString text = kept(memo, {});
  return text == nothingKept ? QString() : text;
}

/// Drops what is outside the alphabet as it is typed. What is pasted does not come through here: meant.
QString passingText(const QString& typed) {
  QString passing;
  for (const QChar key : typed)
    if (SmsText::templateKeyPasses(key)) passing += key;
  return passing;
}

template <class Box>
Box* named(Box* box, const QString& name, const QString& caption) {
  box->setObjectName(name);
  box->setCaption(caption);
  box->setEnterMovesOn(true);
  box->setFixedWidth(boxWidth);
  return box;
}

QWidget* templatePage(MemoEdit* memo, QListWidget* markers, QLabel* counter) {
  memo->setTakesLineBreaks(false);
  memo->setTypingRule(passingText);
  memo->setMinimumHeight(memoHeight);
  markers->setFixedWidth(markerWidth);
  counter->setAlignment(Qt::AlignRight);
  connectGuarded(memo, &MemoEdit::textChanged, memo, [memo, counter] { counter->setText(QString::number(memo->text().size())); });
  auto* page = new QWidget;
  auto* grid = new QGridLayout(page);
  grid->setContentsMargins(8, 6, 8, 4);
  grid->addWidget(memo, 0, 0);
  grid->addWidget(markers, 0, 1);
  grid->addWidget(counter, 1, 0);
  return page;
}

}  // namespace

TfSMS::TfSMS(QWidget* parent)
    : QDialog(parent),
      servis(named(new ComboEdit, u"servis"_s, u" SERVİS"_s)),
      sKullanici(named(new TextEdit, u"sKullanici"_s, u" KULLANICI ADI"_s)),
      sParola(named(new TextEdit, u"sParola"_s, u" PAROLA"_s)),
      sProfil(named(new ComboEdit, u"sProfil"_s, u" GÖNDERİCİ ADI"_s)),
      smsMESAJAK(new MemoEdit),
      SmsMesajTam(new MemoEdit),
      ParamList(MarkerMemo::markerList(*smsMESAJAK)),
      ParamList2(MarkerMemo::markerList(*SmsMesajTam)),
      SayPan(new QLabel(u"0"_s)),
      SayTPan(new QLabel(u"0"_s)),
      uyariPan(new QLabel),
      mevcutKontor(new QLabel),
      SpeedButton1(new QPushButton(u"Oturum Aç"_s)),
      btnPost(new QPushButton(u"Kaydet"_s)) {
  setObjectName(u"fSMS"_s);
  setWindowTitle(u"SMS Ayarları"_s);
  auto* giveUp = new QPushButton(u"Vazgeç"_s);
  giveUp->setAutoDefault(false);
  SpeedButton1->setObjectName(u"SpeedButton1"_s);
  SpeedButton1->setAutoDefault(false);
  btnPost->setObjectName(u"btnPost"_s);
  btnPost->setDefault(true);
  connectGuarded(SpeedButton1, &QPushButton::clicked, this, [this] { signIn(); });
  connectGuarded(btnPost, &QPushButton::clicked, this, [this] { btnPostClick(); });
  connectGuarded(giveUp, &QPushButton::clicked, this, [this] { done(GivenUp); });
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(btnPost);
  buttons->addWidget(giveUp);
  auto* content = new QWidget;
  auto* parts = new QVBoxLayout(content);
  parts->setContentsMargins(0, 0, 0, 0);
  parts->setSpacing(3);
  parts->addWidget(buildAccount());
  parts->addWidget(buildTemplates(), 1);
  auto* all = new QVBoxLayout(this);
  all->addWidget(new ScreenRoom(content), 1);
  all->addLayout(buttons);
  kept_.emplace(std::vector<EditBox*>{sKullanici, sParola});
  fSMS = this;
}

TfSMS::~TfSMS() {
  if (fSMS == this) fSMS = nullptr;
}

QWidget* TfSMS::buildAccount() {
  servis->setItems(providers());
  servis->setItemIndex(JsonSmsProvider);
  maskPassword(*sParola->line());
  uyariPan->setObjectName(u"uyariPan"_s);
  uyariPan->setAlignment(Qt::AlignCenter);
  uyariPan->setAutoFillBackground(true);
  QSizePolicy keepsItsRow = uyariPan->sizePolicy();
  keepsItsRow.setRetainSizeWhenHidden(true);  // without it the grid takes the row's distance away as well
  uyariPan->setSizePolicy(keepsItsRow);
  uyariPan->hide();
  mevcutKontor->setObjectName(u"mevcutKontor"_s);

  auto* group = new QGroupBox(u"Servis Sağlayıcı"_s);
  auto* grid = new QGridLayout(group);
  grid->addWidget(servis, 0, 0);
  grid->addWidget(sKullanici, 1, 0);
  grid->addWidget(sParola, 2, 0);
  grid->addWidget(SpeedButton1, 2, 1);
  grid->addWidget(sProfil, 3, 0);
  grid->addWidget(mevcutKontor, 3, 1);
  grid->addWidget(uyariPan, 3, 0, 1, 2);  // over sender and balance
  grid->setColumnStretch(1, 1);
  grid->setAlignment(SpeedButton1, Qt::AlignLeft);
  return group;
}

QTabWidget* TfSMS::buildTemplates() {
  smsMESAJAK->setObjectName(u"smsMESAJAK"_s);
  smsMESAJAK->editor()->setAccessibleName(u"Arıza Kabul Sms Mesaj"_s);
  SmsMesajTam->setObjectName(u"SmsMesajTam"_s);
  SmsMesajTam->editor()->setAccessibleName(u"Tamamlandı Sms Mesaj"_s);
  ParamList->setObjectName(u"ParamList"_s);
  ParamList2->setObjectName(u"ParamList2"_s);
  SayPan->setObjectName(u"SayPan"_s);
  SayTPan->setObjectName(u"SayTPan"_s);
  auto* pages = new QTabWidget;
  pages->addTab(templatePage(smsMESAJAK, ParamList, SayPan), u"<Arıza Kabul> Sms Mesaj"_s);
  pages->addTab(templatePage(SmsMesajTam, ParamList2, SayTPan), u"<Tamamlandı> Sms Mesaj"_s);
  return pages;
}

void TfSMS::LoadParams() {
  const int index = kept(servis, u"0"_s).toInt();
  servis->setItemIndex(index > 0 && index < servis->itemCount() ? index : JsonSmsProvider);
  sProfil->clearItems();
  // Only the empty text is none: a file without the key shows one sender "-1", meant.
  if (const QString sender = kept(sProfil, {}); !sender.isEmpty()) sProfil->addItem(sender);
  sProfil->setItemIndex(sProfil->itemCount() - 1);
  smsMESAJAK->setText(templateOf(smsMESAJAK));
  SmsMesajTam->setText(templateOf(SmsMesajTam));
}

int TfSMS::Giris() {
  LoadParams();
  sKullanici->line()->setFocus();
  return exec();
}

SmsSettings TfSMS::settings() const {
  return {servis->itemIndex(), {sKullanici->text(), sParola->text()}, sProfil->text(), smsMESAJAK->text(),
          ServiceAddresses::load(QuendUtil->programFolder)};
}

void TfSMS::signIn() {
  SmsScreen screen(this, iHTTP, uyariPan);
  screen.onSenders = [this](const QStringList& names) {
    sProfil->setItems(names);
    sProfil->setItemIndex(names.isEmpty() ? -1 : 0);
  };
  screen.onBalance = [this](const QString& line) { mevcutKontor->setText(line); };
  SmsSequences::signIn(settings(), screen);
}

void TfSMS::btnPostClick() {
  // In one step, so that gateway, sender and templates always belong together.
  IniFile::write(QuendUtil->programFolder + file + u".ini"_s,
                 {{section, servis->objectName(), QString::number(servis->itemIndex())},
                  {section, sProfil->objectName(), sProfil->text()},
                  {section, smsMESAJAK->objectName(), smsMESAJAK->text()},
                  {section, SmsMesajTam->objectName(), SmsMesajTam->text()}});
  done(Saved);
}
