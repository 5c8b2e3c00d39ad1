#include "tests/faults/cutting_proxy.h"

#include <arpa/inet.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <system_error>

namespace {

constexpr int stopCheckMs = 20;
constexpr qsizetype headerSize = 4;  // three bytes of length, lowest first, and the sequence number

int checked(int result, const char* what) {
  if (result < 0) throw std::system_error(errno, std::generic_category(), what);
  return result;
}

sockaddr_in address(quint32 host, quint16 port) {
  sockaddr_in result{};
  result.sin_family = AF_INET;
  result.sin_addr.s_addr = host;
  result.sin_port = htons(port);
  return result;
}

int newSocket() { return checked(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0), "socket"); }

void sendWithoutDelay(int socket) {
  const int on = 1;
  setsockopt(socket, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
}

bool sendAll(int socket, QByteArrayView bytes) {
  while (!bytes.isEmpty()) {
    const ssize_t sent = send(socket, bytes.data(), size_t(bytes.size()), MSG_NOSIGNAL);
    if (sent <= 0) return false;
    bytes = bytes.sliced(sent);
  }
  return true;
}

/// Size of the first packet with its header; 0 while the header is not there.
qsizetype firstPacketSize(const QByteArray& bytes) {
  if (bytes.size() < headerSize) return 0;
  return headerSize + quint8(bytes[0]) + (quint8(bytes[1]) << 8) + (quint8(bytes[2]) << 16);
}

}  // namespace

CuttingProxy::CuttingProxy(const QString& server, quint16 port)
    : serverAddress_(inet_addr(server.toLatin1().constData())), serverPort_(port), listener_(newSocket()) {
  sockaddr_in own = address(htonl(INADDR_LOOPBACK), 0);
  socklen_t size = sizeof own;
  checked(bind(listener_, reinterpret_cast<sockaddr*>(&own), size), "bind");
  checked(listen(listener_, 4), "listen");
  checked(getsockname(listener_, reinterpret_cast<sockaddr*>(&own), &size), "getsockname");
  port_ = ntohs(own.sin_port);
  thread_ = std::thread([this] { run(); });
}

CuttingProxy::~CuttingProxy() {
  stop_ = true;
  thread_.join();
  close(listener_);
}

void CuttingProxy::arm(int packet, Cut cut) {
  packets_ = 0;
  hasCut_ = false;
  cut_ = cut;
  cutPacket_ = packet;
}

void CuttingProxy::run() {
  while (!stop_) {
    pollfd waiting{listener_, POLLIN, 0};
    if (poll(&waiting, 1, stopCheckMs) <= 0) continue;
    const int client = accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC);
    if (client < 0) continue;
    const int server = newSocket();
    const sockaddr_in target = address(serverAddress_, serverPort_);
    if (connect(server, reinterpret_cast<const sockaddr*>(&target), sizeof target) == 0) serve(client, server);
    close(client);
    close(server);
  }
}

void CuttingProxy::serve(int client, int server) {
  sendWithoutDelay(client);
  sendWithoutDelay(server);
  QByteArray fromClient;
  QByteArray fromServer;
  while (!stop_) {
    std::array<pollfd, 2> waiting{pollfd{client, POLLIN, 0}, pollfd{server, POLLIN, 0}};
    if (poll(waiting.data(), waiting.size(), stopCheckMs) <= 0) continue;
    if (waiting[0].revents != 0 && !forward(client, server, fromClient)) return;
    if (waiting[1].revents != 0 && !forward(server, client, fromServer)) return;
  }
}

/// Passes on every whole packet that has come; false when the connection is at its end.
bool CuttingProxy::forward(int from, int to, QByteArray& pending) {
  std::array<char, 65536> buffer;
  const ssize_t received = recv(from, buffer.data(), buffer.size(), 0);
  if (received <= 0) return false;
  pending.append(buffer.data(), received);
  for (qsizetype size = firstPacketSize(pending); size != 0 && size <= pending.size(); size = firstPacketSize(pending)) {
    const QByteArray packet = pending.first(size);
    pending.remove(0, size);
    if (++packets_ == cutPacket_) {
      cutAt(packet, from, to);
      return false;
    }
    if (!sendAll(to, packet)) return false;
  }
  return true;
}

void CuttingProxy::cutAt(const QByteArray& packet, int from, int to) {
  cutPacket_ = 0;
  hasCut_ = true;
  if (cut_ == Cut::WithinPacket) sendAll(to, QByteArrayView(packet).first(packet.size() / 2));
  if (cut_ != Cut::Reset) return;
  const linger discard{1, 0};
  for (const int socket : {from, to}) setsockopt(socket, SOL_SOCKET, SO_LINGER, &discard, sizeof discard);
}
