// kvtk-gallery FOLDER [NAME…]: leaves a picture of every scene, or of those whose name holds one of the given words, in
// FOLDER as "NAME.png", in the colours that KVTK_LOOK asks for. The grids show the rows of the server in KVTK_COMPUTER_NAME.

#include "base/data/my_connection.h"
#include "app/look.h"
#include "base/platform/time_zone.h"
#include "bench/gallery/scene.h"
#include "bench/measuring.h"

#include <QApplication>
#include <QDir>
#include <QIcon>

#include <algorithm>
#include <cstdio>

int main(int argc, char** argv) {
  nameTimeZone();
  QApplication application(argc, argv);
  if (argc < 2) {
    std::fputs("usage: kvtk-gallery FOLDER [NAME...]\n", stderr);
    return 2;
  }
  applyLook(application, wantedColors());
  QApplication::setWindowIcon(QIcon(QStringLiteral(":/kvtk.svg")));
  QApplication::setQuitOnLastWindowClosed(false);
  const QStringList words = QCoreApplication::arguments().mid(2);
  const QDir folder(QString::fromLocal8Bit(argv[1]));
  TMyConnection connection;
  Measuring::open(connection);

  std::vector<Scene> scenes;
  for (auto&& part : {Gallery::editScenes(), Gallery::shellScenes(), Gallery::gridScenes(connection)})
    scenes.insert(scenes.end(), part.begin(), part.end());
  int left = 0;
  for (const Scene& scene : scenes) {
    const auto asked = [&](const QString& word) { return scene.name.contains(word); };
    if (!words.isEmpty() && std::ranges::none_of(words, asked)) continue;
    const QString file = folder.filePath(scene.name + QStringLiteral(".png"));
    if (!scene.paint().save(file)) {
      std::fprintf(stderr, "%s cannot be written\n", qPrintable(file));
      return 1;
    }
    ++left;
  }
  std::printf("%d pictures in %s\n", left, qPrintable(folder.path()));
  return 0;
}
