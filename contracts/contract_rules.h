#pragma once

#include <QDate>
#include <QString>

#include <optional>
#include <vector>

/// How often a contract reminds.
struct ContractPeriod {
  QString caption;
  int code;  ///< as it is stored
};

/// What the boxes of a contract hold when it is to be saved.
struct ContractInput {
  QString number;
  QString customer;
  QString start;          ///< of the term
  QString end;
  QString firstReminder;
  int period = 0;         ///< position of the chosen one, from 0; -1 for none
};

/// Why a contract is not saved, and the box to tell it at.
struct ContractFault {
  QString box;
  QString message;
};

/// Decisions of the maintenance contracts; plain values in and out.
namespace ContractRules {

/// All periods in the order in which they are offered; the yearly one stands fifth, before the longer codes.
const std::vector<ContractPeriod>& periods();

inline const QString active = QStringLiteral("AKTİF");
/// What a contract's state may be.
QStringList states();
/// What a new contract begins with.
inline constexpr int firstPeriodCode = 1;

/// The number to propose. typed: what the box holds; largest: the largest number that begins with it, as text, empty or "0"
/// when there is none. Without any, an empty box gets the first number and a filled one keeps its text.
QString proposedNumber(const QString& largest, const QString& typed);

/// The first test that a contract does not pass; nothing when it may be saved.
std::optional<ContractFault> firstFault(const ContractInput& input);

}  // namespace ContractRules
