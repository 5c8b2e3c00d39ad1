#include "comm/fGelenAramalarUnit.h"

#include "app/dmUnit.h"
#include "app/ports.h"
#include "app/quendUtils.h"
#include "base/data/my_query.h"
#include "base/data/server_wait.h"
#include "base/data/value.h"
#include "base/date_text.h"
#include "base/environment.h"
#include "base/guard.h"
#include "comm/call_store.h"
#include "comm/caller_text.h"
#include "toolkit/grid/data_grid.h"

#include <QBoxLayout>
#include <QCloseEvent>
#include <QFileInfo>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QScopeGuard>
#include <QScopedValueRollback>

#include <algorithm>

using namespace Qt::StringLiterals;

TfGelenAramalar* fGelenAramalar = nullptr;

namespace {

constexpr QSize preferredSize(760, 360);
constexpr int shortestRestMs = 100;
constexpr int restPerWork = 3;  ///< a list that took long to read rests longer
const QString placeFile = u"./GelenArama.INI"_s;  // in the current folder
const QString dateField = u"cid_tarih"_s;

std::vector<GridColumn> callColumns() {
  const auto column = [](const QString& field, const QString& caption, int width, bool isShown) {
    return GridColumn{.field = field, .caption = caption, .width = width, .visible = isShown};
  };
  std::vector<GridColumn> columns{
      column(u"cid_no"_s, u"NO"_s, 70, false),        column(dateField, u"Tarih"_s, 90, true),
      column(u"cid_saat"_s, u"Saat"_s, 80, true),     column(u"cid_hat"_s, u"Hat"_s, 60, true),
      column(u"cid_telefon"_s, u"Telefon"_s, 130, true), column(u"CA_ID"_s, u"CARI ID"_s, 70, false),
      column(u"CA_AD"_s, u"Adı Soyadı"_s, 220, true), column(u"CA_ADRES"_s, u"Adres"_s, 220, false),
      column(u"CA_ILCE"_s, u"İlçe / İl"_s, 120, false), column(u"CA_YETKILI"_s, u"Yetkili"_s, 130, true),
      column(u"CA_CEP"_s, u"Cep"_s, 110, false),      column(u"CA_TEL"_s, u"Telefon"_s, 110, false),
      column(u"CA_TEL2"_s, u"Telefon 2"_s, 110, false), column(u"CA_EPOSTA"_s, u"E-Posta"_s, 160, false),
      column(u"CA_BAKIYE"_s, u"Bakiye"_s, 90, false), column(u"CA_STAMP"_s, u"Zaman"_s, 140, false)};
  columns[6].stretches = true;  // the name
  columns[4].lookUp = [](const Value& number) { return CallerText::grouped(number.toText()); };
  return columns;
}

/// The one day that a filter asks for; nothing when it asks for others too.
std::optional<QDate> dayOf(const std::optional<FilterExpression>& filter) {
  if (!filter) return std::nullopt;
  for (const FilterExpression& part : filter->conjuncts()) {
    if (part.column() != dateField || part.comparison() != FilterOperator::Equal) continue;
    QHash<QString, Value> values;
    part.asSql(values);
    if (values.size() != 1) continue;
    if (const auto day = DateText::toDate(values.begin().value().toText())) return day;
  }
  return std::nullopt;
}

}  // namespace

TfGelenAramalar::TfGelenAramalar(QWidget* mainForm)
    : QWidget(mainForm, aboveParent),
      query_(std::make_unique<TMyQuery>(DM->MySQL, u"qCaller"_s)),
      qCaller(*query_),
      grid_(new DataGrid(qCaller, callColumns(), u"Gelen Aramalar"_s, this)),
      place_(placeFile, u"fGelenAramalar"_s, QuendUtil->BilgisayarAdi()) {
  setObjectName(u"fGelenAramalar"_s);
  setWindowTitle(u"Gelen Aramalar"_s);
  rest_.setSingleShot(true);
  connectGuarded(&rest_, &QTimer::timeout, this, [this] {
    if (isStale_) refreshIfShown();
  });
  grid_->setObjectName(u"calls"_s);
  grid_->setMultiSelect(true);
  grid_->setFilterRow(true);
  grid_->setEmptyText(u"<Kayıt yok!>"_s);
  // The server narrows the calls to one day; everything else is narrowed in memory.
  grid_->setFilterHandler([this](const std::optional<FilterExpression>& filter) {
    if (const auto day = dayOf(filter); !isOpening_ && qCaller.Active() && day != day_) openFor(day);
    return false;
  });
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(6, 6, 6, 6);
  column->addWidget(grid_);
  resize(preferredSize);
  place_.restore(this);
  fGelenAramalar = this;
}

TfGelenAramalar::~TfGelenAramalar() {
  if (wasShown_ && !place_.store(this)) logMessage(u"Pencere yeri GelenArama.INI dosyasına yazılamadı."_s);
  // Looks at the query, which ends before the base class would take the grid down.
  delete grid_;
  if (fGelenAramalar == this) fGelenAramalar = nullptr;
}

void TfGelenAramalar::openFor(std::optional<QDate> day) {
  CallStore::setListStatement(qCaller, day);
  qCaller.Open();
  day_ = day;
}

void TfGelenAramalar::Giris() {
  const QDate today = environment().today();
  openFor(today);
  const QScopedValueRollback opening(isOpening_, true);
  grid_->clearFilter();
  grid_->setColumnFilter(dateField, FilterOperator::Equal, DateText::date(today));
  grid_->setFilterEnabled(true);
  show();
  raise();
  activateWindow();
  grid_->setFocus();
}

void TfGelenAramalar::refreshIfShown() {
  if (!isVisible() || !qCaller.Active()) return;
  isStale_ = rest_.isActive();
  if (isStale_) return;
  QElapsedTimer work;
  work.start();
  const auto rest = qScopeGuard([&] { rest_.start(std::max(shortestRestMs, int(work.elapsed()) * restPerWork)); });
  const UnobservedWait noBusyCursor;
  qCaller.Refresh();
}

void TfGelenAramalar::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  if (event->spontaneous()) return;
  guarded(this, [this] {
    wasShown_ = true;
    if (!QFileInfo::exists(placeFile)) placeAboveStatusBar(this);
  });
}

void TfGelenAramalar::keyPressEvent(QKeyEvent* event) {
  if (!event->matches(QKeySequence::Cancel)) return QWidget::keyPressEvent(event);
  guarded(this, [this] { close(); });
}

void TfGelenAramalar::closeEvent(QCloseEvent* event) {
  QWidget::closeEvent(event);
  guarded(this, [this] { qCaller.Close(); });
}
