#include "toolkit/edits/mask_edit.h"

#include "base/data/value.h"

using namespace Qt::StringLiterals;

MaskEdit::MaskEdit(QWidget* parent) : EditBox(parent) { setEnterMovesOn(true); }

void MaskEdit::setMask(const QString& mask) {
  line()->setInputMask(mask);
  line()->clear();
  marks_ = text();
}

bool MaskEdit::isEmpty() const { return text().isEmpty() || text() == marks_; }

Value MaskEdit::editValue() const { return isEmpty() ? Value() : Value(text()); }

void MaskEdit::resetEdit(int) {
  setText({});
  setErrorText({});
}

void MaskEdit::leaving() {
  const bool complete = isEmpty() || line()->hasAcceptableInput();
  setErrorText(complete ? QString() : u"Bu alan eksik dolduruldu."_s);
}
