#pragma once

#include <QColor>
#include <QString>

class Value;

/// What a table shows, row by row, for those who put it on paper or into a file. Knows nothing of widgets.

struct ContentColumn {
  QString caption = {};
  int width = 100;           ///< logical pixels at 100 %
  bool alignsRight = false;  ///< numbers
  QString displayFormat = {};  ///< of numbers, as NumberText::formatted understands it; empty shows the value as it is
};

enum class ContentRowKind {
  Data,         ///< a cell per column
  Group,        ///< one text over all columns
  GroupFooter,  ///< texts under some columns
  Footer,       ///< the same, under the whole table
};

class TableContent {
 public:
  virtual ~TableContent() = default;
  virtual int columnCount() const = 0;
  virtual ContentColumn column(int column) const = 0;
  virtual int rowCount() const = 0;
  virtual ContentRowKind rowKind(int row) const = 0;
  /// Depth of grouping that the row stands in, from 0.
  virtual int level(int row) const = 0;
  /// Text of a Group row.
  virtual QString groupText(int row) const = 0;
  /// A cell as it is shown; for footers the formatted count or sum.
  virtual QString text(int row, int column) const = 0;
  /// A data cell's own value: the shown text where the column shows another text than it stores (value lists, look-ups);
  /// a footer's number; NULL where nothing stands.
  virtual Value value(int row, int column) const = 0;
  /// Colour of a row's text; invalid is the usual one.
  virtual QColor textColor(int row) const = 0;
};
