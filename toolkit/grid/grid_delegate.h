#pragma once

#include <QHash>
#include <QStyledItemDelegate>

class GridModel;
class GridView;

/// Paints a grid's cells, the searched-for part of one and the frame round the cursor's cell, and makes its in-place
/// editors.
class GridDelegate : public QStyledItemDelegate {
  Q_OBJECT
 public:
  GridDelegate(GridModel* model, GridView* view);
  /// Room between a cell's border and its text.
  static constexpr int margin = 3;

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  /// Within the frame of the cursor's cell, so that the text stays where it was.
  void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  void setEditorData(QWidget* editor, const QModelIndex& index) const override;
  void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;

 private:
  QColor inkOf(int queryRow, const QPalette& colors) const;

  GridModel* model_;
  GridView* view_;
  mutable QHash<QRgb, QColor> readable_;  ///< colours of rows as they can be read on the palette's backgrounds
  mutable qint64 palette_ = 0;            ///< that they were worked out for
};
