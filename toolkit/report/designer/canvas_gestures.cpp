#include "toolkit/report/designer/canvas_gestures.h"

#include "toolkit/report/designer/canvas_marks.h"
#include "toolkit/report/designer/design_canvas.h"
#include "toolkit/report/designer/design_commands.h"

#include <QLocale>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

QString millimetres(double value) { return QLocale(QLocale::Turkish).toString(value, 'f', 1); }

/// Works on the selected objects as one.
class SelectionGesture : public CanvasGesture {
 public:
  SelectionGesture(DesignCanvas& canvas, QPointF from)
      : CanvasGesture(canvas),
        from_(from),
        objects_(canvas.editor().selectedObjects()),
        start_(Arranging::bounds(objects_, canvas.places())),
        snapping_(canvas.places(), objects_) {}

  void paint(QPainter& painter, const CanvasMarks& marks) const override { marks.paintGuides(painter, guides_); }

 protected:
  QPointF from_;
  std::vector<ReportNode*> objects_;
  QRectF start_;
  Snapping snapping_;
  std::vector<QLineF> guides_;
};

class MoveGesture : public SelectionGesture {
 public:
  MoveGesture(DesignCanvas& canvas, QPointF from, bool copies) : SelectionGesture(canvas, from), copies_(copies) {}

  void move(QPointF place, Qt::KeyboardModifiers modifiers) override {
    by_ = place - from_;
    if (modifiers & Qt::ShiftModifier) (std::abs(by_.x()) > std::abs(by_.y()) ? by_.ry() : by_.rx()) = 0;
    const Snapping::Result snapped = snapping_.moved(start_.translated(by_), canvas_.snapRules(modifiers));
    const QPointF free = by_;
    by_ += snapped.by;
    if (modifiers & Qt::ShiftModifier) (std::abs(free.x()) > std::abs(free.y()) ? by_.ry() : by_.rx()) = 0;
    guides_ = snapped.guides;
    canvas_.previewMove(objects_, by_);
  }
  void finish() override {
    canvas_.previewMove(objects_, {});
    if (by_.isNull()) return;
    ReportEditor& editor = canvas_.editor();
    editor.select(objects_);  // what was taken is moved, whatever a key has selected meanwhile
    const Gesture step(editor, copies_ ? u"Kopyasını taşı"_s : u"Taşı"_s);
    DesignCommands commands(editor);
    if (copies_) commands.duplicateInPlace();
    commands.dragged(by_);
  }
  void cancel() override { canvas_.previewMove(objects_, {}); }
  QString told() const override {
    const QPointF place = start_.topLeft() + by_ - canvas_.places().cell().topLeft();
    return u"Sol %1 mm, üst %2 mm"_s.arg(millimetres(place.x()), millimetres(place.y()));
  }

 private:
  bool copies_;
  QPointF by_;
};

class ResizeGesture : public SelectionGesture {
 public:
  ResizeGesture(DesignCanvas& canvas, QPointF from, int handle) : SelectionGesture(canvas, from), edges_(handleEdges(handle)), rect_(start_) {}

  void move(QPointF place, Qt::KeyboardModifiers modifiers) override {
    rect_ = stretched(place - from_, edges_);
    const Snapping::Result snapped = snapping_.resized(rect_, edges_, canvas_.snapRules(modifiers));
    rect_ = stretched(place - from_ + snapped.by, edges_);
    guides_ = snapped.guides;
    if ((modifiers & Qt::ShiftModifier) && start_.width() > 0 && start_.height() > 0) keepShape();
    canvas_.previewStretch(objects_, start_, rect_);
  }
  void finish() override {
    cancel();
    canvas_.editor().change(u"Boyutlandır"_s, Arranging::stretched(objects_, canvas_.places(), start_, rect_));
  }
  void cancel() override { canvas_.previewStretch(objects_, start_, start_); }
  QString told() const override { return u"Genişlik %1 mm, yükseklik %2 mm"_s.arg(millimetres(rect_.width()), millimetres(rect_.height())); }

 private:
  QRectF stretched(QPointF by, Qt::Edges edges) const {
    QRectF rect = start_;
    if (edges & Qt::LeftEdge) rect.setLeft(std::min(rect.right(), rect.left() + by.x()));
    if (edges & Qt::RightEdge) rect.setRight(std::max(rect.left(), rect.right() + by.x()));
    if (edges & Qt::TopEdge) rect.setTop(std::min(rect.bottom(), rect.top() + by.y()));
    if (edges & Qt::BottomEdge) rect.setBottom(std::max(rect.top(), rect.bottom() + by.y()));
    return rect;
  }
  void keepShape() {
    const double share = std::max(rect_.width() / start_.width(), rect_.height() / start_.height());
    const QSizeF size = start_.size() * share;
    if (edges_ & Qt::LeftEdge)
      rect_.setLeft(start_.right() - size.width());
    else
      rect_.setRight(start_.left() + size.width());
    if (edges_ & Qt::TopEdge)
      rect_.setTop(start_.bottom() - size.height());
    else
      rect_.setBottom(start_.top() + size.height());
  }

  Qt::Edges edges_;
  QRectF rect_;
};

class RubberGesture : public CanvasGesture {
 public:
  RubberGesture(DesignCanvas& canvas, QPointF from, bool adds)
      : CanvasGesture(canvas), rect_(from, from), before_(adds ? canvas.editor().selectedObjects() : std::vector<ReportNode*>()), adds_(adds) {}

  void move(QPointF place, Qt::KeyboardModifiers) override {
    rect_.setBottomRight(place);
    isDrawn_ = true;
    std::vector<ReportNode*> found = before_;
    for (ReportNode* object : canvas_.objectsIn(rect_.normalized())) {
      const bool isAround = canvas_.isWithinFrame(*object, rect_.topLeft()) && canvas_.isWithinFrame(*object, rect_.bottomRight());
      if (!isAround && std::find(found.begin(), found.end(), object) == found.end()) found.push_back(object);
    }
    canvas_.editor().select(std::move(found));
  }
  void finish() override {
    if (isDrawn_ || adds_) return;
    ReportNode* frame = canvas_.objectAt(rect_.topLeft());
    canvas_.editor().select(frame ? frame : canvas_.holderAt(rect_.topLeft()));
  }
  void cancel() override { canvas_.editor().select(before_); }
  void paint(QPainter& painter, const CanvasMarks& marks) const override {
    if (isDrawn_) marks.paintRubber(painter, rect_.normalized());
  }

 private:
  QRectF rect_;
  std::vector<ReportNode*> before_;
  bool adds_;
  bool isDrawn_ = false;
};

class CreateGesture : public CanvasGesture {
 public:
  CreateGesture(DesignCanvas& canvas, QPointF from, NodeKind kind)
      : CanvasGesture(canvas), kind_(kind), snapping_(canvas.places(), {}), from_(from), rect_(from, from) {}

  void move(QPointF place, Qt::KeyboardModifiers modifiers) override {
    const Snapping::Rules rules = canvas_.snapRules(modifiers);
    if (!isDrawn_) from_ += snapping_.resized(QRectF(from_, from_), Qt::LeftEdge | Qt::TopEdge, rules).by;
    isDrawn_ = true;
    const Snapping::Result snapped = snapping_.resized(QRectF(from_, place), Qt::RightEdge | Qt::BottomEdge, rules);
    QPointF end = place + snapped.by;
    if (modifiers & Qt::ShiftModifier) straighten(end);
    guides_ = snapped.guides;
    rect_ = QRectF(from_, end);
  }
  void finish() override {
    const bool isUpward = kind_ == NodeKind::Line && rect_.width() * rect_.height() < 0;
    QRectF rect = rect_.normalized();
    // A line is as thin as it was drawn; anything else that was hardly drawn was a click.
    const bool isClick = kind_ == NodeKind::Line ? rect.width() < 1 && rect.height() < 1 : rect.width() < 1 || rect.height() < 1;
    if (isClick) rect = QRectF(from_, DesignCommands::usualSize(kind_));
    canvas_.created(DesignCommands(canvas_.editor()).addObject(kind_, rect, {}, isUpward));
  }
  void cancel() override {}
  void paint(QPainter& painter, const CanvasMarks& marks) const override {
    if (!isDrawn_) return;
    marks.paintRubber(painter, rect_.normalized());
    marks.paintGuides(painter, guides_);
  }
  QString told() const override {
    return u"Genişlik %1 mm, yükseklik %2 mm"_s.arg(millimetres(std::abs(rect_.width())), millimetres(std::abs(rect_.height())));
  }

 private:
  /// A line along one axis, anything else as high as it is wide.
  void straighten(QPointF& end) const {
    const QPointF by = end - from_;
    if (kind_ != NodeKind::Line)
      end.setY(from_.y() + std::copysign(by.x(), by.y()));
    else if (std::abs(by.x()) > std::abs(by.y()))
      end.setY(from_.y());
    else
      end.setX(from_.x());
  }

  NodeKind kind_;
  Snapping snapping_;
  QPointF from_;
  QRectF rect_;
  std::vector<QLineF> guides_;
  bool isDrawn_ = false;
};

class BandGesture : public CanvasGesture {
 public:
  BandGesture(DesignCanvas& canvas, QPointF from, ReportNode& band)
      : CanvasGesture(canvas), band_(band), from_(from.y()), height_(band.millimetres(u"height")), start_(height_) {}

  void move(QPointF place, Qt::KeyboardModifiers modifiers) override {
    const double grid = canvas_.snapRules(modifiers).grid;
    height_ = start_ + place.y() - from_;
    if (grid > 0) height_ = std::round(height_ / grid) * grid;
    height_ = std::max(0.0, Arranging::rounded(height_));
  }
  void finish() override { canvas_.editor().change(u"Bant yüksekliği"_s, band_, u"height"_s, height_); }
  void cancel() override {}
  void paint(QPainter& painter, const CanvasMarks& marks) const override {
    const PagePlaces::Band* band = marks.places.find(band_);
    if (!band) return;
    const double y = band->rect.top() + height_;
    marks.paintGuides(painter, {QLineF(band->rect.left(), y, band->rect.right(), y)});
  }
  QString told() const override { return u"Bant yüksekliği %1 mm"_s.arg(millimetres(height_)); }

 private:
  ReportNode& band_;
  double from_;
  double height_;
  double start_;
};

}  // namespace

std::unique_ptr<CanvasGesture> moveGesture(DesignCanvas& canvas, QPointF from, bool copies) {
  return std::make_unique<MoveGesture>(canvas, from, copies);
}

std::unique_ptr<CanvasGesture> resizeGesture(DesignCanvas& canvas, QPointF from, int handle) {
  return std::make_unique<ResizeGesture>(canvas, from, handle);
}

std::unique_ptr<CanvasGesture> rubberGesture(DesignCanvas& canvas, QPointF from, bool adds) {
  return std::make_unique<RubberGesture>(canvas, from, adds);
}

std::unique_ptr<CanvasGesture> createGesture(DesignCanvas& canvas, QPointF from, NodeKind kind) {
  return std::make_unique<CreateGesture>(canvas, from, kind);
}

std::unique_ptr<CanvasGesture> bandGesture(DesignCanvas& canvas, QPointF from, ReportNode& band) {
  return std::make_unique<BandGesture>(canvas, from, band);
}
