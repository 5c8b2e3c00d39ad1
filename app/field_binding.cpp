#include "app/field_binding.h"

#include "base/data/my_query.h"
#include "base/data/value.h"
#include "base/exceptions.h"
#include "toolkit/edits/combo_edit.h"
#include "toolkit/edits/edit_control.h"
#include "toolkit/edits/image_box.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QListWidget>
#include <QRadioButton>
#include <QTextEdit>

using namespace Qt::StringLiterals;

namespace {

/// Not 0: a list's value is its item's object number.
bool countsByObject(const QObject& control) { return control.property("Tag").toInt() != 0; }

void select(QListWidget& list, const Value& value) {
  const QSignalBlocker quiet(list);
  list.setCurrentRow(-1);
  for (int row = 0; row < list.count(); ++row) {
    const QListWidgetItem& item = *list.item(row);
    const bool wanted = countsByObject(list) ? !value.isNull() && item.data(Qt::UserRole).toLongLong() == value.toInteger()
                                             : item.text() == value.toText();
    if (wanted) {
      list.setCurrentRow(row);
      return;
    }
  }
}

Value selected(const QListWidget& list) {
  const QListWidgetItem* item = list.currentItem();
  if (item == nullptr) return {};
  return countsByObject(list) ? Value(item->data(Qt::UserRole).toLongLong()) : Value(item->text());
}

/// What a control holds; nothing when it is of a class that binds nothing.
std::optional<Value> valueOf(const QWidget& control) {
  if (const auto* edit = dynamic_cast<const EditControl*>(&control)) return edit->editValue();
  if (const auto* list = qobject_cast<const QListWidget*>(&control)) return selected(*list);
  const auto* button = qobject_cast<const QAbstractButton*>(&control);
  const bool checks = qobject_cast<const QCheckBox*>(&control) != nullptr || qobject_cast<const QRadioButton*>(&control) != nullptr;
  if (checks) return Value(button->isChecked() ? u"-1"_s : u"0"_s);
  if (const auto* text = qobject_cast<const QTextEdit*>(&control)) return Value(text->toPlainText());
  return std::nullopt;
}

void show(QWidget& control, const Value& value) {
  if (auto* edit = dynamic_cast<EditControl*>(&control)) {
    edit->setEditValue(value);
  } else if (auto* list = qobject_cast<QListWidget*>(&control)) {
    select(*list, value);
  } else if (auto* button = qobject_cast<QAbstractButton*>(&control)) {
    button->setChecked(value.toInteger() != 0);
  } else if (auto* text = qobject_cast<QTextEdit*>(&control)) {
    text->setPlainText(value.toText());
  }
}

void reset(QWidget& control, const FieldInfo& field) {
  const int length = field.type == FieldType::Text ? int(qMin(field.size, qint64(std::numeric_limits<int>::max()))) : 0;
  if (auto* edit = dynamic_cast<EditControl*>(&control))
    edit->resetEdit(length);
  else if (auto* list = qobject_cast<QListWidget*>(&control))
    list->setCurrentRow(-1);
  else if (auto* button = qobject_cast<QAbstractButton*>(&control))
    button->setChecked(false);
  else if (auto* text = qobject_cast<QTextEdit*>(&control))
    text->clear();
}

/// Visits every field that has a control; what does not convert is told with the control's caption.
template <class Visit>
void eachBound(QWidget& form, TMyQuery& dataset, Visit visit) {
  for (int i = 0; i < dataset.fieldCount(); ++i) {
    const QString name = dataset.fieldInfo(i).name;
    auto* control = form.findChild<QWidget*>(name);
    if (control == nullptr) continue;
    try {
      visit(*control, dataset.field(i));
    } catch (const EConvertError& error) {
      const QString caption = control->accessibleName();
      throw EConvertError(u"%1: %2"_s.arg(caption.isEmpty() ? name : caption, error.message()));
    }
  }
}

}  // namespace

void FieldBinding::controlsToFields(QWidget& form, TMyQuery& dataset) {
  eachBound(form, dataset, [](QWidget& control, const Field& field) {
    if (const auto value = valueOf(control)) field.set(*value);
  });
}

void FieldBinding::fieldsToControls(QWidget& form, TMyQuery& dataset) {
  eachBound(form, dataset, [](QWidget& control, const Field& field) {
    if (auto* picture = qobject_cast<ImageBox*>(&control)) {
      picture->clearImage();
      if (!field.isNull()) picture->setImageBytes(field.asBytes());
    } else {
      show(control, field.value());
    }
  });
}

void FieldBinding::resetControls(QWidget& form, TMyQuery& dataset) {
  eachBound(form, dataset, [](QWidget& control, const Field& field) { reset(control, field.info()); });
}
