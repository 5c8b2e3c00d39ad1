#include "bench/soak/ledger.h"

#include "base/data/my_query.h"
#include "base/data/value.h"

#include <algorithm>
#include <map>

using namespace Qt::StringLiterals;

struct Ledger::Stored {
  QString number;
  QString token;    ///< in the slip's row
  QString note;
  QString picture;  ///< fingerprint; empty for an empty picture
  qint64 noteRows = 0;
  qint64 pictureRows = 0;
  QStringList parts;
};

void Ledger::hear(int station, const QStringList& words) {
  const qint64 time = words.value(1).toLongLong();
  if (words[0] == u"begins"_s && words.size() == 7) {
    open_[station] = attempts_.size();
    attempts_.push_back({words[2], words[3], words[4], words[5].toInt(), words[6], time, {}, false, false});
    return;
  }
  const auto open = open_.find(station);
  if (open == open_.end() || (words[0] != u"saved"_s && words[0] != u"refused"_s && words[0] != u"unknown"_s)) return;
  Attempt& attempt = attempts_[*open];
  attempt.ended = time;
  attempt.isSaved = words[0] == u"saved"_s;
  attempt.isUnknown = words[0] == u"unknown"_s;
  open_.erase(open);
}

void Ledger::gone(int station) {
  const auto open = open_.find(station);
  if (open == open_.end()) return;
  attempts_[*open].isUnknown = true;
  open_.erase(open);
}

Ledger::Count Ledger::count(TMyConnection& connection) const {
  std::map<QString, std::vector<const Attempt*>> attempts;
  Count count;
  for (const Attempt& attempt : attempts_) {
    attempts[attempt.serial].push_back(&attempt);
    count.unknown += attempt.isUnknown;
  }

  std::map<QString, std::vector<Stored>> slips;
  std::map<qint64, std::pair<QString, size_t>> places;
  TMyQuery query(connection, u"qLedger"_s);
  query.SQL.setText(
      u"select TS_ID, TS_NO, TS_C_SERINO, TS_ACIKLAMA, (select max(SF_NOT) from notlar where SF_TS_ID = TS_ID), "
      u"(select max(if(coalesce(FT_RESIM, '') = '', '', sha1(FT_RESIM))) from foto where FT_TS_ID = TS_ID), "
      u"(select count(*) from notlar where SF_TS_ID = TS_ID), (select count(*) from foto where FT_TS_ID = TS_ID) "
      u"from teknikservis where TS_C_SERINO like 'SK%'"_s);
  query.Open();
  for (int row = 0; row < query.RecordCount(); ++row) {
    const auto text = [&](int column) { return query.valueAt(row, column).toText(); };
    std::vector<Stored>& same = slips[text(2)];
    places[query.valueAt(row, 0).toInteger()] = {text(2), same.size()};
    same.push_back({text(1), text(3), text(4), text(5), query.valueAt(row, 6).toInteger(), query.valueAt(row, 7).toInteger(), {}});
  }
  query.SQL.setText(u"select TS_NO_REF, MZ_PARCA_ADI from malzeme"_s);
  query.Open();
  for (int row = 0; row < query.RecordCount(); ++row) {
    const auto place = places.find(query.valueAt(row, 0).toInteger());
    if (place != places.end()) slips[place->second.first][place->second.second].parts += query.valueAt(row, 1).toText();
  }
  for (const QString& table : {u"malzeme where TS_NO_REF"_s, u"foto where FT_TS_ID"_s, u"notlar where SF_TS_ID"_s}) {
    query.SQL.setText(u"select count(*) from %1 not in (select TS_ID from teknikservis)"_s.arg(table));
    query.Open();
    if (const qint64 rows = query.valueAt(0, 0).toInteger(); rows > 0) count.half += u"%1 rows of no slip: %2"_s.arg(rows).arg(table);
  }

  for (const auto& [serial, all] : attempts) compare(serial, all, slips[serial], count);
  for (const auto& [serial, stored] : slips)
    if (!attempts.contains(serial)) count.twice += serial + u": nobody wrote it"_s;
  return count;
}

/// One slip: what was said of it, and what is stored under its serial number.
void Ledger::compare(const QString& serial, const std::vector<const Attempt*>& attempts, const std::vector<Stored>& slips, Count& count) {
  const auto any = [&](const QString& kind, auto holds) {
    return std::any_of(attempts.begin(), attempts.end(), [&](const Attempt* each) { return each->kind == kind && holds(*each); });
  };
  const auto isSaved = [](const Attempt& each) { return each.isSaved; };
  const auto mayBeSaved = [](const Attempt& each) { return each.isSaved || each.isUnknown; };

  if (slips.size() > 1) count.twice += serial;
  if (any(u"delete"_s, isSaved)) {
    if (!slips.empty()) count.half += serial + u": deleted, and there"_s;
    return;
  }
  // What deletes a slip writes three times, without a transaction: a cut in between leaves any part of it.
  if (any(u"delete"_s, mayBeSaved)) return;
  const bool isNew = any(u"new"_s, isSaved);
  if (slips.empty()) {
    if (isNew) count.missing += serial;
    return;
  }
  if (!any(u"new"_s, mayBeSaved)) count.twice += serial + u": refused, and there"_s;
  count.saved += isNew;

  const Stored& slip = slips.front();
  if (slip.noteRows != 1 || slip.pictureRows != 1) count.half += serial + u": rows of note or picture"_s;
  if (slip.note != slip.token) count.half += u"%1: %2 with the note of %3"_s.arg(serial, slip.token, slip.note);
  if (slip.picture != attempts.front()->picture) count.half += serial + u": another picture"_s;

  // The last save wins: none that was said to be written began after the one that is there had ended.
  const auto last = std::find_if(attempts.begin(), attempts.end(), [&](const Attempt* each) { return each->token == slip.token && mayBeSaved(*each); });
  if (last == attempts.end())
    count.twice += u"%1: nobody wrote %2"_s.arg(serial, slip.token);
  else if ((*last)->ended && any(u"change"_s, [&](const Attempt& each) { return each.isSaved && each.began > *(*last)->ended; }))
    count.missing += u"%1: a change behind %2"_s.arg(serial, slip.token);

  QStringList parts = slip.parts;
  parts.sort();
  const auto again = std::adjacent_find(parts.begin(), parts.end());
  if (again != parts.end()) count.twice += u"%1: part %2"_s.arg(serial, *again);
  std::map<QString, const Attempt*> byToken;
  for (const Attempt* attempt : attempts)
    if (mayBeSaved(*attempt)) byToken[attempt->token] = attempt;
  for (const auto& [token, attempt] : byToken) {
    const auto stored = std::count_if(parts.begin(), parts.end(), [&](const QString& part) { return part.startsWith(token + u'/'); });
    if (stored != attempt->parts && !(attempt->isUnknown && stored == 0)) count.half += u"%1: %2 parts of %3"_s.arg(serial).arg(stored).arg(token);
  }
}
