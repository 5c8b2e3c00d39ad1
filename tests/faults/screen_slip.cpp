#include "tests/faults/screen_slip.h"

#include "base/data/my_query.h"
#include "base/data/value.h"
#include "base/environment.h"
#include "base/exceptions.h"
#include "tests/support/test_database.h"

#include <QCryptographicHash>

#include <chrono>
#include <thread>

using namespace Qt::StringLiterals;

namespace {

/// Bytes that differ from slip to slip, all 256 of them.
QByteArray samplePicture(int seed) {
  QByteArray bytes(100 * 1024, Qt::Uninitialized);
  quint32 state = quint32(seed) + 1;
  for (char& byte : bytes) byte = char((state = state * 1664525 + 1013904223) >> 24);
  return bytes;
}

}  // namespace

QStringList SlipContent::rows() const {
  const auto digest = QString::fromLatin1(QCryptographicHash::hash(picture, QCryptographicHash::Md5).toHex());
  QStringList all{u"foto|%1|%2|%3"_s.arg(number).arg(picture.size()).arg(digest), u"not|%1|%2"_s.arg(number, note),
                  u"slip|%1|%2"_s.arg(number, customer)};
  for (int line = 0; line < parts.size(); ++line) all += u"line|%1|%2|%3"_s.arg(number).arg(line + 1).arg(parts[line]);
  all.sort();
  return all;
}

SlipContent sampleSlip(int number) {
  const QString text = QString::number(number);
  return {text, u"AYŞE YILMAZ "_s + text, {u"MOTOR "_s + text, u"KART "_s + text}, samplePicture(number), u"not \\ 'ş' "_s + text};
}

QStringList storedRows(TMyConnection& connection) {
  TMyQuery query(connection, u"stored"_s);
  query.SQL.Add(u"select concat_ws('|', 'slip', TS_NO, TS_MUSTERI) as STORED from teknikservis"_s);
  query.SQL.Add(u"union all select concat_ws('|', 'line', TS_NO, MZ_SIRANO, MZ_PARCA_ADI) from malzeme"_s);
  query.SQL.Add(u"left join teknikservis on TS_ID = TS_NO_REF"_s);
  query.SQL.Add(u"union all select concat_ws('|', 'foto', TS_NO, length(FT_RESIM), md5(FT_RESIM)) from foto"_s);
  query.SQL.Add(u"left join teknikservis on TS_ID = FT_TS_ID"_s);
  query.SQL.Add(u"union all select concat_ws('|', 'not', TS_NO, SF_NOT) from notlar left join teknikservis on TS_ID = SF_TS_ID"_s);
  query.Open();
  QStringList all = TestDatabase::column(query, u"STORED"_s);
  all.sort();
  return all;
}

bool waitForEnd(TMyConnection& observer, qint64 connectionId) {
  TMyQuery query(observer, u"processes"_s);
  query.SQL.setText(u"select ID from information_schema.processlist where ID = :ID"_s);
  query.ParamByName(u"ID"_s) = connectionId;
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(10);
  for (query.Open(); !query.IsEmpty(); query.Refresh()) {
    if (std::chrono::steady_clock::now() > deadline) return false;
    environment().sleep(1);
  }
  return true;
}

ScreenSlip::ScreenSlip(TMyConnection& connection)
    : qServis_(connection, u"qServis"_s),
      qMalzeme_(connection, u"qMalzeme"_s),
      pGetQ_(connection, u"pGetQ"_s),
      store_(connection, qServis_, qMalzeme_, pGetQ_) {}

ScreenSlip::ScreenSlip(TMyConnection& connection, const SlipContent& content) : ScreenSlip(connection) {
  typed_ = content;
  isNew_ = true;
  store_.openEmpty();
  for (int line = 0; line < content.parts.size(); ++line) addLine(line + 1, content.parts[line]);
}

ScreenSlip::ScreenSlip(TMyConnection& connection, qint64 id) : ScreenSlip(connection) {
  if (!store_.open(id)) throw EDatabaseError(u"no such slip"_s);
  const auto text = [this](const QString& column) { return qServis_.FieldByName(column).asText(); };
  typed_ = {text(u"TS_NO"_s), text(u"TS_MUSTERI"_s), {}, store_.picture(id, {}), *store_.note(id)};
}

std::optional<SaveFailure> ScreenSlip::save() {
  const auto fillRow = [this] {
    qServis_.FieldByName(u"TS_NO"_s).set(typed_.number);
    qServis_.FieldByName(u"TS_MUSTERI"_s).set(typed_.customer);
  };
  const SlipExtras extras{u"QUEND"_s, {}, typed_.picture, typed_.note};
  return isNew_ ? store_.saveNew(fillRow, extras) : store_.saveExisting(fillRow, extras);
}

void ScreenSlip::addLine(int line, const QString& part) {
  qMalzeme_.Append();
  qMalzeme_.FieldByName(u"MZ_SIRANO"_s).set(line);
  qMalzeme_.FieldByName(u"MZ_PARCA_ADI"_s).set(part);
  qMalzeme_.FieldByName(u"MZ_ADET"_s).set(1);
  qMalzeme_.FieldByName(u"MZ_TUTAR"_s).set(12.5);
  qMalzeme_.Post();
}
