#include "app/parameter_files.h"

#include "base/exceptions.h"
#include "base/text_lines.h"
#include "base/text_tools.h"
#include "base/whole_file.h"
#include "service/slip_lists.h"

#include <QFile>
#include <QFileInfo>
#include <QSet>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

using namespace ParameterFiles;

constexpr auto lineEnd = "\r\n"_L1;

QChar at(const QString& line, qsizetype index) { return index < line.size() ? line[index] : QChar(); }

bool isDigit(QChar c) { return c >= u'0' && c <= u'9'; }

CheckState stateOf(QChar digit) {
  if (digit == u'1') return CheckState::Checked;
  return digit == u'2' ? CheckState::Greyed : CheckState::Unchecked;
}

constexpr int imageDigits = 3;

/// Three digits; none for anything else.
std::optional<int> imageAt(const QString& line, qsizetype index) {
  int number = 0;
  for (qsizetype i = index; i < index + imageDigits; ++i) {
    if (!isDigit(at(line, i))) return {};
    number = number * 10 + (line[i].unicode() - u'0');
  }
  return number;
}

QString imageText(std::optional<int> image) {
  return image ? QString::number(*image).rightJustified(imageDigits, u'0') : u"---"_s;
}

CheckItem itemOf(const QString& line) {
  CheckItem item;
  if (line.startsWith(u'@')) {
    item.enabled = at(line, 1) != u'0';
    item.state = stateOf(at(line, 3));
    item.imageIndex = imageAt(line, 5);
    item.disabledImageIndex = imageAt(line, 9);
    item.text = line.mid(13);
  } else if (line.startsWith(u'&')) {
    item.enabled = at(line, 1) != u'0';
    item.state = stateOf(at(line, 3));
    item.text = line.mid(5);
  } else {
    item.text = line;
  }
  return item;
}

}  // namespace

std::vector<CheckItem> ParameterFiles::defaultSwitches() {
  return {{u"//Kullanıcı Parametreleri"_s},
          {u"Her işlem sonunda kullanıcı onayı istensin"_s},
          {u"Fiş basımı öncesinde önizleme yapılsın"_s},
          {u"Yeni servis fişi açıldığında seri no otomatik doldurulsun"_s},
          {u"SMS ile bildirim yapılsın"_s},
          {u"E-Posta ile bildirim yapılsın"_s},
          {u"Günlük servis fişleri listelensin"_s},
          {u"Her işlem durumu için farklı makbuz kullan"_s},
          {u"Makbuz açıldığında üst menü gizle"_s},
          {u"Makbuzlar tam ekran açılsın"_s}};
}

std::vector<StatusRow> ParameterFiles::defaultStatuses() {
  std::vector<StatusRow> rows;
  for (const QString& status : SlipLists::statuses()) rows.push_back({status, {}, true});
  return rows;
}

std::vector<CheckItem> ParameterFiles::readCheckList(const QByteArray& bytes) {
  std::vector<CheckItem> items;
  for (const QString& line : TextLines::read(bytes)) items.push_back(itemOf(line));
  return items;
}

QByteArray ParameterFiles::writeCheckList(const std::vector<CheckItem>& items) {
  QString text;
  for (const CheckItem& item : items)
    text += u'@' + QString::number(int(item.enabled)) + u' ' + QString::number(int(item.state)) + u' ' + imageText(item.imageIndex) +
            u' ' + imageText(item.disabledImageIndex) + u' ' + item.text + lineEnd;
  return text.toUtf8();
}

int ParameterFiles::signature(const std::vector<CheckItem>& items) {
  QString texts;
  for (const CheckItem& item : items) texts += item.text + lineEnd;
  return TextTools::CalcStrChecksum(texts, true);
}

bool ParameterFiles::takeSwitches(const QByteArray& bytes, std::vector<CheckItem>& items) {
  const std::vector<CheckItem> read = readCheckList(bytes);
  if (signature(read) != signature(items)) return false;
  for (size_t i = 0; i < std::min(read.size(), items.size()); ++i) {
    const QString text = items[i].text;
    items[i] = read[i];
    items[i].text = text;
  }
  return true;
}

void ParameterFiles::readStatuses(const QByteArray& bytes, std::vector<StatusRow>& rows) {
  QSet<QString> seen;
  for (const QString& line : TextLines::read(bytes)) {
    const QStringList fields = line.split(u'\t');
    if (fields.size() != 3 || seen.contains(fields[0])) continue;
    seen.insert(fields[0]);
    for (StatusRow& row : rows) {
      if (row.islemColorIslemAdi != fields[0]) continue;
      if (fields[1].isEmpty() || rgbOf(fields[1])) row.islemColorRenkSec = fields[1];
      if (fields[2] == activeWord() || fields[2] == passiveWord()) row.active = fields[2] == activeWord();
    }
  }
}

QByteArray ParameterFiles::writeStatuses(const std::vector<StatusRow>& rows) {
  QString text;
  for (const StatusRow& row : rows)
    text += row.islemColorIslemAdi + u'\t' + row.islemColorRenkSec + u'\t' + (row.active ? activeWord() : passiveWord()) + lineEnd;
  return text.toUtf8();
}

QString ParameterFiles::activeWord() { return u"AKTİF"_s; }
QString ParameterFiles::passiveWord() { return u"PASİF"_s; }

std::optional<quint32> ParameterFiles::rgbOf(const QString& colour) {
  constexpr auto prefix = "0x00"_L1;
  constexpr qsizetype length = 10;
  if (colour.size() != length || !colour.startsWith(prefix)) return {};
  const QString digits = colour.mid(prefix.size());
  const bool isHexadecimal = std::all_of(digits.begin(), digits.end(), [](QChar c) {
    return isDigit(c) || (c >= u'a' && c <= u'f') || (c >= u'A' && c <= u'F');
  });
  return isHexadecimal ? std::optional(digits.toUInt(nullptr, 16)) : std::nullopt;
}

const std::vector<NamedColour>& ParameterFiles::namedColours() {
  static const std::vector<NamedColour> colours{
      {u"Renksiz"_s, {}},
      {u"Siyah"_s, u"0x00000000"_s},
      {u"Koyu Gri"_s, u"0x00404040"_s},
      {u"Gri"_s, u"0x00808080"_s},
      {u"Gümüş"_s, u"0x00C0C0C0"_s},
      {u"Beyaz"_s, u"0x00FFFFFF"_s},
      {u"Bordo"_s, u"0x00800000"_s},
      {u"Kırmızı"_s, u"0x00FF0000"_s},
      {u"Kahverengi"_s, u"0x008B4513"_s},
      {u"Turuncu"_s, u"0x00FF8000"_s},
      {u"Sarı"_s, u"0x00FFFF00"_s},
      {u"Zeytin Yeşili"_s, u"0x00808000"_s},
      {u"Yeşil"_s, u"0x00008000"_s},
      {u"Açık Yeşil"_s, u"0x0000FF00"_s},
      {u"Petrol Mavisi"_s, u"0x00008080"_s},
      {u"Turkuaz"_s, u"0x0000FFFF"_s},
      {u"Lacivert"_s, u"0x00000080"_s},
      {u"Mavi"_s, u"0x000000FF"_s},
      {u"Mor"_s, u"0x00800080"_s},
      {u"Fuşya"_s, u"0x00FF00FF"_s},
  };
  return colours;
}

QString ParameterFiles::nameOf(const QString& colour) {
  const auto rgb = rgbOf(colour);
  for (const NamedColour& named : namedColours())
    if (rgb && rgbOf(named.colour) == rgb) return named.name;
  return colour;
}

std::optional<QByteArray> ParameterFiles::load(const QString& file) {
  if (!QFileInfo::exists(file)) return {};
  QFile in(file);
  const bool isOpen = QFileInfo(file).isFile() && in.open(QIODevice::ReadOnly);
  const QByteArray bytes = isOpen ? in.readAll() : QByteArray();
  if (!isOpen || in.error() != QFileDevice::NoError) throw EInOutError(u"%1 dosyası okunamadı: %2"_s.arg(file, in.errorString()));
  return bytes;
}

void ParameterFiles::save(const QString& file, const QByteArray& bytes) { WholeFile::replace(file, bytes); }
