#include "service/slip_store.h"

#include "base/data/my_query.h"
#include "base/data/value.h"
#include "base/environment.h"
#include "base/exceptions.h"

#include <QCryptographicHash>

using namespace Qt::StringLiterals;

SlipStore::SlipStore(TMyConnection& connection, TMyQuery& qServis, TMyQuery& qMalzeme, TMyQuery& pGetQ)
    : connection_(connection), qServis_(qServis), qMalzeme_(qMalzeme), pGetQ_(pGetQ) {
  qServis_.Options.CheckRowVersion = true;
  qServis_.Options.SetEmptyStrToNull = true;
  qServis_.SQL.Clear();
  qServis_.SQL.Add(u"select * from teknikservis "_s);
  qServis_.SQL.Add(u"where TS_ID = -1"_s);
  qServis_.SQLDelete.Clear();
  qServis_.SQLDelete.Add(u"DELETE FROM teknikservis"_s);
  qServis_.SQLDelete.Add(u"WHERE"_s);
  qServis_.SQLDelete.Add(u"  TS_ID = :Old_TS_ID"_s);
  qMalzeme_.CachedUpdates = true;
  qMalzeme_.OnNewRecord = [this] {
    if (qServis_.RecNo() >= 0) qMalzeme_.FieldByName(u"TS_NO_REF"_s).set(qServis_.FieldByName(u"TS_ID"_s).value());
  };
}

void SlipStore::openEmpty() {
  qServis_.Open();
  qMalzeme_.SQL.setText(u"select * from malzeme where TS_NO_REF = :OLD_TS_ID"_s);
  qMalzeme_.ParamByName(u"OLD_TS_ID"_s) = Value();
  qMalzeme_.Open();
}

bool SlipStore::open(qint64 id) {
  qServis_.DeleteWhere();
  qServis_.AddWhere(u"TS_ID = :ID"_s);
  qServis_.ParamByName(u"ID"_s) = id;
  qServis_.Open();
  qMalzeme_.SQL.setText(u"select * from malzeme where TS_NO_REF = :TS_ID"_s);
  qMalzeme_.ParamByName(u"TS_ID"_s) = id;
  qMalzeme_.Open();
  return !qServis_.IsEmpty();
}

QString SlipStore::highestNumber(TMyQuery& query, const QString& prefix) {
  query.SQL.Clear();
  query.SQL.setText(u"select MAX(TS_NO+0) as SON from teknikservis"_s);
  if (!prefix.trimmed().isEmpty()) {
    query.AddWhere(u"TS_NO like :NO"_s);
    query.ParamByName(u"NO"_s) = prefix + u'%';
  }
  query.Open();
  const QString highest = query.IsEmpty() ? QString() : query.FieldByName(u"SON"_s).asText();
  query.Close();
  return highest;
}

std::optional<SaveFailure> SlipStore::saveNew(const RowFiller& fillRow, const SlipExtras& extras) {
  return save(fillRow, extras, true);
}

void SlipStore::refreshRow() { qServis_.RefreshRecord(); }

std::optional<SaveFailure> SlipStore::saveExisting(const RowFiller& fillRow, const SlipExtras& extras) {
  return save(fillRow, extras, false);
}

std::optional<SaveFailure> SlipStore::save(const RowFiller& fillRow, const SlipExtras& extras, bool isNew) {
  TransactionGuard transaction(connection_);
  try {
    if (isNew)
      qServis_.Insert();
    else
      qServis_.Edit();
    fillRow();
    setSaveColumns(extras);
  } catch (...) {
    qServis_.Cancel();
    throw;
  }
  try {
    const Value before = isNew ? Value() : qServis_.FieldByName(u"TS_STAMP"_s).value();
    qServis_.Post();
    const qint64 id = isNew ? qint64(qServis_.lastInsertId()) : qServis_.FieldByName(u"TS_ID"_s).asInteger();
    if (!isNew && qServis_.FieldByName(u"TS_STAMP"_s).value() == before) holdRow(id);
    writePicture(id, extras.picture);
    writeNote(id, extras.note);
    if (isNew && !qMalzeme_.IsEmpty())
      writeNewLines(id);
    else if (!isNew && qMalzeme_.UpdatesPending())
      qMalzeme_.ApplyUpdates();
    transaction.commit();
    qMalzeme_.CommitUpdates();
    return std::nullopt;
  } catch (const Exception& error) {
    qServis_.Cancel();
    qMalzeme_.RestoreUpdates();
    transaction.rollback();
    return SaveFailure{error.className(), error.message()};
  }
}

void SlipStore::setSaveColumns(const SlipExtras& extras) {
  const QDateTime now = environment().now();
  const auto set = [this](const QString& column, const Value& value) { qServis_.FieldByName(column).set(value); };
  set(u"TS_SAAT"_s, now.time());
  set(u"TS_USER"_s, extras.userName);
  set(u"TS_USER_TIME"_s, now);
  const OutsideService& service = extras.outsideService;
  set(u"TS_DISSERVIS"_s, service.firm);
  set(u"TS_DISSERVIS_BILGI"_s, service.note);
  set(u"TS_DISSERVIS_TESLIM_SURE"_s, service.deliveryDays);
  const auto setDate = [&](const QString& column, const QString& date) { set(column, date.isEmpty() ? Value() : Value(date)); };
  setDate(u"TS_DISSERVIS_CIKIS"_s, service.exitDate);
  setDate(u"TS_DISSERVIS_GIRIS"_s, service.returnDate);
}

/// A second save within one second changes nothing and sends nothing, so that nobody would notice that the slip is gone.
void SlipStore::holdRow(qint64 id) {
  pGetQ_.SQL.setText(u"select TS_ID from teknikservis where TS_ID = :TS_ID for update"_s);
  pGetQ_.ParamByName(u"TS_ID"_s) = id;
  pGetQ_.Open();
  const bool isThere = !pGetQ_.IsEmpty();
  pGetQ_.Close();
  if (!isThere) throw EDatabaseError(u"Refresh failed. Found 0 records"_s);
}

void SlipStore::writePicture(qint64 id, const QByteArray& picture) {
  pGetQ_.SQL.Clear();
  pGetQ_.SQL.Add(u"delete from foto where FT_TS_ID = :TS_ID;"_s);
  pGetQ_.SQL.Add(u"Insert Into foto (FT_ID, FT_TS_ID, FT_RESIM) VALUES ("_s);
  pGetQ_.SQL.Add(u":FT_ID, :FT_TS_ID, :FT_RESIM);"_s);
  pGetQ_.ParamByName(u"TS_ID"_s) = id;
  pGetQ_.ParamByName(u"FT_TS_ID"_s) = id;
  pGetQ_.ParamByName(u"FT_ID"_s) = Value();
  pGetQ_.ParamByName(u"FT_RESIM"_s) = picture;
  pGetQ_.Execute();
}

void SlipStore::writeNote(qint64 id, const QString& note) {
  pGetQ_.SQL.setText(u"UPDATE NOTLAR SET SF_NOT = :SFNOT WHERE SF_TS_ID = :TS_ID"_s);
  pGetQ_.ParamByName(u"SFNOT"_s) = note;
  pGetQ_.ParamByName(u"TS_ID"_s) = id;
  pGetQ_.Execute();
}

void SlipStore::writeNewLines(qint64 id) {
  for (qMalzeme_.First(); !qMalzeme_.Eof(); qMalzeme_.Next()) {
    qMalzeme_.Edit();
    qMalzeme_.FieldByName(u"MZ_ID"_s).Clear();
    qMalzeme_.FieldByName(u"TS_NO_REF"_s).set(id);
    qMalzeme_.Post();
  }
  qMalzeme_.ApplyUpdates();
}

bool SlipStore::numberExists(const QString& number) {
  pGetQ_.SQL.setText(u"select * from teknikservis"_s);
  pGetQ_.AddWhere(u"TS_NO = :OLD_TS_NO"_s);
  pGetQ_.ParamByName(u"OLD_TS_NO"_s) = number;
  pGetQ_.Open();
  const bool exists = !pGetQ_.IsEmpty();
  pGetQ_.Close();
  return exists;
}

void SlipStore::deleteSlip() {
  const Value id = qServis_.FieldByName(u"TS_ID"_s).value();
  for (const QString& statement : {u"delete from foto where FT_TS_ID = :ID;"_s, u"delete from notlar where SF_TS_ID = :ID;"_s}) {
    pGetQ_.SQL.setText(statement);
    pGetQ_.ParamByName(u"ID"_s) = id;
    pGetQ_.Execute();
  }
  qServis_.Delete();
}

QByteArray SlipStore::picture(qint64 id, const QByteArray& known) {
  pGetQ_.SQL.setText(u"select sha1(FT_RESIM) = :KNOWN as SAME, if(sha1(FT_RESIM) = :KNOWN, NULL, FT_RESIM) as FT_RESIM from foto where FT_TS_ID = :TS_ID"_s);
  pGetQ_.ParamByName(u"TS_ID"_s) = id;
  pGetQ_.ParamByName(u"KNOWN"_s) = QString::fromLatin1(QCryptographicHash::hash(known, QCryptographicHash::Sha1).toHex());
  pGetQ_.Open();
  const bool isKnown = !pGetQ_.IsEmpty() && pGetQ_.FieldByName(u"SAME"_s).asInteger() != 0;
  const QByteArray bytes = isKnown ? known : pGetQ_.IsEmpty() ? QByteArray() : pGetQ_.FieldByName(u"FT_RESIM"_s).asBytes();
  pGetQ_.Close();
  return bytes;
}

std::optional<QString> SlipStore::note(qint64 id) {
  pGetQ_.SQL.setText(u"select SF_NOT from notlar where SF_TS_ID = :TS_ID"_s);
  pGetQ_.ParamByName(u"TS_ID"_s) = id;
  pGetQ_.Open();
  std::optional<QString> text;
  if (!pGetQ_.IsEmpty()) text = pGetQ_.FieldByName(u"SF_NOT"_s).asText();
  pGetQ_.Close();
  return text;
}

OutsideService SlipStore::outsideService() {
  const auto text = [this](const QString& column) { return qServis_.FieldByName(column).asText(); };
  if (text(u"TS_DISSERVIS"_s).isEmpty()) return {};
  return {text(u"TS_DISSERVIS"_s), text(u"TS_DISSERVIS_CIKIS"_s), text(u"TS_DISSERVIS_GIRIS"_s), text(u"TS_DISSERVIS_BILGI"_s),
          int(qServis_.FieldByName(u"TS_DISSERVIS_TESLIM_SURE"_s).asInteger())};
}

std::optional<NamedTexts> SlipStore::deviceBySerial(const QString& serial) {
  pGetQ_.SQL.Clear();
  pGetQ_.SQL.Add(u"select * from caricihaz"_s);
  pGetQ_.SQL.Add(u"left outer join cari on `caricihaz`.`CH_CA_ID` = CA_ID"_s);
  pGetQ_.SQL.Add(u"where CH_SERI = :SERI"_s);
  pGetQ_.ParamByName(u"SERI"_s) = serial;
  pGetQ_.Open();
  std::optional<NamedTexts> found;
  if (!pGetQ_.IsEmpty()) {
    found.emplace();
    for (int i = 0; i < pGetQ_.fieldCount(); ++i) {
      const Field field = pGetQ_.field(i);
      if (field.info().type != FieldType::Blob) found->insert(field.info().name, field.asText());
    }
  }
  pGetQ_.Close();
  return found;
}

void SlipStore::openSerialHistory(TMyQuery& qSeri, const QString& serial) {
  const Value id = qServis_.FieldByName(u"TS_ID"_s).value();
  qSeri.Close();
  qSeri.SQL.setText(u"select * from teknikservis where TS_C_SERINO = :SERINO and TS_ID <> :ID"_s);
  qSeri.ParamByName(u"SERINO"_s) = serial;
  qSeri.ParamByName(u"ID"_s) = id;
  qSeri.Open();
}

void SlipStore::openCustomerHistory(TMyQuery& qSeri, const QString& customer) {
  const Value id = qServis_.FieldByName(u"TS_ID"_s).value();
  qSeri.Close();
  qSeri.SQL.setText(u"select * from teknikservis where TS_MUSTERI = :MUSTERI and TS_ID <> :ID"_s);
  qSeri.ParamByName(u"MUSTERI"_s) = customer;
  qSeri.ParamByName(u"ID"_s) = id;
  qSeri.Open();
}
