#include "comm/fEpostaUnit.h"

#include "app/ports.h"
#include "app/quendUtils.h"
#include "base/environment.h"
#include "base/guard.h"
#include "base/whole_file.h"
#include "comm/marker_memo.h"
#include "comm/smtp_client.h"
#include "toolkit/edits/combo_edit.h"
#include "toolkit/edits/memo_edit.h"
#include "toolkit/edits/password_line.h"
#include "toolkit/edits/task_dialog.h"
#include "toolkit/edits/text_edit.h"
#include "toolkit/shell/screen_room.h"
#include "toolkit/shell/waiting_run.h"

#include <QBoxLayout>
#include <QFile>
#include <QGroupBox>
#include <QListWidget>
#include <QPushButton>

using namespace Qt::StringLiterals;

TfEPOSTA* fEPOSTA = nullptr;

namespace {

constexpr int boxWidth = 460;
constexpr int captionWidth = 220;
constexpr int markerWidth = 170;
constexpr int memoHeight = 90;
constexpr int markerHeight = 105;
const QString file = u"Smtp"_s;
const QString section = u"Smtp"_s;

QString templateFile() { return QuendUtil->programFolder + u"smtpsablon.txt"_s; }

template <class Box>
Box* named(const QString& name, const QString& caption) {
  auto* box = new Box;
  box->setObjectName(name);
  EditButton label = labelButton(u' ' + caption);
  label.width = captionWidth;
  box->addButton(label);
  box->setAccessibleName(caption);
  box->line()->setAccessibleName(caption);
  box->setEnterMovesOn(true);
  box->setMinimumWidth(boxWidth);
  return box;
}

}  // namespace

TfEPOSTA::TfEPOSTA(QWidget* parent)
    : QDialog(parent),
      eSMTPName(named<TextEdit>(u"eSMTPName"_s, u"SMTP Sunucu Adı"_s)),
      eSMTPUserName(named<TextEdit>(u"eSMTPUserName"_s, u"E-Posta Hesabı Kullanıcı Adı"_s)),
      eSMTPPassword(named<TextEdit>(u"eSMTPPassword"_s, u"E-Posta Hesabı Kullanıcı Şifresi"_s)),
      eSMTPPORT(named<TextEdit>(u"eSMTPPORT"_s, u"Port No"_s)),
      eSMTPAUTH(named<ComboEdit>(u"eSMTPAUTH"_s, u"Sunucu Kimlik Doğrulama"_s)),
      eSMTPOWNER(named<TextEdit>(u"eSMTPOWNER"_s, u"Gönderici E-Posta Adresi"_s)),
      eSubject(named<TextEdit>(u"eSubject"_s, u"Konu"_s)),
      eSMTPTEMPLATE(new MemoEdit),
      ParamList(MarkerMemo::markerList(*eSMTPTEMPLATE)),
      SpeedButton1(new QPushButton(u"Test E-Postası Gönder"_s)),
      btnPost(new QPushButton(u"Kaydet"_s)) {
  setObjectName(u"fEPOSTA"_s);
  setWindowTitle(u"E-Posta Ayarları"_s);
  auto* giveUp = new QPushButton(u"Vazgeç"_s);
  giveUp->setAutoDefault(false);
  giveUp->setFocusPolicy(Qt::TabFocus);  // a click that gives up leaves no box, and so is never asked for an address
  SpeedButton1->setObjectName(u"SpeedButton1"_s);
  SpeedButton1->setAutoDefault(false);
  btnPost->setObjectName(u"btnPost"_s);
  btnPost->setDefault(true);
  connectGuarded(SpeedButton1, &QPushButton::clicked, this, [this] { sendTest(); });
  connectGuarded(btnPost, &QPushButton::clicked, this, [this] { btnPostClick(); });
  connectGuarded(giveUp, &QPushButton::clicked, this, [this] { done(GivenUp); });
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(SpeedButton1);
  buttons->addStretch();
  buttons->addWidget(btnPost);
  buttons->addWidget(giveUp);

  eSMTPTEMPLATE->setObjectName(u"eSMTPTEMPLATE"_s);
  eSMTPTEMPLATE->editor()->setAccessibleName(u"Şablon Mesaj"_s);
  eSMTPTEMPLATE->setMinimumHeight(memoHeight);
  ParamList->setObjectName(u"ParamList"_s);
  ParamList->setFixedWidth(markerWidth);
  ParamList->setMinimumHeight(markerHeight);  // small screens would scroll the whole dialog otherwise
  auto* body = new QGroupBox(u"Şablon Mesaj"_s);
  auto* bodyRow = new QHBoxLayout(body);
  bodyRow->addWidget(eSMTPTEMPLATE, 1);
  bodyRow->addWidget(ParamList);

  auto* content = new QWidget;
  auto* parts = new QVBoxLayout(content);
  parts->setContentsMargins(0, 0, 0, 0);
  parts->addWidget(buildAccount());
  parts->addWidget(body, 1);
  auto* all = new QVBoxLayout(this);
  all->addWidget(new ScreenRoom(content), 1);
  all->addLayout(buttons);
  kept_.emplace(std::vector<EditBox*>{eSMTPName, eSMTPUserName, eSMTPPassword, eSMTPPORT, eSMTPOWNER, eSubject});
  fEPOSTA = this;
}

TfEPOSTA::~TfEPOSTA() {
  if (fEPOSTA == this) fEPOSTA = nullptr;
}

QWidget* TfEPOSTA::buildAccount() {
  maskPassword(*eSMTPPassword->line());
  eSMTPPORT->setText(u"0"_s);
  eSMTPAUTH->setItems({u"Hayır"_s, u"Evet"_s});
  eSMTPAUTH->setItemIndex(0);
  // Leaving the subject asks for the sender's address too: meant.
  for (TextEdit* box : {eSMTPOWNER, eSubject}) connectGuarded(box, &EditBox::left, this, [this] { eSMTPOWNERExit(); });
  auto* group = new QGroupBox(u"Hesap"_s);
  auto* column = new QVBoxLayout(group);
  for (EditBox* box : std::initializer_list<EditBox*>{eSMTPName, eSMTPUserName, eSMTPPassword, eSMTPPORT, eSMTPAUTH, eSMTPOWNER, eSubject})
    column->addWidget(box);
  return group;
}

void TfEPOSTA::LoadParams() {
  if (QFile stored(templateFile()); stored.exists()) {
    if (!stored.open(QIODevice::ReadOnly)) throw EInOutError(u"%1 okunamadı: %2"_s.arg(stored.fileName(), stored.errorString()));
    eSMTPTEMPLATE->setText(answerText({200, {}, stored.readAll()}));
  }
  const QString choice = QuendUtil->load_inifile(file, section, {}, eSMTPAUTH->objectName());
  bool isNumber = false;
  const int index = choice.toInt(&isNumber);
  if (isNumber && index >= 0 && index < eSMTPAUTH->itemCount()) eSMTPAUTH->setItemIndex(index);
}

int TfEPOSTA::Giris() {
  LoadParams();
  eSMTPName->line()->setFocus();
  return exec();
}

void TfEPOSTA::eSMTPOWNERExit() {
  if (!isVisible() || IsValidEmail(eSMTPOWNER->text())) return;
  QuendUtil->ErrorMesaj(this, u"Gönderici E-Posta adresi hatalı yazılmış"_s);
  eSMTPOWNER->line()->setFocus();
}

MailSettings TfEPOSTA::account() const {
  return {eSMTPName->text(), eSMTPUserName->text(), eSMTPPassword->text(), 0, eSMTPAUTH->itemIndex(), eSMTPOWNER->text(), eSubject->text()};
}

int TfEPOSTA::port() const {
  bool isNumber = false;
  const int number = eSMTPPORT->text().toInt(&isNumber);
  if (!isNumber) throw EConvertError(u"\"%1\" geçerli bir port numarası değil."_s.arg(eSMTPPORT->text()));
  return number;
}

bool TfEPOSTA::SendeMail(const QString& body, const QString& recipient, int authMode, int port, const QString& host,
                         const QString& password, const QString& userName) {
  const MailSettings account{host, userName, password, port, authMode, eSMTPOWNER->text(), eSubject->text()};
  return MailSequences::send(
      account, body, recipient, environment().now(), QuendUtil->GetRandomAddress(),
      [](const MailSettings& settings, const MailMessage& message) {
        runWhileWaiting([&] { SmtpClient::send(settings, message); });
      },
      [](const QString& context, const Exception& error) { logMessage(context, &error); });
}

void TfEPOSTA::sendTest() {
  if (!IsValidEmail(eSMTPOWNER->text()))
    return showPlainMessage(this, TaskIcon::Error, uR"(Lütfen geçerli bir "Gönderici E-Posta adresi" girin.)"_s);
  const QString body =
      u"Bu postayı okuyorsanız Torvane Teknik Servis Takip Programı E-Posta gönderim ayarlarınız çalışmaktadır."_s;
  MailSettings now = account();
  now.port = port();
  const QString recipient = askText(this, u"Test E-Posta"_s, u"Test için bir e-posta adresi girin :"_s);
  if (recipient.isEmpty()) return;
  // Name and password are asked for even where none are sent: meant.
  if (now.server.isEmpty() || now.password.isEmpty() || now.userName.isEmpty())
    return showPlainMessage(this, TaskIcon::Error, u"Lütfen gerekli alanları doldurun."_s);
  if (SendeMail(body, recipient, now.authMode, now.port, now.server, now.password, now.userName))
    showPlainMessage(this, TaskIcon::Information, u"E-Posta başarıyla gönderildi."_s);
  else
    showPlainMessage(this, TaskIcon::Error, MailSequences::sendFailedText());
}

void TfEPOSTA::btnPostClick() {
  QuendUtil->save_inifile(file, section, QString::number(eSMTPAUTH->itemIndex()), eSMTPAUTH->objectName());
  WholeFile::replace(templateFile(), eSMTPTEMPLATE->text().toUtf8());
  done(Saved);
}
