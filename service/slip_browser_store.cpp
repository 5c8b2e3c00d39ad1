#include "service/slip_browser_store.h"

#include "app/data/my_query.h"

using namespace Qt::StringLiterals;

namespace {

/// Text as a LIKE pattern in which its own wildcards stand for themselves.
QString patternOf(QString text) {
  text.replace(u'\\', u"\\\\"_s).replace(u'%', u"\\%"_s).replace(u'_', u"\\_"_s);
  return u'%' + text + u'%';
}

}  // namespace

void SlipBrowserStore::open(TMyQuery& query, const QString& search) {
  const QString words = search.trimmed();
  query.Close();
  query.SQL.Clear();
  query.SQL.Add(u"select * from teknikservis"_s);
  if (!words.isEmpty())
    query.SQL.Add(
        u"where TS_NO like :ARA or TS_MUSTERI like :ARA or TS_YETKILI like :ARA or TS_C_AD like :ARA or TS_C_SERINO like :ARA "
        u"or TS_C_RAFNO like :ARA"_s);
  query.SQL.Add(u"order by TS_ID desc limit %1"_s.arg(mostRows));
  if (!words.isEmpty()) query.ParamByName(u"ARA"_s) = patternOf(words);
  query.Open();
}
