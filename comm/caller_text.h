#pragma once

#include <QByteArray>
#include <QString>

/// What a telephone monitor's datagram says.
namespace CallerText {

struct Notice {
  QString title;
  QString body;
};

/// Title and body of the passing notice for a datagram of any bytes and length: fields closed by "|": date, time, line,
/// number, "0" for a number of no customer, customer's name. Missing fields read "XXXXXXXXXX". A customer's number stays as
/// it was delivered, anyone else's is grouped; meant.
Notice notice(const QByteArray& datagram);

/// A number of 7, 10 or 11 characters in groups: "212 3456", "(212) 123 4567", "0(212) 123 4567"; any other text unchanged.
QString grouped(QString number);

}  // namespace CallerText
