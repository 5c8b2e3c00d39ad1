#include "comm/sms_text.h"

using namespace Qt::StringLiterals;

namespace {

constexpr char16_t backspace = 8, enter = 13, paste = 22, tab = 9;

const QString alphabet = u" 0123456789qwertyuiopasdfghjklzxcvbnmQWERTYUIOPASDFGHJKLZXCVBNM!'-+/()=.@,:*;$?"_s;

bool isUnchecked(QChar key) { return key == backspace || key == paste || key == enter; }

}  // namespace

bool SmsText::templateKeyPasses(QChar key) { return isUnchecked(key) || alphabet.contains(key); }

std::optional<QChar> SmsText::bulkKey(QChar key, qsizetype length) {
  const qsizetype place = u"ıİğĞüÜşŞöÖçÇ"_s.indexOf(key);
  if (place >= 0) key = u"iigguussoocc"_s[place];
  if (isUnchecked(key)) return key;
  if (!alphabet.contains(key) || length >= bulkLimit) return std::nullopt;
  return key;
}

bool SmsText::recipientKeyPasses(QChar key) { return (key >= u'0' && key <= u'9') || key == u',' || key == tab; }

QStringList SmsText::recipients(const QString& text) { return text.isEmpty() ? QStringList() : text.split(u','); }

QString SmsText::quotedRecipients(const QString& text) {
  QStringList quoted = recipients(text);
  for (QString& item : quoted) item = u'"' + item.trimmed() + u'"';
  return quoted.join(u',');
}

QStringList SmsText::markers() {
  return {u"<MÜŞTERİ ADI>"_s, u"<CİHAZ ADI>"_s,   u"<CİHAZ MARKA>"_s, u"<CİHAZ MODEL>"_s, u"<SERİ NO>"_s,
          u"<FİŞ AÇIKLAMA>"_s, u"<TAMİR TUTAR>"_s, u"<ARIZA TANIMI>"_s, u"<TAMİR NOTU>"_s};
}

QString SmsText::withMarkers(QString text, const QStringList& markers, const QStringList& values) {
  for (qsizetype i = 0; i < markers.size() && i < values.size(); ++i) text.replace(markers[i], values[i]);
  return text;
}
