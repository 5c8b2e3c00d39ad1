#include "service/slip_browser_store.h"

#include "base/data/my_query.h"
#include "base/data/value.h"
#include "service/slip_browser_rules.h"

using namespace Qt::StringLiterals;

namespace {

const QString& allSlips() {
  static const QString statement = u"select * from teknikservis"_s;
  return statement;
}

/// True for no slip.
const QString& noSlip() {
  static const QString condition = u"TS_STAMP = -1"_s;
  return condition;
}

}  // namespace

SlipBrowserStore::SlipBrowserStore(TMyConnection& connection, TMyQuery& qServis, TMyQuery& qDisServis, TMyQuery& pGetQ)
    : connection_(connection), qServis_(qServis), qDisServis_(qDisServis), pGetQ_(pGetQ) {
  qServis_.SQL.setText(allSlips());
  qServis_.SQLDelete.Add(u"DELETE FROM teknikservis"_s);
  qServis_.SQLDelete.Add(u"WHERE"_s);
  qServis_.SQLDelete.Add(u"  TS_ID = :Old_TS_ID"_s);
  qDisServis_.SQL.setText(u"select * from disServis order by DS_AD"_s);
}

void SlipBrowserStore::openWithoutRows() {
  qServis_.setFilter(std::nullopt);
  // The limit spares the server looking for a row among all of them, as it has no index on the stamp.
  fetch(allSlips() + u" limit 0"_s, Condition{noSlip(), {}});
}

void SlipBrowserStore::openAll() {
  qServis_.setFilter(std::nullopt);
  fetch(allSlips(), std::nullopt);
}

void SlipBrowserStore::narrow(const std::optional<FilterExpression>& filter) {
  if (!fetched_ && qServis_.Active()) return narrowFetched(filter);
  const SlipBrowserRules::SplitFilter parts = SlipBrowserRules::split(filter);
  std::optional<Condition> wanted = conditionOf(parts.atServer);
  if (wanted == fetched_ && qServis_.Active()) return narrowFetched(parts.inMemory);
  qServis_.Close();
  qServis_.setFilter(parts.inMemory);
  fetch(allSlips(), std::move(wanted));
}

void SlipBrowserStore::narrowFetched(const std::optional<FilterExpression>& filter) { qServis_.setFilter(filter); }

void SlipBrowserStore::setOrder(const QString& columns) {
  const bool isOpen = qServis_.Active();
  qServis_.Close();
  if (!columns.isEmpty()) {
    order_ = columns;
    qServis_.SetOrderBy(order_);
  }
  if (isOpen) qServis_.Open();
}

void SlipBrowserStore::refresh() {
  if (qServis_.Active())
    qServis_.Refresh();
  else
    qServis_.Open();
}

void SlipBrowserStore::close() {
  qServis_.Close();
  qServis_.setFilter(std::nullopt);
}

void SlipBrowserStore::openFirms() { qDisServis_.Open(); }

std::optional<SlipBrowserStore::Condition> SlipBrowserStore::conditionOf(const std::optional<FilterExpression>& filter) {
  if (!filter) return std::nullopt;
  Condition condition;
  condition.text = filter->asSql(condition.values);
  return condition;
}

void SlipBrowserStore::fetch(const QString& statement, std::optional<Condition> condition) {
  qServis_.SQL.setText(statement);
  if (condition) {
    qServis_.AddWhere(condition->text);
    for (auto value = condition->values.begin(); value != condition->values.end(); ++value)
      qServis_.ParamByName(value.key()) = value.value();
  }
  if (!order_.isEmpty()) qServis_.SetOrderBy(order_);
  fetched_ = std::move(condition);
  qServis_.Open();
}

void SlipBrowserStore::deleteOf(const QString& statement, const QStringList& keys) {
  pGetQ_.SQL.Clear();
  for (const QString& key : keys) pGetQ_.SQL.Add(statement + key);
  pGetQ_.Execute();
}

void SlipBrowserStore::deleteSlips(const QStringList& keys, const std::function<void()>& deleteRows) {
  TransactionGuard transaction(connection_);
  deleteOf(u"delete from foto where FT_TS_ID = "_s, keys);
  deleteOf(u"delete from notlar where SF_TS_ID = "_s, keys);
  deleteRows();
  transaction.commit();
}
