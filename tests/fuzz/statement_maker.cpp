#include "tests/fuzz/statement_maker.h"

using namespace Qt::StringLiterals;

namespace {

/// Separates the pieces of a text that is built in one string; no statement has it.
constexpr QChar cut(0xE000);

QString joined(const QStringList& pieces) { return pieces.join(cut); }

}  // namespace

MadeStatement StatementMaker::statement() {
  made_ = {};
  query(3);
  if (once(3)) add(u";"_s);
  for (const QString& piece : made_.pieces[MadeStatement::Plain]) {
    made_.text += piece + separator();
    if (piece.startsWith(u':')) made_.parameters.append(piece.mid(1));
  }
  return made_;
}

QString StatementMaker::damaged(QString text) {
  static constexpr std::array snippets = {u"'", u"\"", u"`", u"\\", u"--", u"-- ", u"#", u"/*", u"*/", u"/*!", u"\n", u"(", u")", u";", u":",
                                          u":A", u"&", u"&B", u":=", u"&&", u"@", u".", u" where ", u" order by ", u" union ", u" limit ", u"İş",
                                          u" all ", u" from ", u" for ", u" index for order by ", u" group by ", u" select ", u" into ", u"\u00A0"};
  for (size_t edits = 1 + below(4); edits > 0; --edits) {
    const auto place = qsizetype(below(size_t(text.size()) + 1));
    const auto length = qsizetype(below(12));
    switch (below(4)) {
      case 0: text.remove(place, length); break;
      case 1: text.insert(place, text.mid(qsizetype(below(size_t(text.size()) + 1)), length)); break;
      case 2: text.truncate(once(4) ? place : text.size()); break;
      default: text.insert(place, oneOf(snippets));
    }
  }
  return text;
}

void StatementMaker::add(const QString& pieces) {
  for (QStringList& variant : made_.pieces) variant += pieces.split(cut);
}

void StatementMaker::addTo(std::initializer_list<MadeStatement::Variant> variants, const QString& pieces) {
  for (const auto variant : variants) made_.pieces[variant] += pieces.split(cut);
}

QString StatementMaker::separator() {
  static constexpr std::array separators = {u" ", u"\n", u"\t", u"/* where ' :no */", u" -- union \" :no\n", u"#order by ` &NO\n", u"/*! limit */",
                                            u"/**/", u" /*/ ; ) */ ", u"\r\n", u"--\n"};
  return once(3) ? oneOf(separators) : u" "_s;
}

QString StatementMaker::literal() {
  static constexpr std::array contents = {u"where", u" union ", u":no", u"&NO", u"--", u"#", u"/*", u"*/", u"(", u")", u";", u"\\\\", u"\\'", u"\\\"",
                                          u"DIŞ SERVİSTE", u"İADE: EDİLDİ", u"''", u"\"\"", u"\\n", u"order by 1", u"", u" "};
  const QChar quote = once(2) ? u'\'' : u'"';
  QString text;
  for (size_t count = below(4); count > 0; --count) text += oneOf(contents);
  // The other kind of quote needs no escape; the own kind is there doubled or escaped only.
  return quote + text + quote;
}

QString StatementMaker::expression(int depth) {
  static constexpr std::array simple = {u"a",  u"TS_NO", u"`where`", u"`a``b`",  u"12",    u"1.5",   u"x'41'",        u"@limit",    u"t.order",
                                        u"NULL", u":ID",   u":Old_ŞUBE", u"&KOSUL", u"h.`R`", u"count(*)", u"@`from`", u"LAST_INSERT_ID()"};
  const auto sub = [this, depth] { return expression(depth - 1); };
  switch (depth <= 0 ? below(3) : below(10)) {
    case 0: return literal();
    case 1:
    case 2: return oneOf(simple);
    case 3: return joined({sub(), oneOf(std::array{u"and", u"or", u"=", u"-", u"&&", u"mod"}), sub()});
    case 4: return joined({u"("_s, sub(), u")"_s});
    case 5: return joined({u"CASE"_s, u"WHEN"_s, sub(), u"THEN"_s, sub(), u"ELSE"_s, sub(), u"END"_s});
    case 6: return joined({u"SUBSTRING("_s, sub(), u"FROM"_s, u"2"_s, u"FOR"_s, u":N"_s, u")"_s});
    case 7: return joined({u"exists"_s, u"("_s, subquery(depth - 1), u")"_s});
    case 8: return joined({u"a"_s, u"in"_s, u"("_s, sub(), u","_s, sub(), u")"_s});
    default: return joined({u"group_concat("_s, sub(), u"order"_s, u"by"_s, u"a"_s, u")"_s});
  }
}

QString StatementMaker::subquery(int depth) {
  QStringList pieces = {u"select"_s, expression(depth), u"from"_s, u"u"_s};
  if (once(2)) pieces += {u"where"_s, expression(depth)};
  if (once(4)) pieces += {u"union"_s, u"select"_s, u"1"_s, u"from"_s, u"v"_s, u"where"_s, u"b"_s};
  if (once(3)) pieces += {u"order"_s, u"by"_s, u"1"_s, u"limit"_s, u"1"_s};
  return joined(pieces);
}

void StatementMaker::select(int depth) {
  using enum MadeStatement::Variant;
  add(u"select"_s);
  if (once(4)) add(u"distinct"_s);
  add(once(4) ? u"*"_s : expression(depth));
  if (once(3)) add(joined({u","_s, expression(depth), u"as"_s, u"`order`"_s}));
  add(joined({u"from"_s, u"t"_s}));
  if (once(4)) add(joined({oneOf(std::array{u"use", u"ignore", u"force"}), oneOf(std::array{u"index", u"KEY"}), u"for"_s}));
  if (made_.pieces[Plain].back() == u"for"_s) {
    add(once(2) ? u"join"_s : joined({once(2) ? u"ORDER"_s : u"group"_s, u"by"_s}));
    add(joined({u"("_s, u"i"_s, u")"_s}));
  }
  if (once(3)) add(joined({u"left"_s, u"join"_s, u"c"_s, u"on"_s, u"("_s, expression(depth), u")"_s}));
  const QString added = QString::fromUtf16(condition).replace(u' ', cut);
  if (once(2)) {
    const QString body = expression(depth);
    addTo({Plain, Unordered, Ordered}, joined({u"WHERE"_s, body}));
    addTo({Conditioned}, joined({u"WHERE"_s, u"("_s, body, u")"_s, u"and"_s, u"("_s, added, u")"_s}));
  } else {
    addTo({Conditioned}, joined({u"where"_s, u"("_s, added, u")"_s}));
  }
  if (once(4)) add(joined({u"group"_s, u"by"_s, expression(depth), u"with"_s, u"rollup"_s}));
  if (once(4)) add(joined({u"having"_s, expression(depth)}));
}

/// One branch: a SELECT, or parentheses around a statement whose own order stays as it is.
void StatementMaker::part(int depth, bool alone) {
  if (depth <= 0 || (alone ? !once(8) : once(2))) {
    select(depth);
    return;
  }
  add(u"("_s);
  part(depth - 1, true);
  if (once(3)) add(joined({u"order"_s, u"by"_s, u"1"_s, u"limit"_s, u"3"_s}));
  add(u")"_s);
}

void StatementMaker::query(int depth) {
  using enum MadeStatement::Variant;
  const size_t parts = once(2) ? 1 : 1 + below(3);
  for (size_t i = 0; i < parts; ++i) {
    if (i > 0) add(oneOf(std::array{u"union", u"UNION", u"except", u"intersect"}));
    if (i > 0 && once(2)) add(once(2) ? u"all"_s : u"distinct"_s);
    part(depth, parts == 1);
  }
  if (once(2)) addTo({Plain, Conditioned, Unconditioned}, joined({u"ORDER"_s, u"BY"_s, u"t.limit"_s, u","_s, expression(1)}));
  addTo({Ordered}, joined({u"order"_s, u"by"_s, QString::fromUtf16(order).replace(u' ', cut)}));
  if (once(3)) add(joined({u"limit"_s, u"5"_s, u"offset"_s, u":N"_s}));
  if (once(4)) add(once(2) ? joined({u"for"_s, u"update"_s}) : joined({u"lock"_s, u"in"_s, u"share"_s, u"mode"_s}));
}
