#pragma once

#include "cards/card_editor.h"

/// "Dış Servis": one firm's card, on the row of the firms' list.
class TfDisServisEkle : public CardEditor {
  Q_OBJECT
 public:
  /// firms: of the list, on whose row the editor works.
  explicit TfDisServisEkle(TMyQuery& firms, QWidget* parent = nullptr);
  ~TfDisServisEkle() override;

  /// Shows an empty card. Throws EDatabaseError when it cannot be written; it is gone then.
  void Insert();
  /// Shows the list's current card. A card that cannot be written is given back, and the slip's conflict routine answers.
  void Edit();

 private:
  void save() override;
  void giveUp() override;
};

extern TfDisServisEkle* fDisServisEkle;
