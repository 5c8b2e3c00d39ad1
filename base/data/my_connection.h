#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>

#include <memory>
#include <vector>

struct st_mysql;
struct st_mysql_res;

struct ResultDeleter {
  void operator()(st_mysql_res* result) const;
};
/// The rows of one statement as the client library delivered them.
using ResultPtr = std::unique_ptr<st_mysql_res, ResultDeleter>;

/// What one execution gave back.
struct ExecutionResult {
  ResultPtr rows;           ///< of the first statement that has rows; null when none has
  quint64 foundRows = 0;    ///< rows that the first statement's condition found, changed or not
  quint64 lastInsertId = 0; ///< of the last statement that made one
};

/// The one connection to the server. Character set latin5, no reconnect, no replay: a lost connection raises EMyError
/// on the next statement, and the object stays usable for Close and Connect. One thread only. While a call waits for the server
/// the observer of server_wait.h goes on; a statement that anybody runs meanwhile raises EDatabaseError.
class TMyConnection {
 public:
  TMyConnection();
  ~TMyConnection();
  TMyConnection(const TMyConnection&) = delete;
  TMyConnection& operator=(const TMyConnection&) = delete;

  QString Server;
  quint16 Port = 0;
  QString Database;
  QString Username;
  QString Password;
  int ConnectTimeoutSeconds = 10;
  /// SHA-1 of the server's certificate, in hexadecimal with or without ":". When it is given, only the server that has that
  /// certificate is talked to; otherwise any, by TLS where it offers that.
  QString CertificateFingerprint;

  /// Opens the connection with the values above. Throws EMyError, EUnstorableValue for a name that latin5 cannot hold.
  void Connect();
  void Close();
  bool Connected() const { return handle_ != nullptr; }

  /// True when what goes to the server and comes from it is encrypted.
  bool Encrypted() const;

  /// True between StartTransaction and Commit or Rollback, as the server last told.
  bool InTransaction() const;
  void StartTransaction();
  void Commit();
  void Rollback();

  /// Runs one or more statements (latin5 bytes, one round trip) and keeps the rows at the client. Throws EMyError with
  /// the given query name and text, EUnstorableValue when it is longer than the server's packet limit.
  ExecutionResult execute(const QByteArray& statements, const QString& queryName = {}, const QString& queryText = {});

  /// Rows that several queries look at, and by what it is told that they are still the same; see TMyQuery::OpenShared.
  struct SharedRows {
    QByteArray version;
    std::shared_ptr<st_mysql_res> rows;
  };
  /// Those of a statement, to be filled by who asks for them. They go with the connection.
  SharedRows& sharedRows(const QByteArray& statement) { return sharedRows_[statement]; }

  /// Bytes between quotes, escaped for this connection. Needs no round trip. Throws EDatabaseError when it is not open.
  QByteArray quoted(const QByteArray& bytes) const;

  /// Most bytes of a statement that the server takes; 0 when the connection is not open.
  quint64 packetLimit() const { return packetLimit_; }

  /// True while a statement is under way: events that come meanwhile must not run another one.
  bool isBusy() const { return busy_; }

  /// Statements sent since the program started, each one round trip.
  quint64 roundTrips() const { return roundTrips_; }

 private:
  enum class Transport { Encrypted, Plain };
  void connectBy(Transport transport);
  void requireOpen(const QString& queryName, const QString& queryText) const;
  [[noreturn]] void raise(const QString& queryName, const QString& queryText);

  st_mysql* handle_ = nullptr;
  QHash<QByteArray, SharedRows> sharedRows_;
  quint64 roundTrips_ = 0;
  quint64 packetLimit_ = 0;
  bool lost_ = false;
  bool busy_ = false;  ///< with a statement
};

/// Starts a transaction unless one is open, and rolls back at its end unless committed. A transaction that was open
/// already is taken over: commit() commits it and the end rolls it back, so none is ever left open.
class TransactionGuard {
 public:
  explicit TransactionGuard(TMyConnection& connection);
  ~TransactionGuard();
  TransactionGuard(const TransactionGuard&) = delete;
  TransactionGuard& operator=(const TransactionGuard&) = delete;
  void commit();
  /// Rolls back now; never throws, a connection that is gone has rolled back by itself.
  void rollback() noexcept;

 private:
  TMyConnection& connection_;
  bool open_ = true;
};
