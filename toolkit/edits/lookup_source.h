#pragma once

#include <QString>

/// The rows that a look-up offers, read when they are looked at. Column 0 is what goes into the box.
class LookupSource {
 public:
  virtual ~LookupSource() = default;
  virtual int rowCount() const = 0;
  virtual int columnCount() const = 0;
  virtual QString text(int row, int column) const = 0;
  virtual QString caption(int column) const = 0;
  /// Logical pixels.
  virtual int width(int column) const = 0;
};
