#pragma once

#include <QString>

class TMyQuery;

/// Statements of the list of incoming calls, which a telephone monitor writes and the program reads only.
namespace CallStore {

/// Calls with the customers whose number matches exactly, the latest first; a call of two customers stands there twice.
void setListStatement(TMyQuery& query);

}  // namespace CallStore
