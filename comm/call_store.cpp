#include "comm/call_store.h"

#include "base/data/my_query.h"

using namespace Qt::StringLiterals;

// Gives the rows of
//   SELECT  * FROM CALLERID
//     LEFT JOIN CARI on (CARI.CA_TEL = CALLERID.CID_TELEFON) or (CARI.CA_TEL2 = CALLERID.CID_TELEFON) or
//       (CARI.CA_CEP = CALLERID.CID_TELEFON)
//   ORDER BY CALLERID.CID_TARIH DESC, CALLERID.CID_SAAT DESC
// for which the server reads all customers once for each call: it uses no index under an outer join with "or".
void CallStore::setListStatement(TMyQuery& query, std::optional<QDate> day) {
  query.SQL.Clear();
  query.SQL.Add(u"SELECT CALLERID.*, CARI.* FROM CALLERID"_s);
  query.SQL.Add(u"LEFT JOIN (SELECT CA_TEL AS NUMARA, CA_ID AS SAHIP FROM CARI UNION SELECT CA_TEL2, CA_ID FROM CARI"_s);
  query.SQL.Add(u"  UNION SELECT CA_CEP, CA_ID FROM CARI) NUMARALAR ON NUMARALAR.NUMARA = CALLERID.CID_TELEFON"_s);
  query.SQL.Add(u"LEFT JOIN CARI ON CARI.CA_ID = NUMARALAR.SAHIP"_s);
  if (day) query.SQL.Add(u"WHERE CALLERID.CID_TARIH = :GUN"_s);
  query.SQL.Add(u"ORDER BY CALLERID.CID_TARIH DESC, CALLERID.CID_SAAT DESC"_s);
  if (day) query.ParamByName(u"GUN"_s) = Value(*day);
}
