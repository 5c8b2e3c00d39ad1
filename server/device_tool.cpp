// kvtk-devices FILE: reads a file of devices and prints the SQL text that brings the catalogue up to date. Lines that are not
// taken are told on the standard error stream. Exit code 0: every line is taken, 3: some are not, 1: the file cannot be used.

#include "base/exceptions.h"
#include "cards/device_import.h"

#include <QFile>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {
constexpr int someRefused = 3;

void tell(const QString& text) { std::fprintf(stderr, "%s\n", text.toUtf8().constData()); }
}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fputs("usage: kvtk-devices FILE\n", stderr);
    return 2;
  }
  try {
    QFile input(QFile::decodeName(argv[1]));
    if (!input.open(QIODevice::ReadOnly)) throw Exception(input.errorString());
    const DeviceFile file = DeviceImport::read(input.readAll());
    for (const QString& column : file.unknownColumns) tell(u"the column %1 is not known and left out"_s.arg(column));
    for (const RefusedLine& refused : file.refused) tell(u"line %1: %2"_s.arg(refused.line).arg(refused.reason));
    const QByteArray sql = DeviceImport::statements(file.devices);
    if (std::fwrite(sql.constData(), 1, size_t(sql.size()), stdout) != size_t(sql.size()) || std::fflush(stdout) != 0)
      throw Exception(u"the statements could not be written"_s);
    return file.refused.empty() ? 0 : someRefused;
  } catch (const Exception& error) {
    tell(QFile::decodeName(argv[1]) + u": "_s + error.message());
    return 1;
  }
}
