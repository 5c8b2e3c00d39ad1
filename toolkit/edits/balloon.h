#pragma once

#include <QObject>
#include <QPointer>
#include <QTimer>

class QWidget;

/// A text that stands beside a control for a while. Never takes the focus; a click on it sends it away.
class Balloon : public QObject {
  Q_OBJECT
 public:
  explicit Balloon(QObject* parent = nullptr);
  ~Balloon() override;

  /// Shows text beside control for pauseMs milliseconds: at an input box 95 logical pixels right of its left edge, at
  /// anything else at its centre. A control that is scrolled away comes into sight first. False, and nothing happens, while
  /// one is up.
  bool showAt(QWidget* control, const QString& text, int pauseMs = 2000);
  bool isUp() const { return pause_.isActive(); }
  void hide();
  /// What stands in the balloon that is up; empty when none is.
  QString text() const;
  /// Where its point is, in screen coordinates.
  static QPoint anchorOf(const QWidget* control);

 private:
  QTimer pause_;
  QPointer<QWidget> bubble_;
};

/// The balloon that all boxes share for what they refuse.
Balloon& refusalBalloon();
/// Tells in it what a box did not take, in place of what is told there now.
void showRefusal(QWidget* box, const QString& text);
