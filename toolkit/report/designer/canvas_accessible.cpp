#include "toolkit/report/designer/canvas_accessible.h"

#include "toolkit/report/designer/design_canvas.h"
#include "toolkit/report/designer/design_faults.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QPointer>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// Bands and objects of the page in document order.
std::vector<ReportNode*> nodesOf(DesignCanvas& canvas) {
  std::vector<ReportNode*> all;
  if (!canvas.editor().page()) return all;
  for (const auto& child : canvas.editor().page()->children()) {
    if (child->kind() != NodeKind::Foreign) all.push_back(child.get());
    for (const auto& object : child->children())
      if (isObject(object->kind())) all.push_back(object.get());
  }
  return all;
}

/// A band or an object on the canvas. Nodes come and go: one that is not on the page any more is not valid.
class NodeAccessible : public QAccessibleInterface, public QAccessibleActionInterface {
 public:
  NodeAccessible(DesignCanvas& canvas, ReportNode* node) : canvas_(&canvas), node_(node) {}

  bool isValid() const override { return canvas_ && find(); }
  QObject* object() const override { return nullptr; }
  QAccessibleInterface* parent() const override { return canvas_ ? QAccessible::queryAccessibleInterface(canvas_.data()) : nullptr; }
  QAccessibleInterface* child(int) const override { return nullptr; }
  int childCount() const override { return 0; }
  int indexOfChild(const QAccessibleInterface*) const override { return -1; }
  QAccessibleInterface* childAt(int, int) const override { return nullptr; }
  QString text(QAccessible::Text kind) const override {
    if (!isValid()) return {};
    if (kind == QAccessible::Name) return u"%1, %2"_s.arg(shownName(*node_), kindCaption(node_->kind()));
    if (kind == QAccessible::Value && findProperty(node_->kind(), u"text")) return node_->text(u"text");
    if (kind == QAccessible::Description && isObject(node_->kind())) {
      const QRectF place = ownRect(*node_);
      return u"sol %1, üst %2, genişlik %3, yükseklik %4 milimetre"_s.arg(place.left()).arg(place.top()).arg(place.width()).arg(place.height());
    }
    return {};
  }
  void setText(QAccessible::Text kind, const QString& text) override {
    if (isValid() && kind == QAccessible::Value && findProperty(node_->kind(), u"text")) canvas_->editor().change(u"Metni yaz"_s, *node_, u"text"_s, text);
  }
  QRect rect() const override {
    if (!isValid()) return {};
    QRectF place;
    if (isObject(node_->kind()))
      place = canvas_->viewRectOf(*node_);
    else if (const PagePlaces::Band* band = canvas_->places().find(*node_))
      place = canvas_->toView().mapRect(band->rect);
    return QRect(canvas_->viewport()->mapToGlobal(place.topLeft().toPoint()), place.size().toSize());
  }
  QAccessible::Role role() const override {
    if (!isValid()) return QAccessible::NoRole;
    switch (node_->kind()) {
      case NodeKind::Band: return QAccessible::Grouping;
      case NodeKind::Picture:
      case NodeKind::Barcode: return QAccessible::Graphic;
      case NodeKind::Line:
      case NodeKind::Rectangle: return QAccessible::Separator;
      case NodeKind::CheckMark: return QAccessible::CheckBox;
      default: return QAccessible::StaticText;
    }
  }
  QAccessible::State state() const override {
    QAccessible::State state;
    state.selectable = true;
    state.focusable = true;
    if (!isValid()) {
      state.invalid = true;
      return state;
    }
    state.selected = canvas_->editor().isSelected(node_);
    state.focused = state.selected && canvas_->hasFocus() && canvas_->editor().selection().back() == node_;
    state.readOnly = isObject(node_->kind()) && node_->flag(u"locked");
    return state;
  }
  void* interface_cast(QAccessible::InterfaceType type) override {
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
  }
  QStringList actionNames() const override { return {setFocusAction(), pressAction()}; }
  void doAction(const QString& name) override {
    if (!isValid()) return;
    canvas_->editor().select(node_);
    canvas_->setFocus();
    if (name == pressAction()) canvas_->editText(*node_);
  }
  QStringList keyBindingsForAction(const QString& name) const override { return name == pressAction() ? QStringList{u"Enter"_s} : QStringList(); }

 private:
  bool find() const {
    const std::vector<ReportNode*> all = nodesOf(*canvas_);
    return std::find(all.begin(), all.end(), node_) != all.end();
  }

  QPointer<DesignCanvas> canvas_;
  ReportNode* node_;
};

class CanvasAccessible : public QAccessibleWidget {
 public:
  explicit CanvasAccessible(DesignCanvas& canvas) : QAccessibleWidget(&canvas, QAccessible::Canvas, u"Sayfa"_s), canvas_(canvas) {}
  ~CanvasAccessible() override {
    for (const QAccessible::Id id : std::as_const(children_)) QAccessible::deleteAccessibleInterface(id);
  }

  int childCount() const override { return int(nodesOf(canvas_).size()); }
  QAccessibleInterface* child(int index) const override {
    const std::vector<ReportNode*> all = nodesOf(canvas_);
    return index >= 0 && size_t(index) < all.size() ? of(all[size_t(index)]) : nullptr;
  }
  int indexOfChild(const QAccessibleInterface* wanted) const override {
    for (int index = 0; index < childCount(); ++index)
      if (child(index) == wanted) return index;
    return -1;
  }
  QAccessibleInterface* childAt(int x, int y) const override {
    const QPoint inside = canvas_.viewport()->mapFromGlobal(QPoint(x, y));
    ReportNode* object = canvas_.objectAt(canvas_.toView().inverted().map(QPointF(inside)));
    return object ? of(object) : nullptr;
  }
  QAccessibleInterface* focusChild() const override {
    return canvas_.hasFocus() && !canvas_.editor().selection().empty() && canvas_.editor().selection().back()->kind() != NodeKind::Page
               ? of(canvas_.editor().selection().back())
               : nullptr;
  }

 private:
  QAccessibleInterface* of(ReportNode* node) const {
    if (const auto known = children_.constFind(node); known != children_.constEnd()) return QAccessible::accessibleInterface(*known);
    auto* made = new NodeAccessible(canvas_, node);
    children_.insert(node, QAccessible::registerAccessibleInterface(made));
    return made;
  }

  DesignCanvas& canvas_;
  mutable QHash<ReportNode*, QAccessible::Id> children_;
};

QAccessibleInterface* describe(const QString& className, QObject* object) {
  auto* canvas = className == u"DesignCanvas" ? qobject_cast<DesignCanvas*>(object) : nullptr;
  return canvas ? new CanvasAccessible(*canvas) : nullptr;
}

/// Tells of the object that has the keyboard.
void tell(DesignCanvas& canvas, const std::vector<QAccessible::Event>& events) {
  if (!QAccessible::isActive()) return;
  QAccessibleInterface* described = QAccessible::queryAccessibleInterface(&canvas);
  QAccessibleInterface* focused = described ? described->focusChild() : nullptr;
  if (!focused) return;
  for (const QAccessible::Event each : events) {
    QAccessibleEvent event(focused, each);
    QAccessible::updateAccessibility(&event);
  }
}

}  // namespace

void describeCanvases() {
  static const bool isDone = (QAccessible::installFactory(describe), true);
  static_cast<void>(isDone);
}

void tellFocus(DesignCanvas& canvas) { tell(canvas, {QAccessible::Focus}); }

void tellChange(DesignCanvas& canvas) {
  tell(canvas, {QAccessible::LocationChanged, QAccessible::NameChanged, QAccessible::DescriptionChanged});
}
