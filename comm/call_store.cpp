#include "comm/call_store.h"

#include "base/data/my_query.h"
#include "base/data/value.h"

using namespace Qt::StringLiterals;

namespace {

/// Calls with each customer one of whose numbers, in that column, is the caller's.
QString owners(const QString& column, const QString& condition) {
  return u"SELECT C.CID_NO AS ARAMA, K.CA_ID AS SAHIP FROM CALLERID C JOIN CARI K ON K.%1 = C.CID_TELEFON%2"_s.arg(column, condition);
}

}  // namespace

// Gives the rows of
//   SELECT  * FROM CALLERID
//     LEFT JOIN CARI on (CARI.CA_TEL = CALLERID.CID_TELEFON) or (CARI.CA_TEL2 = CALLERID.CID_TELEFON) or
//       (CARI.CA_CEP = CALLERID.CID_TELEFON)
//   ORDER BY CALLERID.CID_TARIH DESC, CALLERID.CID_SAAT DESC
// for which the server reads all customers once for each call: it uses no index under an outer join with "or". Each of the three
// joins here has its index, so that a day's calls take the same time with any number of customers.
void CallStore::setListStatement(TMyQuery& query, std::optional<QDate> day) {
  const QString ofDay = day ? u" WHERE C.CID_TARIH = :GUN"_s : QString();
  query.SQL.Clear();
  query.SQL.Add(u"SELECT CALLERID.*, CARI.* FROM CALLERID"_s);
  query.SQL.Add(u"LEFT JOIN ("_s + owners(u"CA_TEL"_s, ofDay));
  query.SQL.Add(u"  UNION "_s + owners(u"CA_TEL2"_s, ofDay));
  query.SQL.Add(u"  UNION "_s + owners(u"CA_CEP"_s, ofDay) + u") SAHIPLER ON SAHIPLER.ARAMA = CALLERID.CID_NO"_s);
  query.SQL.Add(u"LEFT JOIN CARI ON CARI.CA_ID = SAHIPLER.SAHIP"_s);
  if (day) query.SQL.Add(u"WHERE CALLERID.CID_TARIH = :GUN"_s);
  query.SQL.Add(u"ORDER BY CALLERID.CID_TARIH DESC, CALLERID.CID_SAAT DESC"_s);
  if (day) query.ParamByName(u"GUN"_s) = Value(*day);
}
