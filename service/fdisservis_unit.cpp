#include "service/fdisservis_unit.h"

#include "base/data/my_query.h"
#include "base/date_text.h"
#include "app/ports.h"
#include "app/dmUnit.h"
#include "app/editors/qcx_editors.h"
#include "base/environment.h"
#include "base/exceptions.h"
#include "base/guard.h"
#include "service/slip_rules.h"
#include "toolkit/edits/date_edit.h"
#include "toolkit/edits/lookup_edit.h"
#include "toolkit/shell/command_bar.h"

#include <QAction>
#include <QBoxLayout>
#include <QGridLayout>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {

constexpr int halfWidth = 225;
constexpr int nameLength = 80;
constexpr int noteLength = 200;
constexpr int daysLength = 9;
constexpr int belowStatusBox = 7;

}  // namespace

TfDisServis::TfDisServis(QWidget* parent)
    : QDialog(parent),
      query_(std::make_unique<TMyQuery>(DM->MySQL, u"qServis"_s)),
      qServis(*query_),
      TS_DISSERVIS(new LookupEdit(this)),
      TS_DISSERVIS_CIKIS(new DateEdit(this)),
      TS_DISSERVIS_GIRIS(new DateEdit(this)),
      TS_DISSERVIS_BILGI(new qcxTextEdit(this)),
      TS_DISSERVIS_TESLIM_SURE(new qcxTextEdit(this)),
      store_(qServis),
      firms_(qServis, {{u"DS_AD"_s, u"DIŞ SERVİS ADI"_s, 260}, {u"DS_ILCE_IL"_s, u"İLÇE / İL"_s, 130}, {u"DS_TEL"_s, u"TELEFON"_s, 120}}),
      balloon_(this) {
  setObjectName(u"fDisServis"_s);
  setWindowTitle(u"Dış Servis Bilgileri"_s);
  buildBoxes();
  buildCommands();
  layout()->setSizeConstraint(QLayout::SetFixedSize);
}

TfDisServis::~TfDisServis() = default;

void TfDisServis::buildBoxes() {
  const auto setUp = [](EditBox* box, const QString& column, const QString& caption, int maximumLength) {
    box->setObjectName(column);
    box->setCaption(caption);
    box->setMaxLength(maximumLength);
    box->setEnterMovesOn(true);
    box->setMinimumWidth(halfWidth);
  };
  setUp(TS_DISSERVIS, u"TS_DISSERVIS"_s, u"  DIŞ SERVİS ADI"_s, nameLength);
  setUp(TS_DISSERVIS_CIKIS, u"TS_DISSERVIS_CIKIS"_s, u"  ÇIKIŞ TARİH"_s, 0);
  setUp(TS_DISSERVIS_GIRIS, u"TS_DISSERVIS_GIRIS"_s, u"  GİRİŞ TARİH"_s, 0);
  setUp(TS_DISSERVIS_BILGI, u"TS_DISSERVIS_BILGI"_s, u"  AÇIKLAMA"_s, noteLength);
  setUp(TS_DISSERVIS_TESLIM_SURE, u"TS_DISSERVIS_TESLIM_SURE"_s, u"  TESLİM SÜRESİ"_s, daysLength);
  TS_DISSERVIS->setCharCase(CharCase::Upper);
  TS_DISSERVIS_BILGI->setCharCase(CharCase::Upper);
  TS_DISSERVIS_TESLIM_SURE->setOnlyChars(u"0123456789"_s);
  TS_DISSERVIS->setSource(&firms_);
  // A name that no firm has leaves the chosen firm in place, so that it renames it: meant.
  connectGuarded(TS_DISSERVIS, &LookupEdit::entryTaken, this, [this](int row) { firm_ = store_.firmAt(row); });

  auto* column = new QVBoxLayout(this);
  auto* boxes = new QGridLayout;
  column->addLayout(boxes);
  boxes->addWidget(TS_DISSERVIS, 0, 0, 1, 2);
  boxes->addWidget(TS_DISSERVIS_CIKIS, 1, 0);
  boxes->addWidget(TS_DISSERVIS_GIRIS, 1, 1);
  boxes->addWidget(TS_DISSERVIS_BILGI, 2, 0, 1, 2);
  boxes->addWidget(TS_DISSERVIS_TESLIM_SURE, 3, 0);
}

void TfDisServis::buildCommands() {
  auto* bar = new CommandBar(this);
  static_cast<QVBoxLayout*>(layout())->addWidget(bar, 0, Qt::AlignRight);
  aKaydet = bar->addCommand(u"aKaydet"_s, u"F2 » Tamam"_s, u"dialog-ok-apply"_s, Qt::Key_F2);
  aVazgec = bar->addCommand(u"aVazgec"_s, u"F3 » Vazgeç"_s, u"dialog-cancel"_s, Qt::Key_F3);
  saveButton_ = bar->button(aKaydet);
  connectGuarded(aKaydet, &QAction::triggered, this, [this] { confirm(); });
  connectGuarded(aVazgec, &QAction::triggered, this, [this] { reject(); });
}

int TfDisServis::Giris(const OutsideService& held, const QWidget& statusBox) {
  store_.open();
  TS_DISSERVIS->sourceChanged();
  TS_DISSERVIS->setText(held.firm);
  TS_DISSERVIS_CIKIS->setText(SlipRules::proposedExitDate(held));
  TS_DISSERVIS_GIRIS->setText(held.returnDate);
  TS_DISSERVIS_BILGI->setText(held.note);
  TS_DISSERVIS_TESLIM_SURE->setText(QString::number(held.deliveryDays));
  firm_ = store_.findFirm(held.firm);

  adjustSize();  // a later change of size would place the window by its inside
  move(statusBox.mapToGlobal(QPoint(0, statusBox.height() + belowStatusBox)));
  TS_DISSERVIS->line()->setFocus();
  return exec();
}

void TfDisServis::confirm() {
  saveButton_->setFocus();  // runs what leaving the current box does
  if (!isReadable()) return;
  const QString name = TS_DISSERVIS->text();
  writeFirm(name);
  confirmed_ = {};
  if (!name.isEmpty())
    confirmed_ = {name, TS_DISSERVIS_CIKIS->text(), TS_DISSERVIS_GIRIS->text(), TS_DISSERVIS_BILGI->text(),
                  SlipRules::deliveryDays(TS_DISSERVIS_TESLIM_SURE->text())};
  done(Confirmed);
}

/// False, with a balloon at the box, while one holds what no slip can keep.
bool TfDisServis::isReadable() {
  for (DateEdit* date : {TS_DISSERVIS_CIKIS, TS_DISSERVIS_GIRIS}) {
    try {
      date->date();
    } catch (const EConvertError& error) {
      date->line()->setFocus();
      balloon_.showAt(date, error.message());
      return false;
    }
  }
  for (EditBox* box : {static_cast<EditBox*>(TS_DISSERVIS), static_cast<EditBox*>(TS_DISSERVIS_BILGI)}) {
    const auto refusal = SlipRules::unstorableText({box->objectName(), box->accessibleName(), box->text(), box->maxLength()});
    if (!refusal) continue;
    box->line()->setFocus();
    balloon_.showAt(box, refusal->text);
    return false;
  }
  return true;
}

/// A failure is told to nobody: meant. The slip keeps the name as text all the same.
void TfDisServis::writeFirm(const QString& name) {
  try {
    if (firm_ != OutsideServiceStore::noFirm)
      store_.renameFirm(firm_, name);  // an emptied name is refused by the database, and the card keeps its own
    else if (!name.trimmed().isEmpty())
      store_.addFirm(name);
  } catch (const Exception& error) {
    logMessage(u"Dış servis kartı yazılamadı"_s, &error);
  }
}
