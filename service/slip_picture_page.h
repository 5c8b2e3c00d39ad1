#pragma once

#include <QWidget>

#include <functional>

class ImageBox;

/// The page "Fotoğraf": the device's picture and its four buttons.
class SlipPicturePage : public QWidget {
  Q_OBJECT
 public:
  /// titleOfPicture: caption of the window that shows the picture larger.
  SlipPicturePage(std::function<QString()> titleOfPicture, QWidget* parent = nullptr);

  /// Bytes of the picture file as they are to be saved; empty for none.
  const QByteArray& bytes() const { return bytes_; }
  void clear();
  /// Shows a stored picture. Bytes that are no picture are kept, and Exception is thrown.
  void setBytes(const QByteArray& bytes);

 private:
  void enlargePicture();
  void addPicture();
  void removePicture();
  void savePicture();
  /// Runs what reads or writes a picture; what it throws is told.
  void telling(const std::function<void()>& work);

  ImageBox* URUN_FOTO;
  QByteArray bytes_;
  std::function<QString()> titleOfPicture_;
};
