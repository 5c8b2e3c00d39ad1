#pragma once

#include "simulator/behaviour.h"
#include "simulator/heard.h"

#include <QTcpServer>

#include <functional>

/// A mail server by RFC 5321 with AUTH PLAIN and LOGIN. Lives on one thread.
class MailServer : public QTcpServer {
 public:
  /// accepts tells whether an account may sign in; heard gets each message.
  MailServer(std::function<bool(const QByteArray& user, const QByteArray& password)> accepts,
             std::function<void(const MailHeard&)> heard, std::function<Behaviour()> behaviour);

 private:
  void serve(QTcpSocket* socket);

  std::function<bool(const QByteArray&, const QByteArray&)> accepts_;
  std::function<void(const MailHeard&)> heard_;
  std::function<Behaviour()> behaviour_;
};
