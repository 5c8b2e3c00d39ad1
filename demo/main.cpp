#include "app/application.h"
#include "demo/road.h"

#include <QDir>
#include <QThread>

#include <cstdio>
#include <cstdlib>

/// kvtk-demo FOLDER: the program itself, walked through by a second thread. Pictures go to FOLDER.
int main(int argc, char** argv) {
  if (argc != 2) {
    std::fputs("usage: kvtk-demo FOLDER\n", stderr);
    return 2;
  }
  const QString folder = QDir(QString::fromLocal8Bit(argv[1])).absolutePath();
  int programArguments = 1;
  const int result = runProgram(programArguments, argv, [folder] {
    // The program's own end is not part of the walk: the process leaves with the walk's result.
    QThread::create([folder] {
      const int walked = walkTheRoad(folder);
      std::fflush(nullptr);
      std::_Exit(walked);
    })->start();
  });
  return result == 0 ? 1 : result;
}
