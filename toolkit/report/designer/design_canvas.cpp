#include "toolkit/report/designer/design_canvas.h"

#include "base/guard.h"
#include "toolkit/report/designer/canvas_accessible.h"
#include "toolkit/report/designer/canvas_marks.h"
#include "toolkit/report/designer/object_item.h"
#include "toolkit/report/designer/text_in_place.h"

#include <QGraphicsScene>
#include <QPainter>
#include <QScrollBar>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr double dotsPerMillimetreAtFull = 96 / 25.4;
constexpr double leastZoom = 0.1;
constexpr double mostZoom = 8;
constexpr double leastFitZoom = 0.25;
constexpr double mostFitZoom = 3;
constexpr double readableZoom = 0.45;
constexpr double gap = 28;           ///< dots around the paper
constexpr double tagShare = 0.2;     ///< of the view's width that the names of the bands may take
constexpr double leastTag = 60;      ///< dots
constexpr double mostTag = 132;
constexpr double gridStep = 1;       ///< mm
constexpr double snapReach = 6;      ///< dots
constexpr double takingReach = 3;    ///< dots beside an edge at which the mouse still takes it
constexpr double bandsAbovePage = 1e6;

}  // namespace

DesignCanvas::DesignCanvas(ReportEditor& editor, const DesignSample& sample, QWidget* parent)
    : QGraphicsView(parent), editor_(editor), commands_(editor), sample_(sample) {
  setObjectName(u"canvas"_s);
  setAccessibleName(u"Sayfa"_s);
  setScene(new QGraphicsScene(this));
  scene()->setItemIndexMethod(QGraphicsScene::NoIndex);  // all of them are seen, and all of them move
  setFrameShape(NoFrame);
  setViewportUpdateMode(FullViewportUpdate);
  setTransformationAnchor(AnchorUnderMouse);
  setOptimizationFlags(DontSavePainterState | DontAdjustForAntialiasing);
  setMouseTracking(true);
  viewport()->setMouseTracking(true);
  setAcceptDrops(true);
  setFocusPolicy(Qt::StrongFocus);
  setTransform(QTransform::fromScale(dotsPerMillimetreAtFull, dotsPerMillimetreAtFull));
  connectGuarded(&editor, &ReportEditor::changed, this, [this](const std::vector<ReportNode*>& nodes) { refresh(nodes); });
  connectGuarded(&editor, &ReportEditor::inserted, this, [this](const std::vector<ReportNode*>& nodes) {
    for (ReportNode* node : nodes)
      if (node->kind() != NodeKind::Page && pageOf(node) == editor_.page()) addItems(*node);
    remeasure();
  });
  connectGuarded(&editor, &ReportEditor::removed, this, [this](const std::vector<ReportNode*>& nodes) {
    for (ReportNode* node : nodes) dropItems(*node);
    if (nodes.front()->kind() != NodeKind::Page) remeasure();
  });
  connectGuarded(&editor, &ReportEditor::pageShown, this, [this] {
    rebuild();
    fitReadable();
  });
  connectGuarded(&editor, &ReportEditor::selectionChanged, this, [this] {
    viewport()->update();
    tellFocus(*this);
  });
  describeCanvases();
  rebuild();
}

DesignCanvas::~DesignCanvas() = default;

// The scene follows the document

void DesignCanvas::rebuild() {
  endGesture(false);
  if (textInPlace_) textInPlace_->end(false);
  scene()->clear();
  items_.clear();
  places_ = std::make_unique<PagePlaces>(*editor_.page());
  addItems(*editor_.page());
  remeasure();
}

void DesignCanvas::addItems(ReportNode& node) {
  if (isObject(node.kind())) {
    auto* item = new ObjectItem(node);
    item->show(sample_, withData_);
    scene()->addItem(item);
    items_.insert(&node, item);
  }
  for (const auto& child : node.children()) addItems(*child);
}

void DesignCanvas::dropItems(ReportNode& node) {
  endGesture(false);
  if (textInPlace_ && &textInPlace_->object() == &node) textInPlace_->end(false);
  delete items_.take(&node);
  for (const auto& child : node.children()) dropItems(*child);
}

void DesignCanvas::remeasure() {
  if (!editor_.page()) return;
  places_ = std::make_unique<PagePlaces>(*editor_.page());
  const double scale = toView().m11();
  const double room = gap / scale;
  const double tags = places_->bands().empty() ? room : (tagWidth() + gap / 2) / scale;
  scene()->setSceneRect(places_->whole().adjusted(-tags, -room, room, room));
  placeItems();
}

void DesignCanvas::placeItems() {
  // What stands on the page itself is painted below the bands, as on paper.
  double order = 0;
  for (const auto& child : editor_.page()->children()) {
    if (ObjectItem* item = items_.value(child.get())) {
      item->moveTo(places_->rectOf(*child).topLeft());
      item->setZValue(++order);
    }
    for (const auto& object : child->children()) {
      ObjectItem* item = items_.value(object.get());
      if (!item) continue;
      item->moveTo(places_->rectOf(*object).topLeft());
      item->setZValue(bandsAbovePage + ++order);
    }
  }
  viewport()->update();
}

void DesignCanvas::refresh(const std::vector<ReportNode*>& nodes) {
  bool isLarger = false;
  for (ReportNode* node : nodes) {
    if (node->kind() == NodeKind::Report || pageOf(node) != editor_.page()) continue;
    if (ObjectItem* item = items_.value(node)) {
      item->refresh(sample_, withData_);
      item->moveTo(places_->rectOf(*node).topLeft());
      continue;
    }
    isLarger = true;
    for (const auto& child : node->children())
      if (ObjectItem* item = items_.value(child.get()); item && withData_) item->show(sample_, withData_);
  }
  isLarger ? remeasure() : viewport()->update();
  tellChange(*this);
}

void DesignCanvas::showSample(bool withData) {
  withData_ = withData;
  for (ObjectItem* item : std::as_const(items_)) item->show(sample_, withData_);
  viewport()->update();
}

void DesignCanvas::markFaults(const std::vector<const ReportNode*>& nodes) {
  for (auto item = items_.begin(); item != items_.end(); ++item)
    (*item)->setFaulty(std::find(nodes.begin(), nodes.end(), item.key()) != nodes.end());
}

// View

double DesignCanvas::tagWidth() const { return std::clamp(std::round(viewport()->width() * tagShare), leastTag, mostTag); }

CanvasMarks DesignCanvas::marksNow() const { return {*places_, toView(), palette(), font(), tagWidth()}; }

double DesignCanvas::zoom() const { return transform().m11() / dotsPerMillimetreAtFull; }

void DesignCanvas::zoomTo(double zoom) {
  const double scale = std::clamp(zoom, leastZoom, mostZoom) * dotsPerMillimetreAtFull;
  endText();
  setTransform(QTransform::fromScale(scale, scale));
  remeasure();
  Q_EMIT zoomChanged();
}

void DesignCanvas::fitPage() {
  // Of a sheet of labels the one that is designed is shown.
  const QRectF seen = places_->sheet().isSheet() ? places_->cell() : places_->whole();
  const double tags = places_->bands().empty() ? gap : tagWidth() + gap / 2;
  const double across = (viewport()->width() - tags - gap) / seen.width();
  const double down = (viewport()->height() - 2 * gap) / seen.height();
  const double fit = std::min(across, down) / dotsPerMillimetreAtFull;
  zoomTo(std::clamp(fit, leastFitZoom, mostFitZoom));
  centerOn(seen.center() - QPointF((tags - gap) / 2 / toView().m11(), 0));
  // A paper that a small view does not hold is shown from its corner; the bands' tags are left of it.
  if (fit < leastFitZoom) {
    horizontalScrollBar()->setValue(horizontalScrollBar()->minimum() + static_cast<int>(tags - gap / 2));
    verticalScrollBar()->setValue(verticalScrollBar()->minimum());
  }
}

void DesignCanvas::fitReadable() {
  fitPage();
  const double whole = zoom();
  if (whole >= readableZoom) return;
  fitWidth();
  if (zoom() > 1) zoomTo(1);
  if (zoom() <= whole) fitPage();
}

void DesignCanvas::fitWidth() {
  const double tags = places_->bands().empty() ? gap : tagWidth() + gap / 2;
  zoomTo((viewport()->width() - tags - gap) / places_->sheet().paper.width() / dotsPerMillimetreAtFull);
  horizontalScrollBar()->setValue(horizontalScrollBar()->minimum());
  verticalScrollBar()->setValue(verticalScrollBar()->minimum());
}

void DesignCanvas::showGrid(bool isShown) {
  isGridShown_ = isShown;
  viewport()->update();
}

void DesignCanvas::ensureSeen(const ReportNode& node) {
  if (isObject(node.kind()))
    ensureVisible(places_->rectOf(node), 40, 40);
  else if (const PagePlaces::Band* band = places_->find(node))
    ensureVisible(band->rect, 10, 40);
}

QRectF DesignCanvas::viewRectOf(const ReportNode& object) const { return toView().mapRect(places_->rectOf(object)); }

// Work

void DesignCanvas::setTool(std::optional<NodeKind> tool) {
  if (tool == tool_) return;
  tool_ = tool;
  viewport()->setCursor(tool ? Qt::CrossCursor : Qt::ArrowCursor);
  Q_EMIT toolChanged();
}

bool DesignCanvas::editText(ReportNode& object) {
  if (!isObject(object.kind()) || !findProperty(object.kind(), u"text")) return false;
  ensureSeen(object);
  endText();
  textInPlace_ = new TextInPlace(*this, object);
  connectGuarded(textInPlace_, &TextInPlace::ended, this, [this] { textInPlace_ = nullptr; });
  return true;
}

bool DesignCanvas::editContent(ReportNode& object) {
  if (object.kind() != NodeKind::Picture) return editText(object);
  editor_.select(&object);
  Q_EMIT pictureAsked();
  return true;
}

void DesignCanvas::endText() {
  if (textInPlace_) textInPlace_->end(true);
}

PropertyChanges DesignCanvas::written() const {
  if (!textInPlace_) return {};
  return {{&textInPlace_->object(), u"text"_s, textInPlace_->text()}};
}

void DesignCanvas::created(ReportNode* object) {
  setTool({});
  const NodeKind kind = object->kind();
  if (kind == NodeKind::Text || kind == NodeKind::RichText || kind == NodeKind::Picture) editContent(*object);
  if (kind == NodeKind::Barcode) Q_EMIT told(u"Bir veriyi barkodun üstüne bırakın ya da çift tıklayıp yazın"_s);
}

Snapping::Rules DesignCanvas::snapRules(Qt::KeyboardModifiers modifiers) const {
  if (!snaps_ || (modifiers & Qt::AltModifier)) return {.reach = 0};
  return {.reach = snapReach / toView().m11(), .grid = isGridShown_ ? gridStep : 0, .gridOrigin = places_->cell().topLeft()};
}

void DesignCanvas::previewMove(const std::vector<ReportNode*>& objects, QPointF by) {
  for (const ReportNode* object : objects)
    if (ObjectItem* item = items_.value(object); item && !object->flag(u"locked")) item->setPos(places_->rectOf(*object).topLeft() + by);
  viewport()->update();
}

void DesignCanvas::previewStretch(const std::vector<ReportNode*>& objects, const QRectF& from, const QRectF& to) {
  const double across = from.width() > 0 ? to.width() / from.width() : 1;
  const double down = from.height() > 0 ? to.height() / from.height() : 1;
  for (const ReportNode* object : objects) {
    ObjectItem* item = items_.value(object);
    if (!item || object->flag(u"locked")) continue;
    const QRectF rect = places_->rectOf(*object);
    item->setPos(to.left() + (rect.left() - from.left()) * across, to.top() + (rect.top() - from.top()) * down);
    item->preview({rect.width() * across, rect.height() * down});
  }
  viewport()->update();
}

std::vector<ReportNode*> DesignCanvas::objectsIn(const QRectF& rect) const {
  std::vector<ReportNode*> found;
  const auto look = [&](const ReportNode& parent) {
    for (const auto& child : parent.children()) {
      if (!isObject(child->kind())) continue;
      const QRectF own = places_->rectOf(*child);
      // The rectangle of a line may be empty, which QRectF's own test leaves out.
      if (own.left() <= rect.right() && own.right() >= rect.left() && own.top() <= rect.bottom() && own.bottom() >= rect.top())
        found.push_back(child.get());
    }
  };
  look(*editor_.page());
  for (const auto& child : editor_.page()->children()) look(*child);
  return found;
}

ReportNode* DesignCanvas::objectAt(QPointF place) const {
  const double reach = takingReach / toView().m11();
  const std::vector<ReportNode*> all = objectsIn(QRectF(place - QPointF(reach, reach), QSizeF(2 * reach, 2 * reach)));
  // The uppermost one; but a frame is taken by its edge where something stands in it.
  ReportNode* frame = nullptr;
  for (auto object = all.rbegin(); object != all.rend(); ++object) {
    if (!isWithinFrame(**object, place)) return *object;
    if (!frame) frame = *object;
  }
  return frame;
}

bool DesignCanvas::isWithinFrame(const ReportNode& object, QPointF place) const {
  const double reach = takingReach / toView().m11();
  const bool isHollow = object.kind() == NodeKind::Rectangle && !object.color(u"background").isValid();
  return isHollow && places_->rectOf(object).adjusted(reach, reach, -reach, -reach).contains(place);
}

ReportNode* DesignCanvas::movableAt(QPointF place) const {
  ReportNode* object = objectAt(place);
  return object && isWithinFrame(*object, place) && !editor_.isSelected(object) ? nullptr : object;
}

ReportNode* DesignCanvas::mutableNode(const ReportNode* node) const {
  for (const auto& child : editor_.page()->children())
    if (child.get() == node) return child.get();
  return editor_.page();
}

ReportNode* DesignCanvas::holderAt(QPointF place) const { return mutableNode(&places_->parentAt(place)); }

int DesignCanvas::handleAt(QPointF viewPlace) const {
  const std::vector<ReportNode*> objects = editor_.selectedObjects();
  if (objects.empty()) return -1;
  const QRectF bounds = handleFrame(toView().mapRect(Arranging::bounds(objects, *places_)));
  // From the corners on; small objects keep a middle that can be taken.
  for (const int handle : {4, 0, 2, 6, 3, 5, 7, 1}) {
    const QPointF by = viewPlace - handlePlace(bounds, handle);
    if (std::max(std::abs(by.x()), std::abs(by.y())) <= handleSize / 2 + 1) return handle;
  }
  return -1;
}

ReportNode* DesignCanvas::bandEdgeAt(QPointF viewPlace) const {
  for (const PagePlaces::Band& band : places_->bands()) {
    const QRectF rect = toView().mapRect(band.rect);
    const bool isAcross = viewPlace.x() >= rect.left() - tagWidth() - gap && viewPlace.x() <= rect.right();
    if (isAcross && std::abs(viewPlace.y() - rect.bottom()) <= 3) return mutableNode(band.node);
  }
  return nullptr;
}

ReportNode* DesignCanvas::bandTagAt(QPointF viewPlace) const {
  const CanvasMarks marks = marksNow();
  for (const PagePlaces::Band& band : places_->bands())
    if (marks.tagOf(band).contains(viewPlace)) return mutableNode(band.node);
  return nullptr;
}

// Painting

void DesignCanvas::drawBackground(QPainter* painter, const QRectF&) {
  guarded(this, [&] {
    painter->save();
    painter->setWorldTransform(QTransform());
    painter->setRenderHint(QPainter::Antialiasing, false);
    const CanvasMarks marks = marksNow();
    marks.paintPaper(*painter, viewport()->rect(), isGridShown_ ? gridStep : 0);
    marks.paintBands(*painter, editor_.selection().size() == 1 ? editor_.selection().front() : nullptr);
    painter->restore();
  });
}

void DesignCanvas::drawForeground(QPainter* painter, const QRectF&) {
  guarded(this, [&] {
    painter->save();
    painter->setWorldTransform(QTransform());
    painter->setRenderHint(QPainter::Antialiasing, false);
    const CanvasMarks marks = marksNow();
    const std::vector<ReportNode*> objects = editor_.selectedObjects();
    std::vector<QRectF> rects;
    for (const ReportNode* object : objects)
      if (const ObjectItem* item = items_.value(object)) rects.emplace_back(item->pos(), item->size());
    QRectF bounds = rects.empty() ? QRectF() : rects.front();
    for (const QRectF& rect : rects)
      bounds.setCoords(std::min(bounds.left(), rect.left()), std::min(bounds.top(), rect.top()), std::max(bounds.right(), rect.right()),
                       std::max(bounds.bottom(), rect.bottom()));
    const bool isLocked = !objects.empty() && std::all_of(objects.begin(), objects.end(), [](const ReportNode* each) { return each->flag(u"locked"); });
    marks.paintSelection(*painter, rects, bounds, isLocked);
    if (gesture_) gesture_->paint(*painter, marks);
    if (dropping_) {
      marks.paintRubber(*painter, dropping_->rect);
      marks.paintGuides(*painter, dropping_->guides);
    }
    if (editor_.page() && editor_.page()->children().empty() && !gesture_ && !dropping_) marks.paintHint(*painter);
    painter->restore();
  });
}

void DesignCanvas::scrollContentsBy(int dx, int dy) {
  QGraphicsView::scrollContentsBy(dx, dy);
  guarded(this, [&] {
    if (textInPlace_) textInPlace_->move(textInPlace_->pos() + QPoint(dx, dy));
    Q_EMIT zoomChanged();
  });
}

void DesignCanvas::resizeEvent(QResizeEvent* event) {
  QGraphicsView::resizeEvent(event);
  guarded(this, [&] { Q_EMIT zoomChanged(); });
}
