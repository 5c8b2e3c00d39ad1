// Saving and deleting of the slip editor.
#include "app/dmUnit.h"
#include "app/exceptions.h"
#include "app/kvbankUnit.h"
#include "app/quendUtils.h"
#include "app/Unit14.h"
#include "service/fservisfis_unit.h"
#include "service/slip_conflict.h"
#include "service/slip_fields_page.h"
#include "service/slip_look_ups.h"
#include "service/slip_message.h"
#include "service/slip_picture_page.h"
#include "toolkit/edits/memo_edit.h"
#include "toolkit/edits/text_edit.h"
#include "toolkit/grid/query_table.h"

#include <QCoreApplication>
#include <QTabWidget>
#include <QToolButton>

using namespace Qt::StringLiterals;

void TfServisFis::save() {
  if (!isReadyToSave()) return;
  if (EditorMode == Mode::Insert)
    saveNew();
  else
    saveExisting();
}

bool TfServisFis::isReadyToSave() {
  pages_->setCurrentIndex(FieldsPage);
  saveButton_->setFocus();  // runs what leaving the current field does
  if (const QString refusal = lines_->view()->refusal(); !refusal.isEmpty()) {
    pages_->setCurrentIndex(LinesPage);
    lines_->view()->focusRefusedEditor();
    QuendHint(lines_, 0, refusal);
    return false;
  }
  return !showFieldMessage(SlipRules::validate(textsToSave())) && !showFieldMessage(fields_->unreadableField());
}

bool TfServisFis::showFieldMessage(const std::optional<FieldMessage>& message) {
  if (!message) return false;
  const bool isNote = message->control == note_->objectName();
  if (isNote) pages_->setCurrentIndex(NotesPage);
  QuendHint(isNote ? note_ : fields_->frame(message->control), 0, message->text);
  return true;
}

std::vector<SlipText> TfServisFis::textsToSave() const {
  std::vector<SlipText> texts = fields_->texts();
  for (SlipText& text : texts)
    if (const int field = qServis.fieldIndex(text.control); field >= 0) text.maximumLength = qServis.fieldInfo(field).size;
  texts.push_back({note_->objectName(), u"Notlar"_s, note_->text()});
  return texts;
}

SlipExtras TfServisFis::extrasToSave() const {
  return {Login_Form->Kullanici->text(), outsideService_, picture_->bytes(), note_->text()};
}

void TfServisFis::fillRow() { QuendUtil->EkrandanAlanlara(*this, qServis); }

void TfServisFis::saveNew() {
  if (const auto failure = store_.saveNew([this] { fillRow(); }, extrasToSave())) {
    updateDeleteException(failure->errorClass, failure->message);
    return;
  }
  setMode(Mode::Edit);  // the slip is written, whatever fails from here on
  saveDone();
  setHistoryVisible(true);
}

void TfServisFis::saveExisting() {
  try {
    store_.refreshRow();
  } catch (const Exception& error) {
    Login_Form->Log(error.message(), &error);
    QuendUtil->ErrorMesaj(this, u"Kayıt başka bir kullanıcı tarafından silinmiştir."_s);
    return;
  }
  if (const auto failure = store_.saveExisting([this] { fillRow(); }, extrasToSave())) {
    updateDeleteException(failure->errorClass, failure->message);
    return;
  }
  saveDone();
  const qint64 id = qServis.FieldByName(u"TS_ID"_s).asInteger();
  const QList<QWidget*> windows = fKvb != nullptr ? fKvb->childWindows() : QList<QWidget*>{this};
  for (QWidget* window : windows) QCoreApplication::postEvent(window, new SlipSavedMessage(id));
}

void TfServisFis::saveDone() {
  MakbuzBask1->setEnabled(true);
  QuendHint(saveButton_, 0, u"Servis fiş kaydı tamamlandı."_s);
  lookUps_->refresh();
  fields_->setText(u"TS_USER"_s, qServis.FieldByName(u"TS_USER"_s).asText());
  fields_->setText(u"TS_USER_TIME"_s, qServis.FieldByName(u"TS_USER_TIME"_s).asText());
  setTitle(this, SlipRules::slipTitle(fields_->text(u"TS_NO"_s)));
}

void TfServisFis::updateDeleteException(const QString& className, const QString& message) {
  answerSlipConflict(this, className, message);
}

bool TfServisFis::isNumberStored() { return store_.numberExists(fields_->text(u"TS_NO"_s)); }

void TfServisFis::saveOverOthers() {
  qServis.Options.CheckRowVersion = false;
  try {
    save();
  } catch (...) {
    qServis.Options.CheckRowVersion = true;
    throw;
  }
  qServis.Options.CheckRowVersion = true;
}

void TfServisFis::deleteSlip() {
  if (QuendUtil->Mesaj(this, u"Fiş silinecek onaylıyor musunuz"_s) != TQuendUtil::Confirmed) return;
  store_.deleteSlip();
  closeWindow();
}
