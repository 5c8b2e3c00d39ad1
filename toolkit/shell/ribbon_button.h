#pragma once

#include <QToolButton>

enum class RibbonButtonSize { Large, Small };

/// A command of the ribbon: large with the caption under a 32 px icon on two lines, or small with it beside a 16 px one.
/// Shows, enables and hides with its action; an action with a menu opens it.
class RibbonButton : public QToolButton {
  Q_OBJECT
 public:
  explicit RibbonButton(QAction* action, QWidget* parent = nullptr);

  void setButtonSize(RibbonButtonSize size);
  /// Room that the button takes in a size, in device-independent pixels.
  QSize sizeIn(RibbonButtonSize size) const;
  QSize sizeHint() const override { return sizeIn(size_); }
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QStringList captionLines() const;

  RibbonButtonSize size_ = RibbonButtonSize::Large;
};
