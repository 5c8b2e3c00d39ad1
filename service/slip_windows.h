#pragma once

#include <QtGlobal>

class QString;

/// Windows of slips on the workspace.
namespace SlipWindows {

/// A new slip in a window of its own. Throws EDatabaseError; the window is gone then.
void openNew();
/// The slip with that id in a window of its own. Throws EDatabaseError, the window being gone then, and Exception for a
/// picture that cannot be read.
void open(qint64 id);
/// Lets the user choose slips in the browser and opens each; one that cannot be read does not keep the others closed.
void choose();
/// Answers a refused write by the newest slip that is open; without one the messages stand over the active window, and a
/// changed row counts as deleted. className and message are the exception's own.
void answerConflict(const QString& className, const QString& message);

}  // namespace SlipWindows
