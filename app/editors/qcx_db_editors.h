#pragma once

#include "base/data/my_query.h"
#include "app/editors/qcx_editors.h"

/// Ties a box to a field of a query's current row: shows it, and writes what the user changed when he leaves the box.
class FieldLink : private QueryListener {
 public:
  explicit FieldLink(EditBox& box);
  ~FieldLink() override;
  FieldLink(const FieldLink&) = delete;
  FieldLink& operator=(const FieldLink&) = delete;

  /// The query must outlive the box, or be taken away by null.
  void bind(TMyQuery* query, const QString& fieldName);
  /// Shows the current row's value; to be called when the query has moved to another row.
  void refresh();
  /// Writes a changed value, putting the row into edit. Throws as Field::set; the text stays in the box then.
  void updateRecord();
  /// The user changed the text since it was shown or written.
  void markChanged() { changed_ = true; }

 private:
  void queryReset() override;
  void rowChanged(int row) override;
  void rowInserted(int row) override;
  void rowRemoved(int row) override;

  EditBox& box_;
  TMyQuery* query_ = nullptr;
  QString fieldName_;
  bool changed_ = false;
  bool writing_ = false;
};

/// qcxTextEdit on a field.
class qcxDBTextEdit : public qcxTextEdit {
  Q_OBJECT
 public:
  explicit qcxDBTextEdit(QWidget* parent = nullptr);
  FieldLink& fieldLink() { return link_; }

 private:
  FieldLink link_;
};

/// qcxButtonEdit on a field.
class qcxDBButtonEdit : public qcxButtonEdit {
  Q_OBJECT
 public:
  explicit qcxDBButtonEdit(QWidget* parent = nullptr);
  FieldLink& fieldLink() { return link_; }

 private:
  FieldLink link_;
};

/// qcxCurrencyEdit on a field.
class qcxDBCurrencyEdit : public qcxCurrencyEdit {
  Q_OBJECT
 public:
  explicit qcxDBCurrencyEdit(QWidget* parent = nullptr);
  FieldLink& fieldLink() { return link_; }

 private:
  FieldLink link_;
};
