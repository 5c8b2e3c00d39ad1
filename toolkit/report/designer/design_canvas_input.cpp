#include "base/guard.h"
#include "toolkit/report/designer/canvas_marks.h"
#include "toolkit/report/designer/design_canvas.h"
#include "toolkit/report/designer/text_in_place.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QScrollBar>
#include <QWheelEvent>

#include <cmath>

using namespace Qt::StringLiterals;

/// Mouse, keys and dropping on the canvas: which gesture or command they mean.

namespace {

constexpr double wheelZoom = 1.2;
constexpr double usualNudge = 1;
constexpr double fineNudge = 0.1;

Qt::CursorShape handleCursor(int handle) {
  static const Qt::CursorShape shapes[] = {Qt::SizeFDiagCursor, Qt::SizeVerCursor, Qt::SizeBDiagCursor, Qt::SizeHorCursor};
  return shapes[handle % 4];
}

}  // namespace

void DesignCanvas::mousePressEvent(QMouseEvent* event) {
  guarded(this, [&] { press(event); });
}

void DesignCanvas::press(QMouseEvent* event) {
  endText();
  if (event->button() == Qt::MiddleButton) {
    panFrom_ = event->pos();
    viewport()->setCursor(Qt::ClosedHandCursor);
    return;
  }
  if (gesture_) return;
  const QPointF place = mapToScene(event->pos());
  lastPlace_ = event->position();
  const bool adds = event->modifiers() & (Qt::ShiftModifier | Qt::ControlModifier);
  if (event->button() == Qt::RightButton) {
    ReportNode* under = objectAt(place);
    if (ReportNode* tag = bandTagAt(event->position())) under = tag;
    if (under && !editor_.isSelected(under)) editor_.select(under);
    if (!under) editor_.select(holderAt(place));
    return;
  }
  if (event->button() != Qt::LeftButton) return;
  if (tool_) {
    gesture_ = createGesture(*this, place, *tool_);
    return;
  }
  if (const int handle = handleAt(event->position()); handle >= 0) {
    gesture_ = resizeGesture(*this, place, handle);
    return;
  }
  if (ReportNode* object = movableAt(place)) {
    const std::vector<ReportNode*> selected = editor_.selectedObjects();
    if (editor_.isSelected(object) && (event->modifiers() & Qt::ShiftModifier)) {
      std::vector<ReportNode*> others = selected;
      std::erase(others, object);
      editor_.select(std::move(others));
      return;
    }
    if (!editor_.isSelected(object)) {
      std::vector<ReportNode*> all = adds ? selected : std::vector<ReportNode*>();
      all.push_back(object);
      editor_.select(std::move(all));
    }
    gesture_ = moveGesture(*this, place, event->modifiers() & Qt::ControlModifier);
    return;
  }
  if (ReportNode* band = bandEdgeAt(event->position())) {
    editor_.select(band);
    gesture_ = bandGesture(*this, place, *band);
    return;
  }
  if (ReportNode* band = bandTagAt(event->position())) return editor_.select(band);
  gesture_ = rubberGesture(*this, place, adds);
}

void DesignCanvas::mouseMoveEvent(QMouseEvent* event) {
  guarded(this, [&] {
    if (panFrom_) {
      const QPoint by = event->pos() - *panFrom_;
      panFrom_ = event->pos();
      horizontalScrollBar()->setValue(horizontalScrollBar()->value() - by.x());
      verticalScrollBar()->setValue(verticalScrollBar()->value() - by.y());
      return;
    }
    const QPointF place = toView().inverted().map(event->position());
    Q_EMIT pointed(place);
    if (!gesture_) return updateCursor(event->position(), event->modifiers());
    // A hand that trembles at a click moves nothing.
    if (!lastPlace_.isNull() && (event->position() - lastPlace_).manhattanLength() < QApplication::startDragDistance() / 2.0) return;
    lastPlace_ = {};
    // Beyond the edge the page follows the mouse.
    if (!viewport()->rect().contains(event->pos())) ensureVisible(QRectF(place, QSizeF()), 0, 0);
    gesture_->move(place, event->modifiers());
    Q_EMIT told(gesture_->told());
    viewport()->update();
  });
}

void DesignCanvas::mouseReleaseEvent(QMouseEvent* event) {
  guarded(this, [&] {
    if (event->button() == Qt::MiddleButton) {
      panFrom_.reset();
      return updateCursor(event->position(), event->modifiers());
    }
    if (event->button() == Qt::LeftButton) endGesture(true);
  });
}

void DesignCanvas::endGesture(bool isDone) {
  if (!gesture_) return;
  const std::unique_ptr<CanvasGesture> ended = std::move(gesture_);
  Q_EMIT told({});
  isDone ? ended->finish() : ended->cancel();
  viewport()->update();
}

void DesignCanvas::mouseDoubleClickEvent(QMouseEvent* event) {
  guarded(this, [&] {
    ReportNode* object = event->button() == Qt::LeftButton ? objectAt(mapToScene(event->pos())) : nullptr;
    if (!object) return;
    editor_.select(object);
    editContent(*object);
  });
}

void DesignCanvas::updateCursor(QPointF viewPlace, Qt::KeyboardModifiers) {
  Qt::CursorShape shape = tool_ ? Qt::CrossCursor : Qt::ArrowCursor;
  if (!tool_) {
    const int handle = handleAt(viewPlace);
    if (handle >= 0)
      shape = handleCursor(handle);
    else if (movableAt(toView().inverted().map(viewPlace)))
      shape = Qt::SizeAllCursor;
    else if (bandEdgeAt(viewPlace))
      shape = Qt::SplitVCursor;
    else if (bandTagAt(viewPlace))
      shape = Qt::PointingHandCursor;
  }
  if (viewport()->cursor().shape() != shape) viewport()->setCursor(shape);
}

void DesignCanvas::wheelEvent(QWheelEvent* event) {
  guarded(this, [&] {
    if (!(event->modifiers() & Qt::ControlModifier)) return QGraphicsView::wheelEvent(event);
    zoomTo(zoom() * std::pow(wheelZoom, event->angleDelta().y() / 120.0));
    event->accept();
  });
}

void DesignCanvas::contextMenuEvent(QContextMenuEvent* event) {
  guarded(this, [&] {
    QPoint place = event->globalPos();
    if (event->reason() == QContextMenuEvent::Keyboard && !editor_.selectedObjects().empty())
      place = viewport()->mapToGlobal(viewRectOf(*editor_.selectedObjects().front()).bottomLeft().toPoint());
    Q_EMIT menuAsked(place);
  });
}

// Keys

void DesignCanvas::keyPressEvent(QKeyEvent* event) {
  guarded(this, [&] {
    if (!pressKey(event)) QGraphicsView::keyPressEvent(event);
  });
}

bool DesignCanvas::pressKey(QKeyEvent* event) {
  const std::vector<ReportNode*>& selection = editor_.selection();
  switch (event->key()) {
    case Qt::Key_Escape:
      if (gesture_)
        endGesture(false);
      else if (tool_)
        setTool({});
      else if (!selection.empty() && selection.front()->kind() != NodeKind::Page)
        editor_.select(selection.front()->parent());
      return true;  // once too often closes nothing
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (tool_) {
        created(commands_.addObject(*tool_, commands_.freePlace(*tool_)));
        return true;
      }
      return selection.size() == 1 && editContent(*selection.front());
    case Qt::Key_F2: return selection.size() == 1 && editContent(*selection.front());
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down: return nudge(event);
    default: return false;
  }
}

bool DesignCanvas::nudge(QKeyEvent* event) {
  const double step = event->modifiers() & Qt::ControlModifier ? fineNudge : usualNudge;
  const double across = event->key() == Qt::Key_Left ? -step : event->key() == Qt::Key_Right ? step : 0;
  const double down = event->key() == Qt::Key_Up ? -step : event->key() == Qt::Key_Down ? step : 0;
  if (editor_.selection().empty()) return false;
  ReportNode& first = *editor_.selection().front();
  if (first.kind() == NodeKind::Band && (event->modifiers() & Qt::AltModifier) && down != 0) {
    commands_.moveBand(first, down > 0 ? 1 : -1);
    return true;
  }
  if (event->modifiers() & Qt::ShiftModifier)
    commands_.grow({across, down}, event->isAutoRepeat());
  else
    commands_.nudge({across, down}, event->isAutoRepeat());
  ensureSeen(*editor_.selection().back());
  return true;
}

bool DesignCanvas::focusNextPrevChild(bool next) {
  bool isWithin = false;
  guarded(this, [&] {
    isWithin = commands_.selectNext(!next);
    if (isWithin) ensureSeen(*editor_.selection().back());
  });
  return isWithin || QGraphicsView::focusNextPrevChild(next);
}

// Data dropped from the list

void DesignCanvas::dragEnterEvent(QDragEnterEvent* event) {
  if (event->mimeData()->hasFormat(QString::fromLatin1(dataNameMimeType))) event->acceptProposedAction();
}

void DesignCanvas::dragMoveEvent(QDragMoveEvent* event) {
  guarded(this, [&] {
    if (!event->mimeData()->hasFormat(QString::fromLatin1(dataNameMimeType))) return;
    event->acceptProposedAction();
    Q_EMIT pointed(mapToScene(event->position().toPoint()));
    dropping_ = droppingAt(*event);
    Q_EMIT told(dropping_->filled                       ? u"Boş nesneye yazılacak"_s
                : dropping_->kind == NodeKind::Barcode ? u"Barkod olarak bırakılacak"_s
                                                       : u"Metin olarak bırakılacak; Alt ile barkod"_s);
    viewport()->update();
  });
}

void DesignCanvas::dragLeaveEvent(QDragLeaveEvent*) {
  guarded(this, [&] {
    dropping_.reset();
    Q_EMIT told({});
    viewport()->update();
  });
}

DesignCanvas::Dropping DesignCanvas::droppingAt(const QDropEvent& event) const {
  const QPointF place = mapToScene(event.position().toPoint());
  const NodeKind kind = event.modifiers() & Qt::AltModifier ? NodeKind::Barcode : NodeKind::Text;
  if (ReportNode* blank = objectAt(place); blank && waitsForText(*blank, sample_)) return {blank->kind(), places_->rectOf(*blank), {}, blank};
  const QRectF rect(place, DesignCommands::usualSize(kind));
  const Snapping::Result snapped = Snapping(*places_, {}).moved(rect, snapRules({}));
  return {kind, rect.translated(snapped.by), snapped.guides};
}

void DesignCanvas::dropEvent(QDropEvent* event) {
  guarded(this, [&] {
    const QString name = QString::fromUtf8(event->mimeData()->data(QString::fromLatin1(dataNameMimeType)));
    if (name.isEmpty()) return;
    event->acceptProposedAction();
    const Dropping dropped = droppingAt(*event);
    dropping_.reset();
    if (dropped.filled)
      commands_.fill(*dropped.filled, name, usualFormat(name, sample_));
    else
      commands_.addName(dropped.kind, dropped.rect, name, usualFormat(name, sample_));
    Q_EMIT told({});
    setFocus(Qt::OtherFocusReason);
  });
}
