#include "base/platform/print_service.h"

#include <QLibrary>

using namespace Qt::StringLiterals;

namespace {

constexpr int lastSuccess = 0x00FF;  ///< IPP status codes up to here say that the request was done
constexpr int serviceUnavailable = 0x0502;
constexpr int notAccepting = 0x0506;

}  // namespace

QString printRefusal() {
  // The library that Qt prints with; it keeps the last answer for each thread.
  using LastError = int (*)();
  static const auto lastError = reinterpret_cast<LastError>(QLibrary::resolve(u"cups"_s, 2, "cupsLastError"));
  const int status = lastError ? lastError() : 0;
  if (status >= 0 && status <= lastSuccess) return {};
  if (status == notAccepting) return u"Yazıcının kuyruğu iş kabul etmiyor."_s;
  if (status == serviceUnavailable) return u"Yazdırma servisine ulaşılamıyor."_s;
  return u"Yazdırma servisi işi almadı (0x%1)."_s.arg(status, 4, 16, QChar(u'0'));
}
