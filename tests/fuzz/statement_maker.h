#pragma once

#include <QStringList>

#include <array>
#include <random>

/// A random statement of the server's language, and what the clause editor has to make of it.
struct MadeStatement {
  enum Variant { Plain, Conditioned, Unconditioned, Unordered, Ordered, VariantCount };
  /// Each variant as its tokens without blanks and comments.
  std::array<QStringList, VariantCount> pieces;
  QStringList parameters;
  /// The plain variant with blanks and comments between the pieces.
  QString text;
};

/// Makes statements; the same seed makes the same ones.
class StatementMaker {
 public:
  static constexpr auto condition = u"X_KOSUL = 1";
  static constexpr auto order = u"X_SIRA desc";

  explicit StatementMaker(quint64 seed) : random_(seed) {}

  MadeStatement statement();
  /// The text with a few places cut out, doubled, swapped or filled with what tokenizers stumble over.
  QString damaged(QString text);

 private:
  size_t below(size_t limit) { return random_() % limit; }
  bool once(size_t in) { return below(in) == 0; }
  template <size_t count>
  QString oneOf(const std::array<const char16_t*, count>& choices) {
    return QString::fromUtf16(choices[below(count)]);
  }

  void add(const QString& pieces);
  void addTo(std::initializer_list<MadeStatement::Variant> variants, const QString& pieces);
  QString separator();
  QString literal();
  QString expression(int depth);
  QString subquery(int depth);
  void select(int depth);
  void part(int depth, bool alone);
  void query(int depth);

  std::mt19937_64 random_;
  MadeStatement made_;
};
