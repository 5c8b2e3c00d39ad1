#pragma once

#include "cards/card_editor.h"

/// "Dış Servis": one firm's card, on the row of the firms' list.
class TfDisServisEkle : public CardEditor {
  Q_OBJECT
 public:
  /// firms: of the list, on whose row the editor works.
  explicit TfDisServisEkle(TMyQuery& firms, QWidget* parent = nullptr);
  ~TfDisServisEkle() override;

  /// Show an empty card, the list's current card, until it is written or given up. Of a changed card that cannot be written
  /// the slip's conflict routine tells.
  void Insert();
  void Edit();

 private:
  void save() override;
  void giveUp() override;
};

extern TfDisServisEkle* fDisServisEkle;
