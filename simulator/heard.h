#pragma once

#include <QByteArray>
#include <QList>
#include <QPair>
#include <QString>

/// A request as it came.
struct HttpHeard {
  QString path;
  QList<QPair<QByteArray, QByteArray>> headers;
  QByteArray body;
};

/// A message as it came.
struct MailHeard {
  QByteArray sender;
  QList<QByteArray> recipients;
  QByteArray text;   ///< dots of the transport taken off
  bool signedIn = false;
};
