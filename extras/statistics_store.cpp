#include "extras/statistics_store.h"

#include "base/data/my_query.h"
#include "base/data/value.h"

using namespace Qt::StringLiterals;

namespace {

const QString customerStatement =
    uR"(select count(TS_ID), "OLUMSUZ İŞLEM" as OLUMSUZ from teknikservis where  YEAR(TS_TARIH) = :YIL and TS_MUSTERI = :MUSTERI and TS_TURU in ("İŞLEM YAPILMADI", "İADE EDİLDİ") union all )"
    uR"(select count(TS_ID), "OLUMLU İŞLEM" as OLUMLU from teknikservis where YEAR(TS_TARIH) = :YIL and TS_MUSTERI = :MUSTERI and TS_TURU in ("TAMAMLANDI", "FATURALANDI", "TESLİM EDİLDİ") union all )"
    uR"(select count(TS_ID), "SERVİSDE OLAN" as SERVIS from teknikservis where YEAR(TS_TARIH) = :YIL and TS_MUSTERI = :MUSTERI and TS_TURU not in ("TAMAMLANDI", "FATURALANDI", "TESLİM EDİLDİ", "İŞLEM YAPILMADI", "İADE EDİLDİ") union all )"
    uR"(select count(TS_ID), "TOPLAM İŞLEM" as TOPLAM from teknikservis where YEAR(TS_TARIH) = :YIL and TS_MUSTERI = :MUSTERI)"_s;

/// Its last select goes by the customer, whom nobody names: meant.
const QString serialStatement =
    uR"(select count(TS_ID), "OLUMSUZ İŞLEM" as OLUMSUZ from teknikservis where  YEAR(TS_TARIH) = :YIL and TS_C_SERINO = :SERINO and TS_TURU in ("İŞLEM YAPILMADI", "İADE EDİLDİ") union all )"
    uR"(select count(TS_ID), "OLUMLU İŞLEM" as OLUMLU from teknikservis where YEAR(TS_TARIH) = :YIL and TS_C_SERINO = :SERINO and TS_TURU in ("TAMAMLANDI", "FATURALANDI", "TESLİM EDİLDİ") union all )"
    uR"(select count(TS_ID), "SERVİSDE OLAN" as SERVIS from teknikservis where YEAR(TS_TARIH) = :YIL and TS_C_SERINO = :SERINO and TS_TURU not in ("TAMAMLANDI", "FATURALANDI", "TESLİM EDİLDİ", "İŞLEM YAPILMADI", "İADE EDİLDİ")union all )"
    uR"(select count(TS_ID), "TOPLAM İŞLEM" as TOPLAM from teknikservis where YEAR(TS_TARIH) = :YIL and TS_MUSTERI = :MUSTERI)"_s;

void setStatement(TMyQuery& qSeri, const QString& statement, const QString& year) {
  qSeri.Close();
  qSeri.SQL.setText(statement);
  qSeri.ParamByName(u"YIL"_s) = year;
}

}  // namespace

void StatisticsStore::openCustomer(TMyQuery& qSeri, const QString& customer, const QString& year) {
  setStatement(qSeri, customerStatement, year);
  qSeri.ParamByName(u"MUSTERI"_s) = customer;
  qSeri.Open();
}

void StatisticsStore::openSerial(TMyQuery& qSeri, const QString& serial, const QString& year) {
  setStatement(qSeri, serialStatement, year);
  qSeri.ParamByName(u"SERINO"_s) = serial;
  qSeri.ParamByName(u"MUSTERI"_s) = Value();  // a query keeps what it was given for its statement before
  qSeri.Open();
}

void StatisticsStore::openSerialAnew(TMyQuery& qSeri, const QString& serial, const QString& year) {
  setStatement(qSeri, customerStatement, year);
  qSeri.ParamByName(u"SERINO"_s) = serial;
  qSeri.Open();
}

qint64 StatisticsStore::countOf(const TMyQuery& qSeri, Row row) { return qSeri.valueAt(row, 0).toInteger(); }

QString StatisticsStore::labelOf(const TMyQuery& qSeri, Row row) { return qSeri.valueAt(row, 1).toText(); }
