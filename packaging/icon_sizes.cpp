// Draws the program's picture in the sizes that desktops ask for: kvtk-icons SVG FOLDER.
#include <QDir>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

using namespace Qt::StringLiterals;

int main(int argc, char** argv) {
  const QGuiApplication application(argc, argv);
  const QStringList arguments = QCoreApplication::arguments();
  if (arguments.size() != 3) return 2;
  QSvgRenderer picture(arguments[1]);
  if (!picture.isValid()) return 1;
  for (const int size : {16, 22, 24, 32, 48, 64, 128, 256, 512}) {
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    picture.render(&painter);
    painter.end();
    const QDir folder(u"%1/%2x%2/apps"_s.arg(arguments[2]).arg(size));
    if (!folder.mkpath(u"."_s) || !image.save(folder.filePath(u"torvane.png"_s))) return 1;
  }
  return 0;
}
