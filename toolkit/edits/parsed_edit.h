#pragma once

#include "toolkit/edits/edit_box.h"

/// A box whose text stands for a value. On leaving, a text that can be read takes its usual form; one that cannot stays as
/// it is, is marked red, and editValue() throws EConvertError. ENTER moves on; in a box whose value has parts, Up and Down
/// change the one at the cursor, the first one when all is selected.
class ParsedEdit : public EditBox {
  Q_OBJECT
 public:
  explicit ParsedEdit(QWidget* parent);

  bool isEmpty() const { return text().trimmed().isEmpty(); }
  void clear() { setText(QString()); }

  /// Changes the part at the cursor by so many, the first one when all is selected, and selects it; false when there is none
  /// to change.
  bool stepPart(int by);

  /// Throws EConvertError for a text that cannot be read.
  Value editValue() const override;
  /// A text that cannot be read is shown as it stands and marked, as one that was typed: what the database holds is the
  /// user's to mend.
  void setEditValue(const Value& value) override;
  void resetEdit(int maximumLength) override;

 protected:
  /// Value of a text that is not empty; NULL when it cannot be read.
  virtual Value parsed(const QString& text) const = 0;
  /// The usual form of a value.
  virtual QString shown(const Value& value) const = 0;
  /// What stands in the hint of a text that cannot be read.
  virtual QString complaintOf(const QString& text) const = 0;
  /// Characters that can be typed; others are dropped.
  virtual bool takes(QChar character) const = 0;

  /// The value with one of its parts, counted from 0 as they are shown, changed by so many; NULL for one out of range and
  /// for a box without parts.
  virtual Value stepped(const Value& from, int part, int by) const;
  /// What Up and Down bring into an empty box; NULL for nothing.
  virtual Value firstStep(int) const;

  void keyDown(int& key, Qt::KeyboardModifiers modifiers) override;
  void keyPress(QString& characters) override;
  QString typingRefusal(const QString& typed) const override;
  QString pasteRefusal(const QString& pasted, const QString& whole) const override;
  void leaving() override;
};
