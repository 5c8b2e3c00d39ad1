#pragma once

#include <QString>

/// What a user is told when his change met another user's; the texts of every editor of a card, slip or contract.
namespace ConflictText {

QString deletedMeanwhile();
/// Asks whether to go on.
QString changedMeanwhile();
/// The column with that caption has the typed value in another row already.
QString duplicateValue(const QString& caption);

}  // namespace ConflictText
