#pragma once

#include <QDate>

#include <optional>

class TMyQuery;

/// Statements of the list of incoming calls, which a telephone monitor writes and the program reads only.
namespace CallStore {

/// Calls with the customers one of whose three numbers is the caller's, digit for digit; the latest first. A call of two
/// customers stands there twice, one of none with empty customer columns. day: calls of that day alone.
void setListStatement(TMyQuery& query, std::optional<QDate> day = {});

}  // namespace CallStore
