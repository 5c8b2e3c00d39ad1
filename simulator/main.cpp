// kvtk-simulator: plays the services that the program speaks to, for practice. Prints and keeps what was "sent"; commands are
// typed a line each ("yardim" lists them).
#include "app/login_rules.h"
#include "base/data/my_connection.h"
#include "base/exceptions.h"
#include "base/guard.h"
#include "base/log_file.h"
#include "simulator/practice.h"
#include "simulator/telephone_monitor.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFile>
#include <QProcess>

#include <cstdio>
#include <thread>

using namespace Qt::StringLiterals;

namespace {

void print(const QString& text) {
  std::fputs((text + u'\n').toUtf8().constData(), stdout);
  std::fflush(stdout);
}

/// The line monitor keeps its own connection, which it opens at its first call.
void ring(TMyConnection& connection, const QString& server, const QString& number, quint16 port) {
  if (!connection.Connected()) {
    connection.Server = server;
    connection.Port = 3313;
    connection.Database = u"kvtk"_s;
    connection.Username = LoginRules::account(u"quend"_s);
    connection.Password = LoginRules::password(u"quend"_s);
    connection.Connect();
  }
  TelephoneMonitor::ring(connection, 1, number, port);
  print(u"Çaldı: "_s + number);
}

/// Opens the program of folder on the settings that were prepared; this one ends with it.
void open(QProcess& program, const QString& folder, quint16 callPort) {
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert(u"KVTK_CALL_PORT"_s, QString::number(callPort));
  program.setProcessEnvironment(environment);
  program.setWorkingDirectory(folder);
  program.setProcessChannelMode(QProcess::ForwardedChannels);
  connectGuarded(&program, &QProcess::finished, &program, [](int code, QProcess::ExitStatus) { QCoreApplication::exit(code); });
  program.start(folder + u"/kvtk"_s, QStringList());
  if (!program.waitForStarted()) throw Exception(u"Program açılamadı: "_s + program.errorString());
}

int play(const QCommandLineParser& arguments) {
  Simulator::Options options;
  options.address = arguments.value(u"address"_s);
  options.firstPort = quint16(arguments.value(u"port"_s).toUInt());
  const QString logFile = arguments.value(u"log"_s);
  options.log = [logFile](const QString& line) {
    print(line);
    if (!logFile.isEmpty()) LogFile::append(logFile, line);
  };
  const quint16 callPort = quint16(arguments.value(u"calls"_s).toUInt());
  Simulator simulator(options);
  QProcess program;
  if (const QString folder = arguments.value(u"open"_s); !folder.isEmpty()) {
    Practice::prepare(simulator, folder + u'/');
    Practice::turnOnNotices(folder + u'/');
    open(program, folder, callPort);
  }
  print(u"Benzetim hazır. Komutlar için: yardim"_s);

  QObject here;
  TMyConnection connection;
  const QString server = arguments.value(u"database"_s);
  const auto obey = [&](const QString& line) {
    const auto command = Practice::commandIn(line);
    if (!command) return print(Practice::help());
    switch (command->kind) {
      case Practice::Command::Kind::Behave: return simulator.behave(command->service, command->behaviour);
      case Practice::Command::Kind::Ring: return ring(connection, server, command->number, callPort);
      case Practice::Command::Kind::Credit: return simulator.setCredit(command->credit);
      case Practice::Command::Kind::End: break;
    }
    // The program may hold what was not saved yet: the user closes it, and with it this one.
    if (program.state() == QProcess::NotRunning) return QCoreApplication::quit();
    print(u"Program açık; onu kapatınca benzetim de kapanır."_s);
  };
  setUnhandledHandler([](QObject*, const std::exception& error) { print(LogFile::messageOf(error)); });
  // Reading blocks; a thread that waits for a line does not hold up the end of the program.
  std::thread([&here, &obey] {
    QFile input;
    if (!input.open(stdin, QIODevice::ReadOnly)) return;
    for (QByteArray line; !(line = input.readLine()).isEmpty();)
      postGuarded(&here, [&obey, text = QString::fromUtf8(line).trimmed()] { if (!text.isEmpty()) obey(text); });
  }).detach();
  return QCoreApplication::exec();
}

}  // namespace

int main(int argc, char** argv) {
  QCoreApplication application(argc, argv);
  QCommandLineParser arguments;
  arguments.addHelpOption();
  arguments.addOption({u"address"_s, u"address to listen on"_s, u"address"_s, u"127.0.0.1"_s});
  arguments.addOption({u"port"_s, u"first of five ports; 0 takes free ones"_s, u"port"_s, u"0"_s});
  arguments.addOption({u"calls"_s, u"port that calls are announced on"_s, u"port"_s, QString::number(TelephoneMonitor::usualPort)});
  arguments.addOption({u"database"_s, u"server that calls are written to"_s, u"host"_s, u"127.0.0.1"_s});
  arguments.addOption({u"log"_s, u"file that keeps what was sent"_s, u"file"_s});
  arguments.addOption({u"open"_s, u"program folder: its settings are made to fit, and the program is opened"_s, u"folder"_s});
  arguments.process(application);
  try {
    return play(arguments);
  } catch (const Exception& error) {
    std::fputs((error.message() + u'\n').toUtf8().constData(), stderr);
    return 1;
  }
}
