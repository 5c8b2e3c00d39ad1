#pragma once

#include <QString>

class Simulator;

/// Walks from the login to a slip taken in, found again, changed and deleted, through cards, contracts and messages, and leaves a
/// picture of each station. The program's settings name simulator. Runs beside the main thread. Returns the process's exit code:
/// 0 when every station was reached.
int walkTheRoad(const QString& pictureFolder, const Simulator& simulator);
