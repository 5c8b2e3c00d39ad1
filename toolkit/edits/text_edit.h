#pragma once

#include "toolkit/edits/edit_box.h"

/// One line of text.
class TextEdit : public EditBox {
  Q_OBJECT
 public:
  using EditBox::EditBox;
};
