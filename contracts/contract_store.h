#pragma once

#include <QString>

class TMyQuery;

/// Every statement of the maintenance contracts.
namespace ContractStore {

/// Give the queries of the screen their statements, options and defaults of a new row.
void setUpContracts(TMyQuery& qSozlesme);
void setUpCustomers(TMyQuery& qCari);
void setUpScratch(TMyQuery& qDetay);

/// The largest contract number that begins with the typed text ("%" and "_" of it stand for anything), of all numbers when
/// nothing is typed; as text, empty or "0" when there is none. A number that is no number counts as 0. Throws EDatabaseError.
QString largestNumber(TMyQuery& qDetay, const QString& typed);

}  // namespace ContractStore
