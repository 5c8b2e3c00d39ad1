#include "comm/curl_session.h"

#include "comm/http_exchange.h"

using namespace Qt::StringLiterals;

Curl::Handle Curl::newHandle() {
  static const CURLcode ready = curl_global_init(CURL_GLOBAL_DEFAULT);
  Handle handle(ready == CURLE_OK ? curl_easy_init() : nullptr, curl_easy_cleanup);
  if (!handle) throw ENetworkError(u"Ağ kitaplığı başlatılamadı."_s);
  resetHandle(handle.get());
  return handle;
}

void Curl::resetHandle(CURL* handle) {
  curl_easy_reset(handle);
  curl_easy_setopt(handle, CURLOPT_NOSIGNAL, 1L);
  curl_easy_setopt(handle, CURLOPT_PROXY, "");
}

void Curl::append(List& list, const QByteArray& line) {
  curl_slist* longer = curl_slist_append(list.get(), line.constData());
  if (longer == nullptr) throw std::bad_alloc();
  list.release();
  list.reset(longer);
}

QString Curl::errorText(CURLcode code, const QString& host) {
  switch (code) {
    case CURLE_COULDNT_RESOLVE_HOST: return u"Sunucu bulunamadı: "_s + host;
    case CURLE_COULDNT_CONNECT: return u"Sunucuya bağlanılamadı: "_s + host;
    case CURLE_OPERATION_TIMEDOUT: return u"Sunucu süresinde yanıt vermedi: "_s + host;
    case CURLE_PEER_FAILED_VERIFICATION: return u"Sunucunun sertifikası doğrulanamadı: "_s + host;
    case CURLE_SSL_CACERT_BADFILE: return u"Sertifika dosyası okunamadı."_s;
    case CURLE_SSL_CONNECT_ERROR: return u"Sunucuyla güvenli bağlantı kurulamadı: "_s + host;
    case CURLE_PARTIAL_FILE:
    case CURLE_RECV_ERROR:
    case CURLE_SEND_ERROR:
    case CURLE_GOT_NOTHING: return u"Bağlantı yarıda kesildi: "_s + host;
    case CURLE_UNSUPPORTED_PROTOCOL:  // the only ones asked for are supported: the answer is of none
    case CURLE_WEIRD_SERVER_REPLY: return u"Sunucunun yanıtı anlaşılamadı: "_s + host;
    case CURLE_FILESIZE_EXCEEDED:
    case CURLE_WRITE_ERROR: return u"Sunucunun yanıtı çok uzun: "_s + host;
    case CURLE_LOGIN_DENIED: return u"Sunucu kullanıcı adını ya da parolayı kabul etmedi: "_s + host;
    default: return u"Ağ hatası %1: %2"_s.arg(int(code)).arg(host);
  }
}
