#pragma once

#include <QString>

/// What a station is told to do.
struct StationOrder {
  QString name;            ///< begins every token of the station
  QString line;            ///< loopback address at which its line begins
  QString server;          ///< address of the database server
  QString mailHost;
  int mailPort = 0;
  unsigned seed = 0;
  qint64 measuresAt = 0;   ///< ms since the epoch, as endsAt
  qint64 endsAt = 0;
  int cutAfterSeconds = 0; ///< 0: never
};

/// The program, worked by itself until the order ends it. The process's exit code.
int runStation(int argc, char** argv, const StationOrder& order);
