#pragma once

#include "toolkit/edits/edit_frame.h"

#include <functional>

class EditSideButton;
class MemoText;

/// Several lines of text, with an optional caption at the left. TAB moves on. Of a pasted text as much comes in as there
/// is room for, and a balloon tells how much was left out.
class MemoEdit : public EditFrame {
  Q_OBJECT
 public:
  explicit MemoEdit(QWidget* parent = nullptr);

  void setCaption(const QString& caption);
  /// As it was set, as long as the user changed nothing; after that its line ends are those of the set text, else "\n".
  QString text() const;
  void setText(const QString& text);
  void setReadOnly(bool readOnly);
  bool isReadOnly() const;
  void setCharCase(CharCase charCase);
  void setMaxLength(int characters);
  int maxLength() const;
  /// Off: ENTER belongs to the window's default button, and line breaks in a pasted text become blanks.
  void setTakesLineBreaks(bool on);
  /// What typed characters become; the empty text drops them. Nothing pasted goes through it.
  void setTypingRule(std::function<QString(const QString& typed)> rule);
  /// Puts text behind the selection, or at the cursor, and leaves the cursor behind it.
  void insertBehindSelection(const QString& text);
  /// The inner widget, which takes the focus.
  QWidget* editor() const;

  Value editValue() const override;
  void setEditValue(const Value& value) override;
  void resetEdit(int maximumLength) override;

 Q_SIGNALS:
  void textChanged();
  void captionClicked();
  void entered();
  void left();

 protected:
  QWidget* inner() const override;

 private:
  MemoText* text_;
  EditSideButton* label_ = nullptr;
};
