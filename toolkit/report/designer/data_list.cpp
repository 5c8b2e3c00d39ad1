#include "toolkit/report/designer/data_list.h"

#include "base/guard.h"
#include "base/turkish_text.h"
#include "toolkit/report/designer/design_canvas.h"
#include "toolkit/report/expression_functions.h"

#include <QApplication>
#include <QBoxLayout>
#include <QDrag>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QPainter>
#include <QTreeWidget>

using namespace Qt::StringLiterals;

namespace {

constexpr int expressionRole = Qt::UserRole;
constexpr double meaningShare = 0.62;  ///< of the list's width
constexpr int leastForNames = 190;     ///< width of a list that has room for names beside the meanings

/// Drags an entry's expression. The meanings take more room than the names, which their tool tips tell as well.
class NameTree : public QTreeWidget {
 public:
  using QTreeWidget::QTreeWidget;

 protected:
  QMimeData* mimeData(const QList<QTreeWidgetItem*>& items) const override {
    if (items.isEmpty() || items.front()->data(0, expressionRole).toString().isEmpty()) return nullptr;
    auto* dragged = new QMimeData;
    dragged->setData(QString::fromLatin1(dataNameMimeType), items.front()->data(0, expressionRole).toString().toUtf8());
    return dragged;
  }
  void startDrag(Qt::DropActions) override {
    guarded(this, [&] {
      QMimeData* dragged = mimeData(selectedItems());
      if (!dragged) return;
      // The name stands left above the pointer: what it becomes is shown right below it.
      const QString name = selectedItems().front()->text(0);
      const QRect text = fontMetrics().boundingRect(name).adjusted(-6, -4, 6, 4);
      QPixmap picture(text.size() * devicePixelRatioF());
      picture.setDevicePixelRatio(devicePixelRatioF());
      picture.fill(palette().color(QPalette::ToolTipBase));
      QPainter painter(&picture);
      painter.setFont(font());
      painter.setPen(palette().color(QPalette::ToolTipText));
      painter.drawRect(0, 0, text.width() - 1, text.height() - 1);
      painter.drawText(QRect(QPoint(), text.size()), Qt::AlignCenter, name);
      painter.end();
      auto* drag = new QDrag(this);
      drag->setMimeData(dragged);
      drag->setPixmap(picture);
      drag->setHotSpot(QPoint(text.width() + 4, text.height() + 4));
      drag->exec(Qt::CopyAction);
    });
  }
  void resizeEvent(QResizeEvent* event) override {
    QTreeWidget::resizeEvent(event);
    guarded(this, [&] {
      const int width = viewport()->width();
      setColumnHidden(1, width < leastForNames);
      setColumnWidth(0, isColumnHidden(1) ? width : static_cast<int>(width * meaningShare));
      setColumnWidth(1, width - columnWidth(0));
    });
  }
};

QTreeWidgetItem* addGroup(QTreeWidget& list, const QString& caption) {
  auto* group = new QTreeWidgetItem(&list, {caption});
  group->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
  QFont bold = group->font(0);
  bold.setBold(true);
  group->setFont(0, bold);
  group->setFirstColumnSpanned(true);
  return group;
}

void addEntry(QTreeWidgetItem& group, const QString& shown, const QString& explanation, const QString& expression) {
  auto* entry = new QTreeWidgetItem(&group, {explanation.isEmpty() ? shown : explanation, explanation.isEmpty() ? QString() : shown});
  entry->setData(0, expressionRole, expression);
  entry->setToolTip(0, explanation.isEmpty() ? shown : u"%1 — %2"_s.arg(shown, explanation));
  entry->setToolTip(1, entry->toolTip(0));
  entry->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDragEnabled);
  entry->setFirstColumnSpanned(explanation.isEmpty());
}

/// A field as expressions write it: names that are no words stand in quotes.
QString fieldExpression(const QString& set, const QString& field) {
  const bool isWord = std::all_of(field.begin(), field.end(), [](QChar letter) { return letter.isLetterOrNumber() || letter == u'_'; });
  return set + u'.' + (isWord ? field : ReportData::quoted(field));
}

}  // namespace

DataList::DataList(QWidget* parent) : QWidget(parent), search_(new QLineEdit(this)), list_(new NameTree(this)) {
  search_->setPlaceholderText(u"Veride ara"_s);
  search_->setAccessibleName(u"Veride ara"_s);
  search_->setClearButtonEnabled(true);
  list_->setObjectName(u"dataNames"_s);
  list_->setAccessibleName(u"Veri listesi"_s);
  list_->setColumnCount(2);
  list_->setHeaderLabels({u"Anlamı"_s, u"Ad"_s});
  list_->setRootIsDecorated(true);
  list_->header()->setStretchLastSection(false);
  list_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  list_->setIndentation(12);
  list_->setUniformRowHeights(true);
  list_->setDragEnabled(true);
  list_->setDragDropMode(QAbstractItemView::DragOnly);
  list_->setFrameShape(QFrame::NoFrame);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 4, 0, 0);
  column->setSpacing(4);
  column->addWidget(search_);
  column->addWidget(list_, 1);
  list_->installEventFilter(this);
  connectGuarded(list_, &QWidget::customContextMenuRequested, this, [this](QPoint place) { menuAt(place); });
  connectGuarded(search_, &QLineEdit::textChanged, this, [this](const QString& text) { filter(text); });
  connectGuarded(list_, &QTreeWidget::itemDoubleClicked, this, [this](const QTreeWidgetItem* item, int) {
    choose(item, QApplication::keyboardModifiers() & Qt::AltModifier);
  });
}

void DataList::menuAt(QPoint place) {
  const QTreeWidgetItem* item = list_->itemAt(place);
  if (!item || item->data(0, expressionRole).toString().isEmpty()) return;
  QMenu menu(this);
  connectGuarded(menu.addAction(QIcon::fromTheme(u"draw-text"_s), u"Metin olarak koy"_s), &QAction::triggered, this, [this, item] { choose(item, false); });
  connectGuarded(menu.addAction(QIcon::fromTheme(u"view-barcode"_s), u"Barkod olarak koy"_s), &QAction::triggered, this, [this, item] { choose(item, true); });
  menu.exec(list_->viewport()->mapToGlobal(place));
}

void DataList::show(const ReportData& known, bool withFunctions) {
  list_->clear();
  if (!withFunctions) list_->setContextMenuPolicy(Qt::CustomContextMenu);
  QTreeWidgetItem* variables = addGroup(*list_, u"Değişkenler"_s);
  for (const ReportVariable& each : known.variables()) addEntry(*variables, each.name, each.explanation, each.name);
  for (const ReportDataSet& set : known.dataSets()) {
    QTreeWidgetItem* group = addGroup(*list_, set.explanation.isEmpty() ? set.name : u"%1 (%2)"_s.arg(set.explanation, set.name));
    for (const QString& field : set.rows->fields()) addEntry(*group, field, {}, fieldExpression(set.name, field));
  }
  QTreeWidgetItem* own = addGroup(*list_, u"Raporun kendisi"_s);
  const std::pair<QString, QString> names[] = {{u"SAYFA"_s, u"Sayfa numarası"_s},        {u"SAYFA_SAYISI"_s, u"Toplam sayfa"_s},
                                               {u"SIRA"_s, u"Satırın sıra numarası"_s}, {u"BUGÜN"_s, u"Bugünün tarihi"_s},
                                               {u"SAAT"_s, u"Şu anki saat"_s},          {u"ŞİMDİ"_s, u"Tarih ve saat"_s}};
  for (const auto& [name, explanation] : names) addEntry(*own, name, explanation, name);
  if (withFunctions) {
    QTreeWidgetItem* functions = addGroup(*list_, u"İşlevler"_s);
    for (const ExpressionFunctions::FunctionInfo& each : ExpressionFunctions::all())
      addEntry(*functions, each.signature, {}, each.signature.left(each.signature.indexOf(u'(') + 1) + u')');
  }
  list_->expandAll();
}

void DataList::filter(const QString& text) {
  // Every word stands somewhere: in the meaning, in the name, or above them.
  const QStringList words = text.split(u' ', Qt::SkipEmptyParts);
  for (int group = 0; group < list_->topLevelItemCount(); ++group) {
    QTreeWidgetItem* top = list_->topLevelItem(group);
    bool isShown = false;
    for (int entry = 0; entry < top->childCount(); ++entry) {
      QTreeWidgetItem* item = top->child(entry);
      const QString all = item->text(0) + u' ' + item->text(1) + u' ' + top->text(0);
      const bool fits = std::all_of(words.begin(), words.end(), [&](const QString& word) { return TurkishText::contains(all, word); });
      item->setHidden(!fits);
      isShown |= fits;
    }
    top->setHidden(!isShown);
  }
}

void DataList::choose(const QTreeWidgetItem* item, bool isBarcode) {
  const QString name = item ? item->data(0, expressionRole).toString() : QString();
  if (!name.isEmpty()) Q_EMIT nameChosen(name, isBarcode);
}

bool DataList::eventFilter(QObject* watched, QEvent* event) {
  bool isUsed = false;
  guarded(this, [&] {
    if (event->type() != QEvent::KeyPress) return;
    const auto* key = static_cast<QKeyEvent*>(event);
    if (key->key() != Qt::Key_Return && key->key() != Qt::Key_Enter) return;
    isUsed = true;
    choose(list_->currentItem(), key->modifiers() & Qt::AltModifier);
  });
  return isUsed || QWidget::eventFilter(watched, event);
}
