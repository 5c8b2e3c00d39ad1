#pragma once

#include <QString>

class TfServisFis;

/// Answers a write that the database refused: a row changed or deleted meanwhile, a number that is taken already. Every
/// other failure leaves a line in the log and says nothing. className and message are the exception's own.
/// editor: the slip on the screen, whose number and save button the answer goes by. Without one (null) the messages stand
/// over the active window, and a changed row counts as deleted.
void answerSlipConflict(TfServisFis* editor, const QString& className, const QString& message);
