#pragma once

#include <QString>
#include <Qt>

class QWidget;

/// Moves and cuts a window, or every main window and dialog of the application, so that the whole frame can be reached, each
/// time that it comes up in its normal state: how wide a frame is, nobody knows before it is on the screen.
void keepFramesReachable(QObject* windowOrApplication);

/// Of a window that stands above its parent's, does not block it, and can be made as large as the screen. A window manager of
/// X is told whose window it is of dialogs only.
inline constexpr Qt::WindowFlags aboveParent =
    Qt::Dialog | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowMinMaxButtonsHint | Qt::WindowCloseButtonHint;

/// Puts a window into the lower right corner of its parent's, above that one's status bar.
void placeAboveStatusBar(QWidget* window);

/// Keeps a window's size and place in a settings file, one entry per computer, and brings the window back onto a screen
/// that exists. A missing or damaged file leaves the window as it is.
class WindowPlace {
 public:
  /// key: the window's name in the file; machine: name of this computer.
  WindowPlace(QString path, QString key, QString machine);

  /// False when the file has no usable entry.
  bool restore(QWidget* window) const;
  /// False when the file cannot be written.
  bool store(const QWidget* window) const;

 private:
  QString path_;
  QString key_;
  QString machine_;
};
