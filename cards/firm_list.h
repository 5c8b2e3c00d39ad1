#pragma once

#include "cards/card_list.h"

/// "Dış Servisler Listesi": the firms that devices are sent to.
class TfDisServisler : public CardList {
  Q_OBJECT
 public:
  explicit TfDisServisler(QWidget* parent = nullptr);
  ~TfDisServisler() override;

  /// The open cards, which the editor works on as well.
  TMyQuery& qDisServis;
};

extern TfDisServisler* fDisServisler;
