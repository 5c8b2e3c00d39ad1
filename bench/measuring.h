#pragma once

#include <QString>

#include <functional>

class TMyConnection;
struct st_mysql;
struct st_mysql_res;

/// What the benchmarks have in common: figures, times, memory, the two ways to the database.
namespace Measuring {

/// One line on the standard output: name, value, unit.
void figure(const QString& name, double value, const char* unit);
/// Wall time of the work.
double milliseconds(const std::function<void()>& work);
/// The fastest of several times, so that what else the machine does counts least.
double best(const std::function<void()>& work, int times = 5);
/// Fastest time of ours over that of other, measured by turns.
double ratio(const std::function<void()>& ours, const std::function<void()>& other, int times = 5);
/// Memory that the process holds now.
double residentMegabytes();
/// What of it the program itself has asked for and not given back.
double heapMegabytes();

/// Connects as the master account to the server in KVTK_COMPUTER_NAME.
void open(TMyConnection& connection);
/// The same through the bare client library. Ends the program when it fails.
st_mysql* bareConnection();
/// Runs a statement and fetches all its rows; null when it gives none. Ends the program when it fails.
st_mysql_res* bareResult(st_mysql* handle, const char* statement);

}  // namespace Measuring
