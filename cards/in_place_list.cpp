#include "cards/in_place_list.h"

#include "base/conflict_text.h"
#include "app/dmUnit.h"
#include "base/data/my_query.h"
#include "base/exceptions.h"
#include "base/guard.h"
#include "base/save_conflict.h"
#include "toolkit/edits/task_dialog.h"
#include "toolkit/grid/data_grid.h"
#include "toolkit/grid/grid_view.h"

#include <QApplication>
#include <QBoxLayout>

using namespace Qt::StringLiterals;

InPlaceList::InPlaceList(const InPlaceDescription& description, QWidget* parent)
    : QDialog(parent),
      uniqueCaption_(description.uniqueCaption),
      rows_(std::make_unique<TMyQuery>(DM->MySQL, description.queryName)),
      grid_(new DataGrid(*rows_, description.columns, description.title, this)),
      column_(new QVBoxLayout(this)),
      balloon_(this) {
  setObjectName(description.objectName);
  setWindowTitle(description.title);
  grid_->setObjectName(u"grid"_s);
  grid_->setEditing(GridEditing::NewItemRow);
  grid_->setEmptyText(u"<Kayıt yok!>"_s);
  column_->setContentsMargins(8, 8, 8, 8);
  column_->addWidget(grid_);
  rows_->OnPostError = [this](const Exception& error) { return tellDuplicate(error); };
  connectGuarded(grid_, &DataGrid::rejected, this, [this](const QString& message) { balloon_.showAt(grid_, message); });
}

InPlaceList::~InPlaceList() = default;

bool InPlaceList::tellDuplicate(const Exception& error) {
  if (!isDuplicateEntry(error.className(), error.message())) return false;
  TaskDialogRequest message;
  message.title = QApplication::applicationName();
  message.text = ConflictText::duplicateValue(uniqueCaption_);
  message.buttons = {{1, u"Tamam"_s}};
  runTaskDialog(this, message);
  return true;
}

void InPlaceList::showRows() {
  grid_->setFocus();
  exec();
}

/// What is still in editing is written first; a cell or a row that cannot be keeps the list open.
void InPlaceList::done(int result) {
  guarded(this, [&] {
    grid_->setFocus();  // takes what stands in an open cell
    if (const QString refusal = grid_->view()->refusal(); !refusal.isEmpty()) {
      balloon_.showAt(grid_, refusal);
      grid_->view()->focusRefusedEditor();
      return;
    }
    if (!grid_->postEdits()) return;
    QDialog::done(result);
  });
}
