#pragma once

#include <QDialog>

#include <memory>

class StatisticsChart;
class TMyQuery;
class qcxButtonEdit;
class qcxTextEdit;

/// How the slips of a customer or of a device ended in a year: four numbers and a bar chart.
class TIstForm : public QDialog {
  Q_OBJECT
  const std::unique_ptr<TMyQuery> query_;

 public:
  /// Needs the data module.
  explicit TIstForm(QWidget* parent = nullptr);
  ~TIstForm() override;

  /// The current year of a customer, by his name; modally. Throws EDatabaseError and its children.
  void GirisMusteri(const QString& customerName);
  /// The same of a device.
  void GirisSeriNo(const QString& serial);

  TMyQuery& qSeri;  ///< what the chart shows; stays open behind the form

  qcxButtonEdit* eYil;
  qcxTextEdit* eOLUMLU;
  qcxTextEdit* eOLUMSUZ;
  qcxTextEdit* eSERVIS;
  qcxTextEdit* eTOPLAM;

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void enter(const QString& customer, const QString& serial);
  void chooseYear();
  void colorBoxes();

  QString customer_;  ///< one of the two is empty
  QString serial_;
  StatisticsChart* chart_;
};

/// The one instance; null before it is created and after it is gone.
extern TIstForm* IstForm;
