#include "simulator/mail_server.h"

#include "base/guard.h"
#include "simulator/http_server.h"

#include <QTcpSocket>

using namespace Qt::StringLiterals;

namespace {

enum class Step { Commands, LoginUser, LoginPassword, PlainSecret, Data };

QByteArray addressIn(const QByteArray& command) {
  const qsizetype begin = command.indexOf('<') + 1;
  return command.mid(begin, command.indexOf('>', begin) - begin);
}

}  // namespace

/// One client's conversation; goes with its socket.
class MailTalk : public QObject {
 public:
  MailTalk(QTcpSocket* socket, Behaviour behaviour, const std::function<bool(const QByteArray&, const QByteArray&)>& accepts,
           const std::function<void(const MailHeard&)>& heard)
      : QObject(socket), socket_(socket), behaviour_(std::move(behaviour)), accepts_(accepts), heard_(heard) {
    connectGuarded(socket, &QTcpSocket::readyRead, this, [this] { readLines(); });
    connectGuarded(socket, &QTcpSocket::disconnected, socket, [socket] { socket->deleteLater(); });
    constexpr qsizetype rubbishSize = 300;
    const QByteArray greeting = refuses(u"selam"_s) ? "554 no" : "220 kvtk-simulator ESMTP";
    say(behaviour_.mood == Mood::Rubbish ? rubbish(behaviour_.code, rubbishSize) : greeting);
  }

 private:
  bool refuses(const QString& step) const { return behaviour_.mood == Mood::Refuse && behaviour_.code == step; }

  void say(const QByteArray& line) {
    if (behaviour_.mood == Mood::Silent) return;
    postGuarded(socket_, [this, line] { socket_->write(line + "\r\n"); }, behaviour_.delayMs);
  }

  void readLines() {
    while (socket_->canReadLine()) {
      QByteArray line = socket_->readLine();
      if (step_ == Step::Data) {
        data(line);
      } else {
        while (line.endsWith('\n') || line.endsWith('\r')) line.chop(1);
        command(line);
      }
    }
  }

  void data(const QByteArray& line) {
    if (behaviour_.mood == Mood::Cut) return socket_->abort();
    if (line != ".\r\n") {
      message_.text += line.startsWith('.') ? line.mid(1) : line;
      return;
    }
    step_ = Step::Commands;
    if (refuses(u"veri"_s)) return say("554 refused");
    heard_(message_);
    message_ = {{}, {}, {}, message_.signedIn};
    say("250 taken");
  }

  void signIn(const QByteArray& user, const QByteArray& password) {
    step_ = Step::Commands;
    message_.signedIn = !refuses(u"giris"_s) && accepts_(user, password);
    say(message_.signedIn ? "235 welcome" : "535 refused");
  }

  void plain(const QByteArray& secret) {
    const QByteArrayList parts = QByteArray::fromBase64(secret).split('\0');
    signIn(parts.value(1), parts.value(2));
  }

  void command(const QByteArray& line) {
    const QByteArray verb = line.split(' ').first().toUpper();
    const QByteArray upper = line.toUpper();
    if (step_ == Step::PlainSecret) return plain(line);
    if (step_ == Step::LoginUser) {
      user_ = QByteArray::fromBase64(line);
      step_ = Step::LoginPassword;
      return say("334 UGFzc3dvcmQ6");
    }
    if (step_ == Step::LoginPassword) return signIn(user_, QByteArray::fromBase64(line));
    if (verb == "EHLO") return say("250-kvtk-simulator\r\n250-AUTH PLAIN LOGIN\r\n250 8BITMIME");
    if (upper.startsWith("AUTH PLAIN ")) return plain(line.mid(11));
    if (upper == "AUTH PLAIN") {
      step_ = Step::PlainSecret;
      return say("334 ");
    }
    if (upper.startsWith("AUTH LOGIN")) {
      step_ = Step::LoginUser;
      return say("334 VXNlcm5hbWU6");
    }
    if (upper.startsWith("MAIL FROM:")) {
      message_.sender = addressIn(line);
      return say("250 ok");
    }
    if (upper.startsWith("RCPT TO:")) {
      if (refuses(u"alici"_s)) return say("550 refused");
      message_.recipients += addressIn(line);
      return say("250 ok");
    }
    if (verb == "DATA") {
      step_ = Step::Data;
      return say("354 go on");
    }
    if (verb == "QUIT") {
      say("221 bye");
      return postGuarded(socket_, [this] { socket_->disconnectFromHost(); }, behaviour_.delayMs);
    }
    say(verb == "HELO" || verb == "RSET" || verb == "NOOP" ? "250 ok" : "502 unknown");
  }

  QTcpSocket* socket_;
  Behaviour behaviour_;
  const std::function<bool(const QByteArray&, const QByteArray&)>& accepts_;
  const std::function<void(const MailHeard&)>& heard_;
  Step step_ = Step::Commands;
  QByteArray user_;
  MailHeard message_;
};

MailServer::MailServer(std::function<bool(const QByteArray&, const QByteArray&)> accepts,
                       std::function<void(const MailHeard&)> heard, std::function<Behaviour()> behaviour)
    : accepts_(std::move(accepts)), heard_(std::move(heard)), behaviour_(std::move(behaviour)) {
  connectGuarded(this, &QTcpServer::newConnection, this, [this] {
    while (QTcpSocket* socket = nextPendingConnection()) serve(socket);
  });
}

void MailServer::serve(QTcpSocket* socket) { new MailTalk(socket, behaviour_(), accepts_, heard_); }
