#include "toolkit/grid/grid_condition.h"

#include "base/data/my_query.h"
#include "base/data/value.h"
#include "base/date_text.h"
#include "base/exceptions.h"
#include "base/turkish_text.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const QString rangeMark = u".."_s;

bool isNumber(FieldType type) { return type == FieldType::Integer || type == FieldType::Double || type == FieldType::Decimal; }
bool isMoment(FieldType type) { return type == FieldType::Date || type == FieldType::DateTime || type == FieldType::Time; }
bool needsNoText(FilterOperator comparison) { return comparison == FilterOperator::Empty || comparison == FilterOperator::NotEmpty; }

/// Takes a comparison sign off the front of a text.
FilterOperator takenOff(QString& text, FilterOperator otherwise) {
  static const std::pair<QString, FilterOperator> signs[] = {
      {u">="_s, FilterOperator::GreaterOrEqual}, {u"<="_s, FilterOperator::LessOrEqual}, {u"<>"_s, FilterOperator::NotEqual},
      {u">"_s, FilterOperator::Greater},         {u"<"_s, FilterOperator::Less},         {u"="_s, FilterOperator::Equal}};
  for (const auto& [sign, comparison] : signs) {
    if (!text.startsWith(sign)) continue;
    text = text.mid(sign.size()).trimmed();
    return comparison;
  }
  return otherwise;
}

/// The text as a value of the column's own type. Throws EConvertError, also for what the column cannot hold.
Value typed(const FieldInfo& field, const QString& text) {
  if (text.isEmpty()) return text;
  try {
    const Cell cell = FieldCodec::encode(field, Value(text));
    if (field.type == FieldType::Text) return text;
    return cell ? FieldCodec::decode(field, *cell) : Value();
  } catch (const EUnstorableValue&) {
    throw EConvertError(u"\"%1\" bu sütunun bir değeri olamaz."_s.arg(text));
  }
}

FilterExpression onWholeDays(const FieldInfo& field, FilterOperator comparison, QDate first, QDate last) {
  const QDateTime begin(first, QTime(0, 0));
  const QDateTime end(last, QTime(23, 59, 59));
  switch (comparison) {
    case FilterOperator::Greater:
      return FilterExpression::condition(field.name, comparison, end);
    case FilterOperator::LessOrEqual:
      return FilterExpression::condition(field.name, comparison, end);
    case FilterOperator::Less:
    case FilterOperator::GreaterOrEqual:
      return FilterExpression::condition(field.name, comparison, begin);
    case FilterOperator::NotEqual:
      return FilterExpression::negated(FilterExpression::condition(field.name, FilterOperator::Between, begin, end));
    default:
      return FilterExpression::condition(field.name, FilterOperator::Between, begin, end);
  }
}

FilterExpression compared(const FieldInfo& field, FilterOperator comparison, const QString& lower, const QString& upper) {
  if (field.type == FieldType::DateTime) {
    const auto first = DateText::toDate(lower);
    const auto last = DateText::toDate(upper.isEmpty() ? lower : upper);
    if (first && last) return onWholeDays(field, comparison, *first, *last);
  }
  const Value value = typed(field, lower);
  if (comparison != FilterOperator::Between) return FilterExpression::condition(field.name, comparison, value);
  // An open end leaves that side unbounded.
  if (upper.isEmpty()) return FilterExpression::condition(field.name, FilterOperator::GreaterOrEqual, value);
  if (lower.isEmpty()) return FilterExpression::condition(field.name, FilterOperator::LessOrEqual, typed(field, upper));
  return FilterExpression::condition(field.name, comparison, value, typed(field, upper));
}

bool matches(const QString& shown, FilterOperator comparison, const QString& text) {
  const QString folded = TurkishText::fold(shown);
  const QString wanted = TurkishText::fold(text);
  switch (comparison) {
    case FilterOperator::StartsWith:
      return folded.startsWith(wanted);
    case FilterOperator::Equal:
      return folded == wanted;
    case FilterOperator::NotEqual:
      return folded != wanted;
    default:
      return folded.contains(wanted);
  }
}

/// The stored values of a column whose shown text fits.
FilterExpression onShownTexts(const TMyQuery& query, int field, const GridColumn& column, const GridCondition& condition) {
  std::vector<FilterExpression> equal;
  for (const Value& value : query.distinctValues(field))
    if (matches(column.shown(value), condition.comparison, condition.text))
      equal.push_back(FilterExpression::condition(column.field, FilterOperator::Equal, value));
  return FilterExpression::any(std::move(equal));
}

}  // namespace

bool GridCondition::isEmpty() const { return text.trimmed().isEmpty() && !needsNoText(comparison); }

FilterOperator GridConditions::usual(FieldType type) { return isNumber(type) ? FilterOperator::Equal : FilterOperator::Contains; }

std::vector<FilterOperator> GridConditions::offered(FieldType type) {
  using enum FilterOperator;
  if (isNumber(type) || isMoment(type))
    return {Contains, Equal, NotEqual, Greater, GreaterOrEqual, Less, LessOrEqual, Between, Empty, NotEmpty};
  return {Contains, StartsWith, Equal, NotEqual, Empty, NotEmpty};
}

QString GridConditions::caption(FilterOperator comparison) {
  switch (comparison) {
    case FilterOperator::Contains:
      return u"İçerir"_s;
    case FilterOperator::StartsWith:
      return u"İle başlar"_s;
    case FilterOperator::Equal:
      return u"Eşittir"_s;
    case FilterOperator::NotEqual:
      return u"Eşit değildir"_s;
    case FilterOperator::Greater:
      return u"Büyüktür"_s;
    case FilterOperator::GreaterOrEqual:
      return u"Büyük veya eşittir"_s;
    case FilterOperator::Less:
      return u"Küçüktür"_s;
    case FilterOperator::LessOrEqual:
      return u"Küçük veya eşittir"_s;
    case FilterOperator::Between:
      return u"Arasındadır (a..b)"_s;
    case FilterOperator::Empty:
      return u"Boştur"_s;
    default:
      return u"Boş değildir"_s;
  }
}

QString GridConditions::sign(FilterOperator comparison) {
  switch (comparison) {
    case FilterOperator::Contains:
      return u"∋"_s;
    case FilterOperator::StartsWith:
      return u"a…"_s;
    case FilterOperator::Equal:
      return u"="_s;
    case FilterOperator::NotEqual:
      return u"≠"_s;
    case FilterOperator::Greater:
      return u">"_s;
    case FilterOperator::GreaterOrEqual:
      return u"≥"_s;
    case FilterOperator::Less:
      return u"<"_s;
    case FilterOperator::LessOrEqual:
      return u"≤"_s;
    case FilterOperator::Between:
      return u"↔"_s;
    case FilterOperator::Empty:
      return u"∅"_s;
    default:
      return u"●"_s;
  }
}

std::vector<GridConditions::Period> GridConditions::periods(QDate today) {
  const auto range = [](QDate first, QDate last) { return DateText::date(first) + rangeMark + DateText::date(last); };
  const QDate monday = today.addDays(1 - today.dayOfWeek());
  const QDate first(today.year(), today.month(), 1);
  return {{u"Bugün"_s, DateText::date(today)},
          {u"Dün"_s, DateText::date(today.addDays(-1))},
          {u"Bu hafta"_s, range(monday, monday.addDays(6))},
          {u"Geçen hafta"_s, range(monday.addDays(-7), monday.addDays(-1))},
          {u"Bu ay"_s, range(first, first.addMonths(1).addDays(-1))},
          {u"Geçen ay"_s, range(first.addMonths(-1), first.addDays(-1))},
          {u"Bu yıl"_s, range(QDate(today.year(), 1, 1), QDate(today.year(), 12, 31))}};
}

std::optional<FilterExpression> GridConditions::expression(const TMyQuery& query, const GridColumn& column, const GridCondition& condition) {
  if (condition.isEmpty()) return std::nullopt;
  const int index = query.fieldIndex(column.field);
  if (index < 0) throw EDatabaseError(u"Field '%1' not found"_s.arg(column.field));
  const FieldInfo& field = query.fieldInfo(index);
  if (needsNoText(condition.comparison)) return FilterExpression::condition(field.name, condition.comparison);
  if (column.showsOtherTexts()) return onShownTexts(query, index, column, condition);

  QString text = condition.text.trimmed();
  FilterOperator comparison = condition.comparison;
  if (isNumber(field.type) || isMoment(field.type)) {
    comparison = takenOff(text, comparison);
    if (text.isEmpty()) return std::nullopt;  // a sign is typed before its number
    if (const qsizetype mark = text.indexOf(rangeMark); mark >= 0) {
      const QString lower = text.left(mark).trimmed();
      const QString upper = text.mid(mark + rangeMark.size()).trimmed();
      if (lower.isEmpty() && upper.isEmpty()) return std::nullopt;
      return compared(field, FilterOperator::Between, lower, upper);
    }
    if (comparison == FilterOperator::Between) comparison = FilterOperator::Equal;
  }
  if (comparison == FilterOperator::Contains || comparison == FilterOperator::StartsWith)
    return FilterExpression::condition(field.name, comparison, text);
  return compared(field, comparison, text, {});
}
