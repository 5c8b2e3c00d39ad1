#pragma once

#include <QString>

class TMyQuery;

/// Every statement of the reminder window. Dates come as their box shows them, "dd.MM.yyyy"; an empty one finds nothing. What
/// runs a statement throws EDatabaseError, and EConvertError for a text that is no date.
namespace ReminderStore {

/// Opens the slips whose reminder date is that day, whatever their status.
void openSlipsOfDay(TMyQuery& qServis, const QString& date);

/// Opens the active contracts that fall due on that day, by time and then by distance; HTARIH is the day itself.
void openDueContracts(TMyQuery& qBakim, const QString& date);

/// Opens the slips that an outside service should have given back before the server's today, the oldest promise first.
void openOverdueSlips(TMyQuery& qServis);

}  // namespace ReminderStore
