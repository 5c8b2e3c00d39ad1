#include "reminders/fhatirlat_unit.h"

#include "base/data/value.h"
#include "base/environment.h"
#include "base/guard.h"
#include "toolkit/edits/date_edit.h"
#include "toolkit/edits/memo_edit.h"
#include "toolkit/edits/time_edit.h"

#include <QBoxLayout>
#include <QKeyEvent>
#include <QTabWidget>

using namespace Qt::StringLiterals;

TfHatirlat* fHatirlat = nullptr;

namespace {

constexpr int dateWidth = 250;
constexpr int timeWidth = 110;
constexpr int spinWidth = 20;
constexpr int noteHeight = 110;
constexpr int noteLength = 255;

}  // namespace

TfHatirlat::TfHatirlat()
    : QDialog(nullptr, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint),
      TS_HATIRLATMA_TARIH(new DateEdit),
      TS_HATIRLATMA_SAAT(new TimeEdit),
      TS_HATIRLATMA_NOTU(new MemoEdit) {
  setObjectName(u"fHatirlat"_s);
  setWindowTitle(u"Hatırlatma Notu"_s);

  buildDate();
  buildTime();
  buildNote();

  auto* sheets = new QTabWidget(this);
  auto* sheet = new QWidget(sheets);
  sheets->addTab(sheet, u"HATIRLATMA"_s);
  auto* moment = new QHBoxLayout;
  moment->addWidget(TS_HATIRLATMA_TARIH);
  moment->addWidget(TS_HATIRLATMA_SAAT);
  auto* column = new QVBoxLayout(sheet);
  column->addLayout(moment);
  column->addWidget(TS_HATIRLATMA_NOTU);
  auto* window = new QVBoxLayout(this);
  window->addWidget(sheets);
  window->setSizeConstraint(QLayout::SetFixedSize);
  fHatirlat = this;
}

void TfHatirlat::buildDate() {
  TS_HATIRLATMA_TARIH->setObjectName(u"TS_HATIRLATMA_TARIH"_s);
  TS_HATIRLATMA_TARIH->setCaption(u"  HATIRLATMA TARİH"_s);
  TS_HATIRLATMA_TARIH->setEnterMovesOn(true);
  TS_HATIRLATMA_TARIH->setFixedWidth(dateWidth);
  TS_HATIRLATMA_TARIH->setKeyFilter([this](const QKeyEvent& key) {
    if (key.key() != Qt::Key_Space) return false;
    TS_HATIRLATMA_TARIH->setDate(environment().today());
    TS_HATIRLATMA_TARIH->line()->selectAll();
    return true;
  });
}

void TfHatirlat::buildTime() {
  TS_HATIRLATMA_SAAT->setObjectName(u"TS_HATIRLATMA_SAAT"_s);
  TS_HATIRLATMA_SAAT->setAccessibleName(u"HATIRLATMA SAAT"_s);
  TS_HATIRLATMA_SAAT->line()->setAccessibleName(u"HATIRLATMA SAAT"_s);
  TS_HATIRLATMA_SAAT->setEnterMovesOn(true);
  TS_HATIRLATMA_SAAT->setFixedWidth(timeWidth);
  const int earlier = TS_HATIRLATMA_SAAT->addButton({u"−"_s, {}, u"Azalt"_s, spinWidth, EditButton::Right, false});
  const int later = TS_HATIRLATMA_SAAT->addButton({u"+"_s, {}, u"Artır"_s, spinWidth, EditButton::Right, false});
  connectGuarded(TS_HATIRLATMA_SAAT, &EditBox::buttonClicked, this, [this, earlier, later](int index) {
    if (index == earlier) TS_HATIRLATMA_SAAT->stepPart(-1);
    if (index == later) TS_HATIRLATMA_SAAT->stepPart(1);
  });
  TS_HATIRLATMA_SAAT->setStart(QTime(0, 0));
  TS_HATIRLATMA_SAAT->setTime(QTime(0, 0));
}

void TfHatirlat::buildNote() {
  TS_HATIRLATMA_NOTU->setObjectName(u"TS_HATIRLATMA_NOTU"_s);
  TS_HATIRLATMA_NOTU->setCaption(u"  HATIRLATMA NOTU"_s);
  TS_HATIRLATMA_NOTU->setCharCase(CharCase::Upper);
  TS_HATIRLATMA_NOTU->setMaxLength(noteLength);
  TS_HATIRLATMA_NOTU->setFixedHeight(noteHeight);
}

TfHatirlat::~TfHatirlat() {
  if (fHatirlat == this) fHatirlat = nullptr;
}

void TfHatirlat::Giris(QWidget* caller) {
  caller_ = caller;
  exec();
  caller_ = nullptr;
}

void TfHatirlat::clear() {
  TS_HATIRLATMA_TARIH->setEditValue({});
  TS_HATIRLATMA_SAAT->setEditValue({});
  TS_HATIRLATMA_NOTU->setEditValue({});
}

/// However it is closed, what was typed last takes its form first.
void TfHatirlat::done(int result) {
  guarded(this, [&] {
    TS_HATIRLATMA_TARIH->settle();
    TS_HATIRLATMA_SAAT->settle();
  });
  QDialog::done(result);
}

void TfHatirlat::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  guarded(this, [&] {
    adjustSize();  // a later change of size would place the window by its inside
    // Goes by the caller's size alone, wherever it stands on the screen: meant.
    if (caller_ != nullptr) move(caller_->width() / 2 - width() / 2, caller_->height() / 2);
    TS_HATIRLATMA_TARIH->setFocus();
  });
}
