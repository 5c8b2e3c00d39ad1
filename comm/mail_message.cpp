#include "comm/mail_message.h"

#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

QString EMailError::className() const { return u"EMailError"_s; }
QString EMailError::parentClassName() const { return u"Exception"_s; }

bool isValidEmail(const QString& text) {
  const qsizetype at = text.indexOf(u'@');
  if (at < 0 || text.contains(u".."_s)) return false;
  const QString local = text.left(at);
  const QString domain = text.mid(at + 1);
  if (local.isEmpty() || domain.size() < 4) return false;
  const qsizetype dot = domain.indexOf(u'.') + 1;  // counted from 1
  if (dot < 2 || dot > domain.size() - 2) return false;
  static const QRegularExpression allowed(uR"(\A[-._0-9A-Za-z]*\z)"_s);
  return allowed.match(local).hasMatch() && allowed.match(domain).hasMatch();
}

namespace {

constexpr char boundary[] = "=_kvtk_part";  // no line of base64 can begin like it

QString oneLine(QString text) {
  for (QChar& letter : text)
    if (letter < u' ' || letter == QChar(0x7F)) letter = u' ';
  return text;
}

bool isPlain(const QString& text) {
  return std::all_of(text.begin(), text.end(), [](QChar letter) { return letter >= u' ' && letter <= u'~'; });
}

/// Words of RFC 2047, one a line. 39 bytes give a line below 76 characters with a header's name before the first of them.
QByteArray encodedWords(const QString& text) {
  constexpr qsizetype mostBytes = 39;
  QByteArrayList words;
  QByteArray piece;
  const auto flush = [&] { words += "=?UTF-8?B?" + piece.toBase64() + "?="; };
  for (const char32_t character : text.toUcs4()) {
    const QByteArray bytes = QString::fromUcs4(&character, 1).toUtf8();
    if (piece.size() + bytes.size() > mostBytes) {
      flush();
      piece.clear();
    }
    piece += bytes;
  }
  flush();
  return words.join("\r\n ");
}

/// A header's free text: as it is when it is short and plain, otherwise encoded.
QByteArray headerText(const QString& text) {
  const QString line = oneLine(text);
  constexpr qsizetype mostPlain = 60;
  const bool staysPlain = isPlain(line) && line.size() <= mostPlain && !line.contains(u"=?"_s) && line == line.trimmed();
  return staysPlain ? line.toLatin1() : encodedWords(line);
}

struct Mailbox {
  QString name;
  QByteArray address;

  QByteArray header() const { return name.isEmpty() ? '<' + address + '>' : encodedWords(name) + "\r\n <" + address + '>'; }
};

Mailbox mailboxOf(const QString& text) {
  Mailbox mailbox;
  QString address = text.trimmed();
  if (const qsizetype bracket = address.lastIndexOf(u'<'); bracket >= 0 && address.endsWith(u'>')) {
    mailbox.name = oneLine(address.left(bracket)).trimmed();
    if (mailbox.name.size() >= 2 && mailbox.name.startsWith(u'"') && mailbox.name.endsWith(u'"'))
      mailbox.name = mailbox.name.mid(1, mailbox.name.size() - 2);
    address = address.mid(bracket + 1).chopped(1).trimmed();
  }
  static const QRegularExpression sendable(uR"(\A[!#-'*+\-./0-9=?A-Z^-~]+@[-.0-9A-Za-z]+\z)"_s);
  constexpr qsizetype longest = 254;
  if (address.size() > longest || !sendable.match(address).hasMatch())
    throw EMailError(u"E-posta adresi kullanılamaz: "_s + oneLine(address).left(longest));
  mailbox.address = address.toLatin1();
  return mailbox;
}

/// Parts of the list between the "," and ";" that stand outside quotes.
QList<Mailbox> mailboxesOf(const QString& list) {
  QList<Mailbox> mailboxes;
  QString item;
  bool isQuoted = false;
  const auto flush = [&] {
    if (!item.trimmed().isEmpty()) mailboxes += mailboxOf(item);
    item.clear();
  };
  for (const QChar letter : list) {
    if (letter == u'"') isQuoted = !isQuoted;
    if (!isQuoted && (letter == u',' || letter == u';'))
      flush();
    else
      item += letter;
  }
  flush();
  if (mailboxes.isEmpty()) throw EMailError(u"E-postanın alıcısı yok."_s);
  return mailboxes;
}

QByteArray encodedBody(QString text) {
  text.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n').replace(u'\n', u"\r\n"_s);
  const QByteArray all = text.toUtf8().toBase64();
  QByteArray lines;
  constexpr qsizetype width = 76;
  for (qsizetype at = 0; at < all.size(); at += width) lines += all.mid(at, width) + "\r\n";
  return lines;
}

}  // namespace

MailMessage composeMail(const MailContent& content) {
  const Mailbox sender = mailboxOf(content.sender);
  const QList<Mailbox> recipients = mailboxesOf(content.recipients);
  MailMessage message;
  message.sender = sender.address;
  QByteArrayList to;
  for (const Mailbox& recipient : recipients) {
    message.recipients += recipient.address;
    to += recipient.header();
  }
  // One part alone under "alternative": meant.
  message.text = "Date: " + content.date.toString(Qt::RFC2822Date).toLatin1() +
                 "\r\nFrom: " + sender.header() +
                 "\r\nReply-To: " + sender.header() +
                 "\r\nTo: " + to.join(",\r\n ") +
                 "\r\nSubject: " + headerText(content.subject) +
                 "\r\nMessage-ID: <" + content.uniquePart.toLatin1() + sender.address.mid(sender.address.indexOf('@')) + ">"
                 "\r\nMIME-Version: 1.0"
                 "\r\nContent-Type: multipart/alternative; charset=\"UTF-8\";\r\n boundary=\"" + boundary + "\""
                 "\r\n\r\n--" + boundary +
                 "\r\nContent-Type: text/plain; charset=\"UTF-8\""
                 "\r\nContent-Transfer-Encoding: base64\r\n\r\n" + encodedBody(content.body) +
                 "--" + boundary + "--\r\n";
  return message;
}
