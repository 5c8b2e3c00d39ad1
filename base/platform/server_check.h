#pragma once

#include <QString>

/// True when a database server answers at that port of that host: it takes the connection and greets within the time, in
/// milliseconds. Blocks at most that long, but for the name look-up.
bool serverAnswers(const QString& host, quint16 port, int timeoutMs);
