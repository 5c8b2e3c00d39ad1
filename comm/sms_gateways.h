#pragma once

#include "comm/http_exchange.h"
#include "comm/service_addresses.h"

#include <QStringList>

/// The three gateways: requests from values, outcomes from answers. Nothing here sends, waits or shows.

struct SmsAccount {
  QString user;
  QString password;
};

/// Provider indices of the settings screen's list.
enum SmsProvider { JsonSmsProvider = 0, FormSmsProvider = 1, XmlSmsProvider = 2 };

/// What a gateway said. words: the whole message for the user when it refused; a refusal without words is shown to nobody.
struct SmsVerdict {
  bool accepted = false;
  QString words;
};

struct SmsSenders : SmsVerdict {
  QStringList names;
};

struct SmsBalance : SmsVerdict {
  QString credit;         ///< as it is shown
  bool isSpent = false;   ///< the gateway's credit counts as used up; always false from the XML gateway
};

struct SmsReceipt : SmsVerdict {
  QString messageId;  ///< of the JSON gateway only
};

/// One message to any number of recipients. user, password, sender and recipients go out as they are, the text escaped where
/// the format needs it.
struct SmsMessage {
  QString sender;
  QString recipients;  ///< joined by commas; for the JSON gateway each in double quotes
  QString text;
};

/// Codes other than "200" refuse, in words of code, " - " and description. The readers throw EWireError for an answer without
/// the fields that they need.
namespace JsonSms {
/// These throw EWireError when an unescaped value breaks the request, and ENetworkError for a bad address.
HttpRequest sendersRequest(const ServiceAddresses& addresses, const SmsAccount& account);
HttpRequest balanceRequest(const ServiceAddresses& addresses, const SmsAccount& account);
HttpRequest submitRequest(const ServiceAddresses& addresses, const SmsAccount& account, const SmsMessage& message);

SmsSenders readSenders(const HttpAnswer& answer);
/// credit is a whole number, "0" for anything that is none.
SmsBalance readBalance(const HttpAnswer& answer);
SmsReceipt readReceipt(const HttpAnswer& answer);
}  // namespace JsonSms

/// Plain text answers. Nothing throws but the requests for a bad address (ENetworkError).
namespace FormSms {
HttpRequest sendersRequest(const ServiceAddresses& addresses, const SmsAccount& account);
HttpRequest balanceRequest(const ServiceAddresses& addresses, const SmsAccount& account);
HttpRequest submitRequest(const ServiceAddresses& addresses, const SmsAccount& account, const SmsMessage& message);

SmsSenders readSenders(const HttpAnswer& answer);
/// isSpent never comes true of a plain "0": a line break stands behind it; meant.
SmsBalance readBalance(const HttpAnswer& answer);
/// A default answer is that of a failed connection.
SmsReceipt readReceipt(const HttpAnswer& answer);
}  // namespace FormSms

/// Coded answers. A status other than 200 is a failed connection.
namespace XmlSms {
HttpRequest sendersRequest(const ServiceAddresses& addresses, const SmsAccount& account);
HttpRequest balanceRequest(const ServiceAddresses& addresses, const SmsAccount& account);
/// turkishLock: with the charset attribute, as bulk messages have it and the slip's notice has not; meant.
HttpRequest submitRequest(const ServiceAddresses& addresses, const SmsAccount& account, const SmsMessage& message, bool turkishLock);

/// keepsBlanks: a name with a blank stays in one piece; the bulk form lets it fall in two, meant.
SmsSenders readSenders(const HttpAnswer& answer, bool keepsBlanks);
/// Throws EConvertError for a credit that is no whole number.
SmsBalance readBalance(const HttpAnswer& answer);
SmsReceipt readReceipt(const HttpAnswer& answer);
}  // namespace XmlSms
