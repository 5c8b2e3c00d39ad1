// Saving and deleting of the slip editor.
#include "base/data/my_query.h"
#include "app/ports.h"
#include "app/dmUnit.h"
#include "base/data/value.h"
#include "base/environment.h"
#include "base/exceptions.h"
#include "app/quendUtils.h"
#include "app/row_conflict.h"
#include "reminders/fhatirlat_unit.h"
#include "service/fservisfis_unit.h"
#include "service/slip_fields_page.h"
#include "service/slip_hooks.h"
#include "service/slip_lists.h"
#include "service/slip_look_ups.h"
#include "service/slip_message.h"
#include "service/slip_parameters.h"
#include "service/slip_picture_page.h"
#include "toolkit/edits/date_edit.h"
#include "toolkit/edits/memo_edit.h"
#include "toolkit/edits/text_edit.h"
#include "toolkit/edits/time_edit.h"
#include "toolkit/grid/data_grid.h"
#include "toolkit/grid/grid_view.h"

#include <QCoreApplication>
#include <QTabWidget>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {

/// The reminder's date or time that cannot be read; nothing when both can.
std::optional<FieldMessage> unreadableReminder() {
  for (const EditBox* box : {static_cast<EditBox*>(fHatirlat->TS_HATIRLATMA_TARIH), static_cast<EditBox*>(fHatirlat->TS_HATIRLATMA_SAAT)}) {
    try {
      box->editValue();
    } catch (const EConvertError& error) {
      return FieldMessage{box->objectName(), error.message()};
    }
  }
  return std::nullopt;
}

SlipText reminderNote() {
  const MemoEdit& note = *fHatirlat->TS_HATIRLATMA_NOTU;
  return {note.objectName(), note.accessibleName(), note.text(), note.maxLength()};
}

bool isReminderForToday() { return fHatirlat->TS_HATIRLATMA_TARIH->date() == environment().today(); }

}  // namespace

void TfServisFis::save() {
  if (!isReadyToSave()) return;
  if (!isConfirmed(u"Yaptığınız işlemler kaydedilecek onaylıyor musunuz?"_s)) return;
  if (!notifyBySms()) return;
  if (EditorMode == Mode::Insert) return saveNew();
  if (!saveExisting()) return;
  // A slip that is completed at its first save gets no e-mail: meant.
  if (text(u"TS_TURU"_s) == SlipLists::completedStatus() && slipHooks().sendCompletionMail) slipHooks().sendCompletionMail(*this);
}

/// Asks where the workstation wants to be asked at each step; true otherwise.
bool TfServisFis::isConfirmed(const QString& question) {
  return !SlipParameters::isOn(ParameterFiles::AskAtEachStep) || QuendUtil->Mesaj(this, question) == TQuendUtil::Confirmed;
}

/// Goes out before the slip is written, so that a customer may be told of a slip that is then refused: meant.
bool TfServisFis::notifyBySms() {
  const SlipHooks& hooks = slipHooks();
  const QString status = text(u"TS_TURU"_s);
  if (status == SlipLists::intakeStatus() && hooks.sendIntakeSms && !hooks.sendIntakeSms(*this)) return false;
  return status != SlipLists::completedStatus() || !hooks.sendCompletionSms || hooks.sendCompletionSms(*this);
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
  if (!lines_->postEdits()) {
    pages_->setCurrentIndex(LinesPage);
    lines_->view()->setFocus();
    return false;
  }
  return !showFieldMessage(SlipRules::validate(textsToSave())) && !showFieldMessage(fields_->unreadableField()) &&
         !showFieldMessage(unreadableReminder());
}

/// Tells at a box what holds the save back, and puts the cursor there.
void TfServisFis::pointAt(QWidget* box, const QString& text) {
  box->setFocus();
  QuendHint(box, 0, text);
}

bool TfServisFis::showFieldMessage(const std::optional<FieldMessage>& message) {
  if (!message) return false;
  const bool isNote = message->control == note_->objectName();
  if (isNote) pages_->setCurrentIndex(NotesPage);
  QWidget* box = isNote ? note_ : control(message->control);
  // The reminder's boxes stand in a dialog of their own.
  pointAt(box != nullptr ? box : reminderButton_, message->text);
  return true;
}

std::vector<SlipText> TfServisFis::textsToSave() const {
  std::vector<SlipText> texts = fields_->texts();
  for (SlipText& text : texts)
    if (const int field = qServis.fieldIndex(text.control); field >= 0) text.maximumLength = qServis.fieldInfo(field).size;
  texts.push_back({note_->objectName(), u"Notlar"_s, note_->text()});
  texts.push_back(reminderNote());
  return texts;
}

SlipExtras TfServisFis::extrasToSave() const {
  return {ports().userName(), outsideService_, picture_->bytes(), note_->text()};
}

void TfServisFis::fillRow() {
  QuendUtil->EkrandanAlanlara(*this, qServis);
  // Of whichever slip filled the shared boxes last: meant.
  QuendUtil->EkrandanAlanlara(*fHatirlat, qServis);
}

void TfServisFis::saveNew() {
  if (const auto failure = store_.saveNew([this] { fillRow(); }, extrasToSave())) {
    updateDeleteException(failure->errorClass, failure->message);
    return;
  }
  setMode(Mode::Edit);  // the slip is written, whatever fails from here on
  saveDone();
  setHistoryVisible(true);
}

bool TfServisFis::saveExisting() {
  try {
    store_.refreshRow();
  } catch (const Exception& error) {
    const QString told = u"Kayıt başka bir kullanıcı tarafından silinmiştir."_s;
    logMessage(told, &error);
    QuendUtil->ErrorMesaj(this, told);
    return false;
  }
  if (const auto failure = store_.saveExisting([this] { fillRow(); }, extrasToSave())) {
    updateDeleteException(failure->errorClass, failure->message);
    return false;
  }
  saveDone();
  const qint64 id = qServis.FieldByName(u"TS_ID"_s).asInteger();
  for (QWidget* window : ports().childWindows()) QCoreApplication::postEvent(window, new SlipSavedMessage(id));
  return true;
}

void TfServisFis::saveDone() {
  MakbuzBask1->setEnabled(slipHooks().printReceipt != nullptr);
  QuendHint(saveButton_, 0, u"Servis fiş kaydı tamamlandı."_s);
  lookUps_->refresh();
  if (isReminderForToday() && slipHooks().refreshReminderList) slipHooks().refreshReminderList();
  fields_->setText(u"TS_USER"_s, qServis.FieldByName(u"TS_USER"_s).asText());
  fields_->setText(u"TS_USER_TIME"_s, qServis.FieldByName(u"TS_USER_TIME"_s).asText());
  setTitle(this, SlipRules::slipTitle(fields_->text(u"TS_NO"_s)));
}

void TfServisFis::updateDeleteException(const QString& className, const QString& message) {
  answerRowConflict({.owner = this,
                     .clashMark = SlipRules::numberClash,
                     .uniqueCaption = SlipRules::numberCaption,
                     .isThere = [this] { return store_.numberExists(fields_->text(u"TS_NO"_s)); },
                     .rows = &qServis,
                     .saveAgain = [this] { save(); },
                     .tellAtBox = [this](const QString& text) { pointAt(control(u"TS_NO"_s), text); }},
                    className, message);
}

void TfServisFis::deleteSlip() {
  if (QuendUtil->Mesaj(this, u"Fiş silinecek onaylıyor musunuz"_s) != TQuendUtil::Confirmed) return;
  store_.deleteSlip();
  closeWindow();
}
