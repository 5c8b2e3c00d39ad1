#pragma once

#include <QString>

/// Walks from the login to a slip taken in, found again, changed and deleted, and leaves a picture of each station.
/// Runs beside the main thread. Returns the process's exit code: 0 when every station was reached.
int walkTheRoad(const QString& pictureFolder);
