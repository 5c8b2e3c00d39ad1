#include "toolkit/grid/column_chooser.h"

#include "base/guard.h"
#include "toolkit/grid/data_grid.h"
#include "toolkit/grid/grid_view.h"

#include <QBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QScreen>

#include <algorithm>

using namespace Qt::StringLiterals;

ColumnChooser::ColumnChooser(DataGrid* grid) : QFrame(grid, Qt::Popup), grid_(grid), list_(new QListWidget(this)) {
  setAttribute(Qt::WA_DeleteOnClose);
  setFrameShape(QFrame::StyledPanel);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(6, 6, 6, 6);
  column->addWidget(new QLabel(u"Gösterilecek sütunlar"_s, this));
  column->addWidget(list_);
  list_->setAccessibleName(u"Gösterilecek sütunlar"_s);
  for (const GridColumn& each : grid->columns()) {
    if (!each.offered) continue;
    auto* item = new QListWidgetItem(each.caption.trimmed(), list_);
    item->setData(Qt::UserRole, each.field);
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
    item->setCheckState(grid->isColumnVisible(each.field) ? Qt::Checked : Qt::Unchecked);
  }
  if (list_->count() > 0) list_->setCurrentRow(0);
  connectGuarded(list_, &QListWidget::itemChanged, this, [this](QListWidgetItem* item) {
    grid_->setColumnVisible(item->data(Qt::UserRole).toString(), item->checkState() == Qt::Checked);
    // The last column stays.
    if (!grid_->isColumnVisible(item->data(Qt::UserRole).toString()) != (item->checkState() == Qt::Unchecked)) item->setCheckState(Qt::Checked);
  });
}

void ColumnChooser::openAt(const QPoint& screenPlace) {
  const int rows = std::min(16, std::max(4, list_->count()));
  resize(260, 60 + rows * (list_->sizeHintForRow(0) + 1));
  const QRect room = grid_->screen()->availableGeometry();
  move(std::clamp(screenPlace.x(), room.left(), std::max(room.left(), room.right() - width())),
       std::clamp(screenPlace.y(), room.top(), std::max(room.top(), room.bottom() - height())));
  show();
  list_->setFocus();
}
