#include "app/backup_store.h"

#include "base/data/my_query.h"
#include "base/data/value.h"
#include "base/exceptions.h"

using namespace Qt::StringLiterals;

namespace {
constexpr unsigned noSuchTable = 1146;

QDateTime momentOf(TMyQuery& query, const QString& column) {
  const Value value = query.FieldByName(column).value();
  const auto* moment = std::get_if<QDateTime>(&value.data());
  return moment != nullptr ? *moment : QDateTime();
}
}  // namespace

std::optional<BackupState> BackupStore::read(TMyConnection& connection) {
  TMyQuery qYedek(connection, u"qYedek"_s);
  qYedek.SQL.setText(u"select NOW() as SIMDI, SINCE, LAST_COPY, FAILURE from backup_state"_s);
  try {
    qYedek.Open();
  } catch (const EMyError& error) {
    if (error.code() == noSuchTable) return {};
    throw;
  }
  if (qYedek.RecordCount() == 0) return {};
  return BackupState{momentOf(qYedek, u"SIMDI"_s), momentOf(qYedek, u"SINCE"_s), momentOf(qYedek, u"LAST_COPY"_s),
                     qYedek.FieldByName(u"FAILURE"_s).asText()};
}
