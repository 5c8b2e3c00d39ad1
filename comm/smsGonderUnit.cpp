#include "comm/smsGonderUnit.h"

#include "base/guard.h"
#include "comm/smsUnit.h"
#include "comm/sms_screen.h"
#include "comm/sms_text.h"
#include "toolkit/edits/combo_edit.h"
#include "toolkit/edits/memo_edit.h"
#include "toolkit/edits/text_edit.h"
#include "toolkit/shell/screen_room.h"

#include <QBoxLayout>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QTimer>

using namespace Qt::StringLiterals;

TsmsYollaForm* smsYollaForm = nullptr;

namespace {

constexpr int openingDelayMs = 100;
constexpr int boxWidth = 520;
constexpr int messageHeight = 70;

/// What typed characters become in a message that holds length of them.
QString passingText(const QString& typed, qsizetype length) {
  QString passing;
  for (const QChar key : typed)
    if (const auto sent = SmsText::bulkKey(key, length + passing.size())) passing += *sent;
  return passing;
}

}  // namespace

TsmsYollaForm::TsmsYollaForm(QWidget* parent)
    : QDialog(parent),
      ALICITEL(new TextEdit),
      TS_TURU(new ComboEdit),
      smsMESAJ(new MemoEdit),
      SayPan(new QLabel(u"0"_s)),
      uyariPan(new QLabel),
      cxGroupBox1(new QGroupBox),
      Timer1(new QTimer(this)),
      btnPost(new QPushButton(u"SMS Gönder"_s)) {
  setObjectName(u"smsYollaForm"_s);
  setWindowTitle(u"SMS Gönder"_s);
  Timer1->setSingleShot(true);
  Timer1->setInterval(openingDelayMs);
  connectGuarded(Timer1, &QTimer::timeout, this, [this] { openSequence(); });
  buildForm();
  smsYollaForm = this;
}

TsmsYollaForm::~TsmsYollaForm() {
  if (smsYollaForm == this) smsYollaForm = nullptr;
}

void TsmsYollaForm::buildForm() {
  ALICITEL->setObjectName(u"ALICITEL"_s);
  ALICITEL->setCaption(u" ALICI TELEFON"_s);
  ALICITEL->setCharCase(CharCase::Upper);
  ALICITEL->setMinimumWidth(boxWidth);
  ALICITEL->setKeyFilter([this](const QKeyEvent& key) { return dropsRecipientKey(key); });
  connectGuarded(ALICITEL, &EditBox::left, this, [this] { leaveRecipients(); });
  TS_TURU->setObjectName(u"TS_TURU"_s);
  TS_TURU->setCaption(u" GÖNDERİCİ ADI"_s);
  smsMESAJ->setObjectName(u"smsMESAJ"_s);
  smsMESAJ->editor()->setAccessibleName(u"Mesaj"_s);
  smsMESAJ->setTakesLineBreaks(false);
  smsMESAJ->setMinimumHeight(messageHeight);
  smsMESAJ->setTypingRule([this](const QString& typed) { return passingText(typed, smsMESAJ->text().size()); });
  connectGuarded(smsMESAJ, &MemoEdit::textChanged, this, [this] { SayPan->setText(QString::number(smsMESAJ->text().size())); });
  SayPan->setObjectName(u"SayPan"_s);
  SayPan->setAlignment(Qt::AlignRight);
  uyariPan->setObjectName(u"uyariPan"_s);
  uyariPan->setAlignment(Qt::AlignCenter);
  uyariPan->setWordWrap(true);
  uyariPan->setMinimumHeight(2 * uyariPan->fontMetrics().lineSpacing());  // nothing moves when it comes to say something
  cxGroupBox1->setObjectName(u"cxGroupBox1"_s);
  auto* group = new QVBoxLayout(cxGroupBox1);
  for (QWidget* part : {static_cast<QWidget*>(ALICITEL), static_cast<QWidget*>(TS_TURU), static_cast<QWidget*>(smsMESAJ), static_cast<QWidget*>(SayPan)})
    group->addWidget(part);

  auto* giveUp = new QPushButton(u"Vazgeç"_s);
  giveUp->setAutoDefault(false);
  btnPost->setObjectName(u"btnPost"_s);
  btnPost->setAutoDefault(false);
  connectGuarded(btnPost, &QPushButton::clicked, this, [this] { btnPostClick(); });
  connectGuarded(giveUp, &QPushButton::clicked, this, [this] { done(GivenUp); });
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(btnPost);
  buttons->addWidget(giveUp);

  auto* content = new QWidget;
  auto* parts = new QVBoxLayout(content);
  parts->setContentsMargins(0, 0, 0, 0);
  parts->addWidget(cxGroupBox1, 1);
  parts->addWidget(buildInformation());
  auto* all = new QVBoxLayout(this);
  all->addWidget(new ScreenRoom(content), 1);
  all->addWidget(uyariPan);
  all->addLayout(buttons);
}

QWidget* TsmsYollaForm::buildInformation() {
  auto* box = new QGroupBox(u"Bilgilendirme"_s);
  auto* lines = new QVBoxLayout(box);
  for (const QString& line : {u"* Birden fazla alıcıya sms göndermek için telefon numaralarını (,) virgül ile ayırınız."_s,
                              u"* 1 kısa mesaj 160 karakter olabilir."_s,
                              u"* Uzun mesaj için her parça 153 karakter olacak şekilde gönderilir. Maksimum 612 karakter."_s})
    lines->addWidget(new QLabel(line));
  return box;
}

/// Digits, comma and TAB alone write. Backspace, paste, cut, copy and undo do nothing, as they come as characters of their own;
/// Delete and the arrows, which write nothing, work: meant.
bool TsmsYollaForm::dropsRecipientKey(const QKeyEvent& key) const {
  const bool isLetterWithCtrl = key.modifiers().testFlag(Qt::ControlModifier) && key.key() >= Qt::Key_A && key.key() <= Qt::Key_Z;
  if (isLetterWithCtrl || key.matches(QKeySequence::Paste) || key.key() == Qt::Key_Backspace) return true;
  return writesText(key) && !SmsText::recipientKeyPasses(key.text().front());
}

void TsmsYollaForm::leaveRecipients() {
  if (const auto line = SmsSequences::recipientsLeft(fSMS->settings(), memory_, ALICITEL->text())) {
    uyariPan->setText(*line);
    uyariPan->show();
  }
}

void TsmsYollaForm::Giris(const QString& numbers) {
  cxGroupBox1->setTitle(u"SMS Bilgilendirme"_s);
  uyariPan->clear();
  ALICITEL->setText(numbers);
  cxGroupBox1->setEnabled(false);
  Timer1->start();
  exec();
  Timer1->stop();
}

/// Runs when the form is on the screen, so that the person sees what is waited for.
void TsmsYollaForm::openSequence() {
  const SmsSettings settings = fSMS->settings();
  SmsScreen screen(this, fSMS->iHTTP, uyariPan);
  screen.onSenders = [this](const QStringList& names) {
    TS_TURU->setItems(names);
    TS_TURU->setItemIndex(names.isEmpty() ? -1 : 0);
  };
  if (!SmsSequences::bulkMayOpen(settings, screen)) return done(GivenUp);
  if (!SmsSequences::openBulk(settings, memory_, screen)) return;
  cxGroupBox1->setEnabled(true);
  smsMESAJ->editor()->setFocus();
}

void TsmsYollaForm::btnPostClick() {
  SmsScreen screen(this, fSMS->iHTTP, uyariPan);
  screen.onRecipients = [this](const QString& text) { ALICITEL->setText(text); };
  if (SmsSequences::sendBulk(fSMS->settings(), ALICITEL->text(), smsMESAJ->text(), screen)) done(Sent);
}
