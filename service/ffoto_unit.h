#pragma once

#include <QDialog>

class QLabel;

/// Format of the slips' pictures.
QByteArray slipPictureFormat();

/// The device's picture in its full size. One window serves all slips.
class TfFoto : public QDialog {
  Q_OBJECT
 public:
  TfFoto();
  ~TfFoto() override;
  /// Shows the picture modally; title is the window's caption. Throws Exception for bytes that are no picture of a slip.
  void Giris(const QString& title, const QByteArray& picture);

 private:
  QLabel* URUN_FOTO;
};

/// The one instance; null before it is created and after it is gone.
extern TfFoto* fFoto;
