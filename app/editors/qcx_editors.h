#pragma once

#include "app/editors/editor_rules.h"
#include "toolkit/edits/button_edit.h"
#include "toolkit/edits/currency_edit.h"
#include "toolkit/edits/text_edit.h"

/// What the editors of the program's forms have in common: ENTER moves on, and OnlyChars says which characters come in.
template <class Box>
class OnlyCharsEdit : public Box {
 public:
  explicit OnlyCharsEdit(QWidget* parent = nullptr) : Box(parent) { this->setEnterMovesOn(true); }
  /// Characters that can be typed; empty allows all.
  void setOnlyChars(const QString& characters) { properties_.onlyChars = characters; }
  const QString& onlyChars() const { return properties_.onlyChars; }

 protected:
  void keyPress(QString& characters) override {
    Box::keyPress(characters);
    properties_.keepOnlyChars(characters);
  }
  QString typingRefusal(const QString& typed) const override {
    const QString inherited = Box::typingRefusal(typed);
    return inherited.isEmpty() ? properties_.refusal(typed) : inherited;
  }
  QString pasteRefusal(const QString& pasted, const QString& whole) const override {
    const QString inherited = Box::pasteRefusal(pasted, whole);
    return inherited.isEmpty() ? properties_.refusal(pasted) : inherited;
  }
  EditorProperties& properties() { return properties_; }
  const EditorProperties& properties() const { return properties_; }

 private:
  EditorProperties properties_;
};

/// Line of text of the program's forms; capitals are Turkish.
class qcxTextEdit : public OnlyCharsEdit<TextEdit> {
  Q_OBJECT
 public:
  using OnlyCharsEdit::OnlyCharsEdit;
};

/// As qcxTextEdit, with buttons that F4 to F8 press.
class qcxButtonEdit : public OnlyCharsEdit<ButtonEdit> {
  Q_OBJECT
 public:
  explicit qcxButtonEdit(QWidget* parent = nullptr);
};

/// An amount of the program's forms; F4 to F8 press its buttons.
class qcxCurrencyEdit : public OnlyCharsEdit<CurrencyEdit> {
  Q_OBJECT
 public:
  explicit qcxCurrencyEdit(QWidget* parent = nullptr);
  /// Most digits that can be typed; 0 is unlimited.
  void setDataSize(int digits) { properties().dataSize = digits; }
  int dataSize() const { return properties().dataSize; }

 protected:
  void keyPress(QString& characters) override;
  QString typingRefusal(const QString& typed) const override;
  QString pasteRefusal(const QString& pasted, const QString& whole) const override;

 private:
  QString digitsComplaint() const;
};
