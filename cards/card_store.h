#pragma once

#include <QString>

class FilterExpression;
class TMyQuery;

/// Every statement of the card screens. What runs one throws EDatabaseError and its children.
namespace CardStore {

/// Give the queries of the screens their statements and options.
void setUpCustomers(TMyQuery& qCari);
void setUpCustomerDevices(TMyQuery& qmCihaz);
void setUpDevices(TMyQuery& qCihaz);
void setUpFirms(TMyQuery& qDisServis);
void setUpServiceTypes(TMyQuery& qServisTip);

/// By what TMyQuery::OpenShared knows that the rows of a table are still the same.
struct Versions {
  QByteArray customers;
  QByteArray devices;
  QByteArray serviceTypes;
};
/// All three, in one question. query: any that is free.
Versions versions(TMyQuery& query);

/// Opens the devices of the customer with that CA_ID.
void openDevicesOf(TMyQuery& qmCihaz, qint64 customer);

/// True for a filter that names a column of the customers' devices.
bool goesByDevice(const FilterExpression& filter);
/// Opens the customers who have a device that passes the filter. Their statement stays as it was when that fails.
void openByDevice(TMyQuery& qCari, const FilterExpression& filter);

/// True when the table has a row with that text in that column. query: any that is free.
bool exists(TMyQuery& query, const QString& table, const QString& column, const QString& text);

}  // namespace CardStore
