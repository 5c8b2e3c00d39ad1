#include "toolkit/report/expression_parser.h"

#include "toolkit/report/expression_functions.h"

#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr int mostOpen = 60;
constexpr int mostDepth = 200;
constexpr qsizetype mostLetters = 20'000;  ///< outside quotes; what stands in them is data
constexpr int unaryLevel = 6;

bool beginsName(QChar c) { return c.isLetter() || c == u'_'; }

}  // namespace

qsizetype ExpressionParser::closingBracket(const QString& text, qsizetype from) {
  QChar quote;
  for (qsizetype at = from; at < text.size(); ++at) {
    const QChar c = text[at];
    if (!quote.isNull()) {
      if (c == quote) quote = {};
    } else if (c == u'\'' || c == u'"') {
      quote = c;
    } else if (c == u']') {
      return at;
    }
  }
  return text.size();
}

int ExpressionParser::parse() {
  next();
  if (token_.kind == Token::Kind::End) throw ExpressionFault{u"ifade boş"_s};
  const int root = binary(0);
  if (token_.kind != Token::Kind::End) throw ExpressionFault{u"“%1” burada beklenmiyor"_s.arg(token_.text)};
  return root;
}

void ExpressionParser::next() {
  if (at_ - quoted_ > mostLetters) throw ExpressionFault{u"ifade çok uzun"_s};
  while (at_ < text_.size() && text_[at_].isSpace()) ++at_;
  if (at_ >= text_.size()) {
    token_ = {};
    return;
  }
  const QChar c = text_[at_];
  if (c >= u'0' && c <= u'9') return readNumber();
  if (c == u'\'' || c == u'"') return readText(c);
  if (beginsName(c)) {
    const qsizetype from = at_;
    while (at_ < text_.size() && (beginsName(text_[at_]) || text_[at_].isDigit())) ++at_;
    token_ = {Token::Kind::Name, text_.mid(from, at_ - from)};
    return;
  }
  for (const QStringView sign : {u"<>", u"<=", u">="})
    if (QStringView(text_).mid(at_).startsWith(sign)) {
      at_ += 2;
      token_ = {Token::Kind::Sign, sign.toString()};
      return;
    }
  ++at_;
  token_ = {Token::Kind::Sign, QString(c)};
}

void ExpressionParser::readNumber() {
  const qsizetype from = at_;
  const auto digits = [this] {
    while (at_ < text_.size() && text_[at_] >= u'0' && text_[at_] <= u'9') ++at_;
  };
  digits();
  if (at_ < text_.size() && text_[at_] == u'.') {
    ++at_;
    digits();
  }
  const QString shown = text_.mid(from, at_ - from);
  token_ = {Token::Kind::Number, shown, shown.toDouble()};
}

void ExpressionParser::readText(QChar quote) {
  QString read;
  const qsizetype from = at_;
  for (++at_; at_ < text_.size(); ++at_) {
    if (text_[at_] == quote) {
      if (at_ + 1 >= text_.size() || text_[at_ + 1] != quote) {
        ++at_;
        quoted_ += at_ - from;
        token_ = {Token::Kind::Text, read};
        return;
      }
      ++at_;
    }
    read += text_[at_];
  }
  throw ExpressionFault{u"tırnak kapanmamış"_s};
}

bool ExpressionParser::isWord(QStringView folded) const {
  return token_.kind == Token::Kind::Name && ReportData::folded(token_.text) == folded;
}

bool ExpressionParser::takeSign(QStringView sign) {
  if (!isSign(sign)) return false;
  next();
  return true;
}

void ExpressionParser::expectSign(QStringView sign) {
  if (!takeSign(sign)) throw ExpressionFault{u"“%1” bekleniyor"_s.arg(sign)};
}

int ExpressionParser::add(Expression::Node node) {
  for (const int argument : node.arguments) node.depth = std::max(node.depth, nodes_[size_t(argument)].depth + 1);
  if (node.depth > mostDepth) throw ExpressionFault{u"ifade çok iç içe"_s};
  nodes_.push_back(std::move(node));
  return int(nodes_.size()) - 1;
}

std::optional<Expression::Operation> ExpressionParser::operationAt(int level) const {
  static const std::array<std::vector<std::pair<QString, Operation>>, unaryLevel> signs = {{
      {},
      {},
      {{u"="_s, Operation::Equal}, {u"<>"_s, Operation::Unequal}, {u"<="_s, Operation::LessOrEqual},
       {u">="_s, Operation::GreaterOrEqual}, {u"<"_s, Operation::Less}, {u">"_s, Operation::Greater}},
      {{u"&"_s, Operation::Join}},
      {{u"+"_s, Operation::Add}, {u"-"_s, Operation::Subtract}},
      {{u"*"_s, Operation::Multiply}, {u"/"_s, Operation::Divide}, {u"%"_s, Operation::Remainder}},
  }};
  if (level == 0) return isWord(u"VEYA") ? std::optional(Operation::Or) : std::nullopt;
  if (level == 1) return isWord(u"VE") ? std::optional(Operation::And) : std::nullopt;
  for (const auto& [sign, operation] : signs[size_t(level)])
    if (isSign(sign)) return operation;
  return {};
}

int ExpressionParser::binary(int level) {
  if (level == unaryLevel) return unary();
  int left = binary(level + 1);
  while (const auto operation = operationAt(level)) {
    next();
    left = add({.operation = *operation, .arguments = {left, binary(level + 1)}});
  }
  return left;
}

int ExpressionParser::unary() {
  if (++open_ > mostOpen) throw ExpressionFault{u"ifade çok iç içe"_s};
  int made = 0;
  if (takeSign(u"-")) {
    made = add({.operation = Operation::Negate, .arguments = {unary()}});
  } else if (isWord(u"DEGIL")) {
    next();
    made = add({.operation = Operation::Not, .arguments = {unary()}});
  } else {
    made = primary();
  }
  --open_;
  return made;
}

int ExpressionParser::primary() {
  if (takeSign(u"(")) {
    const int inside = binary(0);
    expectSign(u")");
    return inside;
  }
  const Token token = token_;
  if (token.kind == Token::Kind::Name) return named();
  if (token.kind == Token::Kind::End) throw ExpressionFault{u"ifade yarım kalmış"_s};
  if (token.kind == Token::Kind::Sign) throw ExpressionFault{u"“%1” burada beklenmiyor"_s.arg(token.text)};
  next();
  if (token.kind == Token::Kind::Number) return add({.literal = token.number});
  return add({.literal = token.text});
}

int ExpressionParser::named() {
  const QString shown = token_.text;
  next();
  if (takeSign(u"(")) return function(shown);
  if (!takeSign(u".")) return add({.operation = Operation::Name, .name = ReportData::folded(shown), .shown = shown});
  if (token_.kind != Token::Kind::Name && token_.kind != Token::Kind::Text) throw ExpressionFault{u"“%1.” ardından alan adı bekleniyor"_s.arg(shown)};
  const QString field = token_.text;
  next();
  return add({.operation = Operation::Field, .name = ReportData::folded(shown), .field = ReportData::folded(field),
              .shown = shown + u'.' + field});
}

int ExpressionParser::function(const QString& shown) {
  const auto* found = ExpressionFunctions::find(ReportData::folded(shown));
  if (!found) throw ExpressionFault{u"“%1” adlı bir işlev yok"_s.arg(shown)};
  Expression::Node node{.operation = Operation::Function, .shown = shown, .function = int(found->function)};
  if (!isSign(u")")) do node.arguments.push_back(binary(0));
    while (takeSign(u";") || takeSign(u","));
  expectSign(u")");
  const int count = int(node.arguments.size());
  if (count < found->least || count > found->most)
    throw ExpressionFault{u"%1 işlevine %2 değer verilmiş, %3"_s.arg(shown).arg(count).arg(found->signature)};
  return add(std::move(node));
}
