#pragma once

#include <QDialog>

#include <memory>

class QPushButton;
class TMyQuery;

/// "Şirket Bilgileri": the shop's own data, the one row of sirket. Receipts and letters take it from qSirket and these boxes.
class TfSirket : public QDialog {
  Q_OBJECT
  const std::unique_ptr<TMyQuery> query_;

 public:
  /// Needs the data module.
  explicit TfSirket(QWidget* parent = nullptr);
  ~TfSirket() override;

  static constexpr int Saved = 6;
  static constexpr int GivenUp = 2;

  /// Opened once after the login, and open for the life of the process.
  TMyQuery& qSirket;

  /// Opens qSirket and shows its row.
  void open();
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
