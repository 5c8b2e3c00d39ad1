#pragma once

#include <QString>

/// Opens a file or an address ("mailto:…") with the desktop's program for it. False when that cannot be started.
bool shellOpen(const QString& fileOrAddress);

/// Starts a helper program without a window of its own, in its folder. A failure is reported to nobody.
void startHelper(const QString& programFile);
