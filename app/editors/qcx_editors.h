#pragma once

#include "app/editors/editor_rules.h"
#include "toolkit/edits/button_edit.h"
#include "toolkit/edits/currency_edit.h"
#include "toolkit/edits/text_edit.h"

/// Line of text of the program's forms: ENTER moves on, capitals are Turkish.
class qcxTextEdit : public TextEdit {
  Q_OBJECT
 public:
  explicit qcxTextEdit(QWidget* parent = nullptr);
  /// Characters that can be typed; empty allows all.
  void setOnlyChars(const QString& characters) { properties_.onlyChars = characters; }
  const QString& onlyChars() const { return properties_.onlyChars; }

 protected:
  void keyPress(QString& characters) override;
  QString typingRefusal(const QString& typed) const override;
  QString pasteRefusal(const QString& pasted, const QString& whole) const override;

 private:
  EditorProperties properties_;
};

/// As qcxTextEdit, with buttons that F4 to F8 press.
class qcxButtonEdit : public ButtonEdit {
  Q_OBJECT
 public:
  explicit qcxButtonEdit(QWidget* parent = nullptr);
  void setOnlyChars(const QString& characters) { properties_.onlyChars = characters; }
  const QString& onlyChars() const { return properties_.onlyChars; }

 protected:
  void keyPress(QString& characters) override;
  QString typingRefusal(const QString& typed) const override;
  QString pasteRefusal(const QString& pasted, const QString& whole) const override;

 private:
  EditorProperties properties_;
};

/// An amount of the program's forms; ENTER moves on, F4 to F8 press its buttons.
class qcxCurrencyEdit : public CurrencyEdit {
  Q_OBJECT
 public:
  explicit qcxCurrencyEdit(QWidget* parent = nullptr);
  void setOnlyChars(const QString& characters) { properties_.onlyChars = characters; }
  const QString& onlyChars() const { return properties_.onlyChars; }
  /// Most digits that can be typed; 0 is unlimited.
  void setDataSize(int digits) { properties_.dataSize = digits; }
  int dataSize() const { return properties_.dataSize; }

 protected:
  void keyPress(QString& characters) override;
  QString typingRefusal(const QString& typed) const override;
  QString pasteRefusal(const QString& pasted, const QString& whole) const override;

 private:
  QString digitsComplaint() const;

  EditorProperties properties_;
};
