#pragma once

#include "extras/rate_load.h"

class TMyConnection;
class TMyQuery;

/// The one row of doviz. query: any that is free; what runs one throws EDatabaseError and its children.
namespace RateStore {

/// Nothing when the table has no row.
std::optional<DayRates> stored(TMyQuery& query);
/// Puts the rates into the row, in a transaction that is rolled back when it fails; a table without it stays as it is, without a
/// word. Throws EConvertError for a date that is none.
void store(TMyConnection& connection, TMyQuery& query, const DayRates& rates);

}  // namespace RateStore
