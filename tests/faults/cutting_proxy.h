#pragma once

#include <QByteArray>
#include <QString>

#include <atomic>
#include <thread>

/// Where and how the proxy cuts a connection.
enum class Cut {
  BeforePacket,  ///< the packet does not arrive
  WithinPacket,  ///< its first half arrives
  Reset          ///< it does not arrive, and both ends are told by a reset
};

/// Stands between a client and the database server on a loopback port, knows the protocol's packets in both directions, and
/// cuts the connection at one of them. Serves one connection after the other on a thread of its own.
class CuttingProxy {
 public:
  /// Throws std::system_error when there is no socket to be had.
  CuttingProxy(const QString& server, quint16 port);
  ~CuttingProxy();
  CuttingProxy(const CuttingProxy&) = delete;
  CuttingProxy& operator=(const CuttingProxy&) = delete;

  quint16 port() const { return port_; }
  /// Counts packets from 1 on, of both directions together, and cuts at that number; 0 only counts. To be called while
  /// neither end sends. A cut is done once: the next connection goes through.
  void arm(int packet, Cut cut);
  int packets() const { return packets_; }
  bool hasCut() const { return hasCut_; }

 private:
  void run();
  void serve(int client, int server);
  bool forward(int from, int to, QByteArray& pending);
  void cutAt(const QByteArray& packet, int from, int to);

  quint32 serverAddress_;
  quint16 serverPort_;
  quint16 port_ = 0;
  int listener_ = -1;
  std::atomic<bool> stop_ = false;
  std::atomic<int> cutPacket_ = 0;
  std::atomic<Cut> cut_ = Cut::BeforePacket;
  std::atomic<int> packets_ = 0;
  std::atomic<bool> hasCut_ = false;
  std::thread thread_;
};
