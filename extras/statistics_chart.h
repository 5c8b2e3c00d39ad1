#pragma once

#include "base/data/query_listener.h"
#include "extras/statistics_store.h"

#include <QChartView>

#include <array>

class QBarCategoryAxis;
class QBarSet;
class QGraphicsSimpleTextItem;
class QValueAxis;
class TMyQuery;

/// Bar chart of a query of the statistics: one bar a row, each in its own colour and pattern, with its label below and its
/// number above. Follows the query; a closed one has no bars.
class StatisticsChart : public QChartView, private QueryListener {
  Q_OBJECT
 public:
  explicit StatisticsChart(TMyQuery& query, QWidget* parent = nullptr);
  ~StatisticsChart() override;

  /// Colour of a row on the background of that palette.
  static QColor color(StatisticsStore::Row row, const QPalette& palette);

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void queryReset() override;
  void rowChanged(int) override {}
  void rowInserted(int) override {}
  void rowRemoved(int) override {}
  void queryEnds() override { query_ = nullptr; }
  void showRows();
  void applyColors();
  void placeNumbers();

  TMyQuery* query_;
  QBarCategoryAxis* labels_;
  QValueAxis* heights_;
  std::array<QBarSet*, StatisticsStore::RowCount> bars_{};
  std::array<QGraphicsSimpleTextItem*, StatisticsStore::RowCount> numbers_{};
  std::array<double, StatisticsStore::RowCount> values_{};
  bool isOpen_ = false;
};
