#pragma once

#include "toolkit/report/designer/design_sample.h"

#include <QWidget>

#include <optional>

/// Writes one value of a property: what the inspector opens in its cell. There is one per type.
class PropertyEdit : public QWidget {
  Q_OBJECT
 public:
  using QWidget::QWidget;

  /// Nothing: the nodes differ, and the box is empty.
  virtual void setValue(const std::optional<PropertyValue>& value) = 0;
  /// Nothing when nothing was written. Throws EConvertError with a Turkish reason for what is no value.
  virtual std::optional<PropertyValue> value() const = 0;
  /// What becomes of a node's own value: all of what was written, of a font only what was changed. Throws as value().
  virtual PropertyValue valueFor(const PropertyValue& own) const { return value().value_or(own); }

 Q_SIGNALS:
  /// Part of the value was chosen; the box stays.
  void applied();
  /// The value was chosen, and the box is not needed any more.
  void chosen();
  /// Tab was pressed in the last of its fields, or Shift+Tab in the first one.
  void passed(bool isNext);

 protected:
  bool focusNextPrevChild(bool isNext) override;
};

/// Makes the box for a property; the sample's names are offered where expressions are written.
PropertyEdit* makePropertyEdit(const PropertyInfo& property, const DesignSample& sample, QWidget* parent);

/// The bytes of a picture that the user chooses; empty when they gave up or the file holds none, which is told.
QByteArray askPicture(QWidget* owner);
