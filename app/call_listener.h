#pragma once

#include "comm/caller_text.h"

#include <QTimer>

#include <functional>
#include <memory>

class QUdpSocket;

/// Hears a telephone monitor's datagrams on all addresses of this computer. The first call is told at once; of calls that come
/// in while one is being told, and shortly after, the last one, so that any number of them leaves the screen usable.
class CallListener : public QObject {
 public:
  /// Port of the monitors; KVTK_CALL_PORT names another one, 0 any that is free, where several programs run on one computer.
  static quint16 usualPort();

  /// called gets each call that is told, on this object's thread, guarded.
  CallListener(std::function<void(const CallerText::Notice&)> called, QObject* parent);
  ~CallListener() override;

  /// Throws ENetworkError when the port cannot be had.
  void start(quint16 port = usualPort());
  /// The port that is listened on; 0 before start.
  quint16 port() const;

 private:
  void hear();
  void tell();

  std::function<void(const CallerText::Notice&)> called_;
  std::unique_ptr<QUdpSocket> socket_;
  QByteArray last_;
  bool hasCall_ = false;
  QTimer rest_;
};
