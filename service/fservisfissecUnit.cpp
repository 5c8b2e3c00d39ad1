#include "service/fservisfissecUnit.h"

#include "base/data/my_query.h"
#include "base/data/value.h"
#include "base/date_text.h"
#include "app/ports.h"
#include "app/dmUnit.h"
#include "base/environment.h"
#include "base/exceptions.h"
#include "base/guard.h"
#include "app/parameters.h"
#include "base/platform/shell_open.h"
#include "app/quendUtils.h"
#include "app/rights.h"
#include "service/slip_browser_rules.h"
#include "service/slip_browser_store.h"
#include "service/slip_rules.h"
#include "service/slip_tables.h"
#include "toolkit/grid/data_grid.h"
#include "toolkit/grid/filter_row.h"
#include "toolkit/grid/grid_model.h"
#include "toolkit/grid/grid_preview.h"
#include "toolkit/grid/xls_export.h"
#include "toolkit/shell/command_bar.h"
#include "toolkit/shell/command_updates.h"

#include <QAction>
#include <QBoxLayout>
#include <QScreen>

using namespace Qt::StringLiterals;

TfservisfisSec* fservisfisSec = nullptr;

namespace {

/// Result of a dialog that was confirmed.
constexpr int confirmed = 6;
constexpr QSize preferredSize(1228, 640);

QString layoutFile() { return QuendUtil->programFolder + u"ServisFis.ini"_s; }

}  // namespace

struct TfservisfisSec::Queries {
  TMyQuery qServis{DM->MySQL, u"qServis"_s};
  TMyQuery qDisServis{DM->MySQL, u"qDisServis"_s};
};

TfservisfisSec::TfservisfisSec(QWidget* parent)
    : QDialog(parent),
      queries_(std::make_unique<Queries>()),
      qServis(queries_->qServis),
      qDisServis(queries_->qDisServis),
      store_(std::make_unique<SlipBrowserStore>(DM->MySQL, qServis, qDisServis, DM->pGetQ)),
      firms_(qDisServis, {{u"DS_AD"_s, u"ADI"_s, 220}, {u"DS_ILCE_IL"_s, u"İLÇE/İL"_s, 130}, {u"DS_TEL"_s, u"TELEFON"_s, 120}}) {
  setObjectName(u"fservisfisSec"_s);
  setWindowTitle(u"Servis Fişleri"_s);
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  buildCommands();
  buildGrid();
  buildForm();
  resize(preferredSize.boundedTo(screen()->availableSize()));
  fservisfisSec = this;
}

TfservisfisSec::~TfservisfisSec() {
  if (fservisfisSec == this) fservisfisSec = nullptr;
}

void TfservisfisSec::buildCommands() {
  bar_ = new CommandBar(this);
  aSec = bar_->addCommand(u"aSec"_s, u"F4 » Kayıt Seç"_s, u"dialog-ok-apply"_s, Qt::Key_F4);
  aGuncelle = bar_->addCommand(u"aGuncelle"_s, u"F8 » Güncelle"_s, u"view-refresh"_s, Qt::Key_F8);
  aYazdir = bar_->addCommand(u"aYazdir"_s, u"F9 » Yazdır"_s, u"document-print"_s, Qt::Key_F9);
  aFisSil = bar_->addCommand(u"aFisSil"_s, u"F6 » Fiş(leri) Sil"_s, u"edit-delete"_s, Qt::Key_F6);
  connectGuarded(aSec, &QAction::triggered, this, [this] { choose(); });
  connectGuarded(aGuncelle, &QAction::triggered, this, [this] { readAnew(); });
  connectGuarded(aYazdir, &QAction::triggered, this, [this] { print(); });
  connectGuarded(aFisSil, &QAction::triggered, this, [this] { deleteSlips(); });
  for (QAction* guardedCommand : {aSec, aYazdir, aFisSil})
    keepUpdated(this, guardedCommand, [this, guardedCommand, path = SlipBrowserRules::rightPath(guardedCommand->text())] {
      if (DM->Kullanici_Yetkileri(path) == Right::Checked || qServis.IsEmpty()) return false;
      return guardedCommand != aFisSil || grid_->hasSelectedRow();
    });
}

void TfservisfisSec::buildGrid() {
  std::vector<GridColumn> columns = SlipTables::browserColumns();
  for (GridColumn& column : columns)
    if (column.field == u"TS_DISSERVIS"_s) {
      column.choices = &firms_;
      column.refreshChoices = [this] { store_->openFirms(); };
    }
  grid_ = new DataGrid(qServis, std::move(columns), windowTitle(), this);
  grid_->setObjectName(u"slips"_s);
  grid_->setMultiSelect(true);
  grid_->setFilterRow(true);
  grid_->setFilterUpperCase(true);
  grid_->setGroupArea(true);
  grid_->setGroupsComparedAsText(true);
  grid_->setEmptyText(u"<Kayıt yok!>"_s);
  grid_->setRowColor([this](int row) { return statusColor(row); });
  grid_->setSortHandler([this](const std::vector<GridSort>& order) { sortAtServer(order); });
  grid_->setFilterHandler([this](const std::optional<FilterExpression>& filter) {
    if (isOpen_) narrow(filter);
    return true;
  });
  connectGuarded(grid_, &DataGrid::rowChosen, this, [this] {
    updateCommands(this);
    aSec->trigger();
  });
}

void TfservisfisSec::buildForm() {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(8, 8, 8, 8);
  column->addWidget(bar_);
  column->addWidget(grid_, 1);
}

void TfservisfisSec::Giris(std::vector<QString>& ids) {
  ids.clear();
  chosen_.clear();
  openList();
  const bool accepted = exec() == confirmed;
  isOpen_ = false;
  store_->close();
  grid_->clearFilter();
  grid_->clearGrouping();
  if (accepted) ids = chosen_;
}

void TfservisfisSec::openList() {
  grid_->clearSorting();
  grid_->clearSelection();
  grid_->restoreLayout(layoutFile());
  if (fParametreler->isChecked(ParameterFiles::ListSlipsOfTheDay)) {
    store_->openWithoutRows();
    store_->openFirms();
    grid_->clearFilter();
    grid_->setColumnFilter(u"TS_TARIH"_s, FilterOperator::Equal, DateText::date(environment().today()));
    store_->narrow(grid_->filter());
  } else {
    store_->openAll();
    store_->openFirms();
  }
  isOpen_ = true;
  grid_->setFilterEnabled(true);
  grid_->goToFirstRow();
  grid_->setFocus();
}

void TfservisfisSec::done(int result) {
  try {
    grid_->storeLayout(layoutFile());
  } catch (const EInOutError& error) {
    logMessage(u"Liste düzeni saklanamadı"_s, &error);
  }
  QDialog::done(result);
}

void TfservisfisSec::narrow(const std::optional<FilterExpression>& filter) {
  const QString dateField = u"TS_TARIH"_s;
  const bool dateIsTyped = !grid_->filterRow()->condition(grid_->model()->columnOf(dateField)).isEmpty();
  // A date that is still being typed is no reason to fetch all slips.
  if (grid_->isFilterEnabled() && dateIsTyped && !SlipBrowserRules::hasCondition(filter, dateField))
    store_->narrowFetched(filter);
  else
    store_->narrow(filter);
}

void TfservisfisSec::sortAtServer(const std::vector<GridSort>& order) {
  std::vector<SlipBrowserRules::SortColumn> keys;
  for (const GridSort& key : order) keys.push_back({key.field, key.descending});
  store_->setOrder(SlipBrowserRules::orderText(keys));
}

QColor TfservisfisSec::statusColor(int row) const {
  const auto status = fParametreler->statusRow(qServis.valueAt(row, qServis.fieldIndex(u"TS_TURU"_s)).toText());
  const auto rgb = status ? ParameterFiles::rgbOf(status->islemColorRenkSec) : std::nullopt;
  return rgb ? QColor::fromRgb(*rgb) : QColor();
}

QStringList TfservisfisSec::selectedTexts(const QString& field) const {
  const int index = qServis.fieldIndex(field);
  QStringList texts;
  for (int row : grid_->selectedRows()) texts += qServis.valueAt(row, index).toText();
  return texts;
}

void TfservisfisSec::choose() {
  const QStringList keys = selectedTexts(u"TS_ID"_s);
  chosen_.assign(keys.begin(), keys.end());
  done(confirmed);
}

void TfservisfisSec::deleteSlips() {
  const QStringList keys = selectedTexts(u"TS_ID"_s);
  const QStringList numbers = selectedTexts(u"TS_NO"_s);
  if (keys.isEmpty()) return;
  if (QuendUtil->Mesaj(this, SlipBrowserRules::deletionQuestion(numbers)) != TQuendUtil::Confirmed) return;
  for (const QString& number : numbers)
    for (QWidget* editor : ports().childWindows())
      if (editor->windowTitle() == SlipRules::slipTitle(number)) editor->parentWidget()->close();
  try {
    store_->deleteSlips(keys, [this] { grid_->deleteSelectedRows(); });
  } catch (const Exception& error) {
    logFailure(SlipBrowserRules::deletionFailed(), error);
    // What became of a row whose commit was not answered, only the server knows.
    try {
      readAnew();
    } catch (const Exception& unread) {
      logMessage(u"Liste yeniden okunamadı"_s, &unread);
    }
    QuendUtil->ErrorMesaj(this, SlipBrowserRules::deletionFailed());
  }
}

void TfservisfisSec::readAnew() {
  grid_->keepRecords([this] { store_->refresh(); });
}

void TfservisfisSec::print() {
  GridPreviewRequest request;
  request.texts.title = windowTitle();
  request.documentName = windowTitle();
  request.exportToExcel = [this](QWidget* preview) { exportToExcel(preview); };
  showGridPreview(this, grid_->content(false), request);
}

void TfservisfisSec::exportToExcel(QWidget* preview) {
  const QString file = QuendUtil->programFolder + u"ServisFisleri.xls"_s;
  try {
    exportXls(*grid_->content(true), windowTitle(), file);
  } catch (const EInOutError& error) {
    const QString told = u"Liste Excel dosyasına aktarılamadı."_s;
    logMessage(told, &error);
    QuendUtil->ErrorMesaj(preview, told + u'\n' + error.message());
    return;
  }
  if (!shellOpen(file)) QuendUtil->ErrorMesaj(preview, file + u" dosyası yazıldı, ancak onu açacak program başlatılamadı."_s);
}
