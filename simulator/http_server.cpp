#include "simulator/http_server.h"

#include "base/guard.h"

#include <QHttpServerRequest>
#include <QRandomGenerator>
#include <QTcpSocket>
#include <QUrl>

QByteArray rubbish(const QString& seed, qsizetype size) {
  QRandomGenerator random(quint32(qHash(seed, 0)));
  QByteArray bytes(size, '\0');
  for (char& byte : bytes) byte = char(random.bounded(256));
  return bytes;
}

bool HttpServer::handleRequest(const QHttpServerRequest& request, QTcpSocket* socket) {
  guarded(this, [&] {
    const Behaviour behaviour = behaviour_();
    const HttpAnswer answer = answer_({request.url().path(), request.headers(), request.body()});
    if (behaviour.mood == Mood::Silent) return;
    const int status = behaviour.mood == Mood::Status ? behaviour.code.toInt() : answer.status;
    constexpr qsizetype rubbishSize = 3000;
    QByteArray bytes = "HTTP/1.1 " + QByteArray::number(status) + " Simulator\r\nContent-Type: " + answer.contentType +
                       "\r\nContent-Length: " + QByteArray::number(answer.body.size()) +
                       "\r\nSet-Cookie: oturum=1; Path=/\r\nConnection: close\r\n\r\n" + answer.body;
    if (behaviour.mood == Mood::Cut) bytes.chop((answer.body.size() + 1) / 2);
    if (behaviour.mood == Mood::Rubbish) bytes = rubbish(behaviour.code, rubbishSize);
    postGuarded(
        socket,
        [socket, bytes] {
          socket->write(bytes);
          socket->disconnectFromHost();
        },
        behaviour.delayMs);
  });
  return true;
}
