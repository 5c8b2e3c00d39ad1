#pragma once

#include <QString>

#include <memory>

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

 private:
  friend class LookupSourcePointer;
  std::shared_ptr<const bool> life_ = std::make_shared<bool>(true);
};

/// Points at a source that may end first, and at nothing from then on.
class LookupSourcePointer {
 public:
  LookupSourcePointer& operator=(const LookupSource* source) {
    source_ = source;
    life_ = source != nullptr ? source->life_ : nullptr;
    return *this;
  }
  const LookupSource* get() const { return life_.expired() ? nullptr : source_; }
  const LookupSource* operator->() const { return get(); }
  explicit operator bool() const { return get() != nullptr; }

 private:
  const LookupSource* source_ = nullptr;
  std::weak_ptr<const bool> life_;
};
