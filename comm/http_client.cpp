#include "comm/http_client.h"

#include "comm/curl_session.h"

#include <QUrl>

#include <mutex>

using namespace Qt::StringLiterals;

struct HttpClient::Session {
  std::mutex mutex;
  Curl::Handle handle = Curl::newHandle();
};

namespace {

size_t collect(char* bytes, size_t size, size_t count, void* body) {
  QByteArray& all = *static_cast<QByteArray*>(body);
  const qsizetype more = qsizetype(size * count);
  if (all.size() + more > HttpClient::longestAnswer) return 0;
  all.append(bytes, more);
  return size * count;
}

/// A header that could end its line early would be two.
bool isOneLine(const QByteArray& text) { return !text.contains('\r') && !text.contains('\n') && !text.contains('\0'); }

HttpAnswer exchangeOn(CURL* handle, long timeoutMs, const HttpRequest& request) {
  const QString host = QUrl(request.address).host();
  Curl::List headers(nullptr, curl_slist_free_all);
  Curl::append(headers, "Expect:");  // a body goes with its headers, whatever its length
  for (const auto& [name, value] : request.headers) {
    if (!isOneLine(name) || !isOneLine(value)) throw ENetworkError(u"İstek başlığı gönderilemez."_s);
    Curl::append(headers, name + ": " + value);
  }
  HttpAnswer answer;
  const QByteArray address = request.address.toUtf8();
  const QByteArray certificates = request.certificateFile.toUtf8();
  curl_easy_setopt(handle, CURLOPT_URL, address.constData());
  curl_easy_setopt(handle, CURLOPT_PROTOCOLS_STR, "http,https");
  curl_easy_setopt(handle, CURLOPT_HTTP_VERSION, long(CURL_HTTP_VERSION_1_1));
  curl_easy_setopt(handle, CURLOPT_CONNECTTIMEOUT_MS, HttpClient::connectTimeoutMs);
  curl_easy_setopt(handle, CURLOPT_TIMEOUT_MS, timeoutMs);
  curl_easy_setopt(handle, CURLOPT_HTTPHEADER, headers.get());
  if (request.method == "POST") {
    curl_easy_setopt(handle, CURLOPT_POST, 1L);
    curl_easy_setopt(handle, CURLOPT_POSTFIELDSIZE_LARGE, curl_off_t(request.body.size()));
    curl_easy_setopt(handle, CURLOPT_POSTFIELDS, request.body.constData());
  }
  if (request.keepsCookies) curl_easy_setopt(handle, CURLOPT_COOKIEFILE, "");
  if (!certificates.isEmpty()) curl_easy_setopt(handle, CURLOPT_CAINFO, certificates.constData());
  curl_easy_setopt(handle, CURLOPT_WRITEFUNCTION, collect);
  curl_easy_setopt(handle, CURLOPT_WRITEDATA, &answer.body);

  const CURLcode code = curl_easy_perform(handle);
  if (code != CURLE_OK) throw ENetworkError(Curl::errorText(code, host));
  long status = 0;
  const char* type = nullptr;
  curl_easy_getinfo(handle, CURLINFO_RESPONSE_CODE, &status);
  curl_easy_getinfo(handle, CURLINFO_CONTENT_TYPE, &type);
  answer.status = int(status);
  answer.contentType = type;
  if (request.acceptsOnly200 ? status != 200 : status >= 400)
    throw ENetworkError(u"Sunucu isteği geri çevirdi (HTTP %1): %2"_s.arg(status).arg(host));
  return answer;
}

}  // namespace

HttpClient::HttpClient(long exchangeTimeoutMs)
    : exchangeTimeoutMs_(exchangeTimeoutMs), session_(std::make_unique<Session>()) {}
HttpClient::~HttpClient() = default;

HttpAnswer HttpClient::exchange(const HttpRequest& request) {
  if (!request.keepsCookies) return exchangeOn(Curl::newHandle().get(), exchangeTimeoutMs_, request);
  const std::lock_guard lock(session_->mutex);
  CURL* handle = session_->handle.get();
  // What the request lent to the handle ends with this call.
  struct Reset {
    CURL* handle;
    ~Reset() { Curl::resetHandle(handle); }
  } reset{handle};
  return exchangeOn(handle, exchangeTimeoutMs_, request);
}
