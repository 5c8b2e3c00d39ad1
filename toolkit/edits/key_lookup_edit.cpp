#include "toolkit/edits/key_lookup_edit.h"

#include "base/data/value.h"
#include "base/exceptions.h"
#include "base/guard.h"
#include "toolkit/edits/query_lookup.h"

using namespace Qt::StringLiterals;

namespace {

QString complaintAbout(const QString& text) { return u"%1 listede yok."_s.arg(quoted(text)); }

}  // namespace

KeyLookupEdit::KeyLookupEdit(const KeyedLookup& source, QWidget* parent) : LookupEdit(parent), keyed_(source), key_(std::make_unique<Value>()) {
  setSource(&source);
  connectGuarded(this, &LookupEdit::entryTaken, this, [this](int row) { *key_ = keyed_.key(row); });
}

KeyLookupEdit::~KeyLookupEdit() = default;

/// -1 for a text that is not listed.
int KeyLookupEdit::chosenRow() const {
  const int row = keyed_.rowOf(*key_);
  return row >= 0 && keyed_.text(row, 0) == text() ? row : findEntry(text().trimmed());
}

Value KeyLookupEdit::editValue() const {
  if (text().trimmed().isEmpty()) return {};
  const int row = chosenRow();
  if (row < 0) throw EConvertError(complaintAbout(text()));
  return keyed_.key(row);
}

void KeyLookupEdit::setEditValue(const Value& key) {
  sourceChanged();
  *key_ = key;
  setText(keyed_.textOfKey(key));
}

void KeyLookupEdit::leaving() {
  LookupEdit::leaving();
  if (!text().trimmed().isEmpty() && chosenRow() < 0) setErrorText(complaintAbout(text()));
}
