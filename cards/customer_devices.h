#pragma once

#include "cards/in_place_list.h"

class QLabel;

/// "Müşteri Cihazları": the devices that one customer owns, edited in place.
class TfMusteriCihaz : public InPlaceList {
  Q_OBJECT
 public:
  explicit TfMusteriCihaz(QWidget* parent = nullptr);
  ~TfMusteriCihaz() override;

  /// Whose devices they are, above the rows; to be set before the list is shown.
  void setSheetCaption(const QString& caption);
  /// Shows the devices of the customer with that CA_ID until the list is closed. Throws EDatabaseError.
  void Giris(int customer);

  TMyQuery& qmCihaz;

 private:
  QLabel* sheet_;
};

extern TfMusteriCihaz* fMusteriCihaz;
