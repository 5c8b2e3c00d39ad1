#pragma once

#include "toolkit/edits/edit_frame.h"

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
