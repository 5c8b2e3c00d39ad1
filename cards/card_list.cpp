#include "cards/card_list.h"

#include "app/ports.h"
#include "app/dmUnit.h"
#include "base/data/my_query.h"
#include "base/exceptions.h"
#include "base/guard.h"
#include "app/quendUtils.h"
#include "app/rights.h"
#include "toolkit/grid/data_grid.h"
#include "toolkit/grid/grid_preview.h"
#include "toolkit/grid/table_content.h"
#include "toolkit/shell/command_bar.h"
#include "toolkit/shell/command_updates.h"

#include <QAction>
#include <QBoxLayout>
#include <QScreen>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize preferredSize(1060, 600);
constexpr int failureMessageMs = 8000;

}  // namespace

CardList::CardList(const CardListDescription& description, QWidget* parent)
    : QDialog(parent),
      rightPath_(description.rightPath),
      cards_(std::make_unique<TMyQuery>(DM->MySQL, description.queryName)),
      grid_(new DataGrid(*cards_, description.columns, description.caption, this)) {
  setObjectName(description.objectName);
  setWindowTitle(description.caption);
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  grid_->setObjectName(u"grid"_s);
  grid_->setFilterRow(true);
  grid_->setFilterUpperCase(true);
  grid_->setGroupArea(true);
  grid_->setEmptyText(u"<Kayıt yok!>"_s);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(8, 8, 8, 8);
  column->addWidget(grid_);
  resize(preferredSize.boundedTo(screen()->availableSize()));
}

CardList::~CardList() = default;

void CardList::openCards() { cards_->Open(); }

QAction* CardList::command(const QString& name) const {
  if (auto* found = findChild<QAction*>(name, Qt::FindDirectChildrenOnly)) return found;
  throw Exception(u"no command: "_s + name);
}

void CardList::addCommands(const std::vector<CardCommand>& commands, const QString& onRowChosen) {
  auto* bar = new CommandBar(this);
  static_cast<QBoxLayout*>(layout())->insertWidget(0, bar);
  for (const CardCommand& command : commands) addCommand(command, *bar);
  if (onRowChosen.isEmpty()) return;
  connectGuarded(grid_, &DataGrid::rowChosen, this, [this, chosen = command(onRowChosen)] {
    updateCommands(this);
    chosen->trigger();
  });
}

void CardList::addCommand(const CardCommand& command, CommandBar& bar) {
  QAction* action = bar.addCommand(command.name, command.caption, command.icon, command.key);
  bar.button(action)->setFocusPolicy(Qt::TabFocus);  // a click leaves the keyboard to the rows
  connectCommand(action, command);
}

void CardList::addRowCommand(const CardCommand& command) {
  auto* action = new QAction(QIcon::fromTheme(command.icon), command.caption, this);
  action->setObjectName(command.name);
  grid_->addRowCommand(action);
  connectCommand(action, command);
}

void CardList::connectCommand(QAction* action, const CardCommand& command) {
  connectGuarded(action, &QAction::triggered, this, [work = command.work] { work(); });
  keepUpdated(this, action, [this, command] { return isEnabled(command); });
}

bool CardList::isEnabled(const CardCommand& command) {
  if (!command.right.isEmpty() && DM->Kullanici_Yetkileri(rightPath_ + command.right) == Right::Checked) return false;
  if (command.needsRows && cards_->IsEmpty()) return false;
  if (command.needsRow && grid_->currentRow() < 0) return false;
  return !command.alsoNeeds || command.alsoNeeds();
}

void CardList::showList() {
  grid_->setFilterEnabled(true);
  grid_->goToFirstRow();
  grid_->setFocus();
  exec();
}

void CardList::Giris() {
  openCards();
  showList();
  cards_->Close();
  grid_->clearFilter();
  grid_->clearGrouping();
}

CardCommand CardList::deleteCommand(const QString& question, const QString& failure) {
  const QString caption = u"F6 » Kayıt Sil"_s;
  return {.name = u"aFisSil"_s,
          .caption = caption,
          .icon = u"edit-delete"_s,
          .key = Qt::Key_F6,
          .work = [=, this] { deleteSelected(question, failure); },
          .right = caption,
          .alsoNeeds = [this] { return grid_->hasSelectedRow(); }};
}

CardCommand CardList::refreshCommand() {
  return {.name = u"aGuncelle"_s,
          .caption = u"F8 » Güncelle"_s,
          .icon = u"view-refresh"_s,
          .key = Qt::Key_F8,
          .work = [this] { readAnew(); },
          .needsRows = false};
}

CardCommand CardList::printCommand(const QString& caption, const CardReport& report) {
  return {.name = u"aYazdir"_s,
          .caption = caption,
          .icon = u"document-print"_s,
          .key = Qt::Key_F9,
          .work = [=, this] { preview(report); },
          .right = caption};
}

void CardList::readAnew() {
  grid_->keepRecords([this] { cards_->Refresh(); });
}

void CardList::insertCard(const std::function<void()>& insert) {
  const int before = grid_->currentRow();
  const int rows = cards_->RecordCount();
  insert();
  // The cursor may not have moved at all, whereas the query has.
  if (cards_->RecordCount() == rows && before >= 0) cards_->setRecNo(before);
  grid_->setCurrentRow(cards_->RecNo());
}

void CardList::deleteSelected(const QString& question, const QString& failure) {
  if (QuendUtil->Mesaj(this, question) != TQuendUtil::Confirmed) return;
  try {
    TransactionGuard transaction(DM->MySQL);
    grid_->deleteSelectedRows();
    transaction.commit();
  } catch (const Exception& error) {
    logFailure(failure, error);
    // What became of a row whose commit was not answered, only the server knows.
    try {
      readAnew();
    } catch (const Exception& unread) {
      logMessage(u"Liste yeniden okunamadı"_s, &unread);
    }
    QuendUtil->mesajTimeOut(this, failure, failureMessageMs);
  }
}

void CardList::preview(const CardReport& report) {
  GridPreviewRequest request;
  request.caption = u"Önizleme"_s;
  request.texts = {report.title, report.header, u"[Date & Time Printed]"_s, u"Torvane Teknik Servis Programı"_s,
                   u" Sayfa: [Page #]-[Total Pages]"_s};
  request.documentName = report.title;
  request.exportToExcel = report.exportToExcel;
  showGridPreview(this, grid_->content(false), request);
}
