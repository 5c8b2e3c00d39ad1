#include "toolkit/grid/grid_column.h"

#include "base/data/value.h"
#include "base/number_text.h"

#include <algorithm>

QString GridColumn::shown(const Value& value) const {
  if (lookUp) return value.isNull() ? QString() : lookUp(value);
  const QString text = value.toText();
  const auto listed = std::ranges::find(values, text, &GridListValue::value);
  if (listed != values.end()) return listed->shown;
  return displayFormat.isEmpty() || value.isNull() || !values.empty() ? text : NumberText::formatted(displayFormat, value.toDouble());
}

bool GridColumn::showsOtherTexts() const {
  return lookUp || std::ranges::any_of(values, [](const GridListValue& each) { return each.value != each.shown; });
}
