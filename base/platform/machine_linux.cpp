#include "base/platform/machine.h"

#include <QDir>
#include <QFile>
#include <QSysInfo>

#include <arpa/inet.h>
#include <netdb.h>
#include <sys/utsname.h>
#include <unistd.h>

#include <array>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

QString computerName() {
  const QString given = qEnvironmentVariable("KVTK_COMPUTER_NAME").trimmed();
  if (!given.isEmpty()) return given;
  std::array<char, 256> name{};
  if (gethostname(name.data(), name.size() - 1) != 0) return {};
  return QString::fromLocal8Bit(name.data()).trimmed();
}

QString firstAddress() {
  addrinfo hints{};
  hints.ai_family = AF_INET;
  hints.ai_socktype = SOCK_STREAM;
  addrinfo* found = nullptr;
  if (getaddrinfo(computerName().toLocal8Bit().constData(), nullptr, &hints, &found) != 0) return {};
  const std::unique_ptr<addrinfo, decltype(&freeaddrinfo)> owner(found, freeaddrinfo);
  std::array<char, INET_ADDRSTRLEN> text{};
  const auto* address = reinterpret_cast<const sockaddr_in*>(found->ai_addr);
  if (inet_ntop(AF_INET, &address->sin_addr, text.data(), text.size()) == nullptr) return {};
  return QString::fromLatin1(text.data());
}

/// Name by the distribution, numbers by the kernel, whose release begins "major.minor.build".
QString osVersion() {
  utsname system{};
  if (uname(&system) != 0) return QSysInfo::prettyProductName();
  const QStringList numbers = QString::fromLatin1(system.release).section(u'-', 0, 0).split(u'.');
  return QSysInfo::prettyProductName() + u' ' + numbers.value(0, u"0"_s) + u'.' + numbers.value(1, u"0"_s) + u'.' +
         numbers.value(2, u"0"_s);
}

QStringList processFiles() {
  QStringList files;
  const QDir processes(u"/proc"_s);
  for (const QString& entry : processes.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
    if (!entry.front().isDigit()) continue;
    const QString target = QFile::symLinkTarget(processes.filePath(entry + u"/exe"_s));
    if (!target.isEmpty()) {
      files += target;
      continue;
    }
    QFile name(processes.filePath(entry + u"/comm"_s));
    if (name.open(QIODevice::ReadOnly)) files += QString::fromLocal8Bit(name.readAll()).trimmed();
  }
  return files;
}

}  // namespace

Machine& machine() {
  static Machine facts{computerName, firstAddress, osVersion, processFiles, [](const QString&) { return false; }};
  return facts;
}
