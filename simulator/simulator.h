#pragma once

#include "simulator/behaviour.h"
#include "simulator/heard.h"

#include <functional>
#include <memory>
#include <vector>

/// Plays the services that the program speaks to: three SMS gateways (the third over TLS with a certificate made on the spot), a
/// mail server and a rate service, on a thread of its own, so that whoever speaks to them may block. Account of all: "deneme",
/// "1234". Every method may be called from any thread.
class Simulator {
 public:
  struct Options {
    QString address = QStringLiteral("127.0.0.1");  ///< of this computer, as a number
    quint16 firstPort = 0;  ///< five ports in a row, in the order of Service; 0 takes any that are free
    /// A line for each thing that happened; called on the simulator's thread.
    std::function<void(const QString& line)> log;
  };

  /// Starts all services. Throws Exception when a port cannot be had.
  explicit Simulator(Options options);
  Simulator();
  ~Simulator();
  Simulator(const Simulator&) = delete;
  Simulator& operator=(const Simulator&) = delete;

  /// As settings take it: "127.0.0.1:4321".
  QString hostOf(Service service) const;
  quint16 portOf(Service service) const;
  /// The PEM text that makes a client trust the TLS gateway.
  QByteArray certificate() const;

  void behave(Service service, const Behaviour& behaviour);
  void setCredit(int credit);

  struct Request {
    Service service;
    HttpHeard http;
  };
  /// Everything that was heard so far, in its order.
  std::vector<Request> requests() const;
  std::vector<MailHeard> mails() const;

 private:
  struct State;
  std::unique_ptr<State> state_;
};
