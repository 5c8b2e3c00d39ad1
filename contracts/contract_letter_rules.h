#pragma once

#include <QDate>
#include <QString>

#include <optional>
#include <vector>

/// What a contract's letter tells. An invalid date and an empty price are what is not known.
struct LetterValues {
  QString customer;
  QString firm;
  QString address;
  QString district;
  QString city;
  QString telephone;
  QString fax;
  QDate start;
  QDate end;
  QString price;  ///< as plain number
  std::optional<int> period;  ///< code as it is stored
  QDate today;
};

struct LetterReplacement {
  QString placeholder;
  QString value;
};

namespace ContractLetterRules {

/// What is put in the place of what, in this order.
std::vector<LetterReplacement> replacements(const LetterValues& values);

}  // namespace ContractLetterRules
