#pragma once

#include "toolkit/edits/edit_button.h"
#include "toolkit/edits/edit_frame.h"

#include <QString>

#include <vector>

enum class SlipEditor { Text, Button, Date, Combo, Lookup, Currency, Memo, ReadOnlyText };

enum class SlipGroup { Slip, Customer, Device, Amounts, Record };

/// One control of the slip's first page: what it shows, what it is and where it stands.
struct SlipField {
  QString column;   ///< of teknikservis; the control's objectName, which is also what binds it
  QString caption;  ///< with its two leading blanks
  SlipEditor editor;
  SlipGroup group;
  int gridRow;
  int gridColumn;
  int gridSpan = 1;  ///< columns of the grid that it takes
  int maximumLength = 0;
  CharCase charCase = CharCase::Upper;
  std::vector<EditButton> buttons = {};  ///< behind the caption's
};

/// All controls of the first page, in reading order, which is the tab order.
const std::vector<SlipField>& slipFields();

/// Caption of a group's frame.
QString groupCaption(SlipGroup group);

/// Builds the control of a field: named, captioned, with its buttons, length and case.
EditFrame* createSlipEditor(const SlipField& field, QWidget* parent);

/// How the four amounts and their total are shown.
QString amountFormat();

/// Buttons of the status box and of the serial box, counted as EditBox does.
constexpr int outsideServiceButtonIndex = 2;
constexpr int serialLabelIndex = 0;
constexpr int serialMenuIndex = 1;
