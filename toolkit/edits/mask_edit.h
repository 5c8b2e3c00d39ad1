#pragma once

#include "toolkit/edits/edit_box.h"

/// One line of text by a mask of places and fixed marks, for example "9999 999 99 99;_".
class MaskEdit : public EditBox {
  Q_OBJECT
 public:
  explicit MaskEdit(QWidget* parent = nullptr);

  /// The mask in QLineEdit's form.
  void setMask(const QString& mask);
  bool isEmpty() const;

  /// The text with its fixed marks; NULL when no place is filled.
  Value editValue() const override;
  void resetEdit(int maximumLength) override;

 protected:
  void leaving() override;

 private:
  QString marks_;  ///< what the mask shows with no place filled
};
