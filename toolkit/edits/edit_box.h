#pragma once

#include "toolkit/edits/edit_button.h"
#include "toolkit/edits/edit_frame.h"
#include "toolkit/edits/edit_line.h"

#include <functional>
#include <vector>

class QHBoxLayout;

/// Base of all one-line inputs: label buttons at the left, the line, buttons at the right, in one frame. One stop in the
/// tab order. Set its objectName to the column's name and its caption, and it can be bound.
///
/// Of a pasted text as much comes in as there is room for, and a balloon tells how much was left out; one that holds what
/// the box does not take is kept out as a whole, with a balloon as well. Line breaks in it become blanks.
class EditBox : public EditFrame {
  Q_OBJECT
 public:
  explicit EditBox(QWidget* parent = nullptr);
  ~EditBox() override;

  EditLine* line() const { return line_; }

  /// Adds a button behind those that are there and gives its index, counted over both sides in order of adding.
  int addButton(const EditButton& description);
  /// Takes a button away; those behind it move up by one index.
  void removeButton(int index);
  int buttonCount() const { return int(buttons_.size()); }
  /// Null when there is no such button.
  QToolButton* button(int index) const;
  /// As a click on it; nothing happens when there is no such button or it is disabled.
  void pressButton(int index);
  /// Adds a label button of width 90 as the next button (index 0 in a box without a drop-down), or renames the one that
  /// is there, and names the box for assistive software.
  void setCaption(const QString& caption);
  /// The label's caption as given, with its blanks.
  QString caption() const;

  QString text() const { return line_->text(); }
  /// Shows a text; not limited by the maximum length, so that nothing stored is cut.
  virtual void setText(const QString& text);

  /// Does to the text what leaving the box does.
  void settle() { leaving(); }

  void setReadOnly(bool readOnly);
  bool isReadOnly() const { return readOnly_; }
  /// Case of what is typed or pasted from now on.
  void setCharCase(CharCase charCase) { charCase_ = charCase; }
  CharCase charCase() const { return charCase_; }
  /// Most characters that a user can bring in; 0 is unlimited.
  void setMaxLength(int characters) { maxLength_ = characters; }
  int maxLength() const { return maxLength_; }
  /// ENTER acts as TAB.
  void setEnterMovesOn(bool on) { enterMovesOn_ = on; }
  bool enterMovesOn() const { return enterMovesOn_; }
  /// F4 to F8 press the buttons 0 to 4.
  void setFunctionKeysPress(bool on) { functionKeysPress_ = on; }
  /// Is asked about every key before the box; true swallows the key.
  void setKeyFilter(std::function<bool(const QKeyEvent&)> filter) { keyFilter_ = std::move(filter); }

  /// Keys that belong to the box as it is now: no command of the form takes them, and its open list stays open.
  virtual bool keepsKey(const QKeyEvent&) const { return false; }

  /// The text; NULL when empty.
  Value editValue() const override;
  void setEditValue(const Value& value) override;
  void resetEdit(int maximumLength) override;

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 Q_SIGNALS:
  void buttonClicked(int index);
  void textChanged(const QString& text);
  /// The user changed the text.
  void textEdited(const QString& text);
  /// The focus came; the focus left for another control (not for its drop-down, a menu or another window).
  void entered();
  void left();

 protected:
  friend class EditLine;
  /// Key down, first stage: key may be turned into another one; 0 swallows it.
  virtual void keyDown(int& key, Qt::KeyboardModifiers modifiers);
  /// Key press, second stage: the characters that a key brings, to be changed or emptied; empty swallows it.
  virtual void keyPress(QString& characters);
  /// What to tell of typed characters that keyPress swallowed; empty for nothing.
  virtual QString typingRefusal(const QString& typed) const;
  /// Why text may not be pasted as it would stand in the box (whole is the box's text afterwards); empty when it may.
  virtual QString pasteRefusal(const QString& pasted, const QString& whole) const;
  /// The wheel turned over the focused box; steps is positive upward. True when used.
  virtual bool wheelSteps(int steps);
  /// The user clicked into the line.
  virtual void lineClicked() {}
  /// Before entered() and left() are told.
  virtual void entering() {}
  virtual void leaving() {}

  QWidget* inner() const override { return line_; }
  void changeEvent(QEvent* event) override;

 private:
  void focusCame(Qt::FocusReason reason);
  void focusWent(Qt::FocusReason reason);

  EditLine* line_;
  QHBoxLayout* left_;
  QHBoxLayout* right_;
  std::vector<EditSideButton*> buttons_;
  std::function<bool(const QKeyEvent&)> keyFilter_;
  CharCase charCase_ = CharCase::Normal;
  int maxLength_ = 0;
  bool readOnly_ = false;
  bool enterMovesOn_ = false;
  bool functionKeysPress_ = false;
};
