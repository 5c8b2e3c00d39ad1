#pragma once

#include "base/data/my_query.h"
#include "toolkit/edits/lookup_source.h"

#include <QObject>

class SlipFieldsPage;

/// Entries of a look-up box out of a query's rows.
class QueryLookup : public LookupSource {
 public:
  struct Column {
    QString field;
    QString caption;
    int width;
  };
  /// The query must outlive the look-up.
  QueryLookup(TMyQuery& query, std::vector<Column> columns) : query_(query), columns_(std::move(columns)) {}

  int rowCount() const override { return query_.Active() ? query_.RecordCount() : 0; }
  int columnCount() const override { return int(columns_.size()); }
  QString text(int row, int column) const override { return textOf(row, columns_[size_t(column)].field); }
  QString caption(int column) const override { return columns_[size_t(column)].caption; }
  int width(int column) const override { return columns_[size_t(column)].width; }
  /// Any column of a row.
  QString textOf(int row, const QString& field) const;

 private:
  TMyQuery& query_;
  std::vector<Column> columns_;
};

/// What the boxes of customer, device and service type copy into the slip.
class SlipLookUps : public QObject {
  Q_OBJECT
 public:
  /// Page and queries must outlive this object.
  SlipLookUps(SlipFieldsPage& page, TMyQuery& qCari, TMyQuery& qCihaz, TMyQuery& qServisTip);
  ~SlipLookUps() override;

  /// Reads all three lists, unless they are open. Throws EDatabaseError.
  void open();
  /// Reads customers and devices anew. Throws EDatabaseError.
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
