#include "cards/device_import.h"

#include "base/data/latin5.h"
#include "base/exceptions.h"
#include "base/turkish_text.h"
#include "cards/csv_text.h"

#include <QHash>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

struct CatalogueColumn {
  QStringView name;
  QStringView caption;
  QString CatalogueDevice::*text;
  int width;  ///< characters
};

constexpr auto columns = std::to_array<CatalogueColumn>({
    {u"C_AD", u"CİHAZ ADI", &CatalogueDevice::name, 100},
    {u"C_TURU", u"CİHAZ TÜRÜ", &CatalogueDevice::type, 100},
    {u"C_MARKA", u"CİHAZ MARKA", &CatalogueDevice::make, 50},
    {u"C_URETICI", u"ÜRETİCİ KODU", &CatalogueDevice::makerCode, 50},
});

/// Rows of one INSERT; keeps a statement below the server's packet limit.
constexpr size_t rowsAtOnce = 500;

const CatalogueColumn* columnOf(const QString& header) {
  for (const CatalogueColumn& column : columns)
    if (TurkishText::fold(header) == TurkishText::fold(column.caption.toString()) ||
        header.toCaseFolded() == column.name.toString().toCaseFolded())
      return &column;
  return nullptr;
}

/// The columns of the header's cells; null for one that is not known.
std::vector<const CatalogueColumn*> readHeader(const CsvRecord& header, DeviceFile& file) {
  std::vector<const CatalogueColumn*> found;
  for (const QString& cell : header.cells) {
    const CatalogueColumn* column = columnOf(cell);
    if (column != nullptr && std::find(found.begin(), found.end(), column) != found.end())
      throw Exception(u"the column %1 stands in the header twice"_s.arg(cell));
    if (column == nullptr && !cell.isEmpty()) file.unknownColumns += cell;
    found.push_back(column);
  }
  if (std::find(found.begin(), found.end(), &columns.front()) == found.end())
    throw Exception(u"the first line does not name the column %1 (or %2)"_s.arg(columns.front().caption, columns.front().name));
  return found;
}

/// The device of a record; throws Exception with the reason why it is not taken.
CatalogueDevice deviceOf(const CsvRecord& record, const std::vector<const CatalogueColumn*>& header) {
  if (record.isUnclosed) throw Exception(u"a quotation mark is never closed; what follows it is left out"_s);
  CatalogueDevice device;
  for (qsizetype i = 0; i < record.cells.size(); ++i) {
    const QString text = TurkishText::BuyukHarf(TurkishText::composed(record.cells[i]));
    if (i >= qsizetype(header.size())) {
      if (!text.isEmpty()) throw Exception(u"it has more cells than the header"_s);
      continue;
    }
    const CatalogueColumn* column = header[size_t(i)];
    if (column == nullptr) continue;
    if (text.contains(u'\n') || text.contains(u'\r')) throw Exception(u"%1 holds a line break"_s.arg(column->caption));
    if (const auto character = Latin5::firstUnstorable(text))
      throw Exception(u"%1 holds %2, which the database cannot store"_s.arg(column->caption, Latin5::named(*character)));
    if (text.size() > column->width)
      throw Exception(u"%1 has %2 characters, %3 fit"_s.arg(column->caption).arg(text.size()).arg(column->width));
    device.*column->text = text;
  }
  if (device.name.isEmpty()) throw Exception(u"%1 is empty"_s.arg(columns.front().caption));
  return device;
}

QByteArray quoted(const QString& text, QStringView column) {
  if (text.isEmpty()) return "NULL"_ba;
  QByteArray bytes = Latin5::encode(text, column.toString());
  bytes.replace('\\', "\\\\").replace('\'', "\\'");
  return '\'' + bytes + '\'';
}

}  // namespace

DeviceFile DeviceImport::read(const QByteArray& bytes) {
  QString text = CsvText::decoded(bytes);
  // A spreadsheet's own note of the separator, before the header.
  QChar separator;
  const bool hasNote = text.startsWith(u"sep="_s) && text.size() > 4;
  const qsizetype noteEnd = text.indexOf(u'\n');
  if (hasNote && noteEnd > 0) {
    separator = text[4];
    text.replace(0, noteEnd, QString());
  } else {
    separator = CsvText::separatorOf(QStringView(text).left(noteEnd < 0 ? text.size() : noteEnd));
  }
  const std::vector<CsvRecord> records = CsvText::records(text, separator);
  if (records.empty()) throw Exception(u"the file is empty"_s);

  DeviceFile file;
  const auto header = readHeader(records.front(), file);
  QHash<QString, int> lineOf;
  for (auto record = records.begin() + 1; record != records.end(); ++record) {
    try {
      CatalogueDevice device = deviceOf(*record, header);
      const int earlier = lineOf.value(device.name + u'\n' + device.make);
      if (earlier != 0) throw Exception(u"the same name and make stand in line %1 already"_s.arg(earlier));
      lineOf.insert(device.name + u'\n' + device.make, record->line);
      file.devices.push_back(std::move(device));
    } catch (const Exception& reason) {
      file.refused.push_back({record->line, reason.message()});
    }
  }
  return file;
}

QByteArray DeviceImport::statements(const std::vector<CatalogueDevice>& devices) {
  QByteArray sql = "SET NAMES latin5;\nSET SESSION sql_mode = 'STRICT_ALL_TABLES,NO_ENGINE_SUBSTITUTION';\n"
                   "CREATE TEMPORARY TABLE gelen AS SELECT C_AD, C_TURU, C_MARKA, C_URETICI FROM cihaz LIMIT 0;\n"
                   "ALTER TABLE gelen ADD KEY (C_AD);\nSTART TRANSACTION;\n";
  for (size_t i = 0; i < devices.size(); ++i) {
    sql += i % rowsAtOnce == 0 ? "INSERT INTO gelen VALUES\n(" : ",\n(";
    for (const CatalogueColumn& column : columns) {
      sql += quoted(devices[i].*column.text, column.name);
      sql += &column == &columns.back() ? ')' : ',';
    }
    if (i % rowsAtOnce == rowsAtOnce - 1 || i + 1 == devices.size()) sql += ";\n";
  }
  // A text that the file has no column or no cell for stays as the catalogue has it.
  sql += "UPDATE cihaz c JOIN gelen g ON g.C_AD = c.C_AD AND g.C_MARKA <=> c.C_MARKA\n"
         "  SET c.C_TURU = COALESCE(g.C_TURU, c.C_TURU), c.C_URETICI = COALESCE(g.C_URETICI, c.C_URETICI)\n"
         "  WHERE NOT (COALESCE(g.C_TURU, c.C_TURU) <=> c.C_TURU AND COALESCE(g.C_URETICI, c.C_URETICI) <=> c.C_URETICI);\n"
         "SET @changed = ROW_COUNT();\n"
         "INSERT INTO cihaz (C_AD, C_TURU, C_MARKA, C_URETICI)\n"
         "  SELECT g.* FROM gelen g WHERE NOT EXISTS (SELECT 1 FROM cihaz c WHERE c.C_AD = g.C_AD AND c.C_MARKA <=> g.C_MARKA);\n"
         "SET @added = ROW_COUNT();\nCOMMIT;\n"
         "SELECT @added, @changed, GREATEST(0, (SELECT COUNT(*) FROM gelen) - @added - @changed);\n";
  return sql;
}
