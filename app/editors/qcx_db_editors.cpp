#include "app/editors/qcx_db_editors.h"

#include "base/data/my_query.h"
#include "base/data/value.h"
#include "base/exceptions.h"
#include "base/guard.h"
#include "toolkit/edits/radio_group_edit.h"

FieldLink::FieldLink(EditBox& box) : box_(box) {
  connectGuarded(&box, &EditBox::textEdited, &box, [this] { markChanged(); });
  connectGuarded(&box, &EditBox::left, &box, [this] { leave(); });
}

FieldLink::FieldLink(RadioGroupEdit& box) : box_(box) {
  connectGuarded(&box, &RadioGroupEdit::chosen, &box, [this] {
    markChanged();
    leave();
  });
}

FieldLink::~FieldLink() {
  if (query_) query_->removeListener(this);
}

void FieldLink::bind(TMyQuery* query, const QString& fieldName) {
  if (query_) query_->removeListener(this);
  query_ = query;
  fieldName_ = fieldName;
  if (query_) query_->addListener(this);
  refresh();
}

void FieldLink::refresh() {
  if (writing_) return;
  const bool hasRow = query_ && query_->Active() && query_->RecNo() >= 0;
  box_.setEnabled(hasRow);
  box_.setEditValue(hasRow ? query_->FieldByName(fieldName_).value() : Value());
  changed_ = false;
}

void FieldLink::updateRecord() {
  if (!changed_ || !query_ || !query_->Active() || query_->RecNo() < 0) return;
  const Value entered = box_.editValue();
  writing_ = true;
  try {
    if (query_->state() == QueryState::Browse) query_->Edit();
    query_->FieldByName(fieldName_).set(entered);
  } catch (...) {
    writing_ = false;
    throw;
  }
  writing_ = false;
  changed_ = false;
}

void FieldLink::queryReset() { refresh(); }
/// Another box's write does not take away what is being typed in this one.
void FieldLink::rowChanged(int row) {
  if (row == query_->RecNo() && !changed_) refresh();
}
void FieldLink::rowInserted(int) { refresh(); }
void FieldLink::rowRemoved(int) { refresh(); }
void FieldLink::queryEnds() { query_ = nullptr; }

bool FieldLink::leave() {
  try {
    updateRecord();
    return true;
  } catch (const EUnstorableValue& error) {
    if (!onRefused) throw;
    onRefused(error);
  } catch (const EConvertError& error) {
    if (!onRefused) throw;
    onRefused(error);
  }
  return false;
}
