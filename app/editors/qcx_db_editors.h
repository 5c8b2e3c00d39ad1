#pragma once

#include "app/editors/qcx_editors.h"
#include "base/data/query_listener.h"

#include <functional>

class Exception;
class RadioGroupEdit;
class TMyQuery;

/// Ties a box to a field of a query's current row: shows it, and writes what the user changed when he leaves the box.
class FieldLink : private QueryListener {
 public:
  /// Follows what the user does in the box.
  explicit FieldLink(EditBox& box);
  explicit FieldLink(RadioGroupEdit& box);
  ~FieldLink() override;
  FieldLink(const FieldLink&) = delete;
  FieldLink& operator=(const FieldLink&) = delete;

  /// Null takes the query away; one that ends leaves the box as it is.
  void bind(TMyQuery* query, const QString& fieldName);
  /// Shows the current row's value; to be called when the query has moved to another row.
  void refresh();
  /// Writes a changed value, putting the row into edit. Throws as Field::set; the text stays in the box then.
  void updateRecord();
  /// The user changed the text since it was shown or written.
  void markChanged() { changed_ = true; }
  /// updateRecord as the box is left. A value that the field does not take is handed to onRefused, if somebody listens; false
  /// then.
  bool leave();
  std::function<void(const Exception& error)> onRefused;

 private:
  void queryReset() override;
  void rowChanged(int row) override;
  void rowInserted(int row) override;
  void rowRemoved(int row) override;
  void queryEnds() override;

  EditFrame& box_;
  TMyQuery* query_ = nullptr;
  QString fieldName_;
  bool changed_ = false;
  bool writing_ = false;
};

/// A box with a field behind it.
class LinkedBox {
 public:
  virtual ~LinkedBox() = default;
  virtual FieldLink& fieldLink() = 0;
};

/// Any box on a field.
template <class Box>
class LinkedEdit : public Box, public LinkedBox {
 public:
  using Box::Box;
  FieldLink& fieldLink() override { return link_; }

 private:
  FieldLink link_{static_cast<Box&>(*this)};
};

/// The program's editors on a field.
class qcxDBTextEdit : public LinkedEdit<qcxTextEdit> {
  Q_OBJECT
 public:
  using LinkedEdit::LinkedEdit;
};

class qcxDBButtonEdit : public LinkedEdit<qcxButtonEdit> {
  Q_OBJECT
 public:
  using LinkedEdit::LinkedEdit;
};

class qcxDBCurrencyEdit : public LinkedEdit<qcxCurrencyEdit> {
  Q_OBJECT
 public:
  using LinkedEdit::LinkedEdit;
};
