#pragma once

#include <QString>

class TMyQuery;

/// The statements of the statistics: four rows, each a number of slips and its label. What runs one throws EDatabaseError and
/// its children.
namespace StatisticsStore {

/// Rows of every statement, in their order.
enum Row { Bad, Good, InShop, All, RowCount };

/// Opens the slips of a customer's name in a year; year goes to the server as it is.
void openCustomer(TMyQuery& qSeri, const QString& customer, const QString& year);
/// The same for a device's serial number. The last row counts the slips of no customer: none.
void openSerial(TMyQuery& qSeri, const QString& serial, const QString& year);
/// Another year of a serial number: asks the customer's statement for the serial number, which it has not, so that EDatabaseError
/// is thrown and the query stays closed: meant.
void openSerialAnew(TMyQuery& qSeri, const QString& serial, const QString& year);

/// Number of slips in a row of the open query.
qint64 countOf(const TMyQuery& qSeri, Row row);
/// Label of a row of the open query.
QString labelOf(const TMyQuery& qSeri, Row row);

}  // namespace StatisticsStore
