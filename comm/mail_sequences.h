#pragma once

#include "comm/mail_message.h"

#include <functional>

/// What is under way when mail is sent and shown; the words and their order.

/// Values as they stand on the e-mail settings screen at this moment, saved or not.
struct MailSettings {
  QString server;
  QString userName;
  QString password;
  int port = 0;
  int authMode = 0;  ///< 0 none, 1 user name and password
  QString owner;     ///< sender address
  QString subject;
};

/// The message could not be handed over after the connection stood. The message names no account.
class ESmtpError : public Exception {
 public:
  using Exception::Exception;
  QString className() const override;
  QString parentClassName() const override;
};

/// Hands a message to the server. Throws ENetworkError while connecting, ESmtpError from then on.
using MailTransport = std::function<void(const MailSettings&, const MailMessage&)>;
/// Keeps a failure in the log: the line's text and the error.
using MailLog = std::function<void(const QString& context, const Exception& error)>;

namespace MailSequences {

/// Sends body to recipients. False when it did not go out, for whatever reason, which is in the log alone. now and uniquePart
/// as in MailContent.
bool send(const MailSettings& settings, const QString& body, const QString& recipients, const QDateTime& now,
          const QString& uniquePart, const MailTransport& transport, const MailLog& log);

/// Why the slip's notice does not go out: the first of its three refusals. Empty when it may.
QString noticeRefusal(const MailSettings& settings, const QString& recipient);

QString sendFailedText();

}  // namespace MailSequences
