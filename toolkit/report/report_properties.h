#pragma once

#include <QByteArray>
#include <QColor>
#include <QString>
#include <QStringView>

#include <optional>
#include <variant>
#include <vector>

/// The one description of what a report is made of. Reader, writer, layout, inspector and undo all go by these tables: a new
/// property of an object is one more line here.

/// Foreign nodes are what this version does not know, and comments: kept as they were read.
enum class NodeKind { Report, Page, Band, Text, Line, Rectangle, Picture, Barcode, RichText, CheckMark, Foreign };

enum class PropertyType {
  Text,         ///< QString; expressions stand in it between brackets
  Expression,   ///< QString: one expression, without brackets
  Millimetres,  ///< double
  Integer,      ///< int
  Boolean,      ///< bool
  Choice,       ///< QString: one of the words
  Sides,        ///< QString: words of "left top right bottom", or nothing
  Color,        ///< QColor; an invalid one is none
  Font,         ///< ReportFont
  Format,       ///< QString: display format of numbers or dates
  Picture,      ///< QByteArray: a picture file's bytes
};

struct ReportFont {
  QString family = QStringLiteral("Arial");
  double points = 10;
  bool bold = false;
  bool italic = false;
  bool underline = false;
  bool strikeOut = false;
  bool operator==(const ReportFont&) const = default;
};

using PropertyValue = std::variant<bool, int, double, QString, QColor, ReportFont, QByteArray>;

struct PropertyChoice {
  QString word;     ///< in the file
  QString caption;  ///< in the inspector
};

struct PropertyInfo {
  QString name;     ///< attribute in the file
  QString caption;  ///< in the inspector
  PropertyType type = PropertyType::Text;
  PropertyValue initial = QString();  ///< what is not written in a file
  std::vector<PropertyChoice> choices = {};
  double least = 0;    ///< of millimetres and integers
  double most = 2000;
  bool isContent = false;  ///< stands between the element's tags and not in an attribute
};

/// Properties of a kind in their order; none for Foreign.
const std::vector<PropertyInfo>& propertiesOf(NodeKind kind);
/// Place of a property in that list; nothing when the kind has none of that name.
std::optional<size_t> findProperty(NodeKind kind, QStringView name);

/// Element name of a kind in the file.
QString elementName(NodeKind kind);
std::optional<NodeKind> kindOfElement(QStringView element);
/// Turkish name of a kind, as a designer shows it.
QString kindCaption(NodeKind kind);
bool isObject(NodeKind kind);

/// The value as it stands in the file.
QString propertyText(const PropertyInfo& property, const PropertyValue& value);
/// Reads what propertyText writes. Throws EConvertError with the reason in Turkish.
PropertyValue propertyFromText(const PropertyInfo& property, const QString& text);
