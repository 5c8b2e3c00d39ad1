#pragma once

#include <QDateTime>
#include <QString>

class TMyConnection;

/// Plays the telephone line monitor.
namespace TelephoneMonitor {

constexpr quint16 usualPort = 8903;

/// The datagram of a call: fields closed by "|". customer: id and name, both empty for a number of no customer.
QByteArray datagram(const QDateTime& moment, int line, const QString& number, const QString& customerId, const QString& customer);

/// A call comes in now: written to the list of calls, with the customer looked up, and announced to the program on this
/// computer that listens on port. Throws EMyError.
void ring(TMyConnection& connection, int line, const QString& number, quint16 port = usualPort);

void announce(const QByteArray& datagram, quint16 port = usualPort);

}  // namespace TelephoneMonitor
