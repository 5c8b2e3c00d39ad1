#include "service/outside_service_store.h"

#include "base/data/my_query.h"
#include "base/data/value.h"

using namespace Qt::StringLiterals;

OutsideServiceStore::OutsideServiceStore(TMyQuery& qServis) : qServis_(qServis) {
  qServis_.SQL.setText(u"select * from disServis order by DS_AD"_s);
}

void OutsideServiceStore::open() { qServis_.Open(); }

qint64 OutsideServiceStore::findFirm(const QString& name) const {
  if (name.isEmpty()) return noFirm;
  const int field = qServis_.fieldIndex(u"DS_AD"_s);
  for (int row = 0; row < qServis_.RecordCount(); ++row)
    if (qServis_.valueAt(row, field).toText() == name) return firmAt(row);
  return noFirm;
}

qint64 OutsideServiceStore::firmAt(int row) const { return qServis_.valueAt(row, qServis_.fieldIndex(u"DS_ID"_s)).toInteger(); }

void OutsideServiceStore::addFirm(const QString& name) {
  qServis_.Insert();
  postName(name);
}

void OutsideServiceStore::renameFirm(qint64 firm, const QString& name) {
  for (int row = 0; row < qServis_.RecordCount(); ++row) {
    if (firmAt(row) != firm) continue;
    qServis_.setRecNo(row);
    qServis_.Edit();
    postName(name);
    return;
  }
}

void OutsideServiceStore::postName(const QString& name) {
  try {
    qServis_.FieldByName(u"DS_AD"_s).set(name);
    qServis_.Post();
  } catch (...) {
    qServis_.Cancel();
    throw;
  }
}
