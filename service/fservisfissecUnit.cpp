#include "service/fservisfissecUnit.h"

#include "app/dmUnit.h"
#include "app/guard.h"
#include "service/slip_browser_store.h"
#include "service/slip_tables.h"
#include "toolkit/edits/text_edit.h"
#include "toolkit/grid/query_table.h"

#include <QAction>
#include <QBoxLayout>
#include <QLabel>
#include <QTimer>
#include <QToolButton>

using namespace Qt::StringLiterals;

TfservisfisSec* fservisfisSec = nullptr;

namespace {

constexpr int searchPauseMs = 250;
/// Result of a dialog that was confirmed.
constexpr int confirmed = 6;

}  // namespace

TfservisfisSec::TfservisfisSec(QWidget* parent)
    : QDialog(parent),
      qServis(DM->MySQL, u"qServis"_s),
      search_(new TextEdit(this)),
      searchPause_(new QTimer(this)),
      table_(new QueryTable(qServis, SlipTables::slipColumns(), u"Servis Fişleri"_s, this)),
      count_(new QLabel(this)) {
  setObjectName(u"fservisfisSec"_s);
  setWindowTitle(u"Servis Fişleri"_s);
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  buildForm();
  resize(1180, 560);
  fservisfisSec = this;
}

TfservisfisSec::~TfservisfisSec() {
  // Looks at the query, which ends before the base class would take the table down.
  delete table_;
  if (fservisfisSec == this) fservisfisSec = nullptr;
}

QAction* TfservisfisSec::addCommand(const QString& name, const QString& caption, const QString& icon, QKeySequence key) {
  auto* command = new QAction(QIcon::fromTheme(icon), caption, this);
  command->setObjectName(name);
  command->setShortcut(key);
  addAction(command);
  return command;
}

void TfservisfisSec::buildForm() {
  QAction* aSec = addCommand(u"aSec"_s, u"F4 » Kayıt Seç"_s, u"dialog-ok-apply"_s, Qt::Key_F4);
  QAction* aGuncelle = addCommand(u"aGuncelle"_s, u"F8 » Güncelle"_s, u"view-refresh"_s, Qt::Key_F8);
  connectGuarded(aSec, &QAction::triggered, this, [this] { choose(); });
  connectGuarded(aGuncelle, &QAction::triggered, this, [this] { search(); });

  search_->setObjectName(u"search"_s);
  search_->setCaption(u"  ARA"_s);
  search_->setCharCase(CharCase::Upper);
  search_->setEnterMovesOn(true);
  search_->setMinimumWidth(420);
  search_->line()->setPlaceholderText(u"Fiş no, müşteri, cihaz veya seri no"_s);
  searchPause_->setSingleShot(true);
  searchPause_->setInterval(searchPauseMs);
  connectGuarded(search_, &EditBox::textEdited, searchPause_, [this] { searchPause_->start(); });
  connectGuarded(searchPause_, &QTimer::timeout, this, [this] { search(); });

  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(8, 8, 8, 8);
  auto* bar = new QHBoxLayout;
  column->addLayout(bar);
  bar->addWidget(search_);
  bar->addStretch(1);
  for (QAction* command : {aSec, aGuncelle}) {
    auto* button = new QToolButton(this);
    button->setDefaultAction(command);
    button->setAccessibleName(command->text());
    button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    button->setIconSize(QSize(22, 22));
    button->setFocusPolicy(Qt::StrongFocus);
    bar->addWidget(button);
  }
  table_->setObjectName(u"slips"_s);
  table_->setMultiSelect();
  table_->setEmptyText(u"<Kayıt yok!>"_s);
  column->addWidget(table_, 1);
  column->addWidget(count_);
  connectGuarded(table_, &QueryTable::rowChosen, this, [this] { choose(); });
  setTabOrder(search_, table_);
}

void TfservisfisSec::search() {
  searchPause_->stop();
  SlipBrowserStore::open(qServis, search_->text());
  const int rows = qServis.RecordCount();
  count_->setText(rows < SlipBrowserStore::mostRows ? u"%1 Kayıt"_s.arg(rows) : u"En yeni %1 kayıt gösteriliyor"_s.arg(rows));
  if (rows > 0) table_->view()->setCurrentIndex(table_->model()->index(0, 0));
}

void TfservisfisSec::choose() {
  const int key = qServis.fieldIndex(u"TS_ID"_s);
  chosen_.clear();
  for (int row : table_->selectedRows()) chosen_.push_back(qServis.valueAt(row, key).toText());
  done(confirmed);
}

void TfservisfisSec::Giris(std::vector<QString>& ids) {
  ids.clear();
  chosen_.clear();
  search_->setText(QString());
  search();
  table_->setFocus();
  const bool accepted = exec() == confirmed;
  qServis.Close();
  if (accepted) ids = chosen_;
}
