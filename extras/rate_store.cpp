#include "extras/rate_store.h"

#include "base/data/my_query.h"
#include "base/data/value.h"
#include "base/date_text.h"
#include "base/text_tools.h"

using namespace Qt::StringLiterals;

std::optional<DayRates> RateStore::stored(TMyQuery& query) {
  query.Close();
  query.SQL.setText(u"select * from doviz"_s);
  query.Open();
  if (query.IsEmpty()) return std::nullopt;
  const auto rate = [&query](const QString& column) { return query.FieldByName(column).asDouble(); };
  DayRates rates{DateText::date(query.FieldByName(u"TARIH"_s).asDate()),
                 {rate(u"DOLARSATIS"_s), rate(u"EUROSATIS"_s), rate(u"STERLINSATIS"_s)}};
  query.Close();
  return rates;
}

void RateStore::store(TMyConnection& connection, TMyQuery& query, const DayRates& rates) {
  query.Close();
  query.SQL.setText(u"UPDATE `doviz` SET `TARIH` = :TARIH, `DOLARSATIS` = :DOLAR, `EUROSATIS` = :EURO, `STERLINSATIS` = :STERLIN"_s);
  query.ParamByName(u"TARIH"_s) = TextTools::TarihRotate(rates.date);
  query.ParamByName(u"DOLAR"_s) = rates.selling[size_t(Currency::Dollar)];
  query.ParamByName(u"EURO"_s) = rates.selling[size_t(Currency::Euro)];
  query.ParamByName(u"STERLIN"_s) = rates.selling[size_t(Currency::Sterling)];
  TransactionGuard transaction(connection);
  query.Execute();
  transaction.commit();
}
