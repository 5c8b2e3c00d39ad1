#pragma once

#include "toolkit/report/designer/design_sample.h"

#include <QGraphicsItem>

/// An object of a report on the canvas: shows what the report's painter would. The canvas moves it; it changes nothing itself.
class ObjectItem : public QGraphicsItem {
 public:
  explicit ObjectItem(const ReportNode& object);

  const ReportNode& object() const { return *object_; }
  /// Lays the object out anew.
  void show(const DesignSample& sample, bool withData);
  /// The same, if anything of the object but its place was changed since.
  void refresh(const DesignSample& sample, bool withData);
  /// Moves it to stay there: painted anew, as a picture that is kept and moved by parts of a dot is a little off.
  void moveTo(QPointF place);
  /// Shows the object in another size while it is resized; its content follows when the size is set.
  void preview(const QSizeF& size);
  void setFaulty(bool isFaulty);
  /// As it is shown now.
  QSizeF size() const { return size_; }

  QRectF boundingRect() const override;
  void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

 private:
  const ReportNode* object_;
  QSizeF size_;
  unsigned look_ = 0;
  DesignedObject shown_;
  bool isFaulty_ = false;
};
