#pragma once

#include "toolkit/report/designer/arranging.h"

/// What a designer does to objects, bands and pages, by whatever means it is asked for: each is one step with its Turkish name.
/// What needs objects does nothing where none is selected.
class DesignCommands {
 public:
  explicit DesignCommands(ReportEditor& editor) : editor_(editor) {}

  // Clipboard
  void copy() const;
  void cut();
  /// Puts the clipboard's objects where they were; beside it where some are already. Bands come behind the selected one.
  void paste();
  void duplicate();
  /// A copy of the selected objects in their own place, selected.
  void duplicateInPlace();
  void remove();

  // Places
  void nudge(QPointF by, bool joins);
  void grow(QSizeF by, bool joins);
  /// Moves objects on the paper; those of a band that come to lie on another one go over to it.
  void dragged(QPointF by);
  void align(Arranging::Edge edge);
  void distribute(bool isAcross);
  void sameSize(bool width, bool height);
  void reorder(Arranging::Order order);
  void toggleLock();

  // New nodes
  /// An object in a rectangle on the paper; it belongs to the band below its upper left corner. The text is for kinds that
  /// show one, isUpward for lines.
  ReportNode* addObject(NodeKind kind, const QRectF& rect, const QString& text = {}, bool isUpward = false);
  /// Puts a name of the data down. A field makes a band of rows that has none yet go through the rows of its data set.
  ReportNode* addName(NodeKind kind, const QRectF& rect, const QString& name, const QString& format = {});
  /// Makes a name of the data the text of an object that is there; as addName otherwise.
  void fill(ReportNode& object, const QString& name, const QString& format = {});
  /// Where the next object goes when nobody shows a place, on the paper.
  QRectF freePlace(NodeKind kind) const;
  static QSizeF usualSize(NodeKind kind);
  void addBand(const QString& kind);
  void moveBand(ReportNode& band, int by);
  void addPage();
  void removePage(ReportNode& page);
  /// Takes away all bands and objects of the page, those that are locked too.
  void emptyPage();

  /// Sets one property of all selected nodes that have it.
  void setSelected(const QString& property, const PropertyValue& value);
  void selectAll();
  /// Selects the next object of the page in reading order, or the one before. False beyond the ends.
  bool selectNext(bool isBack);

 private:
  std::vector<ReportNode*> removable() const;
  PagePlaces places() const { return PagePlaces(*editor_.page()); }
  void insertCopies(const QString& name, std::vector<std::unique_ptr<ReportNode>> nodes, ReportNode* parent, bool isBeside = true);

  ReportEditor& editor_;
};

/// A page as new reports have it: A4 upright with margins of 10 mm.
std::unique_ptr<ReportNode> newPage(const QString& name);
