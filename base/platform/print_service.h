#pragma once

#include <QString>

/// Why the system's print service has not taken the job that this thread handed over last, as a Turkish sentence; empty when it
/// has. Asked right behind the job: Qt itself tells nobody.
QString printRefusal();
