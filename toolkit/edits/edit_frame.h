#pragma once

#include "toolkit/edits/edit_control.h"

#include <QFrame>

class QKeyEvent;

/// How letters are written as they are typed or pasted, by the Turkish rules.
enum class CharCase { Normal, Upper, Lower };

/// A text that comes in from outside as a box takes it: every letter one character, in the case asked for.
QString taken(CharCase charCase, const QString& text);

/// What a mark that was typed on its own makes of the letter before it; empty when it does not join that letter.
QString joined(CharCase charCase, QChar letter, const QString& mark);

/// How text reads in a message: its beginning, when it is long.
QString quoted(const QString& text);

/// What of a text finds room, and what a user is told of the rest.
struct FittingText {
  QString text;
  QString complaint;  ///< empty when all of it fits
};
/// The beginning of text that a box of at most maxLength characters (0 is unlimited) has room for besides those that stay
/// in it. Never ends within a character.
FittingText fittingText(const QString& text, qsizetype staying, int maxLength);

/// True when a key writes its text. AltGr, which some systems tell as Ctrl and Alt, writes letters; Ctrl alone commands.
bool writesText(const QKeyEvent& press);

/// The frame round an input and its buttons: one border, a stronger one with the focus, a red one with an error.
class EditFrame : public QFrame, public EditControl {
  Q_OBJECT
 public:
  explicit EditFrame(QWidget* parent);

  /// Marks the box as wrong and tells why in its hint; an empty text takes the mark away.
  void setErrorText(const QString& text);
  const QString& errorText() const { return errorText_; }
  bool hasError() const { return !errorText_.isEmpty(); }

  /// Logical width in pixels of a caption at the left of a box.
  static constexpr int captionWidth = 90;
  /// Height in logical pixels that all one-line boxes have with this widget's font.
  int oneLineHeight() const;

  /// Names frame and inner widget for assistive software: the caption without its blanks.
  void nameBy(const QString& caption);

 protected:
  /// The widget that takes the keyboard within the frame.
  virtual QWidget* inner() const = 0;
  void paintEvent(QPaintEvent* event) override;

 private:
  QString errorText_;
  QString plainHint_;
};

/// Names any box for assistive software, one of ours with the line within it, which has the focus.
void nameBox(QWidget& box, const QString& caption);
