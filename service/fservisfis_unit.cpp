#include "service/fservisfis_unit.h"

#include "base/data/my_query.h"
#include "base/data/value.h"
#include "base/date_text.h"
#include "app/ports.h"
#include "app/dmUnit.h"
#include "base/environment.h"
#include "base/guard.h"
#include "app/quendUtils.h"
#include "reminders/fhatirlat_unit.h"
#include "service/fdisservis_unit.h"
#include "service/slip_fields.h"
#include "service/slip_fields_page.h"
#include "service/slip_hooks.h"
#include "service/slip_lists.h"
#include "service/slip_look_ups.h"
#include "service/slip_message.h"
#include "service/slip_parameters.h"
#include "service/slip_picture_page.h"
#include "toolkit/edits/combo_edit.h"
#include "toolkit/edits/currency_edit.h"
#include "toolkit/edits/date_edit.h"
#include "toolkit/edits/memo_edit.h"
#include "toolkit/edits/text_edit.h"

#include <QAction>
#include <QCloseEvent>
#include <QMdiSubWindow>
#include <QStyle>
#include <QTabWidget>

#include <exception>

using namespace Qt::StringLiterals;

TfServisFis* fServisFis = nullptr;

namespace {

constexpr int goneSlipMessageMs = 8000;

/// All editors that are open, oldest first.
QList<TfServisFis*>& openEditors() {
  static QList<TfServisFis*> editors;
  return editors;
}

void forgetEditor(TfServisFis* editor) {
  openEditors().removeAll(editor);
  fServisFis = openEditors().isEmpty() ? nullptr : openEditors().last();
}

}  // namespace

struct TfServisFis::Queries {
  TMyQuery qServis{DM->MySQL, u"qServis"_s};
  TMyQuery qMalzeme{DM->MySQL, u"qMalzeme"_s};
  TMyQuery qCari{DM->MySQL, u"qCari"_s};
  TMyQuery qCihaz{DM->MySQL, u"qCihaz"_s};
  TMyQuery qServisTip{DM->MySQL, u"qServisTip"_s};
  TMyQuery qDetay{DM->MySQL, u"qDetay"_s};
  TMyQuery qSeri{DM->MySQL, u"qSeri"_s};
};

TfServisFis::TfServisFis(QWidget* parent)
    : QWidget(parent),
      queries_(std::make_unique<Queries>()),
      qServis(queries_->qServis),
      qMalzeme(queries_->qMalzeme),
      qCari(queries_->qCari),
      qCihaz(queries_->qCihaz),
      qServisTip(queries_->qServisTip),
      qDetay(queries_->qDetay),
      qSeri(queries_->qSeri),
      store_(DM->MySQL, qServis, qMalzeme, DM->pGetQ),
      balloon_(this) {
  setObjectName(u"fServisFis"_s);
  buildCommands();
  buildPages();
  connectFields();
  setMode(Mode::Browse);
  if (SlipParameters::isOn(ParameterFiles::SlipFillsWorkspace)) setWindowState(Qt::WindowMaximized);
  openEditors().append(this);
  fServisFis = this;
}

TfServisFis::~TfServisFis() { forgetEditor(this); }

/// With room for a scroll bar: a page that has one while the window takes its size must not keep it.
QSize TfServisFis::sizeHint() const {
  return fields_->sizeHint() + QSize(24 + style()->pixelMetric(QStyle::PM_ScrollBarExtent), 96);
}

void TfServisFis::setMode(Mode mode) {
  EditorMode = mode;
  aKaydet->setEnabled(mode != Mode::Browse);
  aVazgec->setEnabled(mode != Mode::Browse);
  aSil->setEnabled(mode == Mode::Edit);
}

void TfServisFis::setHistoryVisible(bool visible) {
  pages_->setTabVisible(SerialHistoryPage, visible);
  pages_->setTabVisible(CustomerHistoryPage, visible);
}

void TfServisFis::setTitle(TfServisFis* editor, const QString& title) {
  if (!ports().showChild(editor, title)) editor->setWindowTitle(title);
}

void TfServisFis::resetFields() {
  QuendUtil->EkranReset(*this, qServis);
  for (const QString& column : {u"TS_MALIYET"_s, u"TS_SERVIS_TUTAR"_s, u"TS_ISCILIK_TUTAR"_s, u"TS_PARCA_TUTAR"_s})
    fields_->edit<CurrencyEdit>(column)->setDisplayFormat(amountFormat());
  // A window that turns to another slip must not carry the block over to it.
  setOutsideService({}, {});
  note_->setText({});
}

void TfServisFis::Insert() {
  setHistoryVisible(false);
  store_.openEmpty();
  resetFields();
  fHatirlat->clear();
  lookUps_->open();
  setMode(Mode::Insert);

  fields_->edit<DateEdit>(u"TS_TARIH"_s)->setDate(environment().today());
  for (const QString& column : {u"TS_TURU"_s, u"TS_SERVIS_TIP"_s, u"TS_HIZMET_TIP"_s}) {
    auto* list = fields_->edit<ComboEdit>(column);
    if (list->itemCount() > 0) list->setItemIndex(0);
  }
  if (SlipParameters::isOn(ParameterFiles::FillSerialNumber)) fillSerial();
  proposeNumber();
  fields_->setText(u"TS_USER"_s, ports().userName());
  fields_->setText(u"TS_USER_TIME"_s, DateText::dateTime(environment().now()));
  setTitle(this, SlipRules::newSlipTitle());
  picture_->clear();
  offerStatuses(true);
  fields_->edit<EditBox>(u"TS_NO"_s)->line()->setFocus();
}

void TfServisFis::Edit(qint64 TS_ID) {
  const bool isFirst = EditorMode == Mode::Browse;
  setHistoryVisible(true);
  MakbuzBask1->setEnabled(slipHooks().printReceipt != nullptr);
  fHatirlat->clear();
  setMode(Mode::Edit);
  lookUps_->open();
  if (!store_.open(TS_ID)) {
    QWidget* workspace = window();
    closeWindow();  // in front of the message, beside which a tab without a name would stand
    QuendUtil->mesajTimeOut(workspace, u"Silinmiş bir fişe ulaşmaya çalışıyorsunuz."_s, goneSlipMessageMs);
    return;
  }
  resetFields();
  QuendUtil->AlanlardanEkrana(*this, qServis);
  QuendUtil->AlanlardanEkrana(*fHatirlat, qServis);
  auto* number = fields_->edit<EditBox>(u"TS_NO"_s)->line();
  if (isFirst) number->setFocus();
  number->selectAll();
  if (const OutsideService service = store_.outsideService(); !service.firm.isEmpty())
    setOutsideService(service, SlipRules::storedOutsideServiceHint(service));
  // Goes to the newest editor, whichever runs: meant.
  setTitle(fServisFis, SlipRules::slipTitle(fields_->text(u"TS_NO"_s)));

  std::exception_ptr unreadablePicture;
  const QByteArray picture = store_.picture(TS_ID, picture_->bytes());
  picture_->clear();
  try {
    picture_->setBytes(picture);
  } catch (...) {
    // The note still has to come: a later save would write an empty one over it.
    unreadablePicture = std::current_exception();
  }
  if (const auto note = store_.note(TS_ID)) note_->setText(*note);
  offerStatuses(false);
  if (unreadablePicture) std::rethrow_exception(unreadablePicture);
}

void TfServisFis::proposeNumber() {
  auto* number = fields_->edit<EditBox>(u"TS_NO"_s);
  number->setText(SlipRules::proposedNumber(store_.highestNumber(qDetay, number->text()), number->text()));
  number->line()->selectAll();
}

void TfServisFis::fillSerial() {
  auto* serial = fields_->edit<EditBox>(u"TS_C_SERINO"_s);
  serial->setText(SlipRules::generatedSerial());
  serial->line()->end(false);
}

void TfServisFis::findDevice() {
  const auto device = store_.deviceBySerial(fields_->text(u"TS_C_RAFNO"_s));
  if (device)
    lookUps_->takeDevice(*device);
  else
    QuendHint(fields_->frame(u"TS_C_RAFNO"_s), 0, u"Kayıtlı \"İç Seri No\" bulunamadı!"_s);
}

void TfServisFis::offerStatuses(bool isNewSlip) {
  fields_->offerStatuses(SlipRules::offeredStatuses(SlipParameters::isPassive, isNewSlip));
  if (SlipParameters::isPassive(SlipLists::outsideServiceStatus())) fields_->removeOutsideServiceButton();
}

void TfServisFis::setOutsideService(const OutsideService& service, const QString& hint) {
  outsideService_ = service;
  fields_->frame(u"TS_TURU"_s)->setToolTip(hint);
}

void TfServisFis::askOutsideService() {
  TfDisServis dialog(this);
  if (dialog.Giris(outsideService_, *control(u"TS_TURU"_s)) != TfDisServis::Confirmed) return;
  setOutsideService(dialog.confirmed(), SlipRules::confirmedOutsideServiceHint(dialog.confirmed()));
  if (!outsideService_.firm.isEmpty()) fields_->chooseStatus(SlipRules::outsideServiceItem);
}

void TfServisFis::showReminder() { fHatirlat->Giris(this); }

void TfServisFis::loadHistory(int page) {
  if (EditorMode != Mode::Edit) return;
  if (page == SerialHistoryPage) store_.openSerialHistory(qSeri, fields_->text(u"TS_C_SERINO"_s));
  if (page == CustomerHistoryPage) store_.openCustomerHistory(qSeri, fields_->text(u"TS_MUSTERI"_s));
}

void TfServisFis::openFromHistory(int row) {
  ports().openSlip(qSeri.valueAt(row, qSeri.fieldIndex(u"TS_ID"_s)).toInteger());
}

void TfServisFis::QuendHint(QWidget* control, int, const QString& text) { balloon_.showAt(control, text); }

QString TfServisFis::text(const QString& column) const { return fields_->text(column); }

QString TfServisFis::noteText() const { return note_->text(); }

int TfServisFis::statusIndex() const { return fields_->edit<ComboEdit>(u"TS_TURU"_s)->itemIndex(); }

QWidget* TfServisFis::control(const QString& column) const { return fields_->findFrame(column); }

void TfServisFis::closeWindow() {
  if (auto* window = qobject_cast<QMdiSubWindow*>(parentWidget()))
    window->close();
  else
    close();
}

bool TfServisFis::event(QEvent* event) {
  if (event->type() != SlipSavedMessage::eventType()) return QWidget::event(event);
  guardedOrKept(this, [this, id = static_cast<SlipSavedMessage*>(event)->id()] {
    if (closed_) return;
    if (qSeri.Active()) qSeri.Refresh();
    Edit(id);
  });
  return true;
}

void TfServisFis::closeEvent(QCloseEvent* event) {
  guarded(this, [&] {
    closed_ = true;
    forgetEditor(this);
    balloon_.hide();
    for (TMyQuery* query : {&qServis, &qMalzeme, &qSeri}) query->Close();
    lookUps_->close();
  });
  event->accept();
}
