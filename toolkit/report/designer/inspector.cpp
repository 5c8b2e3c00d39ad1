#include "toolkit/report/designer/inspector.h"

#include "base/exceptions.h"
#include "base/guard.h"
#include "toolkit/report/designer/property_editors.h"

#include <QApplication>
#include <QBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QStyledItemDelegate>
#include <QTableView>

using namespace Qt::StringLiterals;

/// Opens the box of a property's type in its cell. What was written is taken over however the box is left; Escape alone leaves
/// the value as it was.
class PropertyDelegate : public QStyledItemDelegate {
 public:
  PropertyDelegate(Inspector& inspector, const DesignSample& sample) : QStyledItemDelegate(&inspector), inspector_(inspector), sample_(sample) {
    // Told before the view closes it: what the box loses the keyboard to is of no matter then.
    connectGuarded(this, &QAbstractItemDelegate::closeEditor, &inspector, [&inspector] { inspector.box_ = nullptr; });
  }

  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem&, const QModelIndex& index) const override {
    const PropertyInfo& property = inspector_.model().property(index.row());
    PropertyEdit* box = makePropertyEdit(property, sample_, parent);
    box->setAccessibleName(property.caption);
    if (box->focusProxy()) box->focusProxy()->setAccessibleName(property.caption);
    inspector_.box_ = box;
    connectGuarded(box, &PropertyEdit::chosen, &inspector_, [this] { inspector_.endEdit(); });
    connectGuarded(box, &PropertyEdit::applied, &inspector_, [this, box] { setModelData(box, nullptr, inspector_.table()->currentIndex()); });
    connectGuarded(box, &PropertyEdit::passed, &inspector_, [this](bool isNext) {
      inspector_.endEdit();
      const QModelIndex now = inspector_.table()->currentIndex();
      if (const QModelIndex next = now.siblingAtRow(now.row() + (isNext ? 1 : -1)); next.isValid()) inspector_.table()->setCurrentIndex(next);
    });
    connectGuarded(qApp, &QApplication::focusChanged, box, [this, box](const QWidget* before, const QWidget* now) {
      if (box == inspector_.box_ && before && now && box->isAncestorOf(before) && !box->isAncestorOf(now) && now->window() == box->window())
        inspector_.endEdit();
    });
    return box;
  }
  void end(PropertyEdit* box) {
    Q_EMIT commitData(box);
    Q_EMIT closeEditor(box);
  }
  void setEditorData(QWidget* editor, const QModelIndex& index) const override {
    auto* box = static_cast<PropertyEdit*>(editor);
    box->setValue(inspector_.model().value(index.row()));
  }
  void setModelData(QWidget* editor, QAbstractItemModel*, const QModelIndex& index) const override {
    guarded(editor, [&] {
      try {
        const auto* box = static_cast<PropertyEdit*>(editor);
        if (box->value()) inspector_.model().change(index.row(), [box](const PropertyValue& own) { return box->valueFor(own); });
        Q_EMIT inspector_.refused({});
      } catch (const EConvertError& error) {
        Q_EMIT inspector_.refused(u"%1: %2"_s.arg(inspector_.model().property(index.row()).caption, error.message()));
      }
    });
  }
  void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option, const QModelIndex&) const override {
    // What needs more than its cell covers the next rows, or those before it at the end of the list, and the caption's end.
    const QSize least = editor->minimumSizeHint();
    QRect place(option.rect.topLeft(), QSize(option.rect.width(), std::max(option.rect.height(), least.height())));
    place.setLeft(std::max(0, std::min(place.left(), place.right() + 1 - least.width())));
    place.moveBottom(std::max(place.height() - 1, std::min(place.bottom(), inspector_.table()->viewport()->height() - 1)));
    editor->setGeometry(place);
  }
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    return QStyledItemDelegate::sizeHint(option, index).expandedTo(QSize(0, option.fontMetrics.height() + 8));
  }

 private:
  Inspector& inspector_;
  const DesignSample& sample_;
};

namespace {

/// Room for the widest caption that there is.
int captionWidth(const QFontMetrics& metrics) {
  constexpr int aside = 8;
  int widest = 0;
  for (const NodeKind kind : {NodeKind::Page, NodeKind::Band, NodeKind::Text, NodeKind::Line, NodeKind::Rectangle, NodeKind::Picture, NodeKind::Barcode,
                              NodeKind::RichText, NodeKind::CheckMark})
    for (const PropertyInfo& each : propertiesOf(kind)) widest = std::max(widest, metrics.horizontalAdvance(each.caption));
  return widest + aside;
}

/// The captions have the room of the widest one, unless the values would have too little.
class PropertyTable : public QTableView {
 public:
  using QTableView::QTableView;

 protected:
  void resizeEvent(QResizeEvent* event) override {
    QTableView::resizeEvent(event);
    guarded(this, [&] {
      constexpr double mostShare = 0.62;
      setColumnWidth(0, std::min(captions_, static_cast<int>(viewport()->width() * mostShare)));
      setColumnWidth(1, viewport()->width() - columnWidth(0));
    });
  }

 private:
  int captions_ = captionWidth(fontMetrics());
};

}  // namespace

Inspector::Inspector(ReportEditor& editor, const DesignSample& sample, QWidget* parent)
    : QWidget(parent), model_(new PropertyModel(editor, this)), heading_(new QLabel(this)), search_(new QLineEdit(this)), table_(new PropertyTable(this)) {
  QFont bold = font();
  bold.setBold(true);
  heading_->setFont(bold);
  heading_->setObjectName(u"inspectorHeading"_s);
  heading_->setTextFormat(Qt::PlainText);
  heading_->setMinimumWidth(10);
  search_->setPlaceholderText(u"Özellik ara"_s);
  search_->setAccessibleName(u"Özellik ara"_s);
  search_->setObjectName(u"propertySearch"_s);
  search_->setClearButtonEnabled(true);
  table_->setObjectName(u"properties"_s);
  table_->setAccessibleName(u"Özellikler"_s);
  table_->setModel(model_);
  table_->setItemDelegate(new PropertyDelegate(*this, sample));
  table_->setFrameShape(QFrame::NoFrame);
  table_->setShowGrid(false);
  table_->setAlternatingRowColors(true);
  table_->setSelectionMode(QAbstractItemView::SingleSelection);
  table_->setEditTriggers(QAbstractItemView::EditKeyPressed | QAbstractItemView::AnyKeyPressed);
  table_->setTabKeyNavigation(false);
  table_->setWordWrap(false);
  table_->horizontalHeader()->hide();
  table_->verticalHeader()->hide();
  table_->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 10);
  table_->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  table_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(6, 6, 6, 0);
  column->setSpacing(4);
  column->addWidget(heading_);
  column->addWidget(search_);
  column->addWidget(table_, 1);
  connectGuarded(search_, &QLineEdit::textChanged, this, [this](const QString& text) { model_->setFilter(text); });
  const auto open = [this](const QModelIndex& index) {
    const QModelIndex cell = index.siblingAtColumn(1);
    if ((cell.flags() & Qt::ItemIsEditable) && !table_->indexWidget(cell)) table_->edit(cell);
  };
  connectGuarded(table_, &QTableView::clicked, this, open);
  connectGuarded(table_, &QTableView::activated, this, open);
  // The values are what keys go to; the row stays on the same property from object to object.
  connectGuarded(table_->selectionModel(), &QItemSelectionModel::currentChanged, this, [this](const QModelIndex& now, const QModelIndex&) {
    if (now.isValid() && now.column() == 0) table_->setCurrentIndex(now.siblingAtColumn(1));
  });
  connectGuarded(model_, &QAbstractItemModel::modelAboutToBeReset, this, [this] {
    box_ = nullptr;  // goes with the rows
    if (const QModelIndex now = table_->currentIndex(); now.isValid()) row_ = model_->property(now.row()).name;
  });
  connectGuarded(model_, &QAbstractItemModel::modelReset, this, [this] {
    if (const int row = model_->rowOf(row_); row >= 0) table_->setCurrentIndex(model_->index(row, 1));
  });
  const auto showHeading = [this] { heading_->setText(model_->heading()); };
  connectGuarded(model_, &PropertyModel::headingChanged, this, showHeading);
  showHeading();
}

PropertyChanges Inspector::written() const {
  const int row = table_->currentIndex().row();
  if (!box_ || row < 0) return {};
  try {
    return box_->value() ? model_->changes(row, [this](const PropertyValue& own) { return box_->valueFor(own); }) : PropertyChanges();
  } catch (const EConvertError&) {
    return {};
  }
}

void Inspector::endEdit() {
  if (PropertyEdit* box = std::exchange(box_, nullptr)) static_cast<PropertyDelegate*>(table_->itemDelegate())->end(box);
}

void Inspector::edit(QStringView property) {
  const int row = model_->rowOf(property);
  if (row < 0) return table_->setFocus();
  table_->setCurrentIndex(model_->index(row, 1));
  table_->edit(model_->index(row, 1));
}
