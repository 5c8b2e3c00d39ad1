#include "base/guard.h"
#include "toolkit/grid/column_chooser.h"
#include "toolkit/grid/data_grid.h"
#include "toolkit/grid/filter_row.h"
#include "toolkit/grid/grid_header.h"
#include "toolkit/grid/grid_model.h"
#include "toolkit/grid/grid_view.h"

#include <QAction>
#include <QApplication>
#include <QBoxLayout>
#include <QClipboard>
#include <QMenu>
#include <QToolButton>

#include <algorithm>

using namespace Qt::StringLiterals;

// The keys and menus of the data grid.

namespace {
constexpr int widthStep = 10;
constexpr int leastWidth = 24;
}  // namespace

void DataGrid::addKey(const QString& name, const QKeySequence& key, std::function<void()> work) {
  auto* action = new QAction(name, this);
  action->setShortcut(key);
  action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
  connectGuarded(action, &QAction::triggered, this, std::move(work));
  addAction(action);
}

void DataGrid::buildCommands() {
  connectGuarded(view_->header(), &GridHeader::menuAsked, this, [this](int column, const QPoint& place) {
    QMenu menu(this);
    fillHeaderMenu(menu, columns()[size_t(column)].field);
    menu.exec(place);
  });
  addKey(u"Seçilenleri kopyala"_s, QKeySequence::Copy, [this] { copySelection(); });
  addKey(u"Filtre satırına geç"_s, QKeySequence(u"Ctrl+F"_s), [this] {
    if (filterRow_->isShown()) filterRow_->focusCell(view_->currentColumn());
  });
  addKey(u"Filtreyi kapat veya aç"_s, QKeySequence(u"Ctrl+Shift+F"_s), [this] { setFilterEnabled(!filterEnabled_); });
  addKey(u"Filtreyi temizle"_s, QKeySequence(u"Ctrl+Shift+C"_s), [this] { clearFilter(); });
  addKey(u"Sütuna göre sırala"_s, QKeySequence(u"Ctrl+Shift+S"_s), [this] { sortBy(currentField(), {}); });
  addKey(u"Sütuna göre grupla"_s, QKeySequence(u"Ctrl+Shift+G"_s), [this] { toggleGroup(currentField()); });
  addKey(u"En uygun genişlik"_s, QKeySequence(u"Ctrl+Shift+B"_s), [this] { fitColumn(view_->currentColumn()); });
  addKey(u"Sütunu gizle"_s, QKeySequence(u"Ctrl+Shift+H"_s), [this] { setColumnVisible(currentField(), false); });
  addKey(u"Sütunu sola taşı"_s, QKeySequence(u"Ctrl+Shift+Left"_s), [this] { moveColumn(-1); });
  addKey(u"Sütunu sağa taşı"_s, QKeySequence(u"Ctrl+Shift+Right"_s), [this] { moveColumn(1); });
  addKey(u"Sütunu daralt"_s, QKeySequence(u"Ctrl+Alt+Left"_s), [this] { widenColumn(-widthStep); });
  addKey(u"Sütunu genişlet"_s, QKeySequence(u"Ctrl+Alt+Right"_s), [this] { widenColumn(widthStep); });
  addKey(u"Sütun seç"_s, QKeySequence(u"Ctrl+Shift+K"_s), [this] { openColumnChooser(); });
  addKey(u"Başlık menüsü"_s, QKeySequence(u"Alt+F10"_s), [this] {
    QMenu menu(this);
    fillHeaderMenu(menu, currentField());
    const int left = view_->header()->sectionViewportPosition(view_->currentColumn());
    menu.exec(view_->header()->mapToGlobal(QPoint(left, view_->header()->height())));
  });
}

void DataGrid::fillHeaderMenu(QMenu& menu, const QString& field) {
  const auto add = [&](const QString& caption, std::function<void()> work) {
    QAction* action = menu.addAction(caption);
    connectGuarded(action, &QAction::triggered, this, std::move(work));
    return action;
  };
  const auto sortTo = [this, field](bool descending) {
    if (!grouping().contains(field)) return setOrder({{field, descending}});
    std::vector<GridSort> levels = model_->rows().grouping();
    for (GridSort& level : levels)
      if (level.field == field) level.descending = descending;
    applyGrouping(std::move(levels));
  };
  add(u"Artan sırala"_s, [sortTo] { sortTo(false); });
  add(u"Azalan sırala"_s, [sortTo] { sortTo(true); });
  add(u"Sıralamayı kaldır"_s, [this] { clearSorting(); })->setEnabled(!order_.empty());
  menu.addSeparator();
  add(grouping().contains(field) ? u"Gruplamadan çıkar"_s : u"Bu sütuna göre grupla"_s, [this, field] { toggleGroup(field); });
  add(u"Tüm grupları aç"_s, [this] { setAllExpanded(true); })->setEnabled(!grouping().isEmpty());
  add(u"Tüm grupları kapat"_s, [this] { setAllExpanded(false); })->setEnabled(!grouping().isEmpty());
  menu.addSeparator();
  if (filterRow_->isShown()) {
    add(u"Bu sütunda ara"_s, [this, field] { filterRow_->focusCell(model_->columnOf(field)); });
    add(u"Filtreyi temizle"_s, [this] { clearFilter(); })->setEnabled(inForce_.has_value());
    menu.addSeparator();
  }
  add(u"En uygun genişlik"_s, [this, field] { fitColumn(model_->columnOf(field)); });
  add(u"Tüm sütunlar için en uygun genişlik"_s, [this] {
    for (const int column : view_->shownColumns()) fitColumn(column);
  });
  add(u"Bu sütunu gizle"_s, [this, field] { setColumnVisible(field, false); })->setEnabled(view_->shownColumns().size() > 1);
  add(u"Sütun seç..."_s, [this] { openColumnChooser(); });
  add(u"Varsayılan görünüm"_s, [this] { resetLayout(); });
}

void DataGrid::openColumnChooser() {
  auto* chooser = new ColumnChooser(this);
  chooser->openAt(view_->viewport()->mapToGlobal(QPoint(8, 8)));
}

void DataGrid::moveColumn(int by) {
  const std::vector<int> shown = view_->shownColumns();
  const auto place = std::find(shown.begin(), shown.end(), view_->currentColumn());
  const auto target = place - shown.begin() + by;
  if (place == shown.end() || target < 0 || target >= std::ptrdiff_t(shown.size())) return;
  GridHeader* header = view_->header();
  header->moveSection(header->visualIndex(*place), header->visualIndex(shown[size_t(target)]));
}

void DataGrid::fitColumn(int column) {
  if (columns()[size_t(column)].stretches) return;
  view_->setColumnWidth(column, view_->fittingWidth(column));
}

void DataGrid::widenColumn(int by) {
  const int column = view_->currentColumn();
  if (!columns()[size_t(column)].stretches) view_->setColumnWidth(column, std::max(leastWidth, view_->columnWidth(column) + by));
}

void DataGrid::copySelection() const {
  if (const QString text = view_->selectionText(); !text.isEmpty()) QApplication::clipboard()->setText(text);
}

void DataGrid::buildNavigator() {
  navigator_ = new QWidget(this);
  auto* line = new QHBoxLayout(navigator_);
  line->setContentsMargins(0, 4, 0, 0);
  line->setSpacing(2);
  const auto addButton = [&](const QString& name, const QString& icon, const QString& hint, std::function<void()> work) {
    auto* button = new QToolButton(navigator_);
    button->setObjectName(name);
    button->setIcon(QIcon::fromTheme(icon));
    button->setToolTip(hint);
    button->setAccessibleName(hint);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::NoFocus);
    connectGuarded(button, &QToolButton::clicked, this, std::move(work));
    line->addWidget(button);
  };
  addButton(u"first"_s, u"go-first"_s, u"İlk kayıt"_s, [this] { step(-model_->rowCount()); });
  addButton(u"previous"_s, u"go-previous"_s, u"Önceki kayıt"_s, [this] { step(-1); });
  addButton(u"next"_s, u"go-next"_s, u"Sonraki kayıt"_s, [this] { step(1); });
  addButton(u"last"_s, u"go-last"_s, u"Son kayıt"_s, [this] { step(model_->rowCount()); });
  addButton(u"add"_s, u"list-add"_s, u"Kayıt ekle (Insert)"_s, [this] { addRow(); });
  addButton(u"delete"_s, u"list-remove"_s, u"Kaydı sil (Ctrl+Delete)"_s, [this] { deleteSelectedRows(); });
  addButton(u"post"_s, u"dialog-ok-apply"_s, u"Kaydı yaz"_s, [this] { postEdits(); });
  addButton(u"cancel"_s, u"dialog-cancel"_s, u"Değişikliği geri al (Esc)"_s, [this] { model_->cancelRow(); });
  line->addStretch(1);
  layout()->addWidget(navigator_);
}

void DataGrid::step(int by) {
  if (model_->rowCount() == 0) return;
  view_->setFocus();
  view_->setCurrentLine(std::clamp(view_->currentLine() + by, 0, model_->rowCount() - 1));
}

void DataGrid::addRow() {
  if (!postEdits()) return;
  view_->setFocus();
  int line = 0;
  if (editing_ == GridEditing::Append) line = model_->appendRow();
  if (editing_ == GridEditing::None || line < 0) return;
  std::vector<int> shown = view_->shownColumns();
  std::erase_if(shown, [&](int column) { return columns()[size_t(column)].readOnly; });
  if (shown.empty()) return;
  view_->setCurrentIndex(model_->index(line, shown.front()));
  view_->edit(view_->currentIndex());
}
