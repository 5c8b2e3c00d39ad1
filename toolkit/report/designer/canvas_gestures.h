#pragma once

#include "toolkit/report/designer/snapping.h"

#include <QPoint>

#include <memory>

class DesignCanvas;
class QPainter;
struct CanvasMarks;

/// What the mouse does between its press and its release. Until the release only the canvas shows it; the release makes one
/// step of it, Escape none. Places are millimetres on the paper.
class CanvasGesture {
 public:
  explicit CanvasGesture(DesignCanvas& canvas) : canvas_(canvas) {}
  virtual ~CanvasGesture() = default;
  virtual void move(QPointF place, Qt::KeyboardModifiers modifiers) = 0;
  virtual void finish() = 0;
  /// Puts the view back as it was.
  virtual void cancel() = 0;
  virtual void paint(QPainter&, const CanvasMarks&) const {}
  /// What the status line says meanwhile.
  virtual QString told() const { return {}; }

 protected:
  DesignCanvas& canvas_;
};

/// Moves the selected objects; with Ctrl a copy of them, with Shift along one axis, with Alt past everything that catches.
std::unique_ptr<CanvasGesture> moveGesture(DesignCanvas& canvas, QPointF from, bool copies);
/// Stretches the selected objects by one of eight handles; with Shift both sides alike.
std::unique_ptr<CanvasGesture> resizeGesture(DesignCanvas& canvas, QPointF from, int handle);
/// Selects what the rectangle touches; with adds, on top of what is selected. A click selects the frame, band or
/// page that it is in.
std::unique_ptr<CanvasGesture> rubberGesture(DesignCanvas& canvas, QPointF from, bool adds);
/// Puts down an object of the chosen kind; a click puts one of the usual size.
std::unique_ptr<CanvasGesture> createGesture(DesignCanvas& canvas, QPointF from, NodeKind kind);
/// Draws a band's lower edge.
std::unique_ptr<CanvasGesture> bandGesture(DesignCanvas& canvas, QPointF from, ReportNode& band);
