#include "toolkit/grid/grid_layout.h"

#include "base/whole_file.h"

#include <QFile>
#include <QFileInfo>
#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

const QString columnsHead = u"[Sütunlar]"_s;
const QString groupsHead = u"[Gruplar]"_s;
const QString orderHead = u"[Sıralama]"_s;
const QString ascending = u"artan"_s;
const QString descending = u"azalan"_s;
constexpr int leastWidth = 10;
constexpr int mostWidth = 4000;
constexpr qint64 mostBytes = 1 << 20;  ///< a bigger file is no layout

QStringList sortLines(const std::vector<GridSort>& sorts) {
  QStringList lines;
  for (const GridSort& sort : sorts) lines += sort.field + u'=' + (sort.descending ? descending : ascending);
  return lines;
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
  QStringList lines{columnsHead};
  for (const GridLayout::Column& column : layout.columns)
    lines += u"%1=%2,%3"_s.arg(column.field).arg(column.width).arg(column.visible ? 1 : 0);
  lines += groupsHead;
  lines += sortLines(layout.groups);
  lines += orderHead;
  lines += sortLines(layout.order);
  WholeFile::replace(file, (lines.join(u"\r\n"_s) + u"\r\n"_s).toUtf8());
}

std::optional<GridLayout> GridLayouts::read(const QString& file) {
  QFile in(file);
  if (!QFileInfo(file).isFile() || in.size() > mostBytes || !in.open(QIODevice::ReadOnly)) return std::nullopt;
  GridLayout layout;
  QString head;
  const QStringList lines = QString::fromUtf8(in.readAll()).split(u'\n');
  for (const QString& raw : lines) {
    const QString line = raw.trimmed();
    if (line.startsWith(u'[')) {
      head = line;
      continue;
    }
    const qsizetype mark = line.indexOf(u'=');
    if (mark <= 0) continue;
    const QString field = line.left(mark).trimmed();
    const QString value = line.mid(mark + 1).trimmed();
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
