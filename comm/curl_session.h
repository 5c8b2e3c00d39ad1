#pragma once

#include <QString>

#include <curl/curl.h>

#include <memory>

/// What both clients on libcurl share.
namespace Curl {

using Handle = std::unique_ptr<CURL, decltype(&curl_easy_cleanup)>;
using List = std::unique_ptr<curl_slist, decltype(&curl_slist_free_all)>;

/// A handle without proxy, signals and use of the environment's settings; the library is set up once for the process.
/// Throws ENetworkError when the library refuses.
Handle newHandle();
/// Back to a new handle's settings; cookies and open connections stay.
void resetHandle(CURL* handle);
void append(List& list, const QByteArray& line);

/// What went wrong, for the user: names the host alone.
QString errorText(CURLcode code, const QString& host);

}  // namespace Curl
