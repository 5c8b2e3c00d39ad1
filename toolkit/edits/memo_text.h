#pragma once

#include "toolkit/edits/edit_frame.h"

#include <QPlainTextEdit>

#include <functional>

/// The text area inside a memo.
class MemoText : public QPlainTextEdit {
  Q_OBJECT
 public:
  explicit MemoText(QWidget* parent);

  CharCase charCase = CharCase::Normal;
  int maxLength = 0;  ///< characters, 0 unlimited
  bool takesLineBreaks = true;
  std::function<QString(const QString&)> typingRule;  ///< see MemoEdit::setTypingRule

  /// The text as it was set as long as nobody edited it, so that line ends and hard blanks stay what they were.
  QString wholeText() const;
  void setWholeText(const QString& text);

 Q_SIGNALS:
  void focusCame();
  void focusWent();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void inputMethodEvent(QInputMethodEvent* event) override;
  void insertFromMimeData(const QMimeData* source) override;
  bool canInsertFromMimeData(const QMimeData* source) const override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  void typeText(const QString& characters);
  qsizetype stayingLength() const;

  QString original_;
};
