#include "app/application.h"
#include "base/program_paths.h"
#include "demo/road.h"
#include "simulator/practice.h"

#include <QDir>
#include <QThread>

#include <cstdio>
#include <cstdlib>
#include <optional>

/// kvtk-demo FOLDER: the program itself, walked through by a second thread. Pictures go to FOLDER.
int main(int argc, char** argv) {
  if (argc != 2) {
    std::fputs("usage: kvtk-demo FOLDER\n", stderr);
    return 2;
  }
  const QString folder = QDir(QString::fromLocal8Bit(argv[1])).absolutePath();
  int programArguments = 1;
  std::optional<Simulator> simulator;
  const int result = runProgram(programArguments, argv, [folder, &simulator] {
    Practice::prepare(simulator.emplace(), programFolder());
    // The program's own end is not part of the walk: the process leaves with the walk's result.
    QThread::create([folder, &simulator] {
      const int walked = walkTheRoad(folder, *simulator);
      std::fflush(nullptr);
      std::_Exit(walked);
    })->start();
  });
  return result == 0 ? 1 : result;
}
