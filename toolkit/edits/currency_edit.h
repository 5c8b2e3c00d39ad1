#pragma once

#include "toolkit/edits/edit_box.h"

#include <optional>

class QTimer;

/// An amount, shown by a display format, and as a plain number while it has the focus ("," is the decimal mark; a typed
/// "12.50" is 12.5). Entering and leaving without typing never changes the value; an emptied box holds 0. A text that is no
/// number, or a finer one than the box has places, stays, is marked red, and asking for the value throws EConvertError.
///
/// What is typed without a pause is one word. A character that no number has spoils the whole of it: what stood in the box
/// before comes back, so that "1e9" does not become 19.
class CurrencyEdit : public EditBox {
  Q_OBJECT
 public:
  explicit CurrencyEdit(QWidget* parent = nullptr);

  /// For example ",0.00;-,0.00", which is also what it starts with.
  void setDisplayFormat(const QString& format);
  const QString& displayFormat() const { return displayFormat_; }
  /// Most digits behind the mark that a user can bring in; 2 at first. A value set by the program keeps all it has.
  void setDecimalPlaces(int places) { decimalPlaces_ = places; }
  int decimalPlaces() const { return decimalPlaces_; }

  /// Empty counts as 0. Throws EConvertError for a text that is no number.
  double value() const;
  void setValue(double value);
  bool isEmpty() const;
  void clear();
  /// How many digits stand in the text as it is now.
  int digitCount() const;

  void setText(const QString& text) override;
  /// The number; NULL after clear() and for a value that was NULL. Throws EConvertError for a text that is no number.
  Value editValue() const override;
  void setEditValue(const Value& value) override;
  /// 0.
  void resetEdit(int maximumLength) override;

 Q_SIGNALS:
  /// The user left the box with another value than it had.
  void valueChanged();

 protected:
  void keyDown(int& key, Qt::KeyboardModifiers modifiers) override;
  void keyPress(QString& characters) override;
  QString typingRefusal(const QString& typed) const override;
  QString pasteRefusal(const QString& pasted, const QString& whole) const override;
  void lineClicked() override;
  void entering() override;
  void leaving() override;

 private:
  void show();
  void readText();
  void endWord();
  void showTextBeforeWord();
  QString complaintOf(const QString& text) const;

  QString displayFormat_;
  int decimalPlaces_ = 2;
  std::optional<double> value_;  ///< as long as the text was not touched
  std::optional<double> valueAtEntry_;
  bool typed_ = false;  ///< the text is the user's and the value not read from it yet
  bool showing_ = false;

  QTimer* wordPause_;  ///< runs out when what is typed next begins another word
  QString word_;
  bool isSpoilt_ = false;
  QString textBeforeWord_;
  bool typedBeforeWord_ = false;
};
