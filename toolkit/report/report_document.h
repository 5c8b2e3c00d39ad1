#pragma once

#include "toolkit/report/report_properties.h"

#include <functional>
#include <memory>

/// One element of a report with its typed properties and its children. Owns its children; a node that was taken out keeps its
/// identity and can be put back, which is what undo does.
class ReportNode {
 public:
  explicit ReportNode(NodeKind kind);
  ReportNode(const ReportNode&) = delete;
  ReportNode& operator=(const ReportNode&) = delete;

  NodeKind kind() const { return kind_; }
  ReportNode* parent() const { return parent_; }

  /// Look-ups by name throw Exception with the name when the kind has no such property.
  const PropertyValue& value(QStringView property) const;
  /// Sets a property and gives back what it was before. The value must have the property's type.
  PropertyValue setValue(QStringView property, PropertyValue value);
  /// Grows whenever a value is set, except the two of an object's place: as long as it stays, the object looks the same.
  unsigned look() const { return look_; }
  bool flag(QStringView property) const { return std::get<bool>(value(property)); }
  int integer(QStringView property) const { return std::get<int>(value(property)); }
  double millimetres(QStringView property) const { return std::get<double>(value(property)); }
  const QString& text(QStringView property) const { return std::get<QString>(value(property)); }
  QColor color(QStringView property) const { return std::get<QColor>(value(property)); }
  const ReportFont& font(QStringView property) const { return std::get<ReportFont>(value(property)); }
  const QByteArray& picture(QStringView property) const { return std::get<QByteArray>(value(property)); }
  const QString& name() const { return text(u"name"); }

  const std::vector<std::unique_ptr<ReportNode>>& children() const { return children_; }
  /// The node's place among its parent's children.
  size_t index() const;
  ReportNode* insert(size_t place, std::unique_ptr<ReportNode> child);
  ReportNode* append(std::unique_ptr<ReportNode> child) { return insert(children_.size(), std::move(child)); }
  std::unique_ptr<ReportNode> take(size_t place);
  /// A copy of the node and all below it.
  std::unique_ptr<ReportNode> clone() const;

  /// Attributes that this version does not know, kept as they were read.
  std::vector<std::pair<QString, QString>> foreignAttributes;
  /// XML of a Foreign node.
  QString foreignXml;

 private:
  size_t indexOf(QStringView property) const;

  NodeKind kind_;
  unsigned look_ = 0;
  ReportNode* parent_ = nullptr;
  std::vector<PropertyValue> values_;  ///< in the order of propertiesOf(kind_)
  std::vector<std::unique_ptr<ReportNode>> children_;
};

/// A report: a tree of nodes whose root is of the kind Report, below it pages, in them bands and objects. Knows no view.
class ReportDocument {
 public:
  /// An empty report.
  ReportDocument();

  ReportNode& root() { return *root_; }
  const ReportNode& root() const { return *root_; }
  /// First node of that name and kind in document order; null when there is none. The case of the name counts.
  ReportNode* find(QStringView name, NodeKind kind);
  /// Calls for every node in document order.
  void forEach(const std::function<void(ReportNode&)>& work);
  ReportDocument clone() const;

  /// Version of the format that the file was written with.
  int version = 1;
  /// Comments before and behind the root element.
  QString before;
  QString behind;

 private:
  std::unique_ptr<ReportNode> root_;
};
