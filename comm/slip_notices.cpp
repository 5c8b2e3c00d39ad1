#include "comm/slip_notices.h"

#include "app/parameters.h"
#include "app/ports.h"
#include "app/quendUtils.h"
#include "comm/fEpostaUnit.h"
#include "comm/smsUnit.h"
#include "comm/sms_screen.h"
#include "comm/sms_text.h"
#include "service/slip_hooks.h"
#include "toolkit/edits/memo_edit.h"

#include <QListWidget>

using namespace Qt::StringLiterals;

namespace {

const QString mobile = u"TS_CEP"_s;
const QString mailAddress = u"TS_EPOSTA"_s;

QStringList texts(const QListWidget* list) {
  QStringList all;
  for (int row = 0; row < list->count(); ++row) all += list->item(row)->text();
  return all;
}

/// The slip's texts in the order of the markers, as displayed.
QStringList values(const SlipScreen& slip) {
  QStringList all;
  for (const QString& column : {u"TS_MUSTERI"_s, u"TS_C_AD"_s, u"TS_C_MARKA"_s, u"TS_C_TURU"_s, u"TS_C_SERINO"_s, u"TS_ACIKLAMA"_s,
                                u"TS_TUTAR"_s, u"TS_C_SIKAYET"_s, u"TS_C_TEKNISYEN_NOT"_s})
    all += slip.text(column);
  return all;
}

/// Messages over the slip; a success stands in a balloon at the mobile number.
class NoticeOverSlip : public SmsOverWindow<SmsSender> {
 public:
  explicit NoticeOverSlip(SlipScreen& slip) : SmsOverWindow(slip.dialogOwner(), fSMS->iHTTP), slip_(slip) {}
  void confirm(const QString& text) override { slip_.QuendHint(slip_.control(mobile), 0, text); }

 private:
  SlipScreen& slip_;
};

bool sendSms(SlipScreen& slip, const MemoEdit* messageTemplate, const QListWidget* markers) {
  const QString number = slip.text(mobile);
  if (number.isEmpty() || !fParametreler->isChecked(ParameterFiles::NotifyBySms)) return true;
  NoticeOverSlip screen(slip);
  return SmsSequences::notifyCustomer(fSMS->settings(), messageTemplate->text(), texts(markers), values(slip), number, screen);
}

}  // namespace

bool SlipNotices::sendIntakeSms(SlipScreen& slip) {
  return fSMS == nullptr || sendSms(slip, fSMS->smsMESAJAK, fSMS->ParamList);
}

bool SlipNotices::sendCompletionSms(SlipScreen& slip) {
  return fSMS == nullptr || sendSms(slip, fSMS->SmsMesajTam, fSMS->ParamList2);
}

void SlipNotices::sendCompletionMail(SlipScreen& slip) {
  const QString recipient = slip.text(mailAddress);
  if (fEPOSTA == nullptr || recipient.isEmpty() || !fParametreler->isChecked(ParameterFiles::NotifyByMail)) return;
  const MailSettings account = fEPOSTA->account();
  if (const QString refusal = MailSequences::noticeRefusal(account, recipient); !refusal.isEmpty()) {
    QuendUtil->ErrorMesaj(slip.dialogOwner(), refusal);
    return;
  }
  const QString body = SmsText::withMarkers(fEPOSTA->eSMTPTEMPLATE->text(), texts(fEPOSTA->ParamList), values(slip));
  if (fEPOSTA->SendeMail(body, recipient, account.authMode, fEPOSTA->port(), account.server, account.password, account.userName))
    ports().setStatusText(recipient + u" adresine e-posta başarıyla gönderildi."_s);
  else
    QuendUtil->ErrorMesaj(slip.dialogOwner(), MailSequences::sendFailedText());
}
