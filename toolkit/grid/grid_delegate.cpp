#include "toolkit/grid/grid_delegate.h"

#include "base/data/my_query.h"
#include "base/guard.h"
#include "toolkit/grid/grid_model.h"
#include "toolkit/grid/grid_view.h"
#include "toolkit/grid/row_colors.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPainter>

#include <limits>

namespace {
/// Frame of the cell that incremental search looks in.
const QColor cursorFrame(0x00, 0x80, 0x80);
const QColor hitBackground(0xff, 0xe0, 0x82);
constexpr int frameWidth = 2;
constexpr int lineEditMargin = 2;  ///< that QLineEdit has of its own
}  // namespace

GridDelegate::GridDelegate(GridModel* model, GridView* view) : QStyledItemDelegate(view), model_(model), view_(view) {}

/// The colour that the screen gives a row, made readable; the usual one otherwise.
QColor GridDelegate::inkOf(int queryRow, const QPalette& colors) const {
  const QColor own = model_->rowColor(queryRow);
  if (!own.isValid()) return colors.color(QPalette::Text);
  if (palette_ != colors.cacheKey()) readable_.clear();
  palette_ = colors.cacheKey();
  QColor& readable = readable_[own.rgb()];
  if (!readable.isValid()) readable = RowColors::readable(own, colors);
  return readable;
}

void GridDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
  const GridRow line = model_->row(index.row());
  if (line.kind == GridRowKind::Group) return;  // the view paints it over the whole width
  const bool isCursor = index == view_->currentIndex() && (line.kind == GridRowKind::Data || model_->isEditingRow());
  // The cursor's cell stays light within its selected row, so that it is found at a glance.
  const bool footer = line.kind == GridRowKind::GroupFooter;
  const bool selected = option.state & QStyle::State_Selected && !isCursor && !footer;
  const QPalette& colors = option.palette;
  if (footer)
    painter->fillRect(option.rect, colors.color(QPalette::Midlight));
  else if (selected)
    painter->fillRect(option.rect, RowColors::selection(colors));
  else if (isCursor)
    painter->fillRect(option.rect, colors.color(QPalette::Base));  // the style has painted the selected row behind it
  else if (index.row() % 2 == 1)
    painter->fillRect(option.rect, colors.color(QPalette::AlternateBase));

  const QString text = index.data(Qt::DisplayRole).toString();
  const QRect room = option.rect.adjusted(margin, 0, -margin, 0);
  const QFontMetrics& metrics = option.fontMetrics;
  const QString searched = isCursor ? view_->searched() : QString();
  if (!searched.isEmpty() && !model_->isNumber(index.column())) {
    QRect hit = room.adjusted(-1, 3, 0, -3);
    hit.setWidth(std::min(room.width(), metrics.horizontalAdvance(text.left(searched.size())) + 2));
    painter->fillRect(hit, hitBackground);
    painter->setPen(Qt::black);
    painter->drawText(room, Qt::AlignLeft | Qt::AlignVCenter, text.left(searched.size()));
  }
  if (!text.isEmpty()) {
    painter->setPen(line.kind == GridRowKind::Data ? inkOf(line.index, colors) : colors.color(QPalette::Text));
    const QString whole = QString(text).replace(u'\n', u' ');
    QRect rest = room;
    QString shown = whole;
    if (!searched.isEmpty() && !model_->isNumber(index.column())) {
      rest.setLeft(room.left() + metrics.horizontalAdvance(text.left(searched.size())));
      shown = whole.mid(searched.size());
    }
    const Qt::Alignment side = model_->isNumber(index.column()) ? Qt::AlignRight : Qt::AlignLeft;
    if (metrics.horizontalAdvance(shown) > rest.width()) shown = metrics.elidedText(shown, Qt::ElideRight, rest.width());
    painter->drawText(rest, int(side) | Qt::AlignVCenter | Qt::TextSingleLine, shown);
  }
  if (isCursor) {
    painter->setPen(cursorFrame);
    painter->drawRect(option.rect.adjusted(0, 0, -1, -1));
    painter->drawRect(option.rect.adjusted(1, 1, -2, -2));
  }
}

QWidget* GridDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&, const QModelIndex& index) const {
  const GridColumn& column = model_->columns()[size_t(index.column())];
  QWidget* editor = nullptr;
  if (!column.values.empty()) {
    auto* list = new QComboBox(parent);
    for (const GridListValue& each : column.values) list->addItem(each.shown);
    editor = list;
  } else {
    auto* line = new QLineEdit(parent);
    line->setFrame(false);
    line->setTextMargins(margin - frameWidth - lineEditMargin, 0, 0, 0);
    line->setMaxLength(std::numeric_limits<int>::max());  // a text that is too long is refused by the model, never cut
    editor = line;
  }
  editor->setAccessibleName(column.caption.trimmed());
  return editor;
}

void GridDelegate::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option, const QModelIndex&) const {
  editor->setGeometry(option.rect.adjusted(frameWidth, frameWidth, -frameWidth, -frameWidth));
}

void GridDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const {
  const QString text = index.data(Qt::EditRole).toString();
  if (auto* list = qobject_cast<QComboBox*>(editor))
    list->setCurrentText(text);
  else if (auto* line = qobject_cast<QLineEdit*>(editor); line != nullptr && line->text() != text)
    line->setText(text);
}

void GridDelegate::setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const {
  guarded(view_, [&] {
    const auto* list = qobject_cast<QComboBox*>(editor);
    model->setData(index, list != nullptr ? list->currentText() : static_cast<QLineEdit*>(editor)->text(), Qt::EditRole);
  });
}
