#include "toolkit/report/designer/report_editor.h"

#include "toolkit/report/designer/report_steps.h"

#include <QSet>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// Nodes in document order, those left out that stand within another one of them.
std::vector<NodePlace> placesOf(ReportDocument& document, const std::vector<ReportNode*>& nodes) {
  const QSet<ReportNode*> wanted(nodes.begin(), nodes.end());
  const auto isWithin = [&](ReportNode* node) {
    for (ReportNode* above = node->parent(); above; above = above->parent())
      if (wanted.contains(above)) return true;
    return false;
  };
  std::vector<NodePlace> places;
  document.forEach([&](ReportNode& node) {
    if (wanted.contains(&node) && node.parent() && !isWithin(&node)) places.push_back({node.parent(), node.index(), &node});
  });
  return places;
}

size_t pageCount(const ReportDocument& document) {
  const auto& all = document.root().children();
  return size_t(std::count_if(all.begin(), all.end(), [](const auto& each) { return each->kind() == NodeKind::Page; }));
}

}  // namespace

Gesture::Gesture(ReportEditor& editor, const QString& name) : editor_(editor), name_(name) {
  if (!editor_.gesture_) editor_.gesture_ = this;
}

Gesture::~Gesture() {
  if (editor_.gesture_ != this) return;
  editor_.gesture_ = nullptr;
  if (isBegun_) editor_.steps_.endMacro();
}

void ReportEditor::push(QUndoCommand* step) {
  if (gesture_ && !gesture_->isBegun_) {
    steps_.beginMacro(gesture_->name_);
    gesture_->isBegun_ = true;
  }
  steps_.push(step);
}

ReportEditor::ReportEditor(QObject* parent) : QObject(parent) { open(ReportDocument()); }

void ReportEditor::open(ReportDocument document) {
  select(std::vector<ReportNode*>());
  steps_.clear();
  document_ = std::move(document);
  if (pages().empty()) root().append(std::make_unique<ReportNode>(NodeKind::Page));
  page_ = nullptr;
  findPage({});
  Q_EMIT replaced();
}

std::vector<ReportNode*> ReportEditor::pages() {
  std::vector<ReportNode*> all;
  for (const auto& child : root().children())
    if (child->kind() == NodeKind::Page) all.push_back(child.get());
  return all;
}

void ReportEditor::showPage(ReportNode& page) {
  if (page_ == &page) return;
  page_ = &page;
  if (!selection_.empty() && pageOf(selection_.front()) != page_) select(std::vector<ReportNode*>());
  Q_EMIT pageShown();
}

void ReportEditor::findPage(const std::vector<ReportNode*>& nodes) {
  const std::vector<ReportNode*> all = pages();
  for (ReportNode* node : nodes)
    if (ReportNode* page = pageOf(node); page && std::find(all.begin(), all.end(), page) != all.end()) return showPage(*page);
  if (all.empty()) return;
  if (std::find(all.begin(), all.end(), page_) == all.end()) showPage(*all.front());
}

void ReportEditor::change(const QString& name, PropertyChanges changes, bool joins) {
  std::erase_if(changes, [](const PropertyChange& each) { return each.node->value(each.property) == each.value; });
  if (!changes.empty()) push(new ChangeStep(*this, name, std::move(changes), joins));
}

std::vector<ReportNode*> ReportEditor::insert(const QString& name, ReportNode& parent, size_t place,
                                              std::vector<std::unique_ptr<ReportNode>> nodes) {
  std::vector<NodePlace> places;
  std::vector<ReportNode*> all;
  place = std::min(place, parent.children().size());
  for (std::unique_ptr<ReportNode>& node : nodes) {
    all.push_back(node.get());
    places.push_back({&parent, place + places.size(), node.get(), std::move(node)});
  }
  if (!places.empty()) push(new PlaceStep(*this, name, std::move(places), true));
  return all;
}

ReportNode* ReportEditor::insert(const QString& name, ReportNode& parent, size_t place, std::unique_ptr<ReportNode> node) {
  std::vector<std::unique_ptr<ReportNode>> one;
  one.push_back(std::move(node));
  return insert(name, parent, place, std::move(one)).front();
}

void ReportEditor::remove(const QString& name, const std::vector<ReportNode*>& nodes) {
  std::vector<NodePlace> places = placesOf(document_, nodes);
  const auto pages = size_t(std::count_if(places.begin(), places.end(), [](const NodePlace& each) { return each.node->kind() == NodeKind::Page; }));
  if (pages > 0 && pages >= pageCount(document_)) return;
  if (!places.empty()) push(new PlaceStep(*this, name, std::move(places), false));
}

void ReportEditor::move(const QString& name, ReportNode& node, ReportNode& parent, size_t place) {
  if (node.parent() == &parent && node.index() == place) return;
  push(new MoveStep(*this, name, node, parent, place));
}

void ReportEditor::replace(const QString& name, ReportDocument document) {
  if (pageCount(document) == 0) document.root().append(std::make_unique<ReportNode>(NodeKind::Page));
  push(new ReplaceStep(*this, name, std::move(document)));
}

std::vector<ReportNode*> ReportEditor::selectedObjects() const {
  return !selection_.empty() && isObject(selection_.front()->kind()) ? selection_ : std::vector<ReportNode*>();
}

bool ReportEditor::isSelected(const ReportNode* node) const { return std::find(selection_.begin(), selection_.end(), node) != selection_.end(); }

void ReportEditor::select(std::vector<ReportNode*> nodes) {
  if (nodes.size() > 1) {
    const ReportNode* page = pageOf(nodes.front());
    std::erase_if(nodes, [&](ReportNode* node) { return !isObject(node->kind()) || pageOf(node) != page; });
  }
  if (nodes == selection_) return;
  selection_ = std::move(nodes);
  Q_EMIT selectionChanged();
}

void ReportEditor::leaveOut(const std::vector<ReportNode*>& nodes) {
  const QSet<const ReportNode*> gone(nodes.begin(), nodes.end());
  std::vector<ReportNode*> left = selection_;
  std::erase_if(left, [&](const ReportNode* node) {
    for (; node; node = node->parent())
      if (gone.contains(node)) return true;
    return false;
  });
  select(std::move(left));
}

const ReportNode* pageOf(const ReportNode* node) {
  while (node && node->kind() != NodeKind::Page) node = node->parent();
  return node;
}

ReportNode* pageOf(ReportNode* node) {
  while (node && node->kind() != NodeKind::Page) node = node->parent();
  return node;
}

QString freeName(const ReportDocument& document, NodeKind kind, const QString& wanted, const QStringList& taken) {
  QSet<QString> used(taken.begin(), taken.end());
  const auto collect = [&](const auto& self, const ReportNode& node) -> void {
    if (node.kind() != NodeKind::Foreign) used.insert(node.name());
    for (const auto& child : node.children()) self(self, *child);
  };
  collect(collect, document.root());
  if (!wanted.isEmpty() && !used.contains(wanted)) return wanted;
  QString stem = wanted.isEmpty() ? kindCaption(kind).remove(u' ') : wanted;
  while (!stem.isEmpty() && stem.back().isDigit()) stem.chop(1);
  for (int number = 1;; ++number)
    if (const QString name = stem + QString::number(number); !used.contains(name)) return name;
}
