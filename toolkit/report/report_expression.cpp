#include "toolkit/report/report_expression.h"

#include "base/number_text.h"
#include "toolkit/report/expression_functions.h"
#include "toolkit/report/expression_parser.h"

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 mostSteps = 1'000'000;

using Node = Expression::Node;
using Operation = Expression::Operation;

/// One evaluation. Faults travel as exceptions inside and leave as values.
class Evaluator {
 public:
  Evaluator(const std::vector<Node>& nodes, const EvaluationContext& context)
      : nodes_(nodes), context_(context), steps_(context.stepsLeft ? std::min(mostSteps, *context.stepsLeft) : mostSteps), bound_(steps_) {
    if (context.places) places_ = *context.places;
  }
  ~Evaluator() {
    if (context_.stepsLeft) *context_.stepsLeft -= bound_ - steps_;
  }
  Evaluator(const Evaluator&) = delete;
  Evaluator& operator=(const Evaluator&) = delete;

  ReportValue value(int index) {
    if (--steps_ < 0) throw ExpressionFault{u"ifade çok uzun sürüyor"_s};
    const Node& node = nodes_[size_t(index)];
    const auto argument = [&](size_t place) { return value(node.arguments[place]); };
    const auto number = [&](size_t place) { return ExpressionFunctions::number(argument(place)); };
    switch (node.operation) {
      case Operation::Literal: return node.literal;
      case Operation::Name: return named(node);
      case Operation::Field: return field(node);
      case Operation::Or: return ExpressionFunctions::truth(argument(0)) || ExpressionFunctions::truth(argument(1));
      case Operation::And: return ExpressionFunctions::truth(argument(0)) && ExpressionFunctions::truth(argument(1));
      case Operation::Not: return !ExpressionFunctions::truth(argument(0));
      case Operation::Negate: return -number(0);
      case Operation::Equal: return ExpressionFunctions::compare(argument(0), argument(1)) == 0;
      case Operation::Unequal: return ExpressionFunctions::compare(argument(0), argument(1)) != 0;
      case Operation::Less: return ExpressionFunctions::compare(argument(0), argument(1)) < 0;
      case Operation::LessOrEqual: return ExpressionFunctions::compare(argument(0), argument(1)) <= 0;
      case Operation::Greater: return ExpressionFunctions::compare(argument(0), argument(1)) > 0;
      case Operation::GreaterOrEqual: return ExpressionFunctions::compare(argument(0), argument(1)) >= 0;
      case Operation::Join: return ExpressionFunctions::joined(argument(0), argument(1));
      case Operation::Add: return added(argument(0), argument(1));
      case Operation::Subtract: return number(0) - number(1);
      case Operation::Multiply: return number(0) * number(1);
      case Operation::Divide: return ExpressionFunctions::divided(number(0), number(1));
      case Operation::Remainder: return ExpressionFunctions::remainder(number(0), number(1));
      case Operation::Function: return called(node);
    }
    throw ExpressionFault{u"ifade okunamıyor"_s};
  }

 private:
  static ReportValue added(const ReportValue& left, const ReportValue& right) {
    if (std::holds_alternative<QString>(left) || std::holds_alternative<QString>(right)) return ExpressionFunctions::joined(left, right);
    if (const auto* date = std::get_if<QDate>(&left)) return date->addDays(qint64(ExpressionFunctions::number(right)));
    return ExpressionFunctions::number(left) + ExpressionFunctions::number(right);
  }

  ReportValue named(const Node& node) {
    if (node.name == u"SAYFA") return double(context_.page);
    if (node.name == u"SAYFA_SAYISI") return double(context_.pageCount);
    if (node.name == u"BUGUN") return context_.now.date();
    if (node.name == u"SAAT") return context_.now.time();
    if (node.name == u"SIMDI") return context_.now;
    if (node.name == u"DOGRU") return true;
    if (node.name == u"YANLIS") return false;
    if (node.name == u"SIRA") return double(rowNumber());
    const int place = context_.data ? context_.data->findVariable(node.name) : -1;
    if (place < 0) throw ExpressionFault{u"“%1” adını kimse bilmiyor"_s.arg(node.shown)};
    const ReportValue& found = context_.data->variables()[size_t(place)].value;
    if (const auto* fault = std::get_if<ExpressionFault>(&found)) throw *fault;
    return found;
  }

  /// Number of the row that is printed now, from 1; counts within the data set that stands at a row.
  int rowNumber() const {
    for (const RowPlace& place : places_)
      if (place.row >= 0) return place.row + 1;
    return 0;
  }

  int dataSet(const QString& folded, const QString& shown) const {
    const int place = context_.data ? context_.data->findRows(folded) : -1;
    if (place < 0) throw ExpressionFault{u"“%1” adlı veri kümesi yok"_s.arg(shown)};
    return place;
  }

  ReportValue field(const Node& node) {
    const int set = dataSet(node.name, node.shown);
    const ReportDataSet& data = context_.data->dataSets()[size_t(set)];
    const int place = data.fields.value(node.field, -1);
    if (place < 0) throw ExpressionFault{u"“%1” kümesinde böyle bir alan yok: %2"_s.arg(data.name, node.shown)};
    const int row = size_t(set) < places_.size() ? places_[size_t(set)].row : -1;
    if (row < 0 || row >= data.rows->rowCount()) return {};
    ReportValue found = data.rows->value(row, place);
    if (const auto* fault = std::get_if<ExpressionFault>(&found)) throw *fault;
    return found;
  }

  ReportValue called(const Node& node) {
    using ExpressionFunctions::Function;
    const auto function = Function(node.function);
    if (function == Function::Choice) return value(node.arguments[ExpressionFunctions::truth(value(node.arguments[0])) ? 1 : 2]);
    if (ExpressionFunctions::isOverRows(function)) return overRows(function, node);
    std::vector<ReportValue> values;
    for (const int argument : node.arguments) values.push_back(value(argument));
    return ExpressionFunctions::call(function, values);
  }

  /// The data set that an argument counts over: its own name, or that of the first field in it.
  int setOf(int index) const {
    const Node& node = nodes_[size_t(index)];
    if (node.operation == Operation::Field || node.operation == Operation::Name) {
      if (context_.data && context_.data->findRows(node.name) >= 0) return context_.data->findRows(node.name);
      if (node.operation == Operation::Field) return dataSet(node.name, node.shown);
    }
    for (const int argument : node.arguments)
      if (const int found = setOf(argument); found >= 0) return found;
    return -1;
  }

  ReportValue overRows(ExpressionFunctions::Function function, const Node& node) {
    const int set = setOf(node.arguments[0]);
    if (set < 0) throw ExpressionFault{u"hangi veri kümesinin satırları olduğu belli değil"_s};
    places_.resize(std::max(places_.size(), size_t(set) + 1));
    const RowPlace before = places_[size_t(set)];
    const bool isPlain = nodes_[size_t(node.arguments[0])].operation == Operation::Name;
    ExpressionFunctions::Gatherer gatherer(function);
    for (int row = before.first; row < before.behind; ++row) {
      places_[size_t(set)].row = row;
      if (node.arguments.size() > 1 && !ExpressionFunctions::truth(value(node.arguments[1]))) continue;
      gatherer.add(isPlain ? ReportValue(true) : value(node.arguments[0]));
      if (--steps_ < 0) throw ExpressionFault{u"ifade çok uzun sürüyor"_s};
    }
    places_[size_t(set)] = before;
    return gatherer.result();
  }

  const std::vector<Node>& nodes_;
  const EvaluationContext& context_;
  std::vector<RowPlace> places_;
  qint64 steps_;
  qint64 bound_;
};

}  // namespace

Expression::Expression(const QString& text) {
  ExpressionParser parser(text);
  try {
    root_ = parser.parse();
    nodes_ = parser.takeNodes();
  } catch (const ExpressionFault& fault) {
    fault_ = fault.reason;
  }
  for (const Node& node : nodes_) usesPageCount_ |= node.operation == Operation::Name && node.name == u"SAYFA_SAYISI";
}

ReportValue Expression::evaluate(const EvaluationContext& context) const {
  if (!fault_.isEmpty()) return ExpressionFault{fault_};
  try {
    ReportValue value = Evaluator(nodes_, context).value(root_);
    if (const auto* number = std::get_if<double>(&value); number && !qIsFinite(*number)) return ExpressionFault{u"sonuç bir sayı değil"_s};
    return value;
  } catch (const ExpressionFault& fault) {
    return fault;
  }
}

QStringList Expression::unknownNames(const ReportData& data) const {
  QStringList unknown;
  EvaluationContext context;
  context.data = &data;
  for (size_t index = 0; index < nodes_.size(); ++index) {
    const Node& node = nodes_[index];
    const bool isName = node.operation == Operation::Name;
    if (!isName && node.operation != Operation::Field) continue;
    if (isName && (data.findVariable(node.name) >= 0 || data.findRows(node.name) >= 0)) continue;
    try {
      Evaluator(nodes_, context).value(int(index));
    } catch (const ExpressionFault& fault) {
      unknown += fault.reason;
    }
  }
  return unknown;
}

ExpressionText::ExpressionText(const QString& text) {
  QString plain;
  qsizetype at = 0;
  while (at < text.size()) {
    if (text[at] != u'[') {
      plain += text[at++];
    } else if (at + 1 < text.size() && text[at + 1] == u'[') {
      plain += u'[';
      at += 2;
    } else {
      const qsizetype behind = ExpressionParser::closingBracket(text, at + 1);
      if (!plain.isEmpty()) parts_.push_back({plain, {}});
      plain.clear();
      parts_.push_back({{}, Expression(text.mid(at + 1, behind - at - 1))});
      at = behind + 1;
    }
  }
  if (!plain.isEmpty()) parts_.push_back({plain, {}});
}

ExpressionText::Result ExpressionText::evaluate(const EvaluationContext& context, const QString& format) const {
  Result result;
  for (const Part& part : parts_) {
    if (!part.expression) {
      result.text += part.text;
      continue;
    }
    const ReportValue value = part.expression->evaluate(context);
    if (const auto* fault = std::get_if<ExpressionFault>(&value))
      result.faults += fault->reason;
    else
      result.text += ReportValues::toText(value, format);
  }
  return result;
}

bool ExpressionText::usesPageCount() const {
  for (const Part& part : parts_)
    if (part.expression && part.expression->usesPageCount()) return true;
  return false;
}

QStringList ExpressionText::faults(const ReportData& data) const {
  QStringList all;
  for (const Part& part : parts_) {
    if (!part.expression) continue;
    if (!part.expression->fault().isEmpty()) all += part.expression->fault();
    all += part.expression->unknownNames(data);
  }
  return all;
}

QString ExpressionText::literal(const QString& text) { return QString(text).replace(u"["_s, u"[["_s); }
