#pragma once

struct ContractQueries;
class QWidget;

/// The letter of a maintenance contract.
namespace ContractLetter {

/// Merges the current contract and the shop's own data into the shop's letter, and prints or shows it as the workstation wants
/// it. Throws EReportFile for a damaged template, EInOutError for a text that is missing or damaged.
/// owner is what a preview stands before.
void print(QWidget* owner, const ContractQueries& queries);

}  // namespace ContractLetter
