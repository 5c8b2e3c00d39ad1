#include "toolkit/grid/query_table.h"

#include "app/guard.h"
#include "app/number_text.h"

#include <QBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QToolButton>

#include <algorithm>

using namespace Qt::StringLiterals;

/// Sums under the columns of a table, scrolling with it.
class TableFooter : public QWidget {
 public:
  TableFooter(QueryModel* model, QTableView* view, QWidget* parent) : QWidget(parent), model_(model), view_(view) {
    setFixedHeight(view->fontMetrics().height() + 10);
    const auto repaint = [this] { update(); };
    connectGuarded(model, &QAbstractItemModel::modelReset, this, repaint);
    connectGuarded(model, &QAbstractItemModel::dataChanged, this, repaint);
    connectGuarded(model, &QAbstractItemModel::rowsInserted, this, repaint);
    connectGuarded(model, &QAbstractItemModel::rowsRemoved, this, repaint);
    connectGuarded(view->horizontalHeader(), &QHeaderView::geometriesChanged, this, repaint);
    connectGuarded(view->horizontalHeader(), &QHeaderView::sectionResized, this, repaint);
    connectGuarded(view->horizontalScrollBar(), &QScrollBar::valueChanged, this, repaint);
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    guarded(this, [&] {
      QPainter painter(this);
      painter.fillRect(rect(), palette().color(QPalette::Button));
      painter.setPen(palette().color(QPalette::Mid));
      painter.drawRect(rect().adjusted(0, 0, -1, -1));
      painter.setPen(palette().color(QPalette::ButtonText));
      const QHeaderView* header = view_->horizontalHeader();
      for (int column = 0; column < model_->columnCount(); ++column) {
        const QString& format = model_->columns()[size_t(column)].footerFormat;
        if (format.isEmpty()) continue;
        const int left = view_->viewport()->x() + header->sectionViewportPosition(column);
        painter.drawText(QRect(left, 0, header->sectionSize(column) - 4, height()), Qt::AlignRight | Qt::AlignVCenter,
                         NumberText::formatted(format, model_->sum(column)));
      }
    });
  }

 private:
  QueryModel* model_;
  QTableView* view_;
};

QueryTableView::QueryTableView(QueryModel* model, QWidget* parent) : QTableView(parent), model_(model) {
  setModel(model);
  connectGuarded(model, &QueryModel::rejected, this, [this](const QString& message) { refusal_ = message; });
  setSelectionBehavior(SelectRows);
  setSelectionMode(SingleSelection);
  setEditTriggers(NoEditTriggers);
  setTabKeyNavigation(false);
  setWordWrap(false);
  setAlternatingRowColors(true);
  setHorizontalScrollMode(ScrollPerPixel);
  verticalHeader()->hide();
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 10);
  horizontalHeader()->setHighlightSections(false);
  bool anyStretches = false;
  for (int column = 0; column < model->columnCount(); ++column) {
    const QueryColumn& description = model->columns()[size_t(column)];
    setColumnWidth(column, description.width);
    if (description.stretches) horizontalHeader()->setSectionResizeMode(column, QHeaderView::Stretch);
    anyStretches = anyStretches || description.stretches;
  }
  horizontalHeader()->setStretchLastSection(!anyStretches);
}

void QueryTableView::paintEvent(QPaintEvent* event) {
  QTableView::paintEvent(event);
  guarded(this, [&] {
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::Disabled, QPalette::Text));
    if (model_->rowCount() == 0) {
      painter.drawText(viewport()->rect(), Qt::AlignCenter, emptyText_);
      return;
    }
    const int last = model_->rowCount() - 1;
    if (!model_->isAppendRow(last) || state() == EditingState) return;
    const QRect row(0, rowViewportPosition(last), viewport()->width(), rowHeight(last));
    if (currentIndex().row() == last) painter.setPen(palette().color(QPalette::HighlightedText));
    painter.drawText(row.adjusted(6, 0, -6, 0), Qt::AlignLeft | Qt::AlignVCenter, QueryModel::appendHint());
  });
}

void QueryTableView::keyPressEvent(QKeyEvent* event) {
  guarded(this, [&] {
    const bool onRow = currentIndex().isValid() && state() != EditingState;
    if (onRow && event->key() == Qt::Key_Delete && model_->isEditable()) {
      Q_EMIT deletePressed();
    } else if (onRow && (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)) {
      if (model_->isEditable())
        edit(currentIndex());
      else
        Q_EMIT rowChosen(currentIndex().row());
    } else {
      QTableView::keyPressEvent(event);
    }
  });
}

void QueryTableView::mouseDoubleClickEvent(QMouseEvent* event) {
  QTableView::mouseDoubleClickEvent(event);
  guarded(this, [&] {
    const QModelIndex index = indexAt(event->position().toPoint());
    if (index.isValid() && !model_->isEditable()) Q_EMIT rowChosen(index.row());
  });
}

void QueryTableView::commitData(QWidget* editor) {
  refusal_.clear();
  refusedEditor_ = editor;
  QTableView::commitData(editor);
}

void QueryTableView::focusRefusedEditor() {
  if (refusedEditor_ != nullptr) refusedEditor_->setFocus();
}

void QueryTableView::reset() {
  refusal_.clear();
  QTableView::reset();
}

void QueryTableView::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) {
  if (hint == QAbstractItemDelegate::RevertModelCache) refusal_.clear();
  if (!refusal_.isEmpty()) return;  // what was typed stays for another try
  QTableView::closeEditor(editor, hint == QAbstractItemDelegate::SubmitModelCache ? QAbstractItemDelegate::EditNextItem : hint);
  viewport()->update();
}

QueryTable::QueryTable(TMyQuery& query, std::vector<QueryColumn> columns, const QString& caption, QWidget* parent)
    : QWidget(parent), model_(new QueryModel(query, std::move(columns), this)), view_(new QueryTableView(model_, this)) {
  view_->setAccessibleName(caption);
  setFocusProxy(view_);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(view_, 1);
  const auto& all = model_->columns();
  if (std::any_of(all.begin(), all.end(), [](const QueryColumn& one) { return !one.footerFormat.isEmpty(); })) {
    footer_ = new TableFooter(model_, view_, this);
    column->addWidget(footer_);
  }
  connectGuarded(view_, &QueryTableView::rowChosen, this, [this](int row) { Q_EMIT rowChosen(row); });
  connectGuarded(view_, &QueryTableView::deletePressed, this, [this] { deleteCurrentRow(); });
  connectGuarded(model_, &QueryModel::rejected, this, [this](const QString& message) { Q_EMIT rejected(message); });
}

void QueryTable::setEditable() {
  model_->setEditable(true);
  view_->setSelectionBehavior(QAbstractItemView::SelectItems);
  view_->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::AnyKeyPressed);
  connectGuarded(view_, &QAbstractItemView::clicked, this, [this](const QModelIndex& index) {
    if (model_->isAppendRow(index.row())) view_->edit(index);
  });
  buildNavigator();
}

void QueryTable::setMultiSelect() { view_->setSelectionMode(QAbstractItemView::ExtendedSelection); }

void QueryTable::buildNavigator() {
  navigator_ = new QWidget(this);
  auto* line = new QHBoxLayout(navigator_);
  line->setContentsMargins(0, 4, 0, 0);
  line->setSpacing(2);
  const auto addButton = [&](const QString& icon, const QString& hint, auto work) {
    auto* button = new QToolButton(navigator_);
    button->setIcon(QIcon::fromTheme(icon));
    button->setToolTip(hint);
    button->setAccessibleName(hint);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::NoFocus);
    connectGuarded(button, &QToolButton::clicked, this, work);
    line->addWidget(button);
  };
  addButton(u"go-first"_s, u"İlk kayıt"_s, [this] { goToRow(0); });
  addButton(u"go-previous"_s, u"Önceki kayıt"_s, [this] { goToRow(view_->currentIndex().row() - 1); });
  addButton(u"go-next"_s, u"Sonraki kayıt"_s, [this] { goToRow(view_->currentIndex().row() + 1); });
  addButton(u"go-last"_s, u"Son kayıt"_s, [this] { goToRow(model_->rowCount() - 2); });
  addButton(u"list-add"_s, u"Kayıt ekle"_s, [this] {
    goToRow(model_->rowCount() - 1);
    view_->edit(view_->currentIndex());
  });
  addButton(u"list-remove"_s, u"Kaydı sil"_s, [this] { deleteCurrentRow(); });
  line->addStretch(1);
  layout()->addWidget(navigator_);
}

void QueryTable::goToRow(int row) {
  if (model_->rowCount() == 0) return;
  const int column = std::max(0, view_->currentIndex().column());
  view_->setCurrentIndex(model_->index(std::clamp(row, 0, model_->rowCount() - 1), model_->isAppendRow(row) ? 0 : column));
  view_->setFocus();
}

int QueryTable::currentRow() const {
  const QModelIndex index = view_->currentIndex();
  return index.isValid() && !model_->isAppendRow(index.row()) ? index.row() : -1;
}

std::vector<int> QueryTable::selectedRows() const {
  std::vector<int> rows;
  for (const QModelIndex& index : view_->selectionModel()->selectedIndexes())
    if (!model_->isAppendRow(index.row())) rows.push_back(index.row());
  std::sort(rows.begin(), rows.end());
  rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
  return rows;
}

void QueryTable::deleteCurrentRow() {
  const int row = currentRow();
  if (row >= 0) model_->deleteRow(row);
}
