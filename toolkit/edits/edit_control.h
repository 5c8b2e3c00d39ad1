#pragma once

class Value;

/// What every input box offers to whoever copies values between screen and row.
class EditControl {
 public:
  virtual ~EditControl() = default;
  /// What the user has entered; NULL when empty. Throws EConvertError for a text that is no value of this box's kind.
  virtual Value editValue() const = 0;
  /// Shows a value without telling it as a change by the user; NULL empties. Throws EConvertError for a value that does
  /// not convert, unless the box has its own way with one, and leaves the box as it was.
  virtual void setEditValue(const Value& value) = 0;
  /// Puts the box back to its kind's empty state; maximumLength is the column's size in characters, 0 for unlimited.
  virtual void resetEdit(int maximumLength) = 0;
};
