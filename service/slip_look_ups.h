#pragma once

#include "toolkit/edits/query_lookup.h"

#include <QObject>

class SlipFieldsPage;

/// What the boxes of customer, device and service type copy into the slip.
class SlipLookUps : public QObject {
  Q_OBJECT
 public:
  /// Page and queries must outlive this object.
  SlipLookUps(SlipFieldsPage& page, TMyQuery& qCari, TMyQuery& qCihaz, TMyQuery& qServisTip);

  /// Reads all three lists, unless they are open; those that have not changed since a slip last read them are taken from it.
  /// Throws EDatabaseError.
  void open();
  /// The same for customers and devices, open or not. Throws EDatabaseError.
  void refresh();
  void close();
  /// Copies the customer and the model of a device found by its serial; values by column name.
  void takeDevice(const QHash<QString, QString>& values);

 private:
  using Copies = std::vector<std::pair<QString, QString>>;  ///< column of the slip, column of the card
  static const Copies& customerCopies();
  static const Copies& deviceCopies();
  void connectLookUp(const QString& column, const QueryLookup& source, const Copies& copies);

  SlipFieldsPage& page_;
  TMyQuery& qCari_;
  TMyQuery& qCihaz_;
  TMyQuery& qServisTip_;
  QueryLookup customers_;
  QueryLookup devices_;
};
