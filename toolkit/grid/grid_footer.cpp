#include "toolkit/grid/grid_footer.h"

#include "base/guard.h"
#include "toolkit/grid/grid_delegate.h"
#include "toolkit/grid/grid_header.h"
#include "toolkit/grid/grid_model.h"
#include "toolkit/grid/grid_view.h"

#include <QHelpEvent>
#include <QPainter>
#include <QScrollBar>
#include <QToolTip>

using namespace Qt::StringLiterals;

GridFooter::GridFooter(GridModel* model, GridView* view, QWidget* parent) : QWidget(parent), model_(model), view_(view) {
  setFixedHeight(view->fontMetrics().height() + 10);
  idle_.setSingleShot(true);
  idle_.setInterval(0);
  connectGuarded(&idle_, &QTimer::timeout, this, [this] { workOut(); });
  connectGuarded(model, &GridModel::summariesChanged, this, [this] {
    stale_ = true;
    update();
  });
  const auto repaint = [this] { update(); };
  connectGuarded(view->header(), &QHeaderView::geometriesChanged, this, repaint);
  connectGuarded(view->header(), &QHeaderView::sectionResized, this, repaint);
  connectGuarded(view->header(), &QHeaderView::sectionMoved, this, repaint);
  connectGuarded(view->horizontalScrollBar(), &QScrollBar::valueChanged, this, repaint);
}

void GridFooter::workOut() {
  idle_.stop();
  stale_ = false;
  texts_.clear();
  QStringList spoken;
  for (int column = 0; column < model_->columnCount(); ++column) {
    texts_.push_back(model_->footerText(column));
    if (!texts_.back().isEmpty()) spoken += spelledOut(column);
  }
  setAccessibleName(u"Toplamlar"_s);
  setAccessibleDescription(spoken.join(u"; "_s));
  update();
}

QString GridFooter::spelledOut(int column) const {
  const GridColumn& about = model_->columns()[size_t(column)];
  return (about.summaryName.isEmpty() ? about.caption.trimmed() : about.summaryName) + u": "_s + texts_[size_t(column)];
}

bool GridFooter::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QWidget::event(event);
  guarded(this, [&] {
    const auto* help = static_cast<QHelpEvent*>(event);
    const int column = view_->header()->logicalIndexAt(help->pos().x() - view_->viewport()->x());
    const bool hasText = column >= 0 && !textOf(column).isEmpty();
    QToolTip::showText(help->globalPos(), hasText ? spelledOut(column) : QString(), this);
  });
  return true;
}

QString GridFooter::textOf(int column) {
  if (stale_) workOut();
  return texts_[size_t(column)];
}

void GridFooter::paintEvent(QPaintEvent*) {
  guarded(this, [&] {
    // Painted together with the rows, so these are on the screen before the sums are begun.
    if (stale_ && !idle_.isActive()) idle_.start();
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Button));
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    painter.setPen(palette().color(QPalette::ButtonText));
    for (const int column : view_->shownColumns()) {
      if (size_t(column) >= texts_.size() || texts_[size_t(column)].isEmpty()) continue;
      const int left = view_->viewport()->x() + view_->header()->sectionViewportPosition(column);
      const QRect room(left + GridDelegate::margin, 0, view_->header()->sectionSize(column) - 2 * GridDelegate::margin, height());
      painter.drawText(room, int((model_->isNumber(column) ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter), texts_[size_t(column)]);
    }
  });
}
