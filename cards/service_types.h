#pragma once

#include "cards/in_place_list.h"

/// "Servis Tipleri": the words that classify a job, edited in place. No right guards it: meant.
class TfServisTip : public InPlaceList {
  Q_OBJECT
 public:
  explicit TfServisTip(QWidget* parent = nullptr);
  ~TfServisTip() override;

  void Giris();

  /// Opened once at the program's start; stays open.
  void open();
  TMyQuery& qServisTip;
};

extern TfServisTip* fServisTip;
