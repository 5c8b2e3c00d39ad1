#pragma once

#include <QString>

/// Why a save was refused, as far as other users have to do with it.
enum class SaveConflict {
  RowNotFound,  ///< changed or deleted meanwhile
  RowGone,      ///< deleted meanwhile
  ValueTaken,   ///< another row has the value that no two may share
  None,         ///< any other failure
};

/// By the error's class name and message. clashMark: what the server's message holds when the one unique value of this row
/// clashes, the name of its column or its key.
SaveConflict saveConflictOf(const QString& className, const QString& message, const QString& clashMark);

/// True for the server's refusal of a value that another row has, whichever column clashed.
bool isDuplicateEntry(const QString& className, const QString& message);
