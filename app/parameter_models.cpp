#include "app/parameter_models.h"

#include "base/guard.h"

#include <QColor>
#include <QComboBox>
#include <QFont>
#include <QIcon>
#include <QPainter>
#include <QPixmap>

using namespace Qt::StringLiterals;
using namespace ParameterFiles;

namespace {

constexpr auto headingMark = "//"_L1;
constexpr int swatchSize = 14;
/// Pixels per logical one that a swatch is drawn with, so that it is sharp on dense screens.
constexpr int swatchDensity = 3;

bool isHeading(const CheckItem& item) { return item.text.startsWith(headingMark); }

Qt::CheckState shown(CheckState state) {
  if (state == CheckState::Checked) return Qt::Checked;
  return state == CheckState::Greyed ? Qt::PartiallyChecked : Qt::Unchecked;
}

/// A framed square of the colour, empty for none.
QIcon swatch(const QString& colour) {
  QPixmap picture(QSize(swatchSize, swatchSize) * swatchDensity);
  picture.setDevicePixelRatio(swatchDensity);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  painter.setPen(QColor(0x80, 0x80, 0x80));
  if (const auto rgb = rgbOf(colour)) painter.setBrush(QColor::fromRgb(QRgb(*rgb)));
  painter.drawRect(QRectF(0.5, 0.5, swatchSize - 1, swatchSize - 1));
  return picture;
}

QString colourText(const QString& colour) {
  const QString name = nameOf(colour);
  return name == colour ? colour : name + u"  "_s + colour;
}

}  // namespace

void CheckListModel::setItems(std::vector<CheckItem> items) {
  beginResetModel();
  items_ = std::move(items);
  endResetModel();
}

int CheckListModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : int(items_.size()); }

QVariant CheckListModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const CheckItem& item = items_[size_t(index.row())];
  if (role == Qt::DisplayRole) return isHeading(item) ? item.text.mid(headingMark.size()) : item.text;
  if (role == Qt::CheckStateRole && !isHeading(item)) return shown(item.state);
  if (role == Qt::FontRole && isHeading(item)) {
    QFont bold;
    bold.setBold(true);
    return bold;
  }
  return {};
}

bool CheckListModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (role != Qt::CheckStateRole || !flags(index).testFlag(Qt::ItemIsUserCheckable)) return false;
  items_[size_t(index.row())].state = value.value<Qt::CheckState>() == Qt::Checked ? CheckState::Checked : CheckState::Unchecked;
  Q_EMIT dataChanged(index, index, {role});
  return true;
}

Qt::ItemFlags CheckListModel::flags(const QModelIndex& index) const {
  if (!index.isValid()) return Qt::NoItemFlags;
  const CheckItem& item = items_[size_t(index.row())];
  const Qt::ItemFlags leaf = Qt::ItemNeverHasChildren;
  if (isHeading(item)) return leaf | Qt::ItemIsEnabled;
  return item.enabled ? leaf | Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable : leaf;
}

void StatusModel::setRows(std::vector<StatusRow> rows) {
  beginResetModel();
  rows_ = std::move(rows);
  endResetModel();
}

int StatusModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : int(rows_.size()); }
int StatusModel::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : int(ColumnCount); }

QVariant StatusModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const StatusRow& row = rows_[size_t(index.row())];
  const bool isText = role == Qt::DisplayRole || role == Qt::EditRole;
  switch (index.column()) {
    case Colour:
      if (role == Qt::EditRole) return row.islemColorRenkSec;
      if (role == Qt::DisplayRole && !row.islemColorRenkSec.isEmpty()) return colourText(row.islemColorRenkSec);
      if (role == Qt::DecorationRole && !row.islemColorRenkSec.isEmpty()) return swatch(row.islemColorRenkSec);
      return {};
    case State:
      return isText ? QVariant(row.active ? activeWord() : passiveWord()) : QVariant();
    default:
      return isText ? QVariant(row.islemColorIslemAdi) : QVariant();
  }
}

bool StatusModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (role != Qt::EditRole || !flags(index).testFlag(Qt::ItemIsEditable)) return false;
  StatusRow& row = rows_[size_t(index.row())];
  const QString text = value.toString();
  if (index.column() == Colour) {
    if (!text.isEmpty() && !rgbOf(text)) return false;
    row.islemColorRenkSec = text;
  } else {
    if (text != activeWord() && text != passiveWord()) return false;
    row.active = text == activeWord();
  }
  Q_EMIT dataChanged(index, index);
  return true;
}

QVariant StatusModel::headerData(int section, Qt::Orientation orientation, int role) const {
  static const QStringList captions{u"İŞLEM"_s, u"İŞLEM RENGİ"_s, u"DURUM"_s};
  if (orientation != Qt::Horizontal) return {};
  if (role == Qt::TextAlignmentRole) return int(Qt::AlignLeft | Qt::AlignVCenter);
  return role == Qt::DisplayRole ? QVariant(captions.value(section)) : QVariant();
}

Qt::ItemFlags StatusModel::flags(const QModelIndex& index) const {
  if (!index.isValid()) return Qt::NoItemFlags;
  const Qt::ItemFlags shown = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
  return index.column() == Name ? shown : shown | Qt::ItemIsEditable;
}

QWidget* StatusDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&, const QModelIndex& index) const {
  auto* choice = new QComboBox(parent);
  choice->setAccessibleName(index.model()->headerData(index.column(), Qt::Horizontal, Qt::DisplayRole).toString());
  if (index.column() == StatusModel::Colour) {
    choice->setIconSize(QSize(swatchSize, swatchSize));
    choice->setMaxVisibleItems(int(namedColours().size()) + 1);
    for (const NamedColour& named : namedColours())
      choice->addItem(swatch(named.colour), named.colour.isEmpty() ? named.name : colourText(named.colour), named.colour);
    const QString present = index.data(Qt::EditRole).toString();
    if (choice->findData(present) < 0) choice->addItem(swatch(present), colourText(present), present);
  } else {
    for (const QString& word : {activeWord(), passiveWord()}) choice->addItem(word, word);
  }
  auto* self = const_cast<StatusDelegate*>(this);  // signals are not const, this function is
  connectGuarded(choice, &QComboBox::activated, self, [self, choice] {
    Q_EMIT self->commitData(choice);
    Q_EMIT self->closeEditor(choice);
  });
  postGuarded(choice, [choice] { choice->showPopup(); });
  return choice;
}

void StatusDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const {
  auto* choice = static_cast<QComboBox*>(editor);
  choice->setCurrentIndex(choice->findData(index.data(Qt::EditRole)));
}

void StatusDelegate::setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const {
  model->setData(index, static_cast<QComboBox*>(editor)->currentData(), Qt::EditRole);
}
