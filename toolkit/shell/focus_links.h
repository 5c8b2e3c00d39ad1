#pragma once

class QGuiApplication;

/// From now on a window's link of its focus to the application goes with its surface. The toolkit (seen in Qt 6.4) ties one whenever
/// a window becomes the active one and unties it when another does, but not when the active one is closed: a dialog that was opened
/// a hundred times held a hundred links, and told each step of the focus in it a hundred times.
void untieClosedWindows(QGuiApplication& application);
