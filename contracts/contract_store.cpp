#include "contracts/contract_store.h"

#include "base/data/my_query.h"
#include "base/data/value.h"
#include "contracts/contract_rules.h"

using namespace Qt::StringLiterals;

void ContractStore::setUpContracts(TMyQuery& qSozlesme) {
  qSozlesme.SQL.Clear();
  qSozlesme.SQL.Add(u"select * from sozlesme"_s);
  qSozlesme.SQL.Add(u"ORDER BY SOZ_BAS_TARIH"_s);
  qSozlesme.SQLDelete.setText(u"DELETE FROM sozlesme WHERE SOZ_ID = :Old_SOZ_ID"_s);
  qSozlesme.Options.SetEmptyStrToNull = true;
  qSozlesme.OnNewRecord = [&qSozlesme] {
    qSozlesme.FieldByName(u"SOZ_STATU"_s).set(ContractRules::active);
    qSozlesme.FieldByName(u"SOZ_HATIRLA_DONEM"_s).set(ContractRules::firstPeriodCode);
  };
}

void ContractStore::setUpCustomers(TMyQuery& qCari) {
  qCari.SQL.setText(u"select * from cari order by CA_AD"_s);
  qCari.Options.CheckRowVersion = true;
}

void ContractStore::setUpScratch(TMyQuery& qDetay) { qDetay.Options.SetEmptyStrToNull = true; }

QString ContractStore::largestNumber(TMyQuery& qDetay, const QString& typed) {
  qDetay.SQL.setText(u"select MAX(SOZ_NO+0) as SON from sozlesme"_s);
  if (!typed.trimmed().isEmpty()) {
    qDetay.AddWhere(u"SOZ_NO like :NO"_s);
    qDetay.ParamByName(u"NO"_s) = Value(typed + u'%');
  }
  qDetay.Open();
  const QString largest = qDetay.FieldByName(u"SON"_s).asText();
  qDetay.Close();
  return largest;
}
