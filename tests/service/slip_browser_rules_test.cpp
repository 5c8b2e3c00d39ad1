#include "base/data/value.h"
#include "service/slip_browser_rules.h"
#include "tests/support/test.h"

namespace {

FilterExpression on(const QString& column, FilterOperator comparison) { return FilterExpression::condition(column, comparison, u"1"_s); }

QString told(const std::optional<FilterExpression>& filter) {
  return filter ? filter->asText([](const QString& column) { return column; }) : u"-"_s;
}

TEST(SlipBrowserRulesTest, OnlyWholeConditionsOnTheSlipDateGoToTheServer) {
  using enum FilterOperator;
  const FilterExpression date = on(u"TS_TARIH"_s, Equal);
  const FilterExpression name = on(u"TS_MUSTERI"_s, Contains);
  const struct {
    std::optional<FilterExpression> filter;
    QString atServer;
    QString inMemory;
  } cases[] = {
      {std::nullopt, u"-"_s, u"-"_s},
      {date, u"TS_TARIH = \"1\""_s, u"-"_s},
      {name, u"-"_s, u"TS_MUSTERI içerir \"1\""_s},
      {FilterExpression::all({name, FilterExpression::all({date})}), u"TS_TARIH = \"1\""_s, u"TS_MUSTERI içerir \"1\""_s},
      // Parts of a date are looked for in the date as it is shown, which the server does not know.
      {on(u"TS_TARIH"_s, Contains), u"-"_s, u"TS_TARIH içerir \"1\""_s},
      {on(u"TS_TARIH"_s, StartsWith), u"-"_s, u"TS_TARIH ile başlar \"1\""_s},
      // One that may be false for a row that passes is no limit for the server.
      {FilterExpression::any({date, name}), u"-"_s, u"TS_TARIH = \"1\" VEYA TS_MUSTERI içerir \"1\""_s},
      {FilterExpression::negated(date), u"-"_s, u"DEĞİL (TS_TARIH = \"1\")"_s},
  };
  for (const auto& each : cases) {
    const SlipBrowserRules::SplitFilter parts = SlipBrowserRules::split(each.filter);
    EXPECT_EQ(told(parts.atServer), each.atServer);
    EXPECT_EQ(told(parts.inMemory), each.inMemory);
  }
}

}  // namespace
