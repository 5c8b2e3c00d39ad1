#pragma once

#include "toolkit/report/rich_text.h"

/// A table row's cells as they are announced before or behind their letters. Measures are millimetres from the left border.
struct RowPlan {
  struct Cell {
    double right = 0;
    QString border = {};
    QColor background = {};
    Qt::Alignment vertical = Qt::AlignTop;
    QColor borderColor = Qt::black;
    bool joinsLeft = false;   ///< part of the cell before it
    bool joinsAbove = false;  ///< part of the cell above it
  };
  std::vector<Cell> cells = {};
  double left = 0;
  double padding = 0;
  double height = 0;
};

/// Makes a rich text out of what a file brings in its order: letters, then the end of their paragraph, of their cell, of their
/// row.
class RichBuilder {
 public:
  void addText(const QString& text, const RichFormat& format);
  void addPicture(RichPicture picture);
  void addMarker(const QString& text, const RichFormat& format);
  /// look holds everything of a paragraph but what stands in it; mark is the format of its end.
  void endParagraph(const RichParagraph& look, const RichFormat& mark, bool isInTable);
  void endCell(const RichParagraph& look, const RichFormat& mark);
  void endRow(const RowPlan& plan);
  /// What follows begins a page. A paragraph that has letters ends here.
  void breakPage(const RichParagraph& look, const RichFormat& mark, bool isInTable);
  /// Takes a break back that nothing has followed yet.
  void forgetBreak() { startsPage_ = false; }

  /// How much there is: letters, and for each paragraph as many as take the same room.
  qint64 weight() const { return weight_; }
  RichText take(const RichParagraph& look, const RichFormat& mark);

 private:
  bool hasContent() const { return !paragraph_.runs.empty() || !paragraph_.pictures.empty() || !paragraph_.marker.isEmpty(); }
  RichParagraph finished(const RichParagraph& look, const RichFormat& mark);
  void addBlock(RichParagraph paragraph);
  /// Cells without a row's end become plain paragraphs.
  void releaseCells();
  RichTable& table();

  RichText text_;
  RichParagraph paragraph_;
  std::vector<RichParagraph> cell_;
  std::vector<std::vector<RichParagraph>> cells_;
  bool startsPage_ = false;
  bool wasBroken_ = false;  ///< the break was all that the paragraph held so far
  qint64 weight_ = 0;
};
