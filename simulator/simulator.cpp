#include "simulator/simulator.h"

#include "base/environment.h"
#include "base/exceptions.h"
#include "simulator/certificate.h"
#include "simulator/gateway_play.h"
#include "simulator/http_server.h"
#include "simulator/mail_server.h"

#include <QSslCertificate>
#include <QSslKey>
#include <QThread>

#include <array>
#include <mutex>

using namespace Qt::StringLiterals;

namespace {
constexpr std::array<const char16_t*, serviceCount> names = {u"json", u"form", u"xml", u"posta", u"kur"};
}  // namespace

struct Simulator::State {
  explicit State(Options given) : options(std::move(given)), certificate(Certificate::make(options.address)) {
    root->moveToThread(&thread);
    thread.start();
    QMetaObject::invokeMethod(
        root,
        [this] {
          for (int i = 0; i < serviceCount; ++i) ports[size_t(i)] = listen(Service(i));
        },
        Qt::BlockingQueuedConnection);
  }

  ~State() {
    QMetaObject::invokeMethod(
        root, [this] { delete root; }, Qt::BlockingQueuedConnection);
    thread.quit();
    thread.wait();
  }

  Options options;
  const Certificate certificate;
  std::array<quint16, serviceCount> ports{};
  mutable std::mutex mutex;
  // Under the mutex.
  std::array<Behaviour, serviceCount> behaviours;
  GatewayPlay play;
  std::vector<Request> requests;
  std::vector<MailHeard> mails;

  QThread thread;
  /// Lives on the thread and owns the servers.
  QObject* root = new QObject;

  Behaviour behaviour(Service service) const {
    const std::lock_guard lock(mutex);
    return behaviours[size_t(service)];
  }

  void log(Service service, const QString& text) const {
    if (!options.log) return;
    QString line = text;
    line.replace(u'\r', u' ').replace(u'\n', u' ');
    options.log(environment().now().toString(u"HH:mm:ss "_s) + QString::fromUtf16(names[size_t(service)]) + u' ' + line);
  }

  HttpAnswer answer(Service service, const HttpHeard& heard) {
    GatewayPlay::Reply reply;
    {
      const std::lock_guard lock(mutex);
      requests.push_back({service, heard});
      const Behaviour& behaviour = behaviours[size_t(service)];
      reply = play.reply(service, heard.path, heard.body,
                         behaviour.mood == Mood::Refuse ? std::optional(behaviour.code) : std::nullopt);
    }
    log(service, reply.operation + u": "_s + reply.line);
    return reply.answer;
  }

  void hear(const MailHeard& mail) {
    {
      const std::lock_guard lock(mutex);
      mails.push_back(mail);
    }
    log(Service::Mail, u"%1 -> %2"_s.arg(QString::fromLatin1(mail.sender), QString::fromLatin1(mail.recipients.join(", "))));
    log(Service::Mail, QString::fromUtf8(mail.text));
  }

  /// On the thread. The port that was had; 0 for none.
  quint16 listen(Service service) {
    const quint16 wanted = options.firstPort == 0 ? 0 : quint16(options.firstPort + int(service));
    const auto how = [this, service] { return behaviour(service); };
    if (service == Service::Mail) {
      const auto accepts = [this](const QByteArray& user, const QByteArray& password) {
        const std::lock_guard lock(mutex);
        return user == play.user.toUtf8() && password == play.password.toUtf8();
      };
      auto* server = new MailServer(accepts, [this](const MailHeard& mail) { hear(mail); }, how);
      server->setParent(root);
      return server->listen(QHostAddress(options.address), wanted) ? server->serverPort() : 0;
    }
    auto* server = new HttpServer([this, service](const HttpHeard& heard) { return answer(service, heard); }, how);
    server->setParent(root);
    if (service == Service::Xml) server->sslSetup(QSslCertificate(certificate.certificate), QSslKey(certificate.key, QSsl::Ec));
    return server->listen(QHostAddress(options.address), wanted);
  }
};

Simulator::Simulator(Options options) : state_(std::make_unique<State>(std::move(options))) {
  for (const quint16 port : state_->ports)
    if (port == 0) throw Exception(u"Dinlenecek kapı alınamadı: %1"_s.arg(state_->options.address));
}

Simulator::Simulator() : Simulator(Options()) {}
Simulator::~Simulator() = default;

QString Simulator::hostOf(Service service) const { return u"%1:%2"_s.arg(state_->options.address).arg(portOf(service)); }

quint16 Simulator::portOf(Service service) const { return state_->ports[size_t(service)]; }

QByteArray Simulator::certificate() const { return state_->certificate.certificate; }

void Simulator::behave(Service service, const Behaviour& behaviour) {
  const std::lock_guard lock(state_->mutex);
  state_->behaviours[size_t(service)] = behaviour;
}

void Simulator::setCredit(int credit) {
  const std::lock_guard lock(state_->mutex);
  state_->play.credit = credit;
}

std::vector<Simulator::Request> Simulator::requests() const {
  const std::lock_guard lock(state_->mutex);
  return state_->requests;
}

std::vector<MailHeard> Simulator::mails() const {
  const std::lock_guard lock(state_->mutex);
  return state_->mails;
}
