#pragma once

#include <QByteArray>
#include <QString>

/// A certificate that signs itself, and its key, both PEM; good for a day from now.
struct Certificate {
  QByteArray certificate;
  QByteArray key;

  /// address: the IP address that it is for. Throws Exception when the library refuses.
  static Certificate make(const QString& address);
};
