#pragma once

#include <QDateTime>
#include <QString>

class TMyConnection;

/// Plays the telephone line monitor.
namespace TelephoneMonitor {

/// The datagram of a call: fields closed by "|". customer: id and name, both empty for a number of no customer.
QByteArray datagram(const QDateTime& moment, int line, const QString& number, const QString& customerId, const QString& customer);

/// A call comes in now: written to the list of calls, with the customer looked up, and announced to the program on this
/// computer. Throws EMyError.
void ring(TMyConnection& connection, int line, const QString& number);

void announce(const QByteArray& datagram, quint16 port = 8903);

}  // namespace TelephoneMonitor
