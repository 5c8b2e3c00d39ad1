#pragma once

#include <QPlainTextEdit>

class DesignCanvas;
class ReportNode;

/// Writes the text of an object where it stands. Leaving it, and Ctrl+Enter, keep what was written; Escape does not.
class TextInPlace : public QPlainTextEdit {
  Q_OBJECT
 public:
  TextInPlace(DesignCanvas& canvas, ReportNode& object);
  ReportNode& object() const { return object_; }
  /// As it was as long as nobody edited it.
  QString text() const;
  /// Keeps the text, or leaves it as it was, and goes.
  void end(bool keeps);

 Q_SIGNALS:
  void ended();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  void showFont();

  DesignCanvas& canvas_;
  ReportNode& object_;
  QString shown_;
  bool isEnded_ = false;
};
