#include "base/data/my_connection.h"

#include "base/data/latin5.h"
#include "base/data/server_wait.h"
#include "base/exceptions.h"

#include <errmsg.h>
#include <mysql.h>

#include <QScopedValueRollback>

using namespace Qt::StringLiterals;

namespace {

/// One behaviour on every server: nothing strict, zero dates allowed, GROUP BY as written.
/// What another workstation has locked is waited for ten seconds.
constexpr auto sessionSetup = "SET SESSION sql_mode='NO_ENGINE_SUBSTITUTION', innodb_lock_wait_timeout=10, lock_wait_timeout=10";
/// Under the servers' own level two users who save different slips at one moment lock the gaps between their rows and hinder
/// each other.
constexpr auto isolationSetup = "SET SESSION TRANSACTION ISOLATION LEVEL READ COMMITTED";

/// A server that is there but does not answer is given up after this time.
constexpr unsigned readTimeoutSeconds = 60;

/// MySQL 8 puts the table before the key in "Duplicate entry 'x' for key 'table.NAME'"; the part is taken off, so that
/// every server's message reads alike.
QString withoutTablePrefix(unsigned code, const QString& message) {
  static const auto marker = u" for key '"_s;
  const qsizetype key = message.lastIndexOf(marker);
  if ((code != 1062 && code != 1586) || key < 0) return message;
  const qsizetype begin = key + marker.size();
  const qsizetype point = message.indexOf(u'.', begin);
  return point < 0 ? message : QString(message).remove(begin, point + 1 - begin);
}

/// What a failure of TLS is told with, where the library's words say little to a user; otherwise the library's.
QString transportText(const QString& message) {
  if (message.contains("Fingerprint"_L1))
    return u"Sunucunun sertifikası değişmiş: ayarlarda duran parmak izine uymuyor.\r\nSunucu bilgisayar yenilendiyse yeni parmak "
           "izini ayarlara yazın. Yenilenmediyse bağlanmayın: ağda başka bir bilgisayar sunucunun yerine geçmiş olabilir."_s;
  if (message.contains("does not support it"_L1))
    return u"Sunucu şifreli bağlantı sunmuyor, ayarlarda ise sertifikasının parmak izi duruyor."_s;
  return message;
}

bool hasNul(const QByteArray& bytes) { return bytes.contains('\0'); }

}  // namespace

void ResultDeleter::operator()(st_mysql_res* result) const { mysql_free_result(result); }

TMyConnection::TMyConnection() { mysql_library_init(0, nullptr, nullptr); }

TMyConnection::~TMyConnection() { Close(); }

void TMyConnection::Connect() {
  Close();
  try {
    connectBy(Transport::Encrypted);
  } catch (const EMyError& error) {
    // Tells a server without TLS; nothing but its greeting has been on the wire.
    if (error.code() != CR_SSL_CONNECTION_ERROR || !CertificateFingerprint.isEmpty()) throw;
    connectBy(Transport::Plain);
  }
}

void TMyConnection::connectBy(Transport transport) {
  const QByteArray server = Server.toUtf8();
  const QByteArray user = Latin5::encode(Username, u"Kullanıcı Adı"_s);
  const QByteArray password = Latin5::encode(Password, u"Kullanıcı Parolası"_s);
  const QByteArray database = Latin5::encode(Database, u"Database"_s);
  // The protocol ends these texts at a NUL; cut there they would be another name or password.
  if (hasNul(user) || hasNul(password))
    throw EUnstorableValue(u"Kullanıcı adı ve parola boş karakter (NUL) içeremez."_s, u"Kullanıcı Adı"_s);

  handle_ = mysql_init(nullptr);
  const unsigned connectTimeout = unsigned(ConnectTimeoutSeconds);
  const unsigned off = 0;
  const my_bool no = 0;
  const unsigned protocol = MYSQL_PROTOCOL_TCP;
  mysql_options(handle_, MYSQL_SET_CHARSET_NAME, "latin5");
  mysql_options(handle_, MYSQL_OPT_CONNECT_TIMEOUT, &connectTimeout);
  mysql_options(handle_, MYSQL_OPT_READ_TIMEOUT, &readTimeoutSeconds);
  mysql_options(handle_, MYSQL_OPT_WRITE_TIMEOUT, &readTimeoutSeconds);
  mysql_options(handle_, MYSQL_OPT_LOCAL_INFILE, &off);
  mysql_options(handle_, MYSQL_OPT_RECONNECT, &no);
  mysql_options(handle_, MYSQL_OPT_PROTOCOL, &protocol);
  mysql_options(handle_, MYSQL_OPT_NONBLOCK, nullptr);
  if (transport == Transport::Encrypted) {
    const my_bool yes = 1;
    mysql_options(handle_, MYSQL_OPT_SSL_ENFORCE, &yes);
    const QByteArray fingerprint = CertificateFingerprint.toLatin1();
    if (!fingerprint.isEmpty()) mysql_options(handle_, MARIADB_OPT_TLS_PEER_FP, fingerprint.constData());
  }
  mysql_options(handle_, MYSQL_INIT_COMMAND, sessionSetup);
  mysql_options(handle_, MYSQL_INIT_COMMAND, isolationSetup);

  try {
    MYSQL* connected = nullptr;
    ServerWait(handle_).finish(
        mysql_real_connect_start(&connected, handle_, server.constData(), user.constData(), password.constData(),
                                 database.constData(), Port, nullptr, CLIENT_FOUND_ROWS | CLIENT_MULTI_STATEMENTS),
        [&](int events) { return mysql_real_connect_cont(&connected, handle_, events); });
    if (connected == nullptr) raise({}, {});
    const ExecutionResult limit = execute("SELECT @@max_allowed_packet");
    packetLimit_ = QByteArray(mysql_fetch_row(limit.rows.get())[0]).toULongLong();
  } catch (...) {
    Close();
    throw;
  }
}

void TMyConnection::Close() {
  if (handle_ != nullptr) mysql_close(handle_);
  handle_ = nullptr;
  sharedRows_.clear();
  lost_ = false;
  packetLimit_ = 0;
}

bool TMyConnection::Encrypted() const { return handle_ != nullptr && mysql_get_ssl_cipher(handle_) != nullptr; }

bool TMyConnection::InTransaction() const {
  if (handle_ == nullptr || lost_) return false;
  unsigned status = 0;
  mariadb_get_infov(handle_, MARIADB_CONNECTION_SERVER_STATUS, &status);
  return (status & SERVER_STATUS_IN_TRANS) != 0;
}

void TMyConnection::StartTransaction() { execute("START TRANSACTION"); }
void TMyConnection::Commit() { execute("COMMIT"); }
void TMyConnection::Rollback() { execute("ROLLBACK"); }

ExecutionResult TMyConnection::execute(const QByteArray& statements, const QString& queryName, const QString& queryText) {
  requireOpen(queryName, queryText);
  if (packetLimit_ != 0 && quint64(statements.size()) + 1 >= packetLimit_)
    throw EUnstorableValue(u"Kaydedilecek bilgi çok büyük: en fazla %1 MB gönderilebilir."_s.arg(packetLimit_ >> 20), queryName);
  ++roundTrips_;
  const QScopedValueRollback busy(busy_, true);
  ServerWait wait(handle_);
  int failed = 0;
  wait.finish(mysql_real_query_start(&failed, handle_, statements.constData(), ulong(statements.size())),
              [&](int events) { return mysql_real_query_cont(&failed, handle_, events); });
  if (failed != 0) raise(queryName, queryText);

  ExecutionResult result;
  for (bool first = true;; first = false) {
    MYSQL_RES* stored = nullptr;
    if (mysql_field_count(handle_) != 0)
      wait.finish(mysql_store_result_start(&stored, handle_), [&](int events) { return mysql_store_result_cont(&stored, handle_, events); });
    ResultPtr rows(stored);
    // The field count is gone with a connection that was lost while the rows came.
    if (!rows && (mysql_errno(handle_) != 0 || mysql_field_count(handle_) != 0)) raise(queryName, queryText);
    if (first && !rows) result.foundRows = mysql_affected_rows(handle_);
    if (rows && !result.rows) result.rows = std::move(rows);
    if (const quint64 id = mysql_insert_id(handle_); id != 0) result.lastInsertId = id;
    int next = -1;
    if (mysql_more_results(handle_))
      wait.finish(mysql_next_result_start(&next, handle_), [&](int events) { return mysql_next_result_cont(&next, handle_, events); });
    if (next < 0) return result;
    if (next > 0) raise(queryName, queryText);
  }
}

QByteArray TMyConnection::quoted(const QByteArray& bytes) const {
  requireOpen({}, {});
  QByteArray escaped(bytes.size() * 2 + 1, Qt::Uninitialized);
  const ulong length = mysql_real_escape_string(handle_, escaped.data(), bytes.constData(), ulong(bytes.size()));
  escaped.truncate(qsizetype(length));
  return '\'' + escaped + '\'';
}

void TMyConnection::requireOpen(const QString& queryName, const QString& queryText) const {
  if (handle_ == nullptr) throw EDatabaseError(u"Veritabanı bağlantısı açık değil."_s, queryName, queryText);
  if (busy_) throw EDatabaseError(u"Sunucu önceki işleme henüz yanıt vermedi."_s, queryName, queryText);
}

void TMyConnection::raise(const QString& queryName, const QString& queryText) {
  const unsigned code = mysql_errno(handle_);
  lost_ = lost_ || code == CR_SERVER_LOST || code == CR_SERVER_GONE_ERROR;
  QString message = Latin5::decode(QByteArrayView(mysql_error(handle_)));
  if (code == CR_SSL_CONNECTION_ERROR) message = transportText(message);
  throw EMyError(code, QString::fromLatin1(mysql_sqlstate(handle_)), withoutTablePrefix(code, message), queryName, queryText);
}

TransactionGuard::TransactionGuard(TMyConnection& connection) : connection_(connection) {
  if (!connection_.InTransaction()) connection_.StartTransaction();
}

TransactionGuard::~TransactionGuard() { rollback(); }

void TransactionGuard::commit() {
  connection_.Commit();
  open_ = false;
}

void TransactionGuard::rollback() noexcept {
  if (!open_) return;
  open_ = false;
  try {
    if (connection_.InTransaction()) connection_.Rollback();
  } catch (const Exception&) {
    // The server rolls back by itself when the connection ends.
  }
}
