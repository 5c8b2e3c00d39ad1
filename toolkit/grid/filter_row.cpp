#include "toolkit/grid/filter_row.h"

#include "base/data/my_query.h"
#include "base/guard.h"
#include "toolkit/grid/filter_cell.h"
#include "toolkit/grid/grid_model.h"

#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>

using namespace Qt::StringLiterals;

FilterRow::FilterRow(GridModel* model, QHeaderView* header)
    : QWidget(header), model_(model), header_(header), prompt_(new QLabel(u"Arama yapmak için ilgili hüceye tıklayınız..."_s, this)) {
  setAccessibleName(u"Filtre satırı"_s);
  prompt_->setAttribute(Qt::WA_TransparentForMouseEvents);
  prompt_->setContentsMargins(8, 0, 6, 0);
  prompt_->setForegroundRole(QPalette::PlaceholderText);
  pause_.setSingleShot(true);
  pause_.setInterval(pauseMs);
  connectGuarded(&pause_, &QTimer::timeout, this, [this] { Q_EMIT changed(); });
  hide();
}

FilterRow::~FilterRow() = default;

FieldType FilterRow::typeOf(int column) const {
  const int field = model_->fieldOf(column);
  const GridColumn& about = model_->columns()[size_t(column)];
  if (field < 0 || about.lookUp || !about.values.empty()) return FieldType::Text;
  return model_->query().fieldInfo(field).type;
}

GridCondition FilterRow::unset(int column) const { return {GridConditions::usual(typeOf(column)), {}}; }

void FilterRow::setCondition(int column, const GridCondition& condition) {
  conditions_.insert(column, condition);
  if (condition == unset(column)) conditions_.remove(column);
  if (FilterCell* cell = cells_.value(column)) {
    cell->show(condition);
    cell->setWrong({});
  }
  updatePrompt();
}

void FilterRow::clear() {
  pause_.stop();
  conditions_.clear();
  for (auto cell = cells_.begin(); cell != cells_.end(); ++cell) {
    cell.value()->show(unset(cell.key()));
    cell.value()->setWrong({});
  }
  updatePrompt();
}

void FilterRow::setWrong(int column, const QString& reason) {
  if (FilterCell* cell = cells_.value(column)) cell->setWrong(reason);
}

void FilterRow::focusCell(int column) {
  FilterCell* cell = cells_.value(column);
  if (cell == nullptr) return;
  cell->line()->setFocus(Qt::ShortcutFocusReason);
  cell->line()->selectAll();
}

void FilterRow::edited(int column, const GridCondition& condition, bool atOnce) {
  const bool same = condition == this->condition(column);
  conditions_.insert(column, condition);
  if (condition == unset(column)) conditions_.remove(column);
  updatePrompt();
  if (!atOnce) {
    if (!same) pause_.start();
    return;
  }
  const bool waiting = pause_.isActive();
  pause_.stop();
  if (!same || waiting) Q_EMIT changed();
}

void FilterRow::leave(int column) { Q_EMIT left(column); }

void FilterRow::updatePrompt() {
  bool quiet = conditions_.isEmpty();
  for (const FilterCell* cell : std::as_const(cells_)) quiet = quiet && !cell->line()->hasFocus();
  prompt_->setVisible(quiet);
  if (quiet) prompt_->raise();
  for (FilterCell* cell : std::as_const(cells_)) cell->setSignShown(!quiet);
}

void FilterRow::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), palette().color(QPalette::Base));
  painter.setPen(palette().color(QPalette::Mid));
  painter.drawLine(0, height() - 1, width(), height() - 1);
  for (const FilterCell* cell : std::as_const(cells_))
    if (cell->isVisible() && !prompt_->isVisible()) painter.drawLine(cell->geometry().right(), 0, cell->geometry().right(), height());
}

void FilterRow::setShown(bool shown) {
  shown_ = shown;
  setVisible(shown);
}

void FilterRow::arrange() {
  if (!shown_) return;
  QList<int> shown;
  for (int visual = 0; visual < header_->count(); ++visual) {
    const int column = header_->logicalIndex(visual);
    FilterCell* cell = cells_.value(column);
    if (header_->isSectionHidden(column)) {
      if (cell != nullptr) cell->hide();
      continue;
    }
    if (cell == nullptr) {
      if (!model_->query().Active()) continue;  // the columns' types are not known yet
      cell = new FilterCell(this, model_->columns()[size_t(column)], column, typeOf(column));
      cells_.insert(column, cell);
      cell->show(condition(column));
    }
    cell->setGeometry(header_->sectionViewportPosition(column), 0, header_->sectionSize(column), height());
    cell->setVisible(true);
    shown += column;
  }
  for (qsizetype i = 1; i < shown.size() && shown != tabOrder_; ++i)
    setTabOrder(cells_[shown[i - 1]]->line(), cells_[shown[i]]->line());
  tabOrder_ = shown;
  prompt_->setGeometry(rect());
  updatePrompt();
}
