#include "toolkit/grid/grid_layout.h"

#include "base/ini_file.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

const QString columnsHead = u"Sütunlar"_s;
const QString groupsHead = u"Gruplar"_s;
const QString orderHead = u"Sıralama"_s;
const QString ascending = u"artan"_s;
const QString descending = u"azalan"_s;
constexpr int leastWidth = 10;
constexpr int mostWidth = 4000;

QList<IniFile::Entry> sortEntries(const QString& head, const std::vector<GridSort>& sorts) {
  QList<IniFile::Entry> entries;
  for (const GridSort& sort : sorts) entries.append({head, sort.field, sort.descending ? descending : ascending});
  return entries;
}

std::optional<GridLayout::Column> columnOf(const QString& field, const QString& value) {
  const QStringList parts = value.split(u',');
  bool isNumber = false;
  const int width = parts.first().trimmed().toInt(&isNumber);
  if (parts.size() != 2 || !isNumber || width < leastWidth || width > mostWidth) return std::nullopt;
  return GridLayout::Column{field, width, parts[1].trimmed() != u"0"};
}

}  // namespace

void GridLayouts::write(const GridLayout& layout, const QString& file) {
  QList<IniFile::Entry> entries;
  for (const GridLayout::Column& column : layout.columns)
    entries.append({columnsHead, column.field, u"%1,%2"_s.arg(column.width).arg(column.visible ? 1 : 0)});
  IniFile::replace(file, entries + sortEntries(groupsHead, layout.groups) + sortEntries(orderHead, layout.order));
}

std::optional<GridLayout> GridLayouts::read(const QString& file) {
  GridLayout layout;
  for (const auto& [head, field, text] : IniFile::entries(file)) {
    const QString value = text.trimmed();
    if (head == columnsHead) {
      if (const auto column = columnOf(field, value)) layout.columns.push_back(*column);
    } else if (value == ascending || value == descending) {
      if (head == groupsHead) layout.groups.push_back({field, value == descending});
      if (head == orderHead) layout.order.push_back({field, value == descending});
    }
  }
  if (layout.columns.empty()) return std::nullopt;
  return layout;
}
