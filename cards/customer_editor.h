#pragma once

#include "cards/card_editor.h"

/// "Cari Hesap": one customer card, on the row of the customers' list.
class TfCariEkle : public CardEditor {
  Q_OBJECT
 public:
  /// customers: of the list, on whose row the editor works.
  explicit TfCariEkle(TMyQuery& customers, QWidget* parent = nullptr);
  ~TfCariEkle() override;

  /// Show an empty card, the list's current card. Throw EDatabaseError.
  void Insert();
  void Edit();

 private:
  void save() override;
  void giveUp() override;
};

extern TfCariEkle* fCariEkle;
