#include "base/data/filter_expression.h"

#include "base/data/field_codec.h"
#include "base/data/latin5.h"
#include "base/data/value.h"
#include "base/exceptions.h"
#include "base/turkish_text.h"

#include <algorithm>
#include <array>
#include <compare>
#include <cstring>

using namespace Qt::StringLiterals;

namespace {

using Row = FilterExpression::CellReader;
using Test = FilterExpression::RowTest;

/// Each latin5 byte's small letter by the Turkish rules, so that folding needs no decoding.
const std::array<char, 256>& foldTable() {
  static const auto table = [] {
    std::array<char, 256> made{};
    for (unsigned byte = 0; byte < 256; ++byte) {
      const char raw = char(byte);
      const QString folded = TurkishText::fold(Latin5::decode(QByteArrayView(&raw, 1)));
      made[byte] = Latin5::firstUnstorable(folded) ? raw : Latin5::encode(folded, QString())[0];
    }
    return made;
  }();
  return table;
}

QByteArray foldedBytes(QByteArrayView bytes) {
  const auto& fold = foldTable();
  QByteArray result(bytes.size(), Qt::Uninitialized);
  std::transform(bytes.begin(), bytes.end(), result.begin(), [&](char byte) { return fold[uchar(byte)]; });
  return result;
}

bool beginsWith(const char* text, const QByteArray& folded) {
  const auto& fold = foldTable();
  for (qsizetype i = 0; i < folded.size(); ++i)
    if (fold[uchar(text[i])] != folded[i]) return false;
  return true;
}

bool holds(QByteArrayView text, const QByteArray& folded) {
  const char* last = text.end() - folded.size();
  for (const char* place = text.begin(); place <= last; ++place)
    if (beginsWith(place, folded)) return true;
  return false;
}

/// The words in which a cell is searched by "contains" and "starts with": as the screen shows it.
QByteArray shownBytes(const FieldInfo& field, QByteArrayView cell) {
  if (field.type == FieldType::Text) return cell.toByteArray();
  return Latin5::encode(FieldCodec::decode(field, cell).toText(), field.name);
}

std::strong_ordering ordered(int difference) { return difference <=> 0; }

/// Compares a cell with a value given in the column's own bytes.
std::partial_ordering compared(const FieldInfo& field, QByteArrayView cell, const QByteArray& other) {
  switch (field.type) {
    case FieldType::Integer:
      return cell.toLongLong() <=> other.toLongLong();
    case FieldType::Double:
    case FieldType::Decimal:
      return cell.toDouble() <=> other.toDouble();
    case FieldType::Text:
      return ordered(foldedBytes(cell).compare(foldedBytes(other)));
    default:
      return ordered(cell.compare(other));
  }
}

bool isEmptyCell(const FieldInfo& field, const std::optional<QByteArrayView>& cell) {
  return !cell || cell->isEmpty() || FieldCodec::decode(field, *cell).toText().isEmpty();
}

bool accepts(FilterOperator comparison, std::partial_ordering order) {
  switch (comparison) {
    case FilterOperator::Equal:
      return order == 0;
    case FilterOperator::NotEqual:
      return order != 0;
    case FilterOperator::Greater:
      return order > 0;
    case FilterOperator::GreaterOrEqual:
      return order >= 0;
    case FilterOperator::Less:
      return order < 0;
    default:
      return order <= 0;
  }
}

Test emptyTest(int index, const FieldInfo& field, bool wanted) {
  return [=](const Row& row) { return isEmptyCell(field, row(index)) == wanted; };
}

Test textTest(int index, const FieldInfo& field, FilterOperator comparison, const QString& text) {
  // A character that the columns cannot hold is in none of them.
  if (Latin5::firstUnstorable(text)) return [](const Row&) { return false; };
  const QByteArray wanted = foldedBytes(Latin5::encode(text, field.name));
  const bool anywhere = comparison == FilterOperator::Contains;
  return [=](const Row& row) {
    const auto cell = row(index);
    if (!cell) return false;
    const QByteArray shown = field.type == FieldType::Text ? QByteArray() : shownBytes(field, *cell);
    const QByteArrayView bytes = field.type == FieldType::Text ? *cell : QByteArrayView(shown);
    if (bytes.size() < wanted.size()) return false;
    return anywhere ? holds(bytes, wanted) : beginsWith(bytes.data(), wanted);
  };
}

Test orderTest(int index, const FieldInfo& field, FilterOperator comparison, const Value& value, const Value& upperValue) {
  const Cell lower = FieldCodec::encode(field, value);
  const Cell upper = FieldCodec::encode(field, upperValue);
  if (comparison == FilterOperator::Between)
    return [=](const Row& row) {
      const auto cell = row(index);
      return cell && lower && upper && compared(field, *cell, *lower) >= 0 && compared(field, *cell, *upper) <= 0;
    };
  return [=](const Row& row) {
    const auto cell = row(index);
    // NULL equals only NULL, and is different from every value.
    if (!cell || !lower) return (cell.has_value() == lower.has_value()) == (comparison == FilterOperator::Equal) &&
                                (comparison == FilterOperator::Equal || comparison == FilterOperator::NotEqual);
    return accepts(comparison, compared(field, *cell, *lower));
  };
}

QString sqlSign(FilterOperator comparison) {
  switch (comparison) {
    case FilterOperator::Equal:
      return u"="_s;
    case FilterOperator::NotEqual:
      return u"<>"_s;
    case FilterOperator::Greater:
      return u">"_s;
    case FilterOperator::GreaterOrEqual:
      return u">="_s;
    case FilterOperator::Less:
      return u"<"_s;
    default:
      return u"<="_s;
  }
}

/// A text for LIKE that stands for itself.
QString likeEscaped(QString text) {
  return text.replace(u'\\', u"\\\\"_s).replace(u'%', u"\\%"_s).replace(u'_', u"\\_"_s);
}

}  // namespace

struct FilterExpression::Node {
  enum class Kind { Condition, All, Any, Not };
  Kind kind = Kind::All;
  std::vector<FilterExpression> parts = {};
  QString column = {};
  FilterOperator comparison = FilterOperator::Equal;
  Value value = {};
  Value upperValue = {};
};

FilterExpression::FilterExpression(Node node) : node_(std::make_shared<const Node>(std::move(node))) {}

FilterExpression FilterExpression::condition(const QString& column, FilterOperator comparison) {
  return condition(column, comparison, {}, {});
}

FilterExpression FilterExpression::condition(const QString& column, FilterOperator comparison, const Value& value) {
  return condition(column, comparison, value, {});
}

FilterExpression FilterExpression::condition(const QString& column, FilterOperator comparison, const Value& value,
                                             const Value& upperValue) {
  return FilterExpression(Node{Node::Kind::Condition, {}, column, comparison, value, upperValue});
}

FilterExpression FilterExpression::all(std::vector<FilterExpression> parts) {
  return FilterExpression(Node{Node::Kind::All, std::move(parts)});
}

FilterExpression FilterExpression::any(std::vector<FilterExpression> parts) {
  return FilterExpression(Node{Node::Kind::Any, std::move(parts)});
}

FilterExpression FilterExpression::negated(FilterExpression part) {
  return FilterExpression(Node{Node::Kind::Not, {std::move(part)}});
}

const QString& FilterExpression::column() const { return node_->column; }

FilterOperator FilterExpression::comparison() const { return node_->comparison; }

std::vector<FilterExpression> FilterExpression::conjuncts() const {
  if (node_->kind != Node::Kind::All) return {*this};
  std::vector<FilterExpression> all;
  for (const FilterExpression& part : node_->parts) {
    const std::vector<FilterExpression> inner = part.conjuncts();
    all.insert(all.end(), inner.begin(), inner.end());
  }
  return all;
}

FilterExpression::RowTest FilterExpression::compiled(const std::vector<FieldInfo>& fields) const {
  if (node_->kind == Node::Kind::Condition) {
    const auto found = std::find_if(fields.begin(), fields.end(), [this](const FieldInfo& field) {
      return field.name.compare(node_->column, Qt::CaseInsensitive) == 0;
    });
    if (found == fields.end()) throw EDatabaseError(u"Field '%1' not found"_s.arg(node_->column));
    const int index = int(found - fields.begin());
    if (node_->comparison == FilterOperator::Empty || node_->comparison == FilterOperator::NotEmpty)
      return emptyTest(index, *found, node_->comparison == FilterOperator::Empty);
    if (node_->comparison == FilterOperator::Contains || node_->comparison == FilterOperator::StartsWith)
      return textTest(index, *found, node_->comparison, node_->value.toText());
    return orderTest(index, *found, node_->comparison, node_->value, node_->upperValue);
  }
  std::vector<RowTest> tests;
  for (const FilterExpression& part : node_->parts) tests.push_back(part.compiled(fields));
  if (node_->kind == Node::Kind::Not) return [test = tests.front()](const Row& row) { return !test(row); };
  const bool decisive = node_->kind == Node::Kind::Any;
  return [tests = std::move(tests), decisive](const Row& row) {
    for (const RowTest& test : tests)
      if (test(row) == decisive) return decisive;
    return !decisive;
  };
}

QString FilterExpression::asSql(QHash<QString, Value>& parameters) const {
  if (node_->kind == Node::Kind::Condition) {
    const QString column = u'`' + QString(node_->column).replace(u'`', u"``"_s) + u'`';
    const auto parameter = [&](const Value& value) {
      const QString name = u"F%1"_s.arg(parameters.size() + 1);
      parameters.insert(name, value);
      return u':' + name;
    };
    const QString empty = column + u" IS NULL OR "_s + column + u" IN ('', '0000-00-00')"_s;
    switch (node_->comparison) {
      case FilterOperator::Contains:
        return column + u" LIKE "_s + parameter(u'%' + likeEscaped(node_->value.toText()) + u'%');
      case FilterOperator::StartsWith:
        return column + u" LIKE "_s + parameter(likeEscaped(node_->value.toText()) + u'%');
      case FilterOperator::Between: {
        const QString lower = parameter(node_->value);
        return column + u" BETWEEN "_s + lower + u" AND "_s + parameter(node_->upperValue);
      }
      case FilterOperator::Empty:
        return u'(' + empty + u')';
      case FilterOperator::NotEmpty:
        return u"NOT ("_s + empty + u')';
      case FilterOperator::Equal:
        return column + u" <=> "_s + parameter(node_->value);
      case FilterOperator::NotEqual:
        return u"NOT ("_s + column + u" <=> "_s + parameter(node_->value) + u')';
      default:
        return column + u' ' + sqlSign(node_->comparison) + u' ' + parameter(node_->value);
    }
  }
  if (node_->parts.empty()) return node_->kind == Node::Kind::Any ? u"FALSE"_s : u"TRUE"_s;
  QStringList pieces;
  for (const FilterExpression& part : node_->parts) pieces += part.asSql(parameters);
  if (node_->kind == Node::Kind::Not) return u"NOT COALESCE("_s + pieces.first() + u", FALSE)"_s;
  return u'(' + pieces.join(node_->kind == Node::Kind::Any ? u" OR "_s : u" AND "_s) + u')';
}

QString FilterExpression::asText(const std::function<QString(const QString&)>& captionOf) const {
  if (node_->kind == Node::Kind::Condition) {
    const QString caption = captionOf(node_->column).trimmed();
    const QString value = u'"' + node_->value.toText() + u'"';
    switch (node_->comparison) {
      case FilterOperator::Contains:
        return u"%1 içerir %2"_s.arg(caption, value);
      case FilterOperator::StartsWith:
        return u"%1 ile başlar %2"_s.arg(caption, value);
      case FilterOperator::Between:
        return u"%1 arasında %2 ve \"%3\""_s.arg(caption, value, node_->upperValue.toText());
      case FilterOperator::Empty:
        return u"%1 boş"_s.arg(caption);
      case FilterOperator::NotEmpty:
        return u"%1 boş değil"_s.arg(caption);
      default:
        return u"%1 %2 %3"_s.arg(caption, sqlSign(node_->comparison), value);
    }
  }
  QStringList pieces;
  for (const FilterExpression& part : node_->parts) {
    const bool group = part.node_->kind == Node::Kind::All || part.node_->kind == Node::Kind::Any;
    const QString text = part.asText(captionOf);
    pieces += group && part.node_->parts.size() > 1 ? u'(' + text + u')' : text;
  }
  if (node_->kind == Node::Kind::Not) return u"DEĞİL ("_s + pieces.first() + u')';
  return pieces.join(node_->kind == Node::Kind::Any ? u" VEYA "_s : u" VE "_s);
}
