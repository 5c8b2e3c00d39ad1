#pragma once

#include "comm/http_exchange.h"
#include "simulator/behaviour.h"

#include <QStringList>

#include <optional>

/// Plays the services that speak HTTP: bytes of a request in, bytes of an answer out.
class GatewayPlay {
 public:
  QString user = QStringLiteral("deneme");
  QString password = QStringLiteral("1234");
  QStringList senders = {QStringLiteral("TORVANE"), QStringLiteral("TEKNIK SERVIS")};
  int credit = 1250;

  struct Reply {
    HttpAnswer answer;
    QString operation;  ///< what was asked, for the log
    QString line;       ///< what was done, for the log: numbers and text of a message, never an account
  };
  /// path as it stands in the request's first line. refusal: the code to refuse with; nothing answers as it should.
  Reply reply(Service service, const QString& path, const QByteArray& body, const std::optional<QString>& refusal);

 private:
  Reply replyJson(const QString& path, const QByteArray& body, const std::optional<QString>& refusal);
  Reply replyForm(const QByteArray& body, const std::optional<QString>& refusal);
  Reply replyXml(const QString& path, const QByteArray& body, const std::optional<QString>& refusal);
  static Reply replyRates();
  /// Takes the price of a message; false when the credit does not suffice.
  bool pay(qsizetype recipients);
  int messages_ = 0;
};
