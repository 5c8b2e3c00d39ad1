#include "base/exceptions.h"

#include <utility>

using namespace Qt::StringLiterals;

Exception::Exception(QString message) : message_(std::move(message)), utf8_(message_.toUtf8()) {}
QString Exception::className() const { return u"Exception"_s; }
QString Exception::parentClassName() const { return u"TObject"_s; }

QString EConvertError::className() const { return u"EConvertError"_s; }
QString EConvertError::parentClassName() const { return u"Exception"_s; }

QString EInOutError::className() const { return u"EInOutError"_s; }
QString EInOutError::parentClassName() const { return u"Exception"_s; }

QString EAbort::className() const { return u"EAbort"_s; }
QString EAbort::parentClassName() const { return u"Exception"_s; }

EDatabaseError::EDatabaseError(QString message, QString queryName, QString queryText)
    : Exception(std::move(message)), queryName_(std::move(queryName)), queryText_(std::move(queryText)) {}
QString EDatabaseError::className() const { return u"EDatabaseError"_s; }
QString EDatabaseError::parentClassName() const { return u"Exception"_s; }

EUnstorableValue::EUnstorableValue(QString message, QString field, QString character)
    : EDatabaseError(std::move(message)), field_(std::move(field)), character_(std::move(character)) {}
QString EUnstorableValue::messageFor(const QString& caption) const {
  const QString quoted = u"\"%1\""_s;
  return QString(message()).replace(quoted.arg(field_), quoted.arg(caption));
}
QString EUnstorableValue::className() const { return u"EUnstorableValue"_s; }
QString EUnstorableValue::parentClassName() const { return u"EDatabaseError"_s; }

EMyError::EMyError(unsigned code, QString state, QString serverText, QString queryName, QString queryText)
    : EDatabaseError(u"#"_s + state + serverText, std::move(queryName), std::move(queryText)),
      code_(code),
      state_(std::move(state)) {}
QString EMyError::className() const { return u"EMyError"_s; }
QString EMyError::parentClassName() const { return u"EDatabaseError"_s; }
