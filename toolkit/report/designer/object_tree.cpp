#include "toolkit/report/designer/object_tree.h"

#include "base/guard.h"
#include "toolkit/report/designer/design_canvas.h"
#include "toolkit/report/designer/design_faults.h"

#include <QScopedValueRollback>
#include <QTimer>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QIcon iconOf(NodeKind kind) {
  switch (kind) {
    case NodeKind::Text: return QIcon::fromTheme(u"draw-text"_s);
    case NodeKind::Line: return QIcon::fromTheme(u"draw-line"_s);
    case NodeKind::Rectangle: return QIcon::fromTheme(u"draw-rectangle"_s);
    case NodeKind::Picture: return QIcon::fromTheme(u"insert-image"_s);
    case NodeKind::Barcode: return QIcon::fromTheme(u"view-barcode"_s);
    case NodeKind::RichText: return QIcon::fromTheme(u"text-x-generic"_s);
    case NodeKind::CheckMark: return QIcon::fromTheme(u"checkbox"_s);
    default: return QIcon::fromTheme(u"view-list-text"_s);
  }
}

}  // namespace

ObjectTree::ObjectTree(DesignCanvas& canvas, QWidget* parent) : QTreeWidget(parent), canvas_(canvas), rest_(new QTimer(this)) {
  setObjectName(u"objects"_s);
  setAccessibleName(u"Nesneler"_s);
  setHeaderHidden(true);
  setFrameShape(NoFrame);
  setIndentation(12);
  setUniformRowHeights(true);
  setSelectionMode(ExtendedSelection);
  rest_->setSingleShot(true);
  rest_->setInterval(0);
  connectGuarded(rest_, &QTimer::timeout, this, [this] {
    fill();
    if (hasFocus()) selectCurrent();
  });
  ReportEditor& editor = canvas.editor();
  const auto anew = [this] {
    const QSignalBlocker quiet(this);
    place_ = 0;
    for (QTreeWidgetItemIterator each(this); *each && *each != currentItem(); ++each) ++place_;
    items_.clear();
    clear();
    rest_->start();
  };
  connectGuarded(&editor, &ReportEditor::inserted, this, [this] { rest_->start(); });
  connectGuarded(&editor, &ReportEditor::removed, this, anew);
  connectGuarded(&editor, &ReportEditor::pageShown, this, anew);
  connectGuarded(&editor, &ReportEditor::changed, this, [this](const std::vector<ReportNode*>& nodes) {
    for (ReportNode* node : nodes)
      if (QTreeWidgetItem* item = items_.value(node)) item->setText(0, shownName(*node));
  });
  connectGuarded(&editor, &ReportEditor::selectionChanged, this, [this] { showSelection(); });
  connectGuarded(this, &QTreeWidget::itemSelectionChanged, this, [this] { selectShown(); });
  fill();
}

void ObjectTree::fill() {
  const QScopedValueRollback quiet(isShowing_, true);
  clear();
  items_.clear();
  const auto add = [&](ReportNode& node, auto* above) {
    auto* item = new QTreeWidgetItem(above, {shownName(node)});
    item->setIcon(0, iconOf(node.kind()));
    item->setToolTip(0, kindCaption(node.kind()));
    items_.insert(&node, item);
    return item;
  };
  for (const auto& child : canvas_.editor().page()->children()) {
    if (child->kind() == NodeKind::Foreign) continue;
    QTreeWidgetItem* item = add(*child, this);
    for (const auto& object : child->children())
      if (isObject(object->kind())) add(*object, item);
  }
  expandAll();
  showSelection();
}

void ObjectTree::showSelection() {
  const QScopedValueRollback quiet(isShowing_, true);
  if (!isVisible()) return;
  QItemSelection shown;
  for (ReportNode* node : canvas_.editor().selection())
    if (const QTreeWidgetItem* item = items_.value(node)) shown.select(indexFromItem(item), indexFromItem(item));
  selectionModel()->select(shown, QItemSelectionModel::ClearAndSelect);
  if (shown.isEmpty()) return;
  selectionModel()->setCurrentIndex(shown.indexes().back(), QItemSelectionModel::NoUpdate);
  scrollTo(shown.indexes().back());
}

void ObjectTree::showEvent(QShowEvent* event) {
  QTreeWidget::showEvent(event);
  guarded(this, [&] { showSelection(); });
}

void ObjectTree::focusInEvent(QFocusEvent* event) {
  QTreeWidget::focusInEvent(event);
  guarded(this, [&] { selectCurrent(); });
}

void ObjectTree::selectCurrent() {
  if (!selectedItems().isEmpty()) return;
  std::vector<QTreeWidgetItem*> all;
  for (QTreeWidgetItemIterator each(this); *each; ++each) all.push_back(*each);
  if (all.empty()) return;
  QTreeWidgetItem* chosen = currentItem() ? currentItem() : all[std::min(size_t(place_), all.size() - 1)];
  setCurrentItem(chosen, 0, QItemSelectionModel::ClearAndSelect);
}

void ObjectTree::selectShown() {
  if (isShowing_) return;
  std::vector<ReportNode*> nodes;
  for (auto item = items_.begin(); item != items_.end(); ++item)
    if (item.value()->isSelected()) nodes.push_back(item.key());
  if (nodes.empty()) return;
  canvas_.editor().select(nodes);
  canvas_.ensureSeen(*nodes.back());
}
