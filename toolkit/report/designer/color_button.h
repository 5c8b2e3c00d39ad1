#pragma once

#include <QColor>
#include <QToolButton>

/// A colour, chosen from a small palette or written as "#rrggbb"; "Yok" is an invalid one.
class ColorButton : public QToolButton {
  Q_OBJECT
 public:
  explicit ColorButton(QWidget* parent = nullptr);

  const QColor& color() const { return color_; }
  void setColor(const QColor& color);
  /// Whether "Yok" is offered; at first it is.
  void setCanBeNone(bool canBeNone) { canBeNone_ = canBeNone; }

 Q_SIGNALS:
  /// The user chose another one.
  void colorChosen(const QColor& color);

 private:
  void fillMenu();
  void choose(const QColor& color);

  QColor color_;
  bool canBeNone_ = true;
};
