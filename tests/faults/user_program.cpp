#include "tests/faults/user_program.h"

#include <gtest/gtest.h>

#include <stdexcept>

using namespace Qt::StringLiterals;

UserProgram::UserProgram(const QString& name) {
  process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
  process_.start(QStringLiteral(SLIP_USER), {name});
  if (answer() != u"ready"_s) throw std::runtime_error("the program did not start");
}

UserProgram::~UserProgram() {
  process_.closeWriteChannel();
  if (!process_.waitForFinished()) process_.kill();
  EXPECT_EQ(process_.exitStatus(), QProcess::NormalExit);
  EXPECT_EQ(process_.exitCode(), 0);
}

QString UserProgram::saved() { return u"Servis fiş kaydı tamamlandı."_s; }

void UserProgram::begin(const QStringList& words) {
  process_.write((words.join(u'\t') + u'\n').toUtf8());
  process_.waitForBytesWritten();
}

QString UserProgram::answer() {
  while (!process_.canReadLine())
    if (!process_.waitForReadyRead(20'000)) throw std::runtime_error("the program gave no answer");
  return QString::fromUtf8(process_.readLine()).chopped(1);
}

QString UserProgram::run(const QStringList& words) {
  begin(words);
  return answer();
}

QString UserProgram::takeIn(const QString& customer) {
  const QString number = run({u"new"_s});
  set(u"TS_MUSTERI"_s, customer);
  set(u"TS_C_AD"_s, u"FIRIN"_s);
  set(u"TS_C_SERINO"_s, u"SERİ 1"_s);
  return number;
}
