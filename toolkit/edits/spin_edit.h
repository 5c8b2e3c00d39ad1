#pragma once

#include "toolkit/edits/parsed_edit.h"

/// A whole number with a range; arrows up and down, the two buttons and, with the focus, the wheel step it.
class SpinEdit : public ParsedEdit {
  Q_OBJECT
 public:
  explicit SpinEdit(QWidget* parent = nullptr);

  void setRange(int least, int most);
  /// Empty counts as 0. Throws EConvertError for a text that is no number of the range.
  int value() const;
  void setValue(int value);
  void setEditValue(const Value& value) override;
  /// 0.
  void resetEdit(int maximumLength) override;

 protected:
  Value parsed(const QString& text) const override;
  QString shown(const Value& value) const override;
  QString complaintOf(const QString& text) const override;
  bool takes(QChar character) const override;
  void keyDown(int& key, Qt::KeyboardModifiers modifiers) override;
  bool wheelSteps(int steps) override;

 private:
  void step(int by);

  int least_ = 0;
  int most_ = 999999999;
};
