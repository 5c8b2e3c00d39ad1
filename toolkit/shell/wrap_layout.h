#pragma once

#include <QLayout>

#include <memory>
#include <vector>

/// A row that goes on in another one where its width ends. All in a row stand in the middle of its height.
class WrapLayout : public QLayout {
 public:
  explicit WrapLayout(QWidget* parent, int spacing);
  ~WrapLayout() override;

  /// Room before the next item; none where that begins a row.
  void addGap(int width);

  void addItem(QLayoutItem* item) override;
  int count() const override { return int(items_.size()); }
  QLayoutItem* itemAt(int index) const override;
  QLayoutItem* takeAt(int index) override;
  Qt::Orientations expandingDirections() const override { return {}; }
  bool hasHeightForWidth() const override { return true; }
  int heightForWidth(int width) const override;
  /// All in one row.
  QSize sizeHint() const override;
  QSize minimumSize() const override;
  void setGeometry(const QRect& place) override;

 private:
  struct Item {
    std::unique_ptr<QLayoutItem> item;
    int gap;  ///< before it
  };
  /// Items that share a row of that width, from the first one on, and the height of the row.
  std::pair<size_t, int> rowFrom(size_t first, int width) const;

  std::vector<Item> items_;
  int nextGap_ = 0;
};
