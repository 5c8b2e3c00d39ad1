#pragma once

#include <QLineEdit>

class EditBox;

/// The line inside an input box. Every text that a user brings in (keys, paste, drop, input method) goes through its
/// box's rules.
class EditLine : public QLineEdit {
  Q_OBJECT
 public:
  explicit EditLine(EditBox* box);

  /// Inserts text as if pasted: as much as there is room for, or nothing of a text that the box does not take. A balloon
  /// tells what was left out.
  void pasteText(const QString& text);
  /// The box goes: nothing is told to it any more.
  void leaveBox() { box_ = nullptr; }

 protected:
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void inputMethodEvent(QInputMethodEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  void typeText(QString characters);
  qsizetype stayingLength() const;

  EditBox* box_;
};
