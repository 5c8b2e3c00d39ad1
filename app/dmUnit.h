#pragma once

#include "base/data/my_connection.h"

#include <memory>

class TMyQuery;

/// Asks for the database service of this connection's server.
class ServerControl {
 public:
  explicit ServerControl(const TMyConnection& connection) : connection_(connection) {}
  static constexpr int Running = 3;
  static constexpr int Stopped = 1;
  /// 3 when the service runs. On a system without a service manager: when a server answers at the port on the server's
  /// address; blocks for three seconds at most.
  int serviceStatus(const QString& serviceName) const;

 private:
  const TMyConnection& connection_;
};

/// The data module: the one database connection of the process, the scratch query that every screen may use between two
/// calls and nobody may rely on, and the server control.
class TDM {
 public:
  TDM();
  ~TDM();
  TDM(const TDM&) = delete;
  TDM& operator=(const TDM&) = delete;

  /// What the logged-in account may do with the command at path, captions joined by "\": 0, 1 and 3 allow, 2 denies. A path
  /// without a node is denied and leaves an entry in the log, each time. Never throws.
  int Kullanici_Yetkileri(const QString& path) const;

  TMyConnection MySQL;
  ServerControl MyServerControl1;

 private:
  std::unique_ptr<TMyQuery> scratch_;

 public:
  TMyQuery& pGetQ;
};

/// The one data module; null before it is created and after it is gone.
extern TDM* DM;
