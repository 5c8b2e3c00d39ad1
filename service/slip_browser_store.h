#pragma once

#include "base/data/filter_expression.h"
#include "base/data/value.h"

#include <functional>
#include <optional>

class TMyConnection;
class TMyQuery;

/// Statements of the list of slips. Throws EDatabaseError and its children.
class SlipBrowserStore {
 public:
  /// pGetQ: the query that all screens share. All of them must outlive the store.
  SlipBrowserStore(TMyConnection& connection, TMyQuery& qServis, TMyQuery& qDisServis, TMyQuery& pGetQ);

  /// Opens the slips without one row, to be narrowed by narrow(); the order stays.
  void openWithoutRows();
  /// Opens all slips; the order stays.
  void openAll();
  /// Shows the slips that pass. A list that is limited at the server is fetched anew when its condition on the slip date
  /// changes; everything else is narrowed among the rows that are there.
  void narrow(const std::optional<FilterExpression>& filter);
  /// Shows those that pass of the slips that are there, and fetches none.
  void narrowFetched(const std::optional<FilterExpression>& filter);
  /// Orders by an order clause and fetches the slips anew. With an empty one the order stays as it is, which is meant.
  void setOrder(const QString& columns);
  /// Fetches the slips again, also after a fetch that failed.
  void refresh();
  void close();

  /// Fetches the outside firms, by name.
  void openFirms();

  /// Deletes pictures and notes of the slips with these keys and then, by deleteRows, the slips, all or nothing. The
  /// statements of several slips do not stand apart, so the server takes those of a single one only: slips are deleted one at
  /// a time, which is meant.
  void deleteSlips(const QStringList& keys, const std::function<void()>& deleteRows);

 private:
  /// Which rows of the table were fetched.
  struct Condition {
    QString text;
    QHash<QString, Value> values;
    bool operator==(const Condition&) const = default;
  };
  static std::optional<Condition> conditionOf(const std::optional<FilterExpression>& filter);
  void fetch(const QString& statement, std::optional<Condition> condition);
  void deleteOf(const QString& statement, const QStringList& keys);

  TMyConnection& connection_;
  TMyQuery& qServis_;
  TMyQuery& qDisServis_;
  TMyQuery& pGetQ_;
  QString order_;
  std::optional<Condition> fetched_;  ///< nothing: all slips
};
