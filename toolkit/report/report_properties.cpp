#include "toolkit/report/report_properties.h"

#include "base/exceptions.h"

#include <QLocale>
#include <QStringList>

#include <algorithm>
#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

using Properties = std::vector<PropertyInfo>;

constexpr double mostMillimetres = 2000;

PropertyInfo millimetres(const QString& name, const QString& caption, double initial, double least = 0) {
  return {.name = name, .caption = caption, .type = PropertyType::Millimetres, .initial = initial, .least = least, .most = mostMillimetres};
}

PropertyInfo integer(const QString& name, const QString& caption, int initial, int least, int most) {
  return {.name = name, .caption = caption, .type = PropertyType::Integer, .initial = initial, .least = double(least), .most = double(most)};
}

PropertyInfo flag(const QString& name, const QString& caption, bool initial = false) {
  return {.name = name, .caption = caption, .type = PropertyType::Boolean, .initial = initial};
}

PropertyInfo text(const QString& name, const QString& caption, PropertyType type = PropertyType::Text) {
  return {.name = name, .caption = caption, .type = type};
}

PropertyInfo content(const QString& name, const QString& caption, PropertyType type = PropertyType::Text) {
  PropertyInfo made = text(name, caption, type);
  made.isContent = true;
  if (type == PropertyType::Picture) made.initial = QByteArray();
  return made;
}

PropertyInfo choice(const QString& name, const QString& caption, std::vector<PropertyChoice> choices) {
  PropertyInfo made = text(name, caption, PropertyType::Choice);
  made.initial = choices.front().word;
  made.choices = std::move(choices);
  return made;
}

PropertyInfo color(const QString& name, const QString& caption, const QColor& initial) {
  return {.name = name, .caption = caption, .type = PropertyType::Color, .initial = initial};
}

PropertyInfo font(const ReportFont& initial = {}) {
  return {.name = u"font"_s, .caption = u"Yazı tipi"_s, .type = PropertyType::Font, .initial = initial};
}

PropertyInfo name() { return text(u"name"_s, u"Ad"_s); }

PropertyInfo lineStyle() {
  return choice(u"style"_s, u"Çizgi biçimi"_s, {{u"solid"_s, u"Düz"_s}, {u"dash"_s, u"Kesik"_s}, {u"dot"_s, u"Noktalı"_s}});
}

PropertyInfo horizontalAlignment() {
  return choice(u"align"_s, u"Yatay hizalama"_s,
                {{u"left"_s, u"Sola"_s}, {u"center"_s, u"Ortaya"_s}, {u"right"_s, u"Sağa"_s}, {u"justify"_s, u"İki yana"_s}});
}

PropertyInfo rotation() {
  return choice(u"rotation"_s, u"Döndürme"_s,
                {{u"0"_s, u"Yok"_s}, {u"90"_s, u"90° saat yönünde"_s}, {u"180"_s, u"180°"_s}, {u"270"_s, u"90° saat yönünün tersine"_s}});
}

/// What every object has, and behind it what is its own.
Properties object(Properties own) {
  Properties all = {name(),
                    millimetres(u"left"_s, u"Sol"_s, 0, -mostMillimetres),
                    millimetres(u"top"_s, u"Üst"_s, 0, -mostMillimetres),
                    millimetres(u"width"_s, u"Genişlik"_s, 20),
                    millimetres(u"height"_s, u"Yükseklik"_s, 5),
                    text(u"visible"_s, u"Görünme koşulu"_s, PropertyType::Expression),
                    flag(u"locked"_s, u"Kilitli"_s)};
  all.insert(all.end(), own.begin(), own.end());
  return all;
}

Properties reportProperties() {
  return {name(), text(u"description"_s, u"Açıklama"_s)};
}

Properties pageProperties() {
  std::vector<PropertyChoice> papers;
  for (const QString& paper : {u"A4"_s, u"A3"_s, u"A5"_s, u"A6"_s, u"B5"_s, u"Letter"_s, u"Legal"_s}) papers.push_back({paper, paper});
  papers.push_back({u"own"_s, u"Kendi ölçüsü"_s});
  return {name(),
          choice(u"paper"_s, u"Kâğıt"_s, papers),
          millimetres(u"width"_s, u"Kâğıt genişliği"_s, 210, 5),
          millimetres(u"height"_s, u"Kâğıt yüksekliği"_s, 297, 5),
          choice(u"orientation"_s, u"Yön"_s, {{u"portrait"_s, u"Dikey"_s}, {u"landscape"_s, u"Yatay"_s}}),
          millimetres(u"marginleft"_s, u"Sol kenar boşluğu"_s, 10),
          millimetres(u"margintop"_s, u"Üst kenar boşluğu"_s, 10),
          millimetres(u"marginright"_s, u"Sağ kenar boşluğu"_s, 10),
          millimetres(u"marginbottom"_s, u"Alt kenar boşluğu"_s, 10),
          integer(u"columns"_s, u"Etiket sütunu"_s, 1, 1, 50),
          integer(u"rows"_s, u"Etiket satırı"_s, 1, 1, 100),
          millimetres(u"columngap"_s, u"Sütun arası"_s, 0),
          millimetres(u"rowgap"_s, u"Satır arası"_s, 0),
          integer(u"repeat"_s, u"Her etiketten"_s, 1, 1, 1000)};
}

Properties bandProperties() {
  return {name(),
          choice(u"kind"_s, u"Bant türü"_s,
                 {{u"rows"_s, u"Satırlar"_s},
                  {u"title"_s, u"Rapor başlığı"_s},
                  {u"pageheader"_s, u"Sayfa üstü"_s},
                  {u"pagefooter"_s, u"Sayfa altı"_s},
                  {u"groupheader"_s, u"Grup başlığı"_s},
                  {u"groupfooter"_s, u"Grup altı"_s},
                  {u"summary"_s, u"Rapor sonu"_s}}),
          millimetres(u"height"_s, u"Yükseklik"_s, 10),
          text(u"data"_s, u"Veri kümesi"_s),
          text(u"group"_s, u"Gruplama ifadesi"_s, PropertyType::Expression),
          text(u"visible"_s, u"Görünme koşulu"_s, PropertyType::Expression),
          flag(u"shrinks"_s, u"Kısalabilir"_s),
          flag(u"keeptogether"_s, u"Bölünmesin"_s),
          flag(u"newpage"_s, u"Yeni sayfada başlasın"_s),
          flag(u"repeat"_s, u"Her sayfada yinelensin"_s),
          flag(u"atbottom"_s, u"Sayfanın altına otursun"_s),
          flag(u"firstpage"_s, u"İlk sayfada da bulunsun"_s, true),
          color(u"alternate"_s, u"Çift satırların zemini"_s, QColor())};
}

Properties textProperties() {
  return object({font(),
                 color(u"color"_s, u"Yazı rengi"_s, Qt::black),
                 color(u"background"_s, u"Zemin rengi"_s, QColor()),
                 horizontalAlignment(),
                 choice(u"valign"_s, u"Dikey hizalama"_s, {{u"top"_s, u"Üste"_s}, {u"middle"_s, u"Ortaya"_s}, {u"bottom"_s, u"Alta"_s}}),
                 flag(u"wrap"_s, u"Satıra bölünsün"_s, true),
                 flag(u"grows"_s, u"Uzayabilir"_s),
                 flag(u"shrinks"_s, u"Kısalabilir"_s),
                 flag(u"fit"_s, u"Sığmazsa yazı küçülsün"_s),
                 flag(u"stretches"_s, u"Bandın altına kadar uzasın"_s),
                 millimetres(u"padding"_s, u"İç boşluk"_s, 0.5),
                 integer(u"linespacing"_s, u"Satır aralığı (%)"_s, 100, 50, 400),
                 rotation(),
                 text(u"border"_s, u"Kenarlık"_s, PropertyType::Sides),
                 millimetres(u"borderwidth"_s, u"Kenarlık kalınlığı"_s, 0.2),
                 color(u"bordercolor"_s, u"Kenarlık rengi"_s, Qt::black),
                 text(u"format"_s, u"Biçim"_s, PropertyType::Format),
                 content(u"text"_s, u"Metin"_s)});
}

Properties lineProperties() {
  return object({millimetres(u"linewidth"_s, u"Kalınlık"_s, 0.2), color(u"color"_s, u"Renk"_s, Qt::black), lineStyle(),
                 flag(u"upward"_s, u"Aşağıdan yukarı"_s), flag(u"stretches"_s, u"Bandın altına kadar uzasın"_s)});
}

Properties rectangleProperties() {
  return object({millimetres(u"radius"_s, u"Köşe yarıçapı"_s, 0), millimetres(u"linewidth"_s, u"Kenar kalınlığı"_s, 0.2),
                 color(u"color"_s, u"Kenar rengi"_s, Qt::black), lineStyle(), color(u"background"_s, u"Zemin rengi"_s, QColor()),
                 flag(u"stretches"_s, u"Bandın altına kadar uzasın"_s)});
}

Properties pictureProperties() {
  return object({choice(u"fit"_s, u"Yerleşim"_s, {{u"contain"_s, u"Oranı koru"_s}, {u"fill"_s, u"Doldur"_s}}), horizontalAlignment(),
                 content(u"picture"_s, u"Resim"_s, PropertyType::Picture)});
}

Properties barcodeProperties() {
  return object({choice(u"symbology"_s, u"Barkod türü"_s,
                        {{u"code128"_s, u"Code 128"_s},
                         {u"code39"_s, u"Code 39"_s},
                         {u"ean13"_s, u"EAN-13"_s},
                         {u"ean8"_s, u"EAN-8"_s},
                         {u"itf"_s, u"ITF (2/5)"_s},
                         {u"codabar"_s, u"Codabar"_s},
                         {u"qr"_s, u"QR"_s},
                         {u"datamatrix"_s, u"DataMatrix"_s}}),
                 flag(u"showtext"_s, u"Altında metni yazsın"_s, true), font({.points = 8}), color(u"color"_s, u"Renk"_s, Qt::black), rotation(),
                 content(u"text"_s, u"Metin"_s)});
}

Properties richTextProperties() {
  return object({font(), color(u"color"_s, u"Yazı rengi"_s, Qt::black), horizontalAlignment(), flag(u"grows"_s, u"Uzayabilir"_s, true),
                 content(u"text"_s, u"Metin"_s)});
}

Properties checkMarkProperties() {
  return object({text(u"checked"_s, u"İşaretlenme koşulu"_s, PropertyType::Expression), millimetres(u"linewidth"_s, u"Kalınlık"_s, 0.3),
                 color(u"color"_s, u"Renk"_s, Qt::black), flag(u"frame"_s, u"Çerçeveli"_s, true)});
}

struct Kind {
  QString element;
  QString caption;
  Properties properties;
};

const Kind& kindInfo(NodeKind kind) {
  static const std::array<Kind, 11> kinds = {{{u"report"_s, u"Rapor"_s, reportProperties()},
                                              {u"page"_s, u"Sayfa"_s, pageProperties()},
                                              {u"band"_s, u"Bant"_s, bandProperties()},
                                              {u"text"_s, u"Metin"_s, textProperties()},
                                              {u"line"_s, u"Çizgi"_s, lineProperties()},
                                              {u"rectangle"_s, u"Dikdörtgen"_s, rectangleProperties()},
                                              {u"picture"_s, u"Resim"_s, pictureProperties()},
                                              {u"barcode"_s, u"Barkod"_s, barcodeProperties()},
                                              {u"richtext"_s, u"Zengin metin"_s, richTextProperties()},
                                              {u"checkmark"_s, u"Onay kutusu"_s, checkMarkProperties()},
                                              {{}, {}, {}}}};
  return kinds[size_t(kind)];
}

QString fontText(const ReportFont& value) {
  QString text = u"%1; %2"_s.arg(value.family, QString::number(value.points, 'g', QLocale::FloatingPointShortest));
  QStringList words;
  if (value.bold) words += u"bold"_s;
  if (value.italic) words += u"italic"_s;
  if (value.underline) words += u"underline"_s;
  if (value.strikeOut) words += u"strikeout"_s;
  return words.isEmpty() ? text : text + u"; "_s + words.join(u' ');
}

ReportFont fontFromText(const QString& text) {
  const QStringList parts = text.split(u';');
  ReportFont font;
  font.family = parts[0].trimmed();
  if (font.family.isEmpty()) throw EConvertError(u"yazı tipinin adı yok"_s);
  if (parts.size() > 1) {
    bool isNumber = false;
    font.points = parts[1].trimmed().toDouble(&isNumber);
    if (!isNumber || !(font.points >= 1 && font.points <= 400)) throw EConvertError(u"yazı boyu 1 ile 400 arasında olmalı"_s);
  }
  if (parts.size() > 3) throw EConvertError(u"yazı tipi “ad; boy; biçimler” olarak yazılır"_s);
  if (parts.size() < 3) return font;
  for (const QString& word : parts[2].split(u' ', Qt::SkipEmptyParts)) {
    if (word == u"bold")
      font.bold = true;
    else if (word == u"italic")
      font.italic = true;
    else if (word == u"underline")
      font.underline = true;
    else if (word == u"strikeout")
      font.strikeOut = true;
    else
      throw EConvertError(u"“%1” bir yazı biçimi değil (bold, italic, underline, strikeout)"_s.arg(word));
  }
  return font;
}

double numberFromText(const PropertyInfo& property, const QString& text) {
  bool isNumber = false;
  const double number = text.trimmed().toDouble(&isNumber);
  if (!isNumber || !std::isfinite(number)) throw EConvertError(u"“%1” bir sayı değil (ondalık işareti noktadır)"_s.arg(text));
  if (number < property.least || number > property.most)
    throw EConvertError(u"%1 ile %2 arasında olmalı"_s.arg(property.least).arg(property.most));
  return number;
}

QString wordFromText(const PropertyInfo& property, const QString& text) {
  QStringList words;
  for (const PropertyChoice& each : property.choices) {
    if (each.word == text) return text;
    words += each.word;
  }
  throw EConvertError(u"“%1” bilinmiyor; şunlardan biri olmalı: %2"_s.arg(text, words.join(u", "_s)));
}

QString sidesFromText(const QString& text) {
  static const QStringList sides = {u"left"_s, u"top"_s, u"right"_s, u"bottom"_s};
  const QStringList words = text.split(u' ', Qt::SkipEmptyParts);
  if (words == QStringList{u"all"_s}) return sides.join(u' ');
  for (const QString& word : words)
    if (!sides.contains(word)) throw EConvertError(u"“%1” bir kenar değil (left, top, right, bottom, all)"_s.arg(word));
  return words.join(u' ');
}

QByteArray pictureFromText(const QString& text) {
  QByteArray base64;
  for (const QChar letter : text)
    if (!letter.isSpace()) base64 += letter.unicode() < 128 ? char(letter.unicode()) : '?';
  const auto result = QByteArray::fromBase64Encoding(base64, QByteArray::AbortOnBase64DecodingErrors);
  if (!result) throw EConvertError(u"resim base64 ile yazılmamış"_s);
  return *result;
}

}  // namespace

const Properties& propertiesOf(NodeKind kind) { return kindInfo(kind).properties; }

std::optional<size_t> findProperty(NodeKind kind, QStringView name) {
  const Properties& all = propertiesOf(kind);
  const auto found = std::find_if(all.begin(), all.end(), [&](const PropertyInfo& each) { return each.name == name; });
  if (found == all.end()) return {};
  return size_t(found - all.begin());
}

QString elementName(NodeKind kind) { return kindInfo(kind).element; }

std::optional<NodeKind> kindOfElement(QStringView element) {
  for (int kind = 0; kind < int(NodeKind::Foreign); ++kind)
    if (elementName(NodeKind(kind)) == element) return NodeKind(kind);
  return {};
}

QString kindCaption(NodeKind kind) { return kindInfo(kind).caption; }

bool isObject(NodeKind kind) { return kind > NodeKind::Band && kind < NodeKind::Foreign; }

QString propertyText(const PropertyInfo& property, const PropertyValue& value) {
  switch (property.type) {
    case PropertyType::Millimetres: return QString::number(std::get<double>(value), 'g', QLocale::FloatingPointShortest);
    case PropertyType::Integer: return QString::number(std::get<int>(value));
    case PropertyType::Boolean: return std::get<bool>(value) ? u"true"_s : u"false"_s;
    case PropertyType::Color: {
      const QColor shown = std::get<QColor>(value);
      if (!shown.isValid()) return u"none"_s;
      return shown.name(shown.alpha() == 255 ? QColor::HexRgb : QColor::HexArgb);
    }
    case PropertyType::Font: return fontText(std::get<ReportFont>(value));
    case PropertyType::Picture: return QString::fromLatin1(std::get<QByteArray>(value).toBase64());
    default: return std::get<QString>(value);
  }
}

PropertyValue propertyFromText(const PropertyInfo& property, const QString& text) {
  switch (property.type) {
    case PropertyType::Millimetres: return numberFromText(property, text);
    case PropertyType::Integer: {
      const double number = numberFromText(property, text);
      if (number != std::floor(number)) throw EConvertError(u"“%1” tam sayı değil"_s.arg(text));
      return int(number);
    }
    case PropertyType::Boolean:
      if (text == u"true") return true;
      if (text == u"false") return false;
      throw EConvertError(u"“%1” yerine true ya da false olmalı"_s.arg(text));
    case PropertyType::Choice: return wordFromText(property, text);
    case PropertyType::Sides: return sidesFromText(text);
    case PropertyType::Color: {
      if (text == u"none") return QColor();
      const QColor made(text);
      if (!made.isValid()) throw EConvertError(u"“%1” bir renk değil (#rrggbb ya da none)"_s.arg(text));
      return made;
    }
    case PropertyType::Font: return fontFromText(text);
    case PropertyType::Picture: return pictureFromText(text);
    default: return QString(text).replace(u"\r\n"_s, u"\n"_s);
  }
}
