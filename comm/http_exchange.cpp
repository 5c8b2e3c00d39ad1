#include "comm/http_exchange.h"

#include "base/data/latin5.h"

#include <QStringDecoder>

using namespace Qt::StringLiterals;

QString ENetworkError::className() const { return u"ENetworkError"_s; }
QString ENetworkError::parentClassName() const { return u"Exception"_s; }
QString EWireError::className() const { return u"EWireError"_s; }
QString EWireError::parentClassName() const { return u"Exception"_s; }

QString answerText(const HttpAnswer& answer) {
  const QByteArray type = answer.contentType.toLower();
  if (type.contains("8859-9") || type.contains("1254")) return Latin5::decode(answer.body);
  if (type.contains("8859-1") || type.contains("1252")) return QString::fromLatin1(answer.body);
  QStringDecoder utf8(QStringDecoder::Utf8);
  const QString text = utf8.decode(answer.body);
  return utf8.hasError() && !type.contains("utf-8") ? Latin5::decode(answer.body) : text;
}
