#pragma once

#include "comm/http_exchange.h"
#include "simulator/behaviour.h"
#include "simulator/heard.h"

#include <QAbstractHttpServer>

#include <functional>

/// An HTTP or HTTPS server that answers as it is told to, well or badly. Lives on one thread.
class HttpServer : public QAbstractHttpServer {
 public:
  /// answer makes the answer to a request, behaviour tells how it is given; both are called on this server's thread.
  HttpServer(std::function<HttpAnswer(const HttpHeard&)> answer, std::function<Behaviour()> behaviour)
      : answer_(std::move(answer)), behaviour_(std::move(behaviour)) {}

 protected:
  bool handleRequest(const QHttpServerRequest& request, QTcpSocket* socket) override;
  void missingHandler(const QHttpServerRequest&, QTcpSocket*) override {}

 private:
  std::function<HttpAnswer(const HttpHeard&)> answer_;
  std::function<Behaviour()> behaviour_;
};

/// size bytes that depend on the seed alone.
QByteArray rubbish(const QString& seed, qsizetype size);
