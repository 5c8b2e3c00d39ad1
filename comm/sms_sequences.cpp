#include "comm/sms_sequences.h"

#include "comm/sms_text.h"

using namespace Qt::StringLiterals;

namespace {

const QString connecting = u"Lütfen bekleyin, bağlantı kuruluyor..."_s;
const QString askingSenders = u"Lütfen bekleyin, Gönderi bilgileri alınıyor..."_s;
const QString askingBalance = u"Lütfen bekleyin, Kontör Sorgulanıyor..."_s;
const QString settingsMissing = u"SMS gönderebilmek için ayarlar bölümünden sms tanımlarını yapmalısınız."_s;
const QString spentAtPanel = u"Gönderim için köntörünüz bulunmamaktadır! Lütfen panelinizden temin ediniz."_s;
const QString spentAtProvider = u"Gönderim için köntörünüz bulunmamaktadır! Lütfen sağlayıcıdan temin ediniz."_s;
// With a full stop in submit, without one before; meant.
const QString noConnection = u"Servis sağlayıcı ile bağlantı kurulamadı"_s;
const QString noSubmitConnection = u"SMS Servis sağlayıcı ile bağlantı kurulamadı."_s;
constexpr int pauseMs = 1000;

QString requestError(const Exception& error) { return u"Error on request:\r\n"_s + error.message(); }

void tellFailure(const QString& words, const Exception& cause, SmsSender& screen) {
  screen.note(cause);
  screen.errorMessage(words);
}

/// Shows the words of a refusal that has some.
void tellRefusal(const SmsVerdict& verdict, SmsSender& screen) {
  if (!verdict.words.isEmpty()) screen.errorMessage(verdict.words);
}

void announce(const QString& banner, SmsSession& screen) {
  screen.setBanner(banner);
  screen.showBanner(true);
  screen.runMessageLoop();
}

/// Uncovers the sender controls when an answer has arrived.
HttpAnswer uncovered(SmsSession& screen, HttpAnswer answer) {
  screen.showBanner(false);
  return answer;
}

void signInJson(const SmsSettings& settings, SmsSession& screen) {
  try {
    announce(connecting, screen);
    const SmsSenders senders =
        JsonSms::readSenders(uncovered(screen, screen.exchange(JsonSms::sendersRequest(settings.addresses, settings.account))));
    if (!senders.accepted) return tellRefusal(senders, screen);
    screen.showSenders(senders.names);

    announce(askingBalance, screen);
    screen.pause(pauseMs);
    const SmsBalance balance =
        JsonSms::readBalance(uncovered(screen, screen.exchange(JsonSms::balanceRequest(settings.addresses, settings.account))));
    if (!balance.accepted) return tellRefusal(balance, screen);
    screen.showBalance(u"Kontör Miktarı: "_s + balance.credit);
  } catch (const Exception& error) {
    screen.plainMessage(requestError(error));
  }
}

void signInForm(const SmsSettings& settings, SmsSession& screen) {
  announce(connecting, screen);
  screen.pause(pauseMs);
  const SmsSenders senders =
      FormSms::readSenders(uncovered(screen, screen.exchange(FormSms::sendersRequest(settings.addresses, settings.account))));
  if (!senders.accepted) return tellRefusal(senders, screen);
  screen.showSenders(senders.names);

  announce(askingBalance, screen);
  screen.pause(pauseMs);
  const SmsBalance balance =
      FormSms::readBalance(uncovered(screen, screen.exchange(FormSms::balanceRequest(settings.addresses, settings.account))));
  screen.showBalance(u"Kalan Kontör: "_s + balance.credit);
  if (balance.isSpent) screen.errorMessage(spentAtPanel);
}

/// Who asks the XML gateway: they differ in how blanks part sender names and in when the banner hides; meant.
enum class XmlAsker { SignIn, BulkForm };

/// The sign-in's banner hides when the exchange has ended, however it did.
HttpAnswer exchangeXml(const HttpRequest& request, XmlAsker asker, SmsSession& screen) {
  struct Uncover {
    XmlAsker asker;
    SmsSession& screen;
    ~Uncover() {
      if (asker == XmlAsker::SignIn) screen.showBanner(false);
    }
  } uncover{asker, screen};
  return screen.exchange(request);
}

/// False when the gateway refused, which ends what is under way; a failed connection does not.
bool askXmlSenders(const SmsSettings& settings, XmlAsker asker, SmsSession& screen) {
  try {
    const SmsSenders senders = XmlSms::readSenders(exchangeXml(XmlSms::sendersRequest(settings.addresses, settings.account), asker, screen),
                                                   asker == XmlAsker::SignIn);
    if (senders.accepted)
      screen.showSenders(senders.names);
    else
      tellRefusal(senders, screen);
    return senders.accepted;
  } catch (const ENetworkError& error) {
    tellFailure(noConnection, error, screen);
    return true;
  }
}

/// The credit; nothing, after the message, when there is none to show.
std::optional<QString> askXmlBalance(const SmsSettings& settings, XmlAsker asker, SmsSession& screen) {
  try {
    const SmsBalance balance = XmlSms::readBalance(exchangeXml(XmlSms::balanceRequest(settings.addresses, settings.account), asker, screen));
    if (balance.accepted) return balance.credit;
    tellRefusal(balance, screen);
  } catch (const ENetworkError& error) {
    tellFailure(noConnection, error, screen);
  }
  return std::nullopt;
}

void signInXml(const SmsSettings& settings, SmsSession& screen) {
  announce(connecting, screen);
  screen.pause(pauseMs);
  if (!askXmlSenders(settings, XmlAsker::SignIn, screen)) return;
  announce(askingBalance, screen);
  screen.pause(pauseMs);
  if (const auto credit = askXmlBalance(settings, XmlAsker::SignIn, screen)) screen.showBalance(u"Kontör Miktarı: "_s + *credit);
}

/// The senders' step of the JSON gateway; false when it refused. What raises stands in the banner, and the balance follows.
bool openJsonSenders(const SmsSettings& settings, SmsSession& screen) {
  try {
    const HttpAnswer answer = screen.exchange(JsonSms::sendersRequest(settings.addresses, settings.account));
    screen.setBanner(askingSenders);
    const SmsSenders senders = JsonSms::readSenders(answer);
    if (!senders.accepted) {
      screen.setBanner(senders.words);
      return false;
    }
    screen.showSenders(senders.names);
    screen.setBanner(askingBalance);
    screen.runMessageLoop();
  } catch (const Exception& error) {
    screen.setBanner(requestError(error));
  }
  return true;
}

bool openJson(const SmsSettings& settings, BulkMemory& memory, SmsSession& screen) {
  if (!openJsonSenders(settings, screen)) return false;
  try {
    const HttpAnswer answer = screen.exchange(JsonSms::balanceRequest(settings.addresses, settings.account));
    screen.showBanner(false);
    const SmsBalance balance = JsonSms::readBalance(answer);
    if (!balance.accepted) {
      screen.setBanner(balance.words);  // the banner is hidden by now; meant
      return false;
    }
    memory.balance = balance.credit;
    screen.setBanner(SmsSequences::bulkLine(memory));
    if (balance.isSpent) screen.errorMessage(spentAtProvider);  // the form can send all the same; meant
  } catch (const Exception& error) {
    screen.setBanner(requestError(error));
  }
  screen.showBanner(true);
  return true;
}

bool openForm(const SmsSettings& settings, SmsSession& screen) {
  const SmsSenders senders = FormSms::readSenders(screen.exchange(FormSms::sendersRequest(settings.addresses, settings.account)));
  if (!senders.accepted) {
    tellRefusal(senders, screen);
    return false;
  }
  screen.showSenders(senders.names);
  screen.setBanner(askingBalance);
  screen.runMessageLoop();
  screen.pause(pauseMs);
  const SmsBalance balance = FormSms::readBalance(screen.exchange(FormSms::balanceRequest(settings.addresses, settings.account)));
  screen.setBanner(u"Kalan Kontör: "_s + balance.credit);
  screen.runMessageLoop();
  if (balance.isSpent) screen.errorMessage(spentAtPanel);
  return true;
}

bool openXml(const SmsSettings& settings, SmsSession& screen) {
  if (!askXmlSenders(settings, XmlAsker::BulkForm, screen)) return false;
  screen.setBanner(askingBalance);
  screen.runMessageLoop();
  screen.pause(pauseMs);
  if (const auto credit = askXmlBalance(settings, XmlAsker::BulkForm, screen)) screen.setBanner(u"Kontör Miktarı: "_s + *credit);
  return true;
}

bool isIncomplete(const SmsSettings& settings) {
  return settings.account.user.isEmpty() || settings.account.password.isEmpty() || settings.sender.isEmpty();
}

/// A failed connection is told by itself, and the answer then counts as empty.
SmsReceipt submitForm(const SmsSettings& settings, const SmsMessage& message, SmsSender& screen) {
  HttpAnswer answer;
  try {
    answer = screen.exchange(FormSms::submitRequest(settings.addresses, settings.account, message));
  } catch (const ENetworkError& error) {
    tellFailure(noSubmitConnection, error, screen);
  }
  return FormSms::readReceipt(answer);
}

/// Nothing, after the message, when the connection failed.
std::optional<SmsReceipt> submitXml(const SmsSettings& settings, const SmsMessage& message, bool turkishLock, SmsSender& screen) {
  try {
    return XmlSms::readReceipt(screen.exchange(XmlSms::submitRequest(settings.addresses, settings.account, message, turkishLock)));
  } catch (const ENetworkError& error) {
    tellFailure(noSubmitConnection, error, screen);
    return std::nullopt;
  }
}

void tellReceipt(const SmsReceipt& receipt, const QString& success, SmsSender& screen) {
  if (receipt.accepted)
    screen.confirm(success);
  else
    tellRefusal(receipt, screen);
}

}  // namespace

void SmsSequences::signIn(const SmsSettings& settings, SmsSession& screen) {
  struct Uncover {
    SmsSession& screen;
    ~Uncover() { screen.showBanner(false); }
  } uncover{screen};
  switch (settings.provider) {
    case JsonSmsProvider: return signInJson(settings, screen);
    case FormSmsProvider: return signInForm(settings, screen);
    case XmlSmsProvider: return signInXml(settings, screen);
    default: return;
  }
}

bool SmsSequences::bulkMayOpen(const SmsSettings& settings, SmsSender& screen) {
  if (!isIncomplete(settings)) return true;
  screen.errorMessage(settingsMissing);
  return false;
}

bool SmsSequences::openBulk(const SmsSettings& settings, BulkMemory& memory, SmsSession& screen) {
  announce(connecting, screen);
  screen.pause(pauseMs);
  // The banner of the last step stays when one refuses: meant.
  switch (settings.provider) {
    case JsonSmsProvider: return openJson(settings, memory, screen);
    case FormSmsProvider: return openForm(settings, screen);
    case XmlSmsProvider: return openXml(settings, screen);
    default: return false;
  }
}

QString SmsSequences::bulkLine(const BulkMemory& memory) {
  return u"Alıcı Sayısı: "_s + memory.recipientCount + u" / Mevcut Kontör: "_s + QString::number(memory.balance.toInt());
}

std::optional<QString> SmsSequences::recipientsLeft(const SmsSettings& settings, BulkMemory& memory, const QString& recipients) {
  if (settings.provider != JsonSmsProvider) return std::nullopt;
  memory.recipientCount = QString::number(SmsText::recipients(recipients).size());
  return bulkLine(memory);
}

bool SmsSequences::sendBulk(const SmsSettings& settings, const QString& recipients, const QString& text, SmsSession& screen) {
  if (recipients.trimmed().isEmpty()) {
    screen.errorMessage(u"SMS gönderebilmek için alıcı telefonlarını yazmalısınız."_s);
    return false;
  }
  // The intake template is asked for though it is not used here; meant.
  if (settings.intakeTemplate.isEmpty() || isIncomplete(settings)) {
    screen.errorMessage(settingsMissing);
    return false;
  }
  if (settings.provider == JsonSmsProvider) {
    const QString quoted = SmsText::quotedRecipients(recipients);
    screen.showRecipients(quoted);
    try {
      const SmsReceipt receipt = JsonSms::readReceipt(
          screen.exchange(JsonSms::submitRequest(settings.addresses, settings.account, {settings.sender, quoted, text})));
      tellReceipt(receipt, u"SMS Mesajı servis sağlayıcıya iletilmiştir. Id: "_s + receipt.messageId, screen);
    } catch (const Exception& error) {
      screen.plainMessage(requestError(error));
    }
    return true;
  }
  const SmsMessage message{settings.sender, recipients, text};
  const QString success = u"SMS ile bilgilendirme yapılmıştır."_s;
  if (settings.provider == FormSmsProvider) tellReceipt(submitForm(settings, message, screen), success, screen);
  if (settings.provider == XmlSmsProvider) {
    const auto receipt = submitXml(settings, message, true, screen);
    if (!receipt) return false;
    tellReceipt(*receipt, success, screen);
  }
  return true;
}

bool SmsSequences::notifyCustomer(const SmsSettings& settings, const QString& messageTemplate, const QStringList& markers,
                                  const QStringList& values, const QString& number, SmsSender& screen) {
  if (messageTemplate.isEmpty() || isIncomplete(settings)) {
    screen.errorMessage(settingsMissing);
    return true;
  }
  const QString text = SmsText::withMarkers(messageTemplate, markers, values);
  if (settings.provider == JsonSmsProvider) {
    try {
      const SmsReceipt receipt = JsonSms::readReceipt(screen.exchange(
          JsonSms::submitRequest(settings.addresses, settings.account, {settings.sender, u'"' + number + u'"', text})));
      tellReceipt(receipt, u"SMS ile bilgilendirme yapıldı. Id: "_s + receipt.messageId, screen);
      return receipt.accepted;
    } catch (const Exception& error) {
      screen.plainMessage(requestError(error));
      return true;
    }
  }
  const SmsMessage message{settings.sender, number, text};
  const QString success = u"SMS ile bilgilendirme yapıldı."_s;
  if (settings.provider == FormSmsProvider) tellReceipt(submitForm(settings, message, screen), success, screen);
  if (settings.provider == XmlSmsProvider)
    if (const auto receipt = submitXml(settings, message, false, screen)) tellReceipt(*receipt, success, screen);
  return true;
}
