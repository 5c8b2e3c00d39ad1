#pragma once

#include <QString>

#include <functional>
#include <vector>

class Value;

class LookupSource;

enum class GridSummary { None, Count, Sum };

/// A stored value and the text that it is shown as.
struct GridListValue {
  QString value;
  QString shown;
};

/// One column of a DataGrid, as its screen describes it.
struct GridColumn {
  QString field = {};
  QString caption = {};
  int width = 100;           ///< logical pixels at 100 %
  bool visible = true;       ///< shown until the user says otherwise
  bool offered = true;       ///< false: never shown, and not in the column chooser
  QString displayFormat = {};     ///< of numbers, as NumberText::formatted understands it; empty shows the value as it is
  GridSummary summary = GridSummary::None;  ///< in the footer, over all rows that pass the filter
  QString summaryFormat = {};
  QString summaryName = {};  ///< what it is called where it is spelled out; empty is the caption
  GridSummary groupSummary = GridSummary::None;  ///< in the footer of each group
  QString groupSummaryFormat = {};
  std::vector<GridListValue> values = {};  ///< fixed value list, which the filter row's cell offers; a value that is not in it is
                                           ///< shown as it is
  std::function<QString(const Value& key)> lookUp = {};  ///< text that stands for a key of another table; empty when unused
  const LookupSource* choices = nullptr;  ///< rows that the filter row's cell offers; not owned
  std::function<void()> refreshChoices = {};   ///< called before they drop down
  bool upperCase = false;    ///< a typed text is turned to Turkish capitals when the cell is left
  bool readOnly = false;     ///< in a grid that is edited in place
  bool stretches = false;    ///< takes the room that is left

  /// The text that a cell shows for a stored value.
  QString shown(const Value& value) const;
  /// True when a cell may show another text than it stores: then sorting, grouping and searching go by what is shown.
  bool showsOtherTexts() const;
};

/// One key of a grid's order.
struct GridSort {
  QString field;
  bool descending = false;
  bool operator==(const GridSort&) const = default;
};
