#include "service/slip_browser_rules.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// True for a condition that the server answers with the same rows as the program's own comparison would.
bool isServerCondition(const FilterExpression& part) {
  if (part.column() != u"TS_TARIH"_s) return false;
  return part.comparison() != FilterOperator::Contains && part.comparison() != FilterOperator::StartsWith;
}

std::optional<FilterExpression> joined(std::vector<FilterExpression> parts) {
  if (parts.empty()) return std::nullopt;
  return parts.size() == 1 ? parts.front() : FilterExpression::all(std::move(parts));
}

}  // namespace

namespace SlipBrowserRules {

QString orderText(const std::vector<SortColumn>& keys) {
  QStringList pieces;
  for (const SortColumn& key : keys) {
    if (key.field == u"TS_NO"_s)
      pieces += key.descending ? u"LENGTH(TS_NO) DESC, TS_NO DESC"_s : u"LENGTH(TS_NO) ASC, TS_NO ASC"_s;
    else
      pieces += key.descending ? key.field + u" DESC"_s : key.field;
  }
  return pieces.join(u", "_s);
}

SplitFilter split(const std::optional<FilterExpression>& filter) {
  if (!filter) return {};
  std::vector<FilterExpression> atServer;
  std::vector<FilterExpression> inMemory;
  for (const FilterExpression& part : filter->conjuncts()) (isServerCondition(part) ? atServer : inMemory).push_back(part);
  return {joined(std::move(atServer)), joined(std::move(inMemory))};
}

bool hasCondition(const std::optional<FilterExpression>& filter, const QString& column) {
  if (!filter) return false;
  const std::vector<FilterExpression> parts = filter->conjuncts();
  return std::any_of(parts.begin(), parts.end(), [&](const FilterExpression& part) { return part.column() == column; });
}

QString deletionQuestion(const QStringList& numbers) {
  if (numbers.size() == 1) return u"Seçilen "_s + numbers.first() + u" nolu fiş silinecek onaylıyor musunuz?"_s;
  return u"Seçilen fiş(ler) silinecek onaylıyor musunuz?"_s;
}

QString deletionFailed() { return u"Seçilen fiş(ler) silinemedi!"_s; }

QString rightPath(const QString& caption) { return u"Servis Fişleri\\"_s + caption; }

}  // namespace SlipBrowserRules
