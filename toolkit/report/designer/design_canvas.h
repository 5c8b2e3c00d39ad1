#pragma once

#include "toolkit/report/designer/canvas_gestures.h"
#include "toolkit/report/designer/design_commands.h"
#include "toolkit/report/designer/design_sample.h"

#include <QGraphicsView>
#include <QHash>

class ObjectItem;
class TextInPlace;

/// The page that is designed, as it goes on paper: a view over the editor's document, which it changes by commands alone.
/// Everything the mouse does has a key. One scene unit is a millimetre on the paper.
class DesignCanvas : public QGraphicsView {
  Q_OBJECT
 public:
  DesignCanvas(ReportEditor& editor, const DesignSample& sample, QWidget* parent = nullptr);
  ~DesignCanvas() override;

  ReportEditor& editor() { return editor_; }
  const PagePlaces& places() const { return *places_; }

  /// Lays all objects out anew: the sample, or the way it is shown, is another one.
  void showSample(bool withData);
  bool showsData() const { return withData_; }
  void markFaults(const std::vector<const ReportNode*>& nodes);

  // View
  double zoom() const;
  /// Keeps the middle, or the place under the mouse, where it is.
  void zoomTo(double zoom);
  void fitPage();
  /// The whole page, or where that would be too small to read, its width.
  void fitReadable();
  void fitWidth();
  void showGrid(bool isShown);
  bool isGridShown() const { return isGridShown_; }
  void snap(bool snaps) { snaps_ = snaps; }
  bool snaps() const { return snaps_; }
  void ensureSeen(const ReportNode& node);
  QTransform toView() const { return viewportTransform(); }
  QRectF viewRectOf(const ReportNode& object) const;

  // Work
  /// The next press of the mouse draws an object of that kind; none selects.
  void setTool(std::optional<NodeKind> tool);
  std::optional<NodeKind> tool() const { return tool_; }
  /// Opens the text of an object for writing in its place. False for one that has none.
  bool editText(ReportNode& object);
  /// The same; for a picture, which has no text, one is asked for.
  bool editContent(ReportNode& object);
  /// Takes over the text that is being written in its place.
  void endText();
  /// That text, as the change that taking it over would be.
  PropertyChanges written() const;

  // For gestures
  Snapping::Rules snapRules(Qt::KeyboardModifiers modifiers) const;
  void previewMove(const std::vector<ReportNode*>& objects, QPointF by);
  void previewStretch(const std::vector<ReportNode*>& objects, const QRectF& from, const QRectF& to);
  /// Objects that a rectangle touches, in document order.
  std::vector<ReportNode*> objectsIn(const QRectF& rect) const;
  /// The uppermost object at a place; null when there is none.
  ReportNode* objectAt(QPointF place) const;
  /// The one that the mouse would move there: inside a frame that is not selected, none.
  ReportNode* movableAt(QPointF place) const;
  /// The band at a place, or the page.
  ReportNode* holderAt(QPointF place) const;
  /// Whether an object is a frame, empty inside, and the place is not at its edge but in it.
  bool isWithinFrame(const ReportNode& object, QPointF place) const;
  /// An object was put down by a gesture.
  void created(ReportNode* object);

 Q_SIGNALS:
  void toolChanged();
  void zoomChanged();
  /// The pointer, in millimetres on the paper.
  void pointed(QPointF place);
  /// What the gesture under way says of itself; empty when it ended.
  void told(const QString& text);
  void menuAsked(QPoint global);
  /// A file is wanted for the picture that is selected.
  void pictureAsked();

 protected:
  void drawBackground(QPainter* painter, const QRectF& rect) override;
  void drawForeground(QPainter* painter, const QRectF& rect) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  bool focusNextPrevChild(bool next) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dragMoveEvent(QDragMoveEvent* event) override;
  void dragLeaveEvent(QDragLeaveEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void rebuild();
  void addItems(ReportNode& node);
  void dropItems(ReportNode& node);
  void placeItems();
  void refresh(const std::vector<ReportNode*>& nodes);
  void remeasure();
  double tagWidth() const;
  CanvasMarks marksNow() const;
  int handleAt(QPointF viewPlace) const;
  ReportNode* bandEdgeAt(QPointF viewPlace) const;
  ReportNode* bandTagAt(QPointF viewPlace) const;
  ReportNode* mutableNode(const ReportNode* node) const;
  void press(QMouseEvent* event);
  void endGesture(bool isDone);
  void updateCursor(QPointF viewPlace, Qt::KeyboardModifiers modifiers);
  bool pressKey(QKeyEvent* event);
  bool nudge(QKeyEvent* event);

  /// Where data that are dragged over the page would be put down.
  struct Dropping {
    NodeKind kind;
    QRectF rect;
    std::vector<QLineF> guides;
    ReportNode* filled = nullptr;  ///< an object that shows nothing yet, which the data go to
  };
  Dropping droppingAt(const QDropEvent& event) const;

  ReportEditor& editor_;
  DesignCommands commands_;
  const DesignSample& sample_;
  std::unique_ptr<PagePlaces> places_;
  QHash<const ReportNode*, ObjectItem*> items_;
  std::unique_ptr<CanvasGesture> gesture_;
  TextInPlace* textInPlace_ = nullptr;
  std::optional<NodeKind> tool_;
  bool withData_ = false;
  bool isGridShown_ = true;
  bool snaps_ = true;
  QPointF lastPlace_;
  std::optional<QPoint> panFrom_;
  std::optional<Dropping> dropping_;
};

/// What is dragged from the list of data: the expression, without brackets.
inline constexpr const char* dataNameMimeType = "application/x-report-name";
