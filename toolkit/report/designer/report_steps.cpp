#include "toolkit/report/designer/report_steps.h"

#include <algorithm>

void ReportStep::tellRemoved(const std::vector<ReportNode*>& nodes) {
  editor_.leaveOut(nodes);
  editor_.findPage({});
  Q_EMIT editor_.removed(nodes);
  if (nodes.front()->kind() == NodeKind::Page) Q_EMIT editor_.pagesChanged();
}

void ReportStep::showPageOf(const std::vector<ReportNode*>& nodes) { editor_.findPage(nodes); }

void ReportStep::tellInserted(const std::vector<ReportNode*>& nodes) {
  Q_EMIT editor_.inserted(nodes);
  if (nodes.front()->kind() == NodeKind::Page) Q_EMIT editor_.pagesChanged();
  editor_.findPage(nodes);
}

ChangeStep::ChangeStep(ReportEditor& editor, const QString& name, PropertyChanges changes, bool joins)
    : ReportStep(editor, name), changes_(std::move(changes)), joins_(joins) {}

bool ChangeStep::mergeWith(const QUndoCommand* other) {
  const auto& next = static_cast<const ChangeStep&>(*other);
  if (!next.joins_ || text() != next.text()) return false;
  // What this step holds is what stood before it: that is what goes back.
  return std::equal(changes_.begin(), changes_.end(), next.changes_.begin(), next.changes_.end(),
                    [](const PropertyChange& one, const PropertyChange& two) { return one.node == two.node && one.property == two.property; });
}

void ChangeStep::swap() {
  std::vector<ReportNode*> nodes;
  for (PropertyChange& each : changes_) {
    each.value = each.node->setValue(each.property, std::move(each.value));
    if (nodes.empty() || nodes.back() != each.node) nodes.push_back(each.node);
  }
  std::sort(nodes.begin(), nodes.end());
  nodes.erase(std::unique(nodes.begin(), nodes.end()), nodes.end());
  Q_EMIT editor_.changed(nodes);
  showPageOf(nodes);
  for (const ReportNode* node : nodes)
    if (node->kind() == NodeKind::Page) return editor_.pagesChanged();
}

PlaceStep::PlaceStep(ReportEditor& editor, const QString& name, std::vector<NodePlace> places, bool putsIn)
    : ReportStep(editor, name), places_(std::move(places)), putsIn_(putsIn) {}

std::vector<ReportNode*> PlaceStep::nodes() const {
  std::vector<ReportNode*> all;
  for (const NodePlace& place : places_) all.push_back(place.node);
  return all;
}

void PlaceStep::putIn() {
  for (NodePlace& place : places_) place.parent->insert(place.index, std::move(place.out));
  tellInserted(nodes());
  editor_.select(nodes());
}

void PlaceStep::takeOut() {
  for (auto place = places_.rbegin(); place != places_.rend(); ++place) place->out = place->parent->take(place->index);
  tellRemoved(nodes());
}

MoveStep::MoveStep(ReportEditor& editor, const QString& name, ReportNode& node, ReportNode& parent, size_t place)
    : ReportStep(editor, name), node_(node), parent_(&parent), place_(place) {}

void MoveStep::go() {
  ReportNode* parent = node_.parent();
  const size_t place = node_.index();
  const std::vector<ReportNode*> selected = editor_.selection();
  std::unique_ptr<ReportNode> out = parent->take(place);
  Q_EMIT editor_.removed({&node_});
  parent_->insert(place_, std::move(out));
  parent_ = parent;
  place_ = place;
  tellInserted({&node_});
  editor_.select(selected);
}

ReplaceStep::ReplaceStep(ReportEditor& editor, const QString& name, ReportDocument document)
    : ReportStep(editor, name), other_(std::move(document)) {}

void ReplaceStep::swap() {
  editor_.select(std::vector<ReportNode*>());
  std::swap(document(), other_);
  showPageOf({});
  Q_EMIT editor_.replaced();
  Q_EMIT editor_.pagesChanged();
}
