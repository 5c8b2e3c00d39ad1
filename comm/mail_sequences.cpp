#include "comm/mail_sequences.h"

#include "comm/http_exchange.h"

using namespace Qt::StringLiterals;

QString ESmtpError::className() const { return u"ESmtpError"_s; }
QString ESmtpError::parentClassName() const { return u"Exception"_s; }

bool MailSequences::send(const MailSettings& settings, const QString& body, const QString& recipients, const QDateTime& now,
                         const QString& uniquePart, const MailTransport& transport, const MailLog& log) {
  try {
    transport(settings, composeMail({settings.owner, recipients, settings.subject, body, now, uniquePart}));
    return true;
  } catch (const ENetworkError& error) {
    log(settings.server, error);
  } catch (const Exception& error) {
    log(u"SMTP e-posta gönderim hatası"_s, error);
  }
  return false;
}

QString MailSequences::noticeRefusal(const MailSettings& settings, const QString& recipient) {
  if (!isValidEmail(settings.owner)) return uR"(Lütfen geçerli bir "Gönderici E-Posta adresi" girin.)"_s;
  if (!isValidEmail(recipient)) return uR"(Lütfen geçerli bir "Alıcı E-Posta adresi" girin.)"_s;
  if (settings.server.isEmpty() || settings.userName.isEmpty() || settings.password.isEmpty())
    return u"Lütfen gerekli alanları doldurun."_s;
  return {};
}

QString MailSequences::sendFailedText() { return u"E-Posta gönderiminde hata oluştu. Lütfen ayarlarınızı kontrol ediniz."_s; }
