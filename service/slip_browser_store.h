#pragma once

#include <QString>

class TMyQuery;

/// Statements of the list of slips.
namespace SlipBrowserStore {

/// Most slips that one search fetches.
constexpr int mostRows = 500;

/// Opens the newest slips whose number, customer, contact, device or serial numbers hold the words searched for; all of
/// them when it is empty. Throws EDatabaseError.
void open(TMyQuery& query, const QString& search);

}  // namespace SlipBrowserStore
