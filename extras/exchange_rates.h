#pragma once

#include "extras/rate_load.h"
#include "toolkit/shell/hourglass.h"

#include <QDialog>

#include <optional>

class QPushButton;
class qcxCurrencyEdit;
class qcxTextEdit;

/// "Döviz Kurları": the day's selling rates of three currencies, from the one row of doviz or from the rate service.
class TfDoviz : public QDialog, private RateScreen {
  Q_OBJECT
 public:
  /// Needs the data module.
  explicit TfDoviz(QWidget* parent = nullptr);
  ~TfDoviz() override;

  /// LoadRates for today, then the form, modally. Throws as LoadRates; the form does not come up then.
  void Giris();
  /// See RateLoad::load; dateText as it is displayed.
  void LoadRates(const QString& dateText);
  /// Fetches a document into a file; false when that fails, which the log tells.
  bool DownloadFile(const QString& url, const QString& fileName);

  qcxTextEdit* eTarih;
  qcxCurrencyEdit* eDolar;
  qcxCurrencyEdit* eEuro;
  qcxCurrencyEdit* eSterlin;
  QPushButton* RzBitBtn1;  ///< "Serbest Piyasa"
  QPushButton* Tamam_Button;

 private:
  void tamamButtonClick();
  qcxCurrencyEdit* box(Currency currency) const;

  QString date() const override;
  void setDate(const QString& date) override;
  void setRate(Currency currency, double rate) override;
  void setUnreadableRate(Currency currency, const QString& text) override;
  void setHourglass(bool on) override;
  void setStatusText(const QString& text) override;
  std::optional<DayRates> storedRates() override;
  bool download(const QString& file) override;
  void store() override;

  std::optional<Hourglass> hourglass_;
};

/// The one instance; null before it is created and after it is gone.
extern TfDoviz* fDoviz;
