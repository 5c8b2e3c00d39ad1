#pragma once

#include <QImage>
#include <QString>

#include <functional>
#include <vector>

class QWidget;
class TMyConnection;

/// One state of a widget that the gallery shows.
struct Scene {
  QString name;  ///< of the picture's file
  std::function<QImage()> paint;
};

namespace Gallery {

std::vector<Scene> editScenes();
std::vector<Scene> shellScenes();
/// Grids over the rows of a server that was filled with samples. The connection must outlive them.
std::vector<Scene> gridScenes(TMyConnection& connection);

/// Shows the widget as the active window and waits until it is painted.
void bringUp(QWidget& widget);
/// Types a text into what has the keyboard.
void type(const QString& text);
/// The widget's window and all that stands over it: lists, menus, balloons, dialogs.
QImage picture(QWidget& widget);
/// Picture of the modal dialog that open() shows, which is closed then.
QImage pictureOfModal(const std::function<void()>& open);

}  // namespace Gallery
