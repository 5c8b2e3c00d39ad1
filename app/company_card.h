#pragma once

#include "base/data/my_query.h"

#include <QDialog>

class QPushButton;

/// "Şirket Bilgileri": the shop's own data, the one row of sirket. Receipts and letters take it from qSirket and these boxes.
class TfSirket : public QDialog {
  Q_OBJECT
 public:
  /// Needs the data module.
  explicit TfSirket(QWidget* parent = nullptr);
  ~TfSirket() override;

  static constexpr int Saved = 6;
  static constexpr int GivenUp = 2;

  /// Opened once after the login, and open for the life of the process.
  TMyQuery qSirket;

  /// Shows the row as it is stored in the boxes; needs qSirket open.
  void SirketYukle();
  /// SirketYukle, then the form, modally; Saved or GivenUp.
  int Giris();

  QPushButton* Tamam_Button;

  void reject() override { done(GivenUp); }

 private:
  void buildForm();
  void tamamButtonClick();
};

/// The one instance; null before it is created and after it is gone.
extern TfSirket* fSirket;
