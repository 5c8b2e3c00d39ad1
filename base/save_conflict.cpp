#include "base/save_conflict.h"

using namespace Qt::StringLiterals;

bool isDuplicateEntry(const QString& className, const QString& message) {
  return className == u"EMyError"_s && message.contains(u"#23000Duplicate entry"_s);
}

SaveConflict saveConflictOf(const QString& className, const QString& message, const QString& clashMark) {
  if (className == u"EDatabaseError"_s && message == u"Update failed. Found 0 records"_s) return SaveConflict::RowNotFound;
  if (className == u"EDatabaseError"_s && message == u"Refresh failed. Found 0 records"_s) return SaveConflict::RowGone;
  if (isDuplicateEntry(className, message) && message.contains(clashMark)) return SaveConflict::ValueTaken;
  return SaveConflict::None;
}
