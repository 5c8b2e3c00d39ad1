#include "cards/card_store.h"

#include "base/data/my_query.h"
#include "base/data/value.h"

using namespace Qt::StringLiterals;

namespace {

const QString deviceModel = u"CH_MODEL"_s;

}  // namespace

void CardStore::setUpCustomers(TMyQuery& qCari) {
  qCari.SQL.Clear();
  qCari.SQL.Add(u"select * from cari"_s);
  // The form that a filter by device takes stands behind it as a comment: meant.
  qCari.SQL.Add(u"#select distinct cari.*, caricihaz.CH_MODEL from caricihaz, cari"_s);
  qCari.SQL.Add(u"#where CH_CA_ID = CA_ID GROUP BY CA_AD\n"_s);
  qCari.SQLDelete.setText(u"DELETE FROM cari WHERE CA_ID = :Old_CA_ID"_s);
  qCari.Options.CheckRowVersion = true;
  qCari.Options.SetEmptyStrToNull = true;
}

void CardStore::setUpCustomerDevices(TMyQuery& qmCihaz) {
  qmCihaz.SQL.Clear();
  qmCihaz.SQL.Add(u"select * from caricihaz"_s);
  qmCihaz.SQL.Add(u"where CH_CA_ID = :ID"_s);
  qmCihaz.Options.SetEmptyStrToNull = true;
}

void CardStore::setUpDevices(TMyQuery& qCihaz) {
  qCihaz.SQL.setText(u"select * from cihaz"_s);
  qCihaz.SQLDelete.setText(u"DELETE FROM cihaz WHERE C_ID = :Old_C_ID"_s);
  qCihaz.Options.CheckRowVersion = true;
  qCihaz.Options.SetEmptyStrToNull = true;
}

void CardStore::setUpFirms(TMyQuery& qDisServis) {
  qDisServis.SQL.setText(u"select * from disservis"_s);
  qDisServis.SQLDelete.setText(u"DELETE FROM disservis WHERE DS_ID = :Old_DS_ID"_s);
}

void CardStore::setUpServiceTypes(TMyQuery& qServisTip) {
  qServisTip.SQL.setText(u"select * from servistip"_s);
  qServisTip.Options.SetEmptyStrToNull = true;
}

CardStore::Versions CardStore::versions(TMyQuery& query) {
  // Number and newest stamp alone would miss a row that was written before the newest one and committed after it.
  const auto ofStamped = [](const QString& table, const QString& key, const QString& stamp) {
    return u"(select concat_ws(' ', count(*), max(%3), bit_xor(crc32(concat(%2, ' ', %3)))) from %1)"_s.arg(table, key, stamp);
  };
  query.SQL.setText(u"select "_s + ofStamped(u"cari"_s, u"CA_ID"_s, u"CA_STAMP"_s) + u", "_s +
                    ofStamped(u"cihaz"_s, u"C_ID"_s, u"C_STAMP"_s) +
                    u", (select concat_ws(' ', count(*), bit_xor(crc32(SERVIS_AD))) from servistip)"_s);
  query.Open();
  const Versions versions{query.field(0).asBytes(), query.field(1).asBytes(), query.field(2).asBytes()};
  query.Close();
  return versions;
}

void CardStore::openDevicesOf(TMyQuery& qmCihaz, qint64 customer) {
  qmCihaz.ParamByName(u"ID"_s) = customer;
  qmCihaz.Open();
}

bool CardStore::goesByDevice(const FilterExpression& filter) {
  QHash<QString, Value> values;
  return filter.asSql(values).contains(deviceModel);
}

void CardStore::openByDevice(TMyQuery& qCari, const FilterExpression& filter) {
  const StatementText before = qCari.SQL;
  qCari.SQL.setText(
      u"select distinct cari.*, caricihaz.CH_MODEL from caricihaz, cari where CH_CA_ID = CA_ID GROUP BY CA_AD"_s);
  try {
    qCari.AddWhere(filter);
    qCari.Open();
    if (qCari.filter()) qCari.setFilter(std::nullopt);  // an earlier one of the grid's
  } catch (...) {
    qCari.SQL = before;
    throw;
  }
}

bool CardStore::exists(TMyQuery& query, const QString& table, const QString& column, const QString& text) {
  query.SQL.setText(u"select * from "_s + table);
  query.AddWhere(u"%1 = :OLD_%1"_s.arg(column));
  query.ParamByName(u"OLD_"_s + column) = text;
  query.Open();
  const bool found = !query.IsEmpty();
  query.Close();
  return found;
}
