#pragma once

#include <QString>

#include <functional>

class Balloon;
class EditBox;
class TMyQuery;
class QWidget;

/// What the conflict handler of an editor needs to know of its card.
struct ConflictingCard {
  QWidget* editor;
  TMyQuery& cards;          ///< in edit; its row-version check is what may be switched off
  QString table;
  EditBox* uniqueBox;       ///< of the column that no two cards may share; its objectName is the column's name
  QString uniqueCaption;
  Balloon& balloon;
  std::function<void()> saveAgain;
};

/// Answers a save that failed, by the error's class name and message: row gone, row changed by another (the user may save
/// over it), value taken. Anything else is said to nobody and leaves a line in the log: meant. False when the user was told
/// that it cannot be. Throws EDatabaseError when the server cannot be asked.
bool answerCardConflict(const ConflictingCard& card, const QString& className, const QString& message);
