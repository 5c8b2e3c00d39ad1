#include "reminders/reminder_store.h"

#include "base/data/my_query.h"
#include "base/data/value.h"
#include "base/text_tools.h"

using namespace Qt::StringLiterals;

namespace {

const QString promisedDay = u"DATE_ADD(TS_DISSERVIS_CIKIS, INTERVAL TS_DISSERVIS_TESLIM_SURE DAY)"_s;

/// "YYYY-MM-DD"; an empty box gives the empty text, which no date equals.
QString statementDate(const QString& date) { return date.trimmed().isEmpty() ? QString() : TextTools::TarihRotate(date); }

struct Cycle {
  int code;
  int days;
};

/// In the order in which the statement asks; the yearly one last: meant, though no result depends on it.
constexpr Cycle cycles[] = {{5, 7},    {7, 30},   {11, 60},  {13, 90},  {15, 120}, {17, 150}, {19, 180},
                            {21, 210}, {23, 240}, {25, 270}, {27, 300}, {29, 330}, {9, 365}};

/// "mod" is 0 on every day that lies whole cycles before or behind the first reminder: nothing holds it to the days after: meant.
QString daysFromCycle(const Cycle& cycle) {
  return u"IF (SOZ_HATIRLA_DONEM = %1, DATEDIFF(DATE_ADD(:S_TARIH, INTERVAL %2 DAY),SOZ_HATIRLA_TARIH) mod %2,"_s.arg(cycle.code)
      .arg(cycle.days);
}

}  // namespace

void ReminderStore::openSlipsOfDay(TMyQuery& qServis, const QString& date) {
  qServis.Close();
  qServis.SQL.setText(u"select * from teknikservis"_s);
  qServis.AddWhere(u"TS_HATIRLATMA_TARIH = :TARIH"_s);
  qServis.ParamByName(u"TARIH"_s) = statementDate(date);
  qServis.Open();
}

void ReminderStore::openDueContracts(TMyQuery& qBakim, const QString& date) {
  const QString day = statementDate(date);
  qBakim.Close();
  qBakim.SQL.Clear();
  qBakim.SQL.Add(u"select *, &QTARIH as HTARIH,"_s);
  qBakim.SQL.Add(u"IF (SOZ_HATIRLA_DONEM = 1, DATEDIFF(:S_TARIH, SOZ_HATIRLA_TARIH),"
                 u"IF (SOZ_HATIRLA_DONEM = 3, DATEDIFF(DATE_ADD(:S_TARIH, INTERVAL 1 DAY),SOZ_HATIRLA_TARIH) mod 1,"_s);
  QString parentheses = u"))"_s;
  for (const Cycle& cycle : cycles) {
    parentheses += u')';
    const bool isLast = &cycle == std::end(cycles) - 1;
    // A code without a cycle gives the date itself, which is not 0.
    qBakim.SQL.Add(daysFromCycle(cycle) + (isLast ? u" SOZ_HATIRLA_TARIH"_s + parentheses + u" as DONEM_TARIH"_s : QString()));
  }
  qBakim.SQL.Add(u"from sozlesme h"_s);
  qBakim.SQL.Add(u"LEFT OUTER JOIN cari b ON (h.`SOZ_CA_ID_REF` = b.CA_ID)"_s);
  qBakim.SQL.Add(u"WHERE :S_TARIH BETWEEN SOZ_BAS_TARIH AND SOZ_BIT_TARIH"_s);
  qBakim.SQL.Add(u"AND SOZ_STATU = \"AKTİF\""_s);
  qBakim.SQL.Add(u"having DONEM_TARIH = 0"_s);
  qBakim.SetOrderBy(u"SOZ_HATIRLA_SAAT, SOZ_MESAFE"_s);
  qBakim.ParamByName(u"S_TARIH"_s) = day;
  qBakim.MacroByName(u"QTARIH"_s) = u'\'' + day + u'\'';
  qBakim.Open();
}

void ReminderStore::openOverdueSlips(TMyQuery& qServis) {
  qServis.Close();
  qServis.SQL.Clear();
  qServis.SQL.Add(u"select *, "_s + promisedDay + u" SON_TESLIM_TARIH,"_s);
  qServis.SQL.Add(u"DATEDIFF (CURDATE(),"_s + promisedDay + u") GECIKME_GUN from teknikservis"_s);
  for (const QString& condition : {u"TS_TURU = \"DIŞ SERVİSTE\""_s, u"TS_DISSERVIS_TESLIM_SURE <> 0"_s,
                                   u"TS_DISSERVIS_GIRIS = \"0000-00-00\""_s, promisedDay + u" < CURDATE()"_s})
    qServis.AddWhere(condition);
  qServis.SetOrderBy(promisedDay);
  qServis.Open();
}
