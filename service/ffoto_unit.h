#pragma once

#include <QDialog>

class QLabel;

/// The device's picture in its full size.
class TfFoto : public QDialog {
  Q_OBJECT
 public:
  explicit TfFoto(QWidget* parent = nullptr);
  /// Shows the picture modally; title is the window's caption.
  void Giris(const QString& title, const QByteArray& picture);

 private:
  QLabel* URUN_FOTO;
};
