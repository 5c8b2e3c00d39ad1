#include "comm/smtp_client.h"

#include "comm/curl_session.h"
#include "comm/http_client.h"

#include <algorithm>
#include <cstring>

using namespace Qt::StringLiterals;

namespace {

struct Source {
  const QByteArray& text;
  qsizetype at = 0;
};

size_t give(char* target, size_t size, size_t count, void* from) {
  Source& source = *static_cast<Source*>(from);
  const qsizetype piece = std::min(qsizetype(size * count), source.text.size() - source.at);
  std::memcpy(target, source.text.constData() + source.at, size_t(piece));
  source.at += piece;
  return size_t(piece);
}

/// Notes when the sign-in is through and the message begins; what goes over the wire is not kept.
int watch(CURL*, curl_infotype kind, char* bytes, size_t size, void* hasBegun) {
  if (kind == CURLINFO_HEADER_OUT && QByteArrayView(bytes, qsizetype(size)).startsWith("MAIL ")) *static_cast<bool*>(hasBegun) = true;
  return 0;
}

}  // namespace

void SmtpClient::send(const MailSettings& settings, const MailMessage& message, long timeoutMs) {
  // The server's name goes into an address; what could be more than a name does not.
  const QString server = settings.server.trimmed();
  const bool isName = !server.isEmpty() && std::all_of(server.begin(), server.end(), [](QChar letter) {
    return letter.isLetterOrNumber() || letter == u'.' || letter == u'-' || letter == u'_';
  });
  if (!isName) throw ENetworkError(u"Sunucu adı kullanılamaz."_s);
  if (settings.port < 1 || settings.port > 65535) throw ENetworkError(u"Port numarası kullanılamaz: %1"_s.arg(settings.port));

  const Curl::Handle handle = Curl::newHandle();
  const QByteArray address = u"smtp://%1:%2"_s.arg(server).arg(settings.port).toUtf8();
  const QByteArray user = settings.userName.toUtf8();
  const QByteArray password = settings.password.toUtf8();
  Curl::List recipients(nullptr, curl_slist_free_all);
  for (const QByteArray& recipient : message.recipients) Curl::append(recipients, recipient);
  Source source{message.text};
  curl_easy_setopt(handle.get(), CURLOPT_URL, address.constData());
  curl_easy_setopt(handle.get(), CURLOPT_PROTOCOLS_STR, "smtp");
  curl_easy_setopt(handle.get(), CURLOPT_CONNECTTIMEOUT_MS, std::min(timeoutMs, HttpClient::connectTimeoutMs));
  curl_easy_setopt(handle.get(), CURLOPT_TIMEOUT_MS, timeoutMs);
  curl_easy_setopt(handle.get(), CURLOPT_USE_SSL, long(CURLUSESSL_NONE));
  if (settings.authMode == 1) {
    curl_easy_setopt(handle.get(), CURLOPT_USERNAME, user.constData());
    curl_easy_setopt(handle.get(), CURLOPT_PASSWORD, password.constData());
  }
  curl_easy_setopt(handle.get(), CURLOPT_MAIL_FROM, message.sender.constData());
  curl_easy_setopt(handle.get(), CURLOPT_MAIL_RCPT, recipients.get());
  curl_easy_setopt(handle.get(), CURLOPT_UPLOAD, 1L);
  curl_easy_setopt(handle.get(), CURLOPT_READFUNCTION, give);
  curl_easy_setopt(handle.get(), CURLOPT_READDATA, &source);
  curl_easy_setopt(handle.get(), CURLOPT_INFILESIZE_LARGE, curl_off_t(message.text.size()));

  bool hasBegun = false;
  curl_easy_setopt(handle.get(), CURLOPT_VERBOSE, 1L);
  curl_easy_setopt(handle.get(), CURLOPT_DEBUGFUNCTION, watch);
  curl_easy_setopt(handle.get(), CURLOPT_DEBUGDATA, &hasBegun);
  const CURLcode code = curl_easy_perform(handle.get());
  if (code == CURLE_OK) return;
  long status = 0;
  curl_easy_getinfo(handle.get(), CURLINFO_RESPONSE_CODE, &status);
  const QString text = status >= 400 && code != CURLE_LOGIN_DENIED
                           ? u"Sunucu iletiyi geri çevirdi (SMTP %1): %2"_s.arg(status).arg(server)
                           : Curl::errorText(code, server);
  // A refused account counts as a failed send.
  if (!hasBegun && code != CURLE_LOGIN_DENIED) throw ENetworkError(text);
  throw ESmtpError(text);
}
