#pragma once

#include "base/exceptions.h"

#include <QByteArray>
#include <QString>

#include <functional>
#include <utility>
#include <vector>

/// The other side could not be reached, did not answer in time or refused. The message may be shown: it names the host, never
/// what was sent.
class ENetworkError : public Exception {
 public:
  using Exception::Exception;
  QString className() const override;
  QString parentClassName() const override;
};

/// A request that cannot be formed, or an answer that is not of its protocol. The message quotes neither.
class EWireError : public Exception {
 public:
  using Exception::Exception;
  QString className() const override;
  QString parentClassName() const override;
};

/// One request as it goes out.
struct HttpRequest {
  QByteArray method = "POST";
  QString address;  ///< with its scheme
  std::vector<std::pair<QByteArray, QByteArray>> headers;
  QByteArray body;
  bool keepsCookies = true;     ///< shares the client's cookies; otherwise it knows none
  bool acceptsOnly200 = false;  ///< any other status is an error; otherwise those of 400 and above are
  QString certificateFile;      ///< whom to trust in place of the system's authorities; empty for these
};

struct HttpAnswer {
  int status = 0;
  QByteArray contentType;
  QByteArray body;
};

/// Sends a request and waits for its answer. Throws ENetworkError.
using HttpTransport = std::function<HttpAnswer(const HttpRequest&)>;

/// The body as text: in the charset that the answer names (UTF-8, Turkish and Western code pages); without one as UTF-8, and
/// what is not UTF-8 as the Turkish code page. Never fails.
QString answerText(const HttpAnswer& answer);
