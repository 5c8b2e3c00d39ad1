#pragma once

#include "toolkit/edits/lookup_edit.h"

#include <memory>

class KeyedLookup;

/// A look-up that stands for the key of another table's row. Only what is listed can be chosen: another text stays, is marked
/// red, and editValue() throws EConvertError.
class KeyLookupEdit : public LookupEdit {
  Q_OBJECT
 public:
  /// The source must outlive the box.
  explicit KeyLookupEdit(const KeyedLookup& source, QWidget* parent = nullptr);
  ~KeyLookupEdit() override;

  /// The key; NULL when empty.
  Value editValue() const override;
  void setEditValue(const Value& key) override;

 protected:
  void leaving() override;

 private:
  int chosenRow() const;

  const KeyedLookup& keyed_;
  std::unique_ptr<Value> key_;  ///< as long as its text stands in the box
};
