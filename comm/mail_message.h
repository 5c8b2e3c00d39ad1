#pragma once

#include "base/exceptions.h"

#include <QByteArray>
#include <QDateTime>
#include <QList>
#include <QString>

/// A message that cannot be formed: an address that cannot go on the wire.
class EMailError : public Exception {
 public:
  using Exception::Exception;
  QString className() const override;
  QString parentClassName() const override;
};

/// Whether the shop's screens take an address: one "@", no "..", only "-", ".", "_", digits and ASCII letters, and behind the
/// "@" a dot with a character before and two behind it.
bool isValidEmail(const QString& text);

struct MailContent {
  QString sender;      ///< also where answers go
  QString recipients;  ///< one or more addresses joined by "," or ";", each bare or as: Name <address>
  QString subject;
  QString body;
  QDateTime date;
  QString uniquePart;  ///< letters and digits that no other message of this sender has
};

/// A message as it goes out: the envelope's addresses without angle brackets, and the text with CR LF line ends.
struct MailMessage {
  QByteArray sender;
  QList<QByteArray> recipients;
  QByteArray text;
};

/// Writes the message by RFC 5322, 2045 and 2047, in ASCII only; a line break in a header becomes a blank, so that no value
/// can add a header or a recipient. Throws EMailError naming the address that cannot be used.
MailMessage composeMail(const MailContent& content);
