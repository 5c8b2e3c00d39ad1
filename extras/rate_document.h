#pragma once

#include "comm/http_exchange.h"

#include <QByteArray>
#include <QString>

#include <vector>

/// The three currencies of the rates' screen.
enum class Currency { Dollar, Euro, Sterling };
inline constexpr Currency Currencies[] = {Currency::Dollar, Currency::Euro, Currency::Sterling};

/// A document of the rate service: a first row that tells its day, and the selling rates of the rows that count.
struct RateDocument {
  /// Bytes beyond which a document is none; one of a rate service has a few thousand.
  static constexpr qsizetype longest = 1 << 20;

  QString headDate;  ///< "ALIS" of the first row, as it stands there
  struct Selling {
    Currency currency;
    QString text;  ///< without blanks around it, every "." become ","; never empty
  };
  std::vector<Selling> sellings;  ///< in the order of the rows

  /// Entities that a document declares are not followed. Throws EWireError for bytes that are no such document.
  static RateDocument read(const QByteArray& bytes);

  /// The day of the document. Throws EConvertError for a text that is no date.
  QDate day() const;
};
