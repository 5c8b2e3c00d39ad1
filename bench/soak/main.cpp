// kvtk-soak MINUTES SEED FOLDER LINES: three processes of the program on the one database in KVTK_COMPUTER_NAME work through
// random roads while the services that the program speaks to misbehave, and the second and the third lose the server now and then,
// end, as there is no reconnection, and begin anew. FOLDER holds the folders station1 … station3, each with the templates. LINES
// is the beginning of three loopback addresses, "127.0.0.4" for 127.0.0.47 to 49.
//   soak_roads, soak_slips_saved, soak_lives, soak_unknown   what was done
//   soak_missing, soak_half, soak_twice                      slips in the database against what the screens said: 0 each
//   soak_memory_growth, soak_heap_growth    of the first station, from the first tenth of the time to its end: what the computer
//                                           gives to it, and what it uses of that
//   soak_handles_left, soak_timers_left, soak_widgets_left, soak_threads_left   the same; 3 % and 0 are right
//   soak_unexpected_errors                                   entries of the log files that nothing explains
// What is counted there is told on the standard error stream. Exits with 1 when something of it is wrong.
#include "bench/measuring.h"
#include "bench/soak/hands.h"
#include "bench/soak/ledger.h"
#include "bench/soak/log_entries.h"
#include "bench/soak/soak.h"
#include "base/data/my_query.h"
#include "simulator/practice.h"
#include "simulator/simulator.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QProcess>
#include <QTimer>

#include <array>
#include <cstdio>

using namespace Qt::StringLiterals;
using Measuring::figure;

namespace {

constexpr int stations = 3;
constexpr int firstLine = 7;
constexpr int moodMs = 4000;
constexpr int shortestLife = 20;   ///< seconds between two cuts of a station
constexpr int longestLife = 120;
constexpr double mostGrowth = 3;  ///< percent
constexpr int endMs = 300000;      ///< within which a station ends that is told to

void tell(const QString& text) { std::fprintf(stderr, "soak: %s\n", text.toUtf8().constData()); }

class Soak {
 public:
  Soak(double minutes, unsigned seed, QString folder, QString lines)
      : chance_(seed), folder_(std::move(folder)), lines_(std::move(lines)), seed_(seed) {
    const qint64 now = QDateTime::currentMSecsSinceEpoch();
    const auto all = qint64(minutes * 60000);
    measuresAt_ = now + all / 10;
    endsAt_ = now + all;
  }

  /// 0 when nothing is wrong.
  int run() {
    for (int station = 0; station < stations; ++station) prepare(station);
    QTimer moods;
    QObject::connect(&moods, &QTimer::timeout, [this] { misbehave(); });
    moods.start(moodMs);
    for (int station = 0; station < stations; ++station) begin(station);
    QTimer::singleShot(std::max<qint64>(0, endsAt_ - QDateTime::currentMSecsSinceEpoch()) + endMs, qApp, [this] {
      for (int station = 0; station < stations; ++station)
        if (programs_[size_t(station)].state() != QProcess::NotRunning) {
          fault(u"station %1 does not end"_s.arg(station + 1));
          programs_[size_t(station)].kill();
        }
    });
    QCoreApplication::exec();
    return report();
  }

 private:
  QString folderOf(int station) const { return u"%1/station%2/"_s.arg(folder_).arg(station + 1); }

  void prepare(int station) {
    qputenv("KVTK_SETTINGS", (folderOf(station) + u"settings.ini"_s).toUtf8());
    Practice::prepare(simulator_, folderOf(station));
    QProcess& program = programs_[size_t(station)];
    program.setStandardErrorFile(folderOf(station) + u"messages.txt"_s, QIODevice::Append);
    program.setWorkingDirectory(folderOf(station));
    QObject::connect(&program, &QProcess::readyReadStandardOutput, qApp, [this, station] { hear(station); });
    QObject::connect(&program, &QProcess::finished, qApp, [this, station](int code, QProcess::ExitStatus status) {
      ended(station, status == QProcess::NormalExit ? code : -1);
    });
  }

  void begin(int station) {
    const int life = ++lives_[size_t(station)];
    const int cutAfter = station == 0 ? 0 : shortestLife + chance_.below(longestLife - shortestLife);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    const QString line = lines_ + QString::number(firstLine + station);
    environment.insert(u"KVTK_COMPUTER_NAME"_s, line);
    environment.insert(u"KVTK_SETTINGS"_s, folderOf(station) + u"settings.ini"_s);
    environment.insert(u"KVTK_PROGRAM"_s, folderOf(station) + u"kvtk"_s);
    QProcess& program = programs_[size_t(station)];
    program.setProcessEnvironment(environment);
    const QString mail = simulator_.hostOf(Service::Mail).section(u':', 0, 0);
    program.start(QCoreApplication::applicationFilePath(),
                  {u"--station"_s, u"SK%1X%2"_s.arg(station + 1).arg(life), line, qEnvironmentVariable("KVTK_COMPUTER_NAME"), mail,
                   QString::number(simulator_.portOf(Service::Mail)), QString::number(seed_ + unsigned(station * 1000 + life)),
                   QString::number(measuresAt_), QString::number(endsAt_), QString::number(cutAfter)});
  }

  void hear(int station) {
    QProcess& program = programs_[size_t(station)];
    while (program.canReadLine()) {
      const QString line = QString::fromUtf8(program.readLine()).chopped(1);
      const QStringList words = line.split(u'\t');
      ledger_.hear(station, words);
      if (words[0] == u"goes"_s) under_[size_t(station)] = words.value(2);
      if (words[0] == u"came"_s) ++roads_[words.value(2)];
      if (words[0] == u"stuck"_s) fault(u"station %1, %2: %3"_s.arg(station + 1).arg(under_[size_t(station)], words.value(2)));
      if (words[0] == u"holds"_s && station == 0) holds_.push_back(words.mid(2));
    }
  }

  void ended(int station, int code) {
    hear(station);
    ledger_.gone(station);
    if (code != 0) fault(u"station %1 ended with %2"_s.arg(station + 1).arg(code));
    if (QDateTime::currentMSecsSinceEpoch() < endsAt_ && faults_ < 20) return begin(station);
    if (std::all_of(programs_.begin(), programs_.end(), [](const QProcess& each) { return each.state() == QProcess::NotRunning; }))
      QCoreApplication::quit();
  }

  void fault(const QString& text) {
    ++faults_;
    tell(text);
  }

  /// Now and then one of the services behaves in another way.
  void misbehave() {
    constexpr std::array moods{Mood::Normal, Mood::Normal, Mood::Refuse, Mood::Status, Mood::Cut, Mood::Rubbish};
    const auto service = Service(chance_.below(serviceCount));
    Behaviour behaviour{moods[size_t(chance_.below(int(moods.size())))], u"7"_s, chance_.below(300)};
    if (behaviour.mood == Mood::Status) behaviour.code = u"500"_s;
    if (behaviour.mood == Mood::Refuse && service == Service::Mail) behaviour.code = u"alici"_s;
    if (chance_.oneIn(60)) behaviour.mood = Mood::Silent;
    simulator_.behave(service, behaviour);
    simulator_.setCredit(1000);
  }

  int report() {
    TMyConnection connection;
    Measuring::open(connection);
    const Ledger::Count count = ledger_.count(connection);
    int roads = 0;
    for (auto road = roads_.cbegin(); road != roads_.cend(); ++road) {
      roads += road.value();
      tell(u"%1 times %2"_s.arg(road.value()).arg(road.key()));
    }
    int wrong = faults_;
    const auto zero = [&wrong](const QString& name, const QStringList& found) {
      for (const QString& each : found) tell(name + u": "_s + each);
      figure(name, double(found.size()), "1");
      wrong += int(found.size());
    };
    figure(u"soak_roads"_s, roads, "1");
    figure(u"soak_lives"_s, lives_[0] + lives_[1] + lives_[2], "1");
    figure(u"soak_slips_saved"_s, count.saved, "1");
    figure(u"soak_unknown"_s, count.unknown, "1");
    zero(u"soak_missing"_s, count.missing);
    zero(u"soak_half"_s, count.half);
    zero(u"soak_twice"_s, count.twice);
    if (holds_.size() == 2) {
      const auto grown = [this](int place) { return holds_[1][place].toDouble() - holds_[0][place].toDouble(); };
      const auto bounded = [&wrong](const QString& name, double value, double most, const char* unit) {
        figure(name, value, unit);
        wrong += value > most;
      };
      figure(u"soak_memory"_s, holds_[1][0].toDouble(), "MB");
      bounded(u"soak_memory_growth"_s, 100 * grown(0) / holds_[0][0].toDouble(), mostGrowth, "%");
      figure(u"soak_heap"_s, holds_[1][1].toDouble(), "MB");
      figure(u"soak_heap_growth"_s, 100 * grown(1) / holds_[0][1].toDouble(), "%");
      bounded(u"soak_handles_left"_s, grown(2), 0, "1");
      bounded(u"soak_timers_left"_s, grown(3), 0, "1");
      bounded(u"soak_widgets_left"_s, grown(4), 0, "1");
      bounded(u"soak_threads_left"_s, grown(5), 0, "1");
    } else {
      fault(u"the first station did not tell what it holds"_s);
    }
    const QString services = simulator_.hostOf(Service::Mail).section(u':', 0, 0);
    QStringList unexpected;
    for (int station = 0; station < stations; ++station) unexpected += LogEntries::unexpected(folderOf(station), services, station != 0);
    zero(u"soak_unexpected_errors"_s, unexpected);
    return wrong == 0 && faults_ == 0 ? 0 : 1;
  }

  Simulator simulator_;
  Chance chance_;
  Ledger ledger_;
  QString folder_;
  QString lines_;
  unsigned seed_;
  qint64 measuresAt_ = 0;
  qint64 endsAt_ = 0;
  std::array<QProcess, stations> programs_;
  std::array<int, stations> lives_{};
  QHash<QString, int> roads_;
  std::array<QString, stations> under_;  ///< the road that each station went last
  std::vector<QStringList> holds_;  ///< of the first station, at the first tenth and at the end
  int faults_ = 0;
};

}  // namespace

int main(int argc, char** argv) {
  if (argc == 11 && qstrcmp(argv[1], "--station") == 0) {
    const auto word = [argv](int place) { return QString::fromLocal8Bit(argv[place]); };
    int programArguments = 1;
    return runStation(programArguments, argv,
                      {word(2), word(3), word(4), word(5), word(6).toInt(), word(7).toUInt(), word(8).toLongLong(), word(9).toLongLong(),
                       word(10).toInt()});
  }
  if (argc != 5) {
    std::fputs("usage: kvtk-soak MINUTES SEED FOLDER LINES\n", stderr);
    return 2;
  }
  QCoreApplication application(argc, argv);
  const QString folder = QDir(QString::fromLocal8Bit(argv[3])).absolutePath();
  return Soak(QString::fromLocal8Bit(argv[1]).toDouble(), QString::fromLocal8Bit(argv[2]).toUInt(), folder, QString::fromLocal8Bit(argv[4])).run();
}
