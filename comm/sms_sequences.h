#pragma once

#include "comm/sms_gateways.h"

#include <optional>

/// What the three screens that speak to a gateway do, step by step: which request, which banner, which pause, which words.
/// The three differ in pauses, order and words on purpose.

/// Values as they stand on the settings screen at this moment, saved or not.
struct SmsSettings {
  int provider = JsonSmsProvider;
  SmsAccount account;
  QString sender;
  QString intakeTemplate;
  ServiceAddresses addresses;
};

/// A screen that sends: carries requests and shows messages.
class SmsSender {
 public:
  virtual ~SmsSender() = default;
  /// Sends and waits; the window stays painted and input waits. Throws ENetworkError.
  virtual HttpAnswer exchange(const HttpRequest& request) = 0;
  virtual void errorMessage(const QString& text) = 0;  ///< ErrorMesaj
  /// Keeps in the log why there was no connection, of which the user is told no more than that.
  virtual void note(const Exception& cause) = 0;
  virtual void plainMessage(const QString& text) = 0;  ///< a bare message box
  virtual void confirm(const QString& text) = 0;       ///< NormalMesaj; at the slip the balloon at the mobile number
};

/// A screen that asks a gateway for its senders and its balance.
class SmsSession : public SmsSender {
 public:
  /// Caption of the banner; nothing but the caption changes.
  virtual void setBanner(const QString& text) = 0;
  /// Shows or hides the banner; hidden, it uncovers the sender list and its label.
  virtual void showBanner(bool isShown) = 0;
  /// One run of the message loop, so that the banner is painted.
  virtual void runMessageLoop() = 0;
  /// Waits that many milliseconds, with the window painted.
  virtual void pause(int milliseconds) = 0;
  /// Puts names in the place of the sender list and selects the first.
  virtual void showSenders(const QStringList& names) = 0;
  /// The whole line of the balance label; the bulk form, which has none, is not asked.
  virtual void showBalance(const QString& line) = 0;
  /// Puts text in the place of the bulk form's recipients.
  virtual void showRecipients(const QString& text) = 0;
};

/// What the bulk form keeps from one opening to the next, for the program's life.
struct BulkMemory {
  QString recipientCount;  ///< empty until the recipients were left once
  QString balance;
};

namespace SmsSequences {

/// "Oturum Aç" of the settings screen: senders, then balance. What the form gateway's requests and the XML gateway's credit
/// raise goes to the caller; the banner is hidden however it ends.
void signIn(const SmsSettings& settings, SmsSession& screen);

/// False, after the message, when user, password or sender is missing: the bulk form closes then.
bool bulkMayOpen(const SmsSettings& settings, SmsSender& screen);
/// The bulk form's opening after that check; true when the input group is to be enabled. Raises as signIn.
bool openBulk(const SmsSettings& settings, BulkMemory& memory, SmsSession& screen);

/// Banner of the recipients and the balance; kept by recipientsLeft and openBulk.
QString bulkLine(const BulkMemory& memory);
/// The recipients' box was left: the new banner; nothing for gateways that show no such line.
std::optional<QString> recipientsLeft(const SmsSettings& settings, BulkMemory& memory, const QString& recipients);

/// "SMS Gönder" of the bulk form. recipients is the box's text; the JSON gateway's quoted list takes its place before it goes
/// out. True when the form closes, false when it stays open.
bool sendBulk(const SmsSettings& settings, const QString& recipients, const QString& text, SmsSession& screen);

/// The slip's notice to one number. False ends the save: only the JSON gateway's refusal does.
bool notifyCustomer(const SmsSettings& settings, const QString& messageTemplate, const QStringList& markers,
                    const QStringList& values, const QString& number, SmsSender& screen);

}  // namespace SmsSequences
