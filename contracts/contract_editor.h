#pragma once

#include "cards/card_editor.h"

class KeyedLookup;

/// The open queries of the contracts' list, which its editor works on as well; all must outlive it.
struct ContractQueries {
  TMyQuery& qSozlesme;
  TMyQuery& qCari;
  TMyQuery& qDetay;
  const KeyedLookup& customers;
};

/// "Bakım Sözleşmesi": one maintenance contract, on the row of the contracts' list.
class TfSozlesmeEkle : public CardEditor {
  Q_OBJECT
 public:
  explicit TfSozlesmeEkle(const ContractQueries& queries, QWidget* parent = nullptr);
  ~TfSozlesmeEkle() override;

  /// Show an empty contract with a number of its own, the list's current one. Throw EDatabaseError.
  void Insert();
  void Edit();

 private:
  void save() override;
  void giveUp() override;
  void refused(EditFrame& box, const Exception& error) override;
  void SOZ_NOPropertiesButtonClick(int button);
  void answer(const Exception& error);

  ContractQueries queries_;
};

extern TfSozlesmeEkle* fSozlesmeEkle;
