#pragma once

#include "base/data/filter_expression.h"
#include "cards/card_list.h"

#include <optional>

/// "Müşteri Listesi": all customer cards.
class Tfmusteriler : public CardList {
  Q_OBJECT
 public:
  explicit Tfmusteriler(QWidget* parent = nullptr);
  ~Tfmusteriler() override;

  /// The open cards, which the editor works on as well.
  TMyQuery& qCari;

 protected:
  void openCards() override;

 private:
  bool takeFilter(const std::optional<FilterExpression>& filter);
  bool hasNamedRow();
  bool tellsThatRowsHaveNoKey();
  void addCard();
  void editCard();
  void showDevices();
  void sendSms();
  void showStatistics();
  void exportToExcel();

  bool isByDevice_ = false;  ///< the rows are those of a filter by device
};

extern Tfmusteriler* fmusteriler;
