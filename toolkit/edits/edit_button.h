#pragma once

#include <QIcon>
#include <QToolButton>

/// One button of an input box.
struct EditButton {
  enum Side { Left, Right };
  QString caption;
  QIcon icon;
  QString hint;
  int width = 0;  ///< logical pixels; 0 goes by what it shows
  Side side = Right;
  bool isLabel = false;  ///< flat, caption at the left
};

/// The ready forms of buttons that many boxes have.
EditButton labelButton(const QString& caption);
EditButton ellipsisButton(const QString& hint = {});
EditButton arrowButton();

/// Flat button inside the frame of an input box. Never takes the focus.
class EditSideButton : public QToolButton {
  Q_OBJECT
 public:
  EditSideButton(const EditButton& description, QWidget* parent);
  bool isLabel() const { return isLabel_; }
  void setCaption(const QString& caption);
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QFont captionFont() const;
  /// Width of the caption in letters of full width.
  double captionLength() const;

  bool isLabel_;
  int width_;
  bool isArrow_;
};
