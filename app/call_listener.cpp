#include "app/call_listener.h"

#include "base/guard.h"
#include "comm/http_exchange.h"

#include <QNetworkDatagram>
#include <QUdpSocket>
#include <QVariant>

using namespace Qt::StringLiterals;

namespace {
constexpr int restMs = 100;
/// Datagrams that are taken in one go; what is left comes with the next event.
constexpr int mostAtOnce = 2000;
}  // namespace

CallListener::CallListener(std::function<void(const CallerText::Notice&)> called, QObject* parent)
    : QObject(parent), called_(std::move(called)) {
  rest_.setSingleShot(true);
  connectGuarded(&rest_, &QTimer::timeout, this, [this] {
    if (hasCall_) tell();
  });
}

CallListener::~CallListener() = default;

quint16 CallListener::usualPort() {
  constexpr quint16 monitors = 8903;
  bool isNumber = false;
  const quint16 port = qEnvironmentVariable("KVTK_CALL_PORT").toUShort(&isNumber);
  return isNumber ? port : monitors;
}

void CallListener::start(quint16 port) {
  socket_ = std::make_unique<QUdpSocket>();
  connectGuarded(socket_.get(), &QUdpSocket::readyRead, this, [this] { hear(); });
  // Not shared: a second listener would take calls away from the first without a word.
  if (!socket_->bind(QHostAddress::Any, port, QAbstractSocket::DontShareAddress))
    throw ENetworkError(u"Arayan numara bildirimleri dinlenemiyor (UDP %1): %2"_s.arg(port).arg(socket_->errorString()));
  // What comes in while the screen is busy waits here.
  socket_->setSocketOption(QAbstractSocket::ReceiveBufferSizeSocketOption, 1 << 20);
}

quint16 CallListener::port() const { return socket_ ? socket_->localPort() : 0; }

void CallListener::hear() {
  for (int count = 0; count < mostAtOnce && socket_->hasPendingDatagrams(); ++count) {
    last_ = socket_->receiveDatagram().data();
    hasCall_ = true;
  }
  if (hasCall_ && !rest_.isActive()) tell();
}

void CallListener::tell() {
  hasCall_ = false;
  guarded(this, [this] { called_(CallerText::notice(last_)); });
  rest_.start(restMs);
}
