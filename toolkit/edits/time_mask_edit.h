#pragma once

#include "toolkit/edits/mask_edit.h"

/// A time of day in the mask "HH : mm", that can be empty. What it holds of a stored time are hours and minutes.
class TimeMaskEdit : public MaskEdit {
  Q_OBJECT
 public:
  explicit TimeMaskEdit(QWidget* parent = nullptr);

  /// The time; NULL when no place is filled. Throws EConvertError for what is no time of day.
  Value editValue() const override;
  void setEditValue(const Value& value) override;

 protected:
  /// Tells nothing by itself: what is to happen with a wrong time is its form's.
  void leaving() override {}
};
