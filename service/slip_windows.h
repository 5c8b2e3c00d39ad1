#pragma once

#include <QtGlobal>

/// Windows of slips on the workspace.
namespace SlipWindows {

/// A new slip in a window of its own. Throws EDatabaseError; the window is gone then.
void openNew();
/// The slip with that id in a window of its own. Throws EDatabaseError, the window being gone then, and Exception for a
/// picture that cannot be read.
void open(qint64 id);
/// Lets the user choose slips in the browser and opens each; one that cannot be read does not keep the others closed.
void choose();

}  // namespace SlipWindows
