#pragma once

#include "app/backup_rules.h"

class TMyConnection;

namespace BackupStore {
/// How the daily copies stand; nothing on a server that keeps no record of them. Throws EMyError.
std::optional<BackupState> read(TMyConnection& connection);
}  // namespace BackupStore
