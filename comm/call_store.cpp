#include "comm/call_store.h"

#include "base/data/my_query.h"

using namespace Qt::StringLiterals;

void CallStore::setListStatement(TMyQuery& query) {
  query.SQL.Clear();
  query.SQL.Add(u"SELECT  * FROM CALLERID"_s);
  query.SQL.Add(
      u"  LEFT JOIN CARI on (CARI.CA_TEL = CALLERID.CID_TELEFON) or (CARI.CA_TEL2 = CALLERID.CID_TELEFON) or (CARI.CA_CEP = "
      "CALLERID.CID_TELEFON)"_s);
  query.SQL.Add(u"ORDER BY CALLERID.CID_TARIH DESC, CALLERID.CID_SAAT DESC"_s);
}
