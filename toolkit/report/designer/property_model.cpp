#include "toolkit/report/designer/property_model.h"

#include "base/guard.h"
#include "base/number_text.h"
#include "base/turkish_text.h"
#include "toolkit/report/designer/design_faults.h"

#include <QColor>
#include <QFont>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QString fontText(const ReportFont& font) {
  QStringList words{u"%1 %2"_s.arg(font.family, NumberText::fromDouble(font.points))};
  if (font.bold) words += u"kalın"_s;
  if (font.italic) words += u"eğik"_s;
  if (font.underline) words += u"altı çizili"_s;
  if (font.strikeOut) words += u"üstü çizili"_s;
  return words.join(u", "_s);
}

QString sidesText(const QString& sides) {
  static const std::pair<QStringView, QStringView> words[] = {{u"left", u"sol"}, {u"top", u"üst"}, {u"right", u"sağ"}, {u"bottom", u"alt"}};
  QStringList shown;
  for (const auto& [word, caption] : words)
    if (sides.contains(word)) shown += caption.toString();
  return shown.isEmpty() ? u"Yok"_s : shown.join(u", "_s);
}

}  // namespace

QString shownValue(const PropertyInfo& property, const PropertyValue& value) {
  switch (property.type) {
    case PropertyType::Millimetres: return NumberText::fromDouble(std::get<double>(value)) + u" mm"_s;
    case PropertyType::Integer: return QString::number(std::get<int>(value));
    case PropertyType::Boolean: return std::get<bool>(value) ? u"Evet"_s : u"Hayır"_s;
    case PropertyType::Color: return std::get<QColor>(value).isValid() ? std::get<QColor>(value).name() : u"Yok"_s;
    case PropertyType::Font: return fontText(std::get<ReportFont>(value));
    case PropertyType::Sides: return sidesText(std::get<QString>(value));
    case PropertyType::Picture: {
      const qsizetype bytes = std::get<QByteArray>(value).size();
      return bytes == 0 ? u"Yok"_s : u"Var (%1 KB)"_s.arg((bytes + 1023) / 1024);
    }
    case PropertyType::Choice:
      for (const PropertyChoice& choice : property.choices)
        if (choice.word == std::get<QString>(value)) return choice.caption;
      return std::get<QString>(value);
    default: return QString(std::get<QString>(value)).replace(u'\n', u" ⏎ "_s);
  }
}

PropertyModel::PropertyModel(ReportEditor& editor, QObject* parent) : QAbstractTableModel(parent), editor_(editor) {
  connectGuarded(&editor, &ReportEditor::selectionChanged, this, [this] { showSelection(); });
  connectGuarded(&editor, &ReportEditor::pageShown, this, [this] { showSelection(); });
  connectGuarded(&editor, &ReportEditor::changed, this, [this](const std::vector<ReportNode*>& nodes) {
    const bool isShown = std::any_of(nodes.begin(), nodes.end(), [this](ReportNode* node) {
      return std::find(nodes_.begin(), nodes_.end(), node) != nodes_.end();
    });
    if (!isShown || rows_.empty()) return;
    readValues();
    Q_EMIT dataChanged(index(0, 0), index(int(rows_.size()) - 1, 1));
    Q_EMIT headingChanged();
  });
  showSelection();
}

void PropertyModel::setFilter(const QString& text) {
  filter_ = text;
  beginResetModel();
  fillRows();
  endResetModel();
}

void PropertyModel::showSelection() {
  beginResetModel();
  nodes_ = editor_.selection();
  if (nodes_.empty() && editor_.page()) nodes_ = {editor_.page()};
  fillRows();
  endResetModel();
  Q_EMIT headingChanged();
}

void PropertyModel::fillRows() {
  rows_.clear();
  values_.clear();
  if (nodes_.empty()) return;
  std::vector<NodeKind> others;
  for (const ReportNode* node : nodes_)
    if (node->kind() != nodes_.front()->kind() && std::find(others.begin(), others.end(), node->kind()) == others.end()) others.push_back(node->kind());
  for (const PropertyInfo& property : propertiesOf(nodes_.front()->kind())) {
    if (!filter_.isEmpty() && !TurkishText::contains(property.caption, filter_)) continue;
    const bool haveAll = std::all_of(others.begin(), others.end(), [&](NodeKind kind) {
      const auto place = findProperty(kind, property.name);
      return place && propertiesOf(kind)[*place].type == property.type;
    });
    // A name is one node's own.
    if (haveAll && (nodes_.size() == 1 || property.name != u"name")) rows_.push_back(&property);
  }
  readValues();
}

int PropertyModel::rowOf(QStringView property) const {
  const auto found = std::find_if(rows_.begin(), rows_.end(), [&](const PropertyInfo* each) { return each->name == property; });
  return found == rows_.end() ? -1 : int(found - rows_.begin());
}

void PropertyModel::readValues() {
  values_.clear();
  for (const PropertyInfo* row : rows_) {
    const PropertyValue& first = nodes_.front()->value(row->name);
    const bool isOne = std::all_of(nodes_.begin(), nodes_.end(), [&](const ReportNode* node) { return node->value(row->name) == first; });
    values_.push_back(isOne ? std::optional(first) : std::nullopt);
  }
}

PropertyChanges PropertyModel::changes(int row, const std::function<PropertyValue(const PropertyValue& own)>& made) const {
  PropertyChanges changes;
  for (ReportNode* node : nodes_) changes.push_back({node, property(row).name, made(node->value(property(row).name))});
  return changes;
}

void PropertyModel::change(int row, const std::function<PropertyValue(const PropertyValue& own)>& made) {
  editor_.change(property(row).caption, changes(row, made));
}

QString PropertyModel::heading() const {
  if (nodes_.empty()) return {};
  if (nodes_.size() > 1) return u"%1 nesne seçili"_s.arg(nodes_.size());
  const ReportNode& node = *nodes_.front();
  return node.name().isEmpty() ? shownName(node) : u"%1 — %2"_s.arg(node.name(), kindCaption(node.kind()));
}

int PropertyModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : int(rows_.size()); }
int PropertyModel::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : 2; }

QVariant PropertyModel::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
  const PropertyInfo& shown = property(index.row());
  if (index.column() == 0) return role == Qt::DisplayRole || role == Qt::ToolTipRole ? QVariant(shown.caption) : QVariant();
  const std::optional<PropertyValue>& now = value(index.row());
  switch (role) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole:
      if (shown.type == PropertyType::Boolean && role == Qt::DisplayRole) return now ? QVariant() : QVariant(u"farklı"_s);
      return now ? shownValue(shown, *now) : u"farklı"_s;
    case Qt::AccessibleTextRole: return u"%1: %2"_s.arg(shown.caption, now ? shownValue(shown, *now) : u"farklı"_s);
    case Qt::CheckStateRole:
      if (shown.type != PropertyType::Boolean) return {};
      return now ? (std::get<bool>(*now) ? Qt::Checked : Qt::Unchecked) : Qt::PartiallyChecked;
    case Qt::DecorationRole:
      return shown.type == PropertyType::Color && now && std::get<QColor>(*now).isValid() ? QVariant(std::get<QColor>(*now)) : QVariant();
    case Qt::FontRole: {
      if (now) return {};
      QFont differing;
      differing.setItalic(true);
      return differing;
    }
    default: return {};
  }
}

bool PropertyModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (role != Qt::CheckStateRole || !checkIndex(index, CheckIndexOption::IndexIsValid)) return false;
  change(index.row(), [&](const PropertyValue&) { return value.toInt() == Qt::Checked; });
  return true;
}

Qt::ItemFlags PropertyModel::flags(const QModelIndex& index) const {
  Qt::ItemFlags flags = QAbstractTableModel::flags(index);
  if (!index.isValid() || index.column() == 0) return flags;
  return flags | (property(index.row()).type == PropertyType::Boolean ? Qt::ItemIsUserCheckable : Qt::ItemIsEditable);
}
