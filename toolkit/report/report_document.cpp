#include "toolkit/report/report_document.h"

#include "base/exceptions.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

void visit(ReportNode& node, const std::function<void(ReportNode&)>& work) {
  work(node);
  for (const auto& child : node.children()) visit(*child, work);
}

}  // namespace

ReportNode::ReportNode(NodeKind kind) : kind_(kind) {
  for (const PropertyInfo& property : propertiesOf(kind)) values_.push_back(property.initial);
}

size_t ReportNode::indexOf(QStringView property) const {
  const auto index = findProperty(kind_, property);
  if (!index) throw Exception(u"%1 has no property '%2'"_s.arg(elementName(kind_), property.toString()));
  return *index;
}

const PropertyValue& ReportNode::value(QStringView property) const { return values_[indexOf(property)]; }

PropertyValue ReportNode::setValue(QStringView property, PropertyValue value) {
  PropertyValue& place = values_[indexOf(property)];
  if (place.index() != value.index()) throw Exception(u"property '%1' of another type"_s.arg(property.toString()));
  if (property != u"left" && property != u"top") ++look_;
  std::swap(place, value);
  return value;
}

size_t ReportNode::index() const {
  const auto& all = parent_->children_;
  return size_t(std::find_if(all.begin(), all.end(), [this](const auto& each) { return each.get() == this; }) - all.begin());
}

ReportNode* ReportNode::insert(size_t place, std::unique_ptr<ReportNode> child) {
  child->parent_ = this;
  return children_.insert(children_.begin() + std::ptrdiff_t(std::min(place, children_.size())), std::move(child))->get();
}

std::unique_ptr<ReportNode> ReportNode::take(size_t place) {
  std::unique_ptr<ReportNode> child = std::move(children_.at(place));
  children_.erase(children_.begin() + std::ptrdiff_t(place));
  child->parent_ = nullptr;
  return child;
}

std::unique_ptr<ReportNode> ReportNode::clone() const {
  auto copy = std::make_unique<ReportNode>(kind_);
  copy->values_ = values_;
  copy->foreignAttributes = foreignAttributes;
  copy->foreignXml = foreignXml;
  for (const auto& child : children_) copy->append(child->clone());
  return copy;
}

ReportDocument::ReportDocument() : root_(std::make_unique<ReportNode>(NodeKind::Report)) {}

ReportNode* ReportDocument::find(QStringView name, NodeKind kind) {
  ReportNode* found = nullptr;
  forEach([&](ReportNode& node) {
    if (!found && node.kind() == kind && kind != NodeKind::Foreign && node.name() == name) found = &node;
  });
  return found;
}

void ReportDocument::forEach(const std::function<void(ReportNode&)>& work) { visit(*root_, work); }

ReportDocument ReportDocument::clone() const {
  ReportDocument copy;
  copy.root_ = root_->clone();
  copy.version = version;
  copy.before = before;
  copy.behind = behind;
  return copy;
}
