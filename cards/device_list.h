#pragma once

#include "cards/card_list.h"

/// "Cihaz Listesi": the catalogue of device kinds. Its rows come from outside; here they are only deleted.
class Tfcihazlar : public CardList {
  Q_OBJECT
 public:
  explicit Tfcihazlar(QWidget* parent = nullptr);
  ~Tfcihazlar() override;

  TMyQuery& qCihaz;
};

extern Tfcihazlar* fcihazlar;
