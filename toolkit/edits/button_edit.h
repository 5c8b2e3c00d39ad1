#pragma once

#include "toolkit/edits/edit_box.h"

/// One line of text with buttons.
class ButtonEdit : public EditBox {
  Q_OBJECT
 public:
  using EditBox::EditBox;
};
