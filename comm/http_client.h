#pragma once

#include "comm/http_exchange.h"

#include <memory>

/// The program's one way to the web: HTTP and HTTPS with verified certificates, no proxy, no redirections, answers of up to
/// 8 MiB. A connection has 10 seconds to stand and an exchange 30 seconds to end.
class HttpClient {
 public:
  explicit HttpClient(long exchangeTimeoutMs = usualTimeoutMs);
  ~HttpClient();
  HttpClient(const HttpClient&) = delete;
  HttpClient& operator=(const HttpClient&) = delete;

  /// Sends and waits on the calling thread; calls from several threads go one after the other. Throws ENetworkError.
  HttpAnswer exchange(const HttpRequest& request);

  static constexpr long connectTimeoutMs = 10000;
  static constexpr long usualTimeoutMs = 30000;
  static constexpr qsizetype longestAnswer = 8 << 20;

 private:
  struct Session;
  const long exchangeTimeoutMs_;
  std::unique_ptr<Session> session_;
};
