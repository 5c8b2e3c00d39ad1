#pragma once

#include "cards/card_list.h"
#include "contracts/contract_editor.h"
#include "toolkit/edits/query_lookup.h"

/// "Bakım Sözleşme Takip": the maintenance contracts.
class TfSozlesme : public CardList {
  Q_OBJECT
  struct Queries;
  const std::unique_ptr<Queries> queries_;

 public:
  explicit TfSozlesme(QWidget* parent = nullptr);
  ~TfSozlesme() override;

  /// The open contracts, their customers, and the scratch query of the numbering; the editor works on all three.
  TMyQuery& qSozlesme;
  TMyQuery& qCari;
  TMyQuery& qDetay;
  /// What the customers' names are looked up by, in the list and in the editor.
  KeyedLookup customers;
  ContractQueries queries() { return {qSozlesme, qCari, qDetay, customers}; }

  /// Reads customers and contracts and shows the list until it is closed; both stay open, and so does the filter. Throws
  /// EDatabaseError.
  void Giris() override;

 private:
  void deleteContract();
};

extern TfSozlesme* fSozlesme;
