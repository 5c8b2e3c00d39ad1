#pragma once

#include "toolkit/edits/edit_control.h"

#include <QFrame>
#include <QImage>
#include <QSize>

/// The picture in a file's bytes, upright, made smaller when a side is longer than longestSide (by default more than a screen
/// shows of it). format: the only one that is taken, as "jpeg"; empty for any. Throws Exception for bytes that are no such
/// picture.
QImage decodedPicture(const QByteArray& bytes, const QByteArray& format = {}, int longestSide = 2560);

/// A picture, shown scaled with its proportions. Its bytes stay exactly as they came, and are decoded as large as they are
/// shown, only while they are.
class ImageBox : public QFrame, public EditControl {
  Q_OBJECT
 public:
  explicit ImageBox(QWidget* parent = nullptr);

  /// Takes pictures of one format only, as "jpeg".
  void setFormat(const QByteArray& format) { format_ = format; }
  /// Bytes of a picture file; empty bytes empty the box. Throws Exception for damaged or unknown bytes and leaves the
  /// picture as it was.
  void setImageBytes(const QByteArray& bytes);
  const QByteArray& imageBytes() const { return bytes_; }
  void clearImage();
  bool isEmpty() const { return bytes_.isEmpty(); }
  /// What is shown while there is no picture.
  void setEmptyText(const QString& text);

  Value editValue() const override;
  void setEditValue(const Value& value) override;
  void resetEdit(int maximumLength) override;
  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  const QImage& imageFor(QSize pixels);

  QByteArray format_;
  QByteArray bytes_;
  QImage image_;       ///< null while it is not shown
  QSize imageRoom_;    ///< what image_ was decoded for, in pixels
  QString emptyText_;
};
