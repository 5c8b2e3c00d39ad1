#pragma once

#include <QString>

#include <functional>

class TMyQuery;
class QWidget;

/// What the answer to a refused save needs to know of the row; one for slips, cards and contracts.
struct RowConflict {
  QWidget* owner;         ///< of the messages
  QString clashMark;      ///< see saveConflictOf
  QString uniqueCaption;  ///< of the box whose value no two rows may share
  /// Is there a row with the value that the box holds now? A row whose value was changed therefore counts as deleted: meant.
  /// Empty: it is not.
  std::function<bool()> isThere = {};
  /// In edit; its row-version check is off while saveAgain runs.
  TMyQuery* rows = nullptr;
  std::function<void()> saveAgain = {};
  /// Tells at the box that the value is taken. Empty: a message does.
  std::function<void(const QString& text)> tellAtBox = {};
};

/// Answers a save that failed, by the error's class name and message: row gone, row changed by another (the user may save
/// over it), value taken. Anything else is said to nobody and leaves a line in the log: meant. False when the user was told
/// that it cannot be. Throws EDatabaseError when the server cannot be asked, and what saveAgain throws.
bool answerRowConflict(const RowConflict& row, const QString& className, const QString& message);
