#pragma once

#include <QDateTime>
#include <QString>

#include <optional>

/// How the instance's daily copies stand, by the server's clock.
struct BackupState {
  QDateTime now;
  QDateTime since;    ///< the first moment at which a copy could have been made
  QDateTime lastCopy; ///< not valid when there is none
  QString failure;    ///< what stood in the way of the last try: "ROOM", "COPY", "SECOND" or nothing
};

namespace BackupRules {
/// What the status bar tells about the copies; empty when all is well or nothing is known of them.
QString warning(const std::optional<BackupState>& state);
}  // namespace BackupRules
