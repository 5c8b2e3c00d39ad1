#pragma once

class QWidget;
class TMyQuery;

/// Copies between the fields of a query and the controls of a form. A control belongs to the field whose name is its
/// objectName; a field without a control is skipped, so that naming a control after its column is all that binds it.
namespace FieldBinding {

/// Controls to fields of the row in edit. Throws as Field::set; an unreadable date or number names the control's caption.
void controlsToFields(QWidget& form, TMyQuery& dataset);

/// Fields of the current row to controls. Throws Exception for a picture that cannot be read.
void fieldsToControls(QWidget& form, TMyQuery& dataset);

/// Empties the controls of the dataset's fields and limits texts to their columns' sizes.
void resetControls(QWidget& form, TMyQuery& dataset);

}  // namespace FieldBinding
