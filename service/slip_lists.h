#pragma once

#include <QStringList>

/// Fixed value lists of a slip, in the order in which the screens offer them; the order has a meaning.
namespace SlipLists {

/// Status (TS_TURU): sixteen values.
const QStringList& statuses();
QString intakeStatus();          ///< the first one, of every new slip
QString completedStatus();       ///< "TAMAMLANDI"
QString outsideServiceStatus();  ///< "DIŞ SERVİSTE"

/// Words that the history tables offer for the statuses. Two of them differ from what is stored; both are meant.
const QStringList& historyStatuses();

/// Warranty state (TS_HIZMET_TIP); the first one is empty.
const QStringList& warrantyStates();
/// The browser's list of them; its last word is spelled differently from the stored one, and it is meant.
const QStringList& browserWarrantyStates();

/// Way of payment (TS_ODEME_SEKLI); the first one is empty.
const QStringList& paymentWays();

}  // namespace SlipLists
