#include "reminders/reminder_window.h"

#include "app/dmUnit.h"
#include "app/ports.h"
#include "app/quendUtils.h"
#include "base/data/auto_refresh.h"
#include "base/data/my_query.h"
#include "base/data/value.h"
#include "base/date_text.h"
#include "base/environment.h"
#include "base/exceptions.h"
#include "base/guard.h"
#include "reminders/reminder_columns.h"
#include "reminders/reminder_store.h"
#include "toolkit/edits/balloon.h"
#include "toolkit/edits/date_edit.h"
#include "toolkit/grid/data_grid.h"
#include "toolkit/grid/grid_preview.h"
#include "toolkit/grid/table_content.h"
#include "toolkit/shell/command_bar.h"
#include "toolkit/shell/command_updates.h"
#include "toolkit/shell/edge_snap.h"

#include <QAction>
#include <QBoxLayout>
#include <QFileInfo>
#include <QKeyEvent>
#include <QScreen>
#include <QShortcut>
#include <QTabWidget>
#include <QToolButton>

using namespace Qt::StringLiterals;

TfHatirlaForm* fHatirlaForm = nullptr;

namespace {

constexpr QSize preferredSize(940, 400);
constexpr QSize smallest(420, 260);
constexpr int snapDistance = 16;
constexpr std::chrono::seconds contractInterval{120};
// In the current folder.
const QString placeFile = u"./HatirlaForm.INI"_s;
/// Both hold the columns of the contracts; the slips' are not kept: meant.
const QString layoutFiles[] = {u"./bakim.ini"_s, u"./hatirla.ini"_s};

}  // namespace

struct TfHatirlaForm::Queries {
  TMyQuery qServis{DM->MySQL, u"qServis"_s};
  TMyQuery qBakim{DM->MySQL, u"qBakim"_s};
};

TfHatirlaForm::TfHatirlaForm(QWidget* mainForm)
    : QWidget(mainForm, aboveParent),
      queries_(std::make_unique<Queries>()),
      qServis(queries_->qServis),
      qBakim(queries_->qBakim),
      RzPageControl1(new QTabWidget(this)),
      tvFis(new DataGrid(qServis, ReminderColumns::slipsOfDay(), u"Hatırlatmalar"_s)),
      tvBakim(new DataGrid(qBakim, ReminderColumns::dueContracts(), u"Bakım Sözleşmeleri"_s)),
      tvDisServis(new DataGrid(qServis, ReminderColumns::overdueSlips(), u"Dış Servis"_s)),
      GunHatirlatTarih(new DateEdit),
      bakimTarih(new DateEdit),
      place_(placeFile, u"fHatirlaForm"_s, QuendUtil->BilgisayarAdi()) {
  setObjectName(u"fHatirlaForm"_s);
  setWindowTitle(u"Günlük Hatırlatmalar"_s);
  qServis.autoRefresh().setOn(true);
  qBakim.autoRefresh().setInterval(contractInterval);  // and yet off: meant
  buildPages();
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(6, 6, 6, 6);
  column->addWidget(RzPageControl1);
  setMinimumSize(smallest);
  resize(preferredSize.boundedTo(screen()->availableSize()));
  place_.restore(this);
  new EdgeSnap(this, snapDistance);
  fHatirlaForm = this;
}

TfHatirlaForm::~TfHatirlaForm() {
  try {
    for (const QString& file : layoutFiles) tvBakim->storeLayout(file);
  } catch (const EInOutError& error) {
    logMessage(u"Liste düzeni saklanamadı"_s, &error);
  }
  if (!place_.store(this)) logMessage(u"Pencere yeri HatirlaForm.INI dosyasına yazılamadı."_s);
  // The grids look at queries that end before the base class would take them down.
  delete RzPageControl1;
  if (fHatirlaForm == this) fHatirlaForm = nullptr;
}

CommandBar* TfHatirlaForm::addPage(const QString& caption, DataGrid* grid, DateEdit* day) {
  auto* page = new QWidget;
  auto* column = new QVBoxLayout(page);
  column->setContentsMargins(4, 4, 4, 4);
  auto* bar = new CommandBar(page);
  column->addWidget(bar);
  column->addWidget(grid, 1);
  grid->setEmptyText(u"<Kayıt yok!>"_s);
  if (day != nullptr) {
    day->setCaption(u" TARİH"_s);
    day->setFixedWidth(225);
    column->addWidget(day);
    followDate(*day);
  }
  RzPageControl1->addTab(page, caption);
  return bar;
}

void TfHatirlaForm::buildPages() {
  // The captions name keys that are not bound: meant.
  CommandBar* slips = addPage(u"Hatırlatmalar"_s, tvFis, GunHatirlatTarih);
  tvFis->setObjectName(u"tvFis"_s);
  GunHatirlatTarih->setObjectName(u"GunHatirlatTarih"_s);
  Action1 = slips->addCommand(u"Action1"_s, u"F8 » Güncelle"_s, u"view-refresh"_s, {});
  Action2 = slips->addCommand(u"Action2"_s, u"F9 » Yazdır"_s, u"document-print"_s, {});
  addSms(*slips, *tvFis, qServis, u"slipSms"_s, u"TS_CEP"_s);

  CommandBar* contracts = addPage(u"Bakım Sözleşmeleri"_s, tvBakim, bakimTarih);
  tvBakim->setObjectName(u"tvBakim"_s);
  bakimTarih->setObjectName(u"bakimTarih"_s);
  aGuncelle = contracts->addCommand(u"aGuncelle"_s, u"F8 » Güncelle"_s, u"view-refresh"_s, {});
  aYazdir = contracts->addCommand(u"aYazdir"_s, u"F9 » Yazdır"_s, u"document-print"_s, {});
  addSms(*contracts, *tvBakim, qBakim, u"contractSms"_s, u"CA_CEP"_s);

  CommandBar* overdue = addPage(u"Dış Servis"_s, tvDisServis, nullptr);
  tvDisServis->setObjectName(u"tvDisServis"_s);
  for (QAction* shared : {Action1, Action2}) {
    overdue->addShared(shared);
  }

  connectGuarded(Action1, &QAction::triggered, this, [this] { qServis.Refresh(); });
  // The rows of page 0, also on page 2: meant.
  connectGuarded(Action2, &QAction::triggered, this, [this] { preview(*tvFis, u"Günlük Hatırlatmalar"_s, u"GunlukHatirlatmalar"_s); });
  keepUpdated(this, Action2, [this] { return !qServis.IsEmpty(); });
  connectGuarded(aGuncelle, &QAction::triggered, this, [this] { qBakim.Refresh(); });
  connectGuarded(aYazdir, &QAction::triggered, this, [this] { preview(*tvBakim, u"Günlük Bakım Listesi"_s, u"GunlukBakimListesi"_s); });
  for (const auto& [key, by] : {std::pair(Qt::Key_PageUp, -1), std::pair(Qt::Key_PageDown, 1)}) {
    auto* turn = new QShortcut(Qt::CTRL | key, this);
    connectGuarded(turn, &QShortcut::activated, this, [this, step = by] {
      RzPageControl1->setCurrentIndex(std::clamp(RzPageControl1->currentIndex() + step, 0, RzPageControl1->count() - 1));
    });
  }
  connectGuarded(RzPageControl1, &QTabWidget::currentChanged, this, [this] { RzPageControl1Change(); });
  // Both grids stand on the same rows, so that they have one current row.
  connectGuarded(tvDisServis, &DataGrid::currentRowChanged, this, [this](int row) {
    if (RzPageControl1->currentIndex() == OverduePage) tvFis->setCurrentRow(row);
  });
  for (DataGrid* grid : {tvFis, tvDisServis}) connectGuarded(grid, &DataGrid::rowChosen, this, [this] { openSlip(); });
}

/// A button and an entry in the rows' menu that open the bulk SMS with the number of the row under the cursor.
void TfHatirlaForm::addSms(CommandBar& bar, DataGrid& grid, TMyQuery& query, const QString& name, const QString& field) {
  QAction* action = bar.addCommand(name, u"SMS Gönder"_s, u"smartphone"_s, {});
  grid.addRowCommand(action);
  connectGuarded(action, &QAction::triggered, this, [&grid, &query, field] {
    ports().openBulkSms(grid.currentRow() >= 0 ? query.FieldByName(field).asText() : QString());
  });
  keepUpdated(this, action, [] { return bool(ports().openBulkSms); });
}

/// Reads the day that the box tells once the user has settled on it: by Enter, from the calendar, or by leaving the box.
void TfHatirlaForm::followDate(DateEdit& box) {
  connectGuarded(&box, &DateEdit::dateTaken, this, [this, &box] { takeDate(box); });
  connectGuarded(&box, &EditBox::left, this, [this, &box] { takeDate(box); });
  box.setKeyFilter([this, &box](const QKeyEvent& press) {
    if (press.key() != Qt::Key_Return && press.key() != Qt::Key_Enter) return false;
    guarded(&box, [&] { takeDate(box); });
    return true;
  });
}

void TfHatirlaForm::takeDate(DateEdit& box) {
  if (box.text() == readFor_.value(&box)) return;
  const auto date = DateText::toDate(box.text());
  if (!date && !box.isEmpty()) return showRefusal(&box, u"%1 geçerli bir tarih değil."_s.arg(quoted(box.text())));
  box.setDate(date.value_or(QDate()));
  RzPageControl1Change();
  box.line()->selectAll();
}

void TfHatirlaForm::Show() {
  show();
  raise();
  activateWindow();
}

void TfHatirlaForm::refreshIfShown() {
  if (isVisible() && qServis.Active()) qServis.Refresh();
}

void TfHatirlaForm::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  if (!event->spontaneous()) guarded(this, [this] { prepare(); });
}

void TfHatirlaForm::keyPressEvent(QKeyEvent* event) {
  if (!event->matches(QKeySequence::Cancel)) return QWidget::keyPressEvent(event);
  guarded(this, [this] { close(); });
}

void TfHatirlaForm::prepare() {
  if (!QFileInfo::exists(placeFile)) placeAboveStatusBar(this);
  for (const QString& file : layoutFiles) tvBakim->restoreLayout(file);
  for (DateEdit* box : {GunHatirlatTarih, bakimTarih}) box->setDate(environment().today());
  RzPageControl1Change();
}

/// Fetches the rows of the active page. After an error the wait cursor stays on until a run succeeds: meant.
void TfHatirlaForm::RzPageControl1Change() {
  if (!isVisible()) return;
  for (DateEdit* box : {GunHatirlatTarih, bakimTarih}) readFor_.insert(box, box->text());
  if (!hourglass_) hourglass_.emplace();
  switch (RzPageControl1->currentIndex()) {
    case SlipPage:
      ReminderStore::openSlipsOfDay(qServis, GunHatirlatTarih->text());
      break;
    case ContractPage:
      ReminderStore::openDueContracts(qBakim, bakimTarih->text());
      break;
    case OverduePage:
      ReminderStore::openOverdueSlips(qServis);
      break;
  }
  hourglass_.reset();
}

/// Goes by the grid of page 0 on page 2 as well: meant.
void TfHatirlaForm::openSlip() {
  const int row = tvFis->currentRow();
  if (row < 0) return;
  const QString id = qServis.valueAt(row, qServis.fieldIndex(u"TS_ID"_s)).toText();
  if (parentWidget() != nullptr) parentWidget()->activateWindow();
  ports().openSlip(id.toLongLong());
}

void TfHatirlaForm::preview(DataGrid& grid, const QString& header, const QString& documentName) {
  GridPreviewRequest request;
  request.texts = {{}, header, u"[Date & Time Printed]"_s, u"Torvane Teknik Servis Programı"_s, u" Sayfa: [Page #]-[Total Pages]"_s};
  request.documentName = documentName;
  showGridPreview(this, grid.content(false), request);
}
