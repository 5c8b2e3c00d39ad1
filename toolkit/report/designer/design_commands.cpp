#include "toolkit/report/designer/design_commands.h"

#include "toolkit/report/designer/report_fragment.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr double besideBy = 4;  ///< mm that a copy lies beside its model

/// New texts are written in Arial of height 13.
constexpr double usualPoints = 13;

bool hasObjectAt(const ReportNode& parent, const ReportNode& object) {
  return std::any_of(parent.children().begin(), parent.children().end(),
                     [&](const auto& each) { return isObject(each->kind()) && ownRect(*each) == ownRect(object); });
}

}  // namespace

std::unique_ptr<ReportNode> newPage(const QString& name) {
  auto page = std::make_unique<ReportNode>(NodeKind::Page);
  page->setValue(u"name", name);
  return page;
}

void DesignCommands::copy() const {
  const QByteArray bytes = ReportFragment::write(editor_.selection());
  if (bytes.isEmpty()) return;
  auto data = std::make_unique<QMimeData>();
  data->setData(QString::fromLatin1(ReportFragment::mimeType), bytes);
  QStringList texts;
  for (const ReportNode* node : editor_.selectedObjects())
    if (findProperty(node->kind(), u"text")) texts += node->text(u"text");
  if (!texts.isEmpty()) data->setText(texts.join(u'\n'));
  QGuiApplication::clipboard()->setMimeData(data.release());
}

void DesignCommands::cut() {
  copy();
  editor_.remove(u"Kes"_s, removable());
}

void DesignCommands::paste() {
  const QMimeData* data = QGuiApplication::clipboard()->mimeData();
  if (!data) return;
  std::vector<std::unique_ptr<ReportNode>> nodes = ReportFragment::read(data->data(QString::fromLatin1(ReportFragment::mimeType)));
  if (nodes.empty()) return;
  ReportNode* selected = editor_.selection().empty() ? nullptr : editor_.selection().back();
  while (selected && selected->kind() != NodeKind::Band && selected->kind() != NodeKind::Page) selected = selected->parent();
  if (!selected) selected = editor_.page();
  // Where nothing is selected, objects go to the page's first band: beside all bands they would print on every page.
  if (selected->kind() == NodeKind::Page && !editor_.isSelected(selected))
    for (const auto& child : editor_.page()->children())
      if (child->kind() == NodeKind::Band && selected == editor_.page()) selected = child.get();
  insertCopies(u"Yapıştır"_s, std::move(nodes), selected);
}

void DesignCommands::insertCopies(const QString& name, std::vector<std::unique_ptr<ReportNode>> nodes, ReportNode* parent,
                                  bool isBeside) {
  const bool areBands = nodes.front()->kind() == NodeKind::Band;
  size_t place = parent->children().size();
  if (areBands && parent->kind() == NodeKind::Band) {
    place = parent->index() + 1;
    parent = parent->parent();
  }
  const bool isTaken = isBeside && std::any_of(nodes.begin(), nodes.end(), [&](const auto& each) { return isObject(each->kind()) && hasObjectAt(*parent, *each); });
  QStringList taken;
  const auto rename = [&](const auto& self, ReportNode& node) -> void {
    if (node.kind() == NodeKind::Foreign) return;
    if (!node.name().isEmpty()) {
      taken += freeName(editor_.document(), node.kind(), node.name(), taken);
      node.setValue(u"name", taken.back());
    }
    for (const auto& child : node.children()) self(self, *child);
  };
  for (const auto& node : nodes) {
    rename(rename, *node);
    if (!isTaken || !isObject(node->kind())) continue;
    for (const QStringView property : {u"left", u"top"}) node->setValue(property, Arranging::rounded(node->millimetres(property) + besideBy));
  }
  editor_.insert(name, *parent, place, std::move(nodes));
}

void DesignCommands::duplicate() {
  if (editor_.selection().empty()) return;
  ReportNode* first = editor_.selection().front();
  std::vector<std::unique_ptr<ReportNode>> copies;
  for (const ReportNode* node : editor_.selection())
    if (isObject(node->kind()) || node->kind() == NodeKind::Band) copies.push_back(node->clone());
  if (!copies.empty()) insertCopies(u"Çoğalt"_s, std::move(copies), isObject(first->kind()) ? first->parent() : first);
}

void DesignCommands::duplicateInPlace() {
  std::vector<ReportNode*> copies;
  const Gesture step(editor_, u"Çoğalt"_s);
  for (ReportNode* object : editor_.selectedObjects()) {
    std::vector<std::unique_ptr<ReportNode>> copy;
    copy.push_back(object->clone());
    insertCopies(u"Çoğalt"_s, std::move(copy), object->parent(), false);
    copies.push_back(editor_.selection().front());
  }
  editor_.select(std::move(copies));
}

std::vector<ReportNode*> DesignCommands::removable() const {
  std::vector<ReportNode*> nodes = editor_.selection();
  std::erase_if(nodes, [](const ReportNode* node) { return isObject(node->kind()) && node->flag(u"locked"); });
  return nodes;
}

void DesignCommands::remove() { editor_.remove(u"Sil"_s, removable()); }

void DesignCommands::nudge(QPointF by, bool joins) { editor_.change(u"Taşı"_s, Arranging::moved(editor_.selectedObjects(), by), joins); }

void DesignCommands::grow(QSizeF by, bool joins) {
  if (editor_.selection().size() == 1 && editor_.selection().front()->kind() == NodeKind::Band) {
    ReportNode& band = *editor_.selection().front();
    const double height = std::max(0.0, Arranging::rounded(band.millimetres(u"height") + by.height()));
    editor_.change(u"Bant yüksekliği"_s, {{&band, u"height"_s, height}}, joins);
    return;
  }
  editor_.change(u"Boyutlandır"_s, Arranging::grown(editor_.selectedObjects(), by), joins);
}

void DesignCommands::dragged(QPointF by) {
  const PagePlaces before = places();
  const Gesture step(editor_, u"Taşı"_s);
  std::vector<ReportNode*> staying;
  for (ReportNode* object : editor_.selectedObjects()) {
    const QRectF rect = before.rectOf(*object).translated(by);
    const PagePlaces::Band* under = before.bandAt(rect.center());
    if (object->flag(u"locked") || object->parent()->kind() != NodeKind::Band || !under || under->node == object->parent()) {
      staying.push_back(object);
      continue;
    }
    for (const auto& child : pageOf(object)->children()) {
      if (child.get() != under->node) continue;
      editor_.move(u"Taşı"_s, *object, *child, child->children().size());
      editor_.change(u"Taşı"_s, Arranging::placed(*object, rect.translated(-under->rect.topLeft())));
    }
  }
  // All at once: whoever looks at the selection looks once.
  editor_.change(u"Taşı"_s, Arranging::moved(staying, by));
}

void DesignCommands::align(Arranging::Edge edge) { editor_.change(u"Hizala"_s, Arranging::aligned(editor_.selectedObjects(), places(), edge)); }

void DesignCommands::distribute(bool isAcross) {
  editor_.change(u"Eşit aralık"_s, Arranging::distributed(editor_.selectedObjects(), places(), isAcross));
}

void DesignCommands::sameSize(bool width, bool height) {
  editor_.change(u"Aynı boyut"_s, Arranging::sameSize(editor_.selectedObjects(), width, height));
}

void DesignCommands::reorder(Arranging::Order order) {
  static const QString names[] = {u"En öne getir"_s, u"Öne getir"_s, u"Arkaya gönder"_s, u"En arkaya gönder"_s};
  Arranging::reorder(editor_, names[size_t(order)], editor_.selectedObjects(), order);
}

void DesignCommands::toggleLock() {
  const std::vector<ReportNode*> objects = editor_.selectedObjects();
  const bool locks = std::any_of(objects.begin(), objects.end(), [](const ReportNode* each) { return !each->flag(u"locked"); });
  PropertyChanges changes;
  for (ReportNode* object : objects) changes.push_back({object, u"locked"_s, locks});
  editor_.change(locks ? u"Kilitle"_s : u"Kilidi aç"_s, std::move(changes));
}

QSizeF DesignCommands::usualSize(NodeKind kind) {
  switch (kind) {
    case NodeKind::Line: return {40, 0};
    case NodeKind::Rectangle: return {40, 20};
    case NodeKind::Picture: return {30, 20};
    case NodeKind::Barcode: return {45, 15};
    case NodeKind::RichText: return {80, 20};
    case NodeKind::CheckMark: return {4, 4};
    default: return {45, 7};
  }
}

QRectF DesignCommands::freePlace(NodeKind kind) const {
  const PagePlaces here = places();
  const std::vector<ReportNode*> objects = editor_.selectedObjects();
  if (!objects.empty()) {
    const QRectF last = here.rectOf(*objects.back());
    return {last.left(), last.bottom() + 1, usualSize(kind).width(), usualSize(kind).height()};
  }
  const ReportNode* band = editor_.selection().empty() ? nullptr : editor_.selection().front();
  const PagePlaces::Band* place = band ? here.find(*band) : here.bands().empty() ? nullptr : &here.bands().front();
  return {place ? place->rect.topLeft() : here.cell().topLeft(), usualSize(kind)};
}

ReportNode* DesignCommands::addObject(NodeKind kind, const QRectF& rect, const QString& text, bool isUpward) {
  const PagePlaces here = places();
  const ReportNode& under = here.parentAt(rect.topLeft());
  ReportNode* parent = editor_.page();
  for (const auto& child : editor_.page()->children())
    if (child.get() == &under) parent = child.get();
  auto object = std::make_unique<ReportNode>(kind);
  object->setValue(u"name", freeName(editor_.document(), kind));
  const QRectF own = rect.translated(-here.originOf(*parent));
  const auto set = [&](QStringView property, double value) { object->setValue(property, Arranging::rounded(value)); };
  set(u"left", own.left());
  set(u"top", own.top());
  set(u"width", own.width());
  set(u"height", own.height());
  if (kind == NodeKind::Text || kind == NodeKind::RichText) object->setValue(u"font", ReportFont{.points = usualPoints});
  if (findProperty(kind, u"text")) object->setValue(u"text", text);
  if (kind == NodeKind::Line) object->setValue(u"upward", isUpward);
  return editor_.insert(u"%1 ekle"_s.arg(kindCaption(kind)), *parent, parent->children().size(), std::move(object));
}

ReportNode* DesignCommands::addName(NodeKind kind, const QRectF& rect, const QString& name, const QString& format) {
  const Gesture step(editor_, u"%1 ekle"_s.arg(kindCaption(kind)));
  ReportNode* made = addObject(kind, rect);
  fill(*made, name, format);
  return made;
}

void DesignCommands::fill(ReportNode& object, const QString& name, const QString& format) {
  const Gesture step(editor_, u"Metni yaz"_s);
  editor_.change(u"Metni yaz"_s, object, u"text"_s, u'[' + name + u']');
  if (!format.isEmpty() && findProperty(object.kind(), u"format")) editor_.change(u"Metni yaz"_s, object, u"format"_s, format);
  ReportNode& band = *object.parent();
  const qsizetype point = name.indexOf(u'.');
  if (point > 0 && band.kind() == NodeKind::Band && band.text(u"kind") == u"rows" && band.text(u"data").isEmpty())
    editor_.change(u"Veri kümesi"_s, band, u"data"_s, name.left(point));
}

void DesignCommands::addBand(const QString& kind) {
  auto band = std::make_unique<ReportNode>(NodeKind::Band);
  QString caption;
  for (const PropertyChoice& each : propertiesOf(NodeKind::Band)[*findProperty(NodeKind::Band, u"kind")].choices)
    if (each.word == kind) caption = each.caption;
  band->setValue(u"name", freeName(editor_.document(), NodeKind::Band, caption));
  band->setValue(u"kind", kind);
  ReportNode* selected = editor_.selection().empty() ? nullptr : editor_.selection().back();
  while (selected && selected->kind() != NodeKind::Band) selected = selected->parent();
  ReportNode& page = *editor_.page();
  editor_.insert(u"Bant ekle"_s, page, selected ? selected->index() + 1 : page.children().size(), std::move(band));
}

void DesignCommands::moveBand(ReportNode& band, int by) {
  ReportNode& page = *band.parent();
  int place = int(band.index());
  for (int next = place + by; next >= 0 && next < int(page.children().size()); next += by) {
    place = next;
    if (page.children()[size_t(next)]->kind() == NodeKind::Band) break;
  }
  editor_.move(u"Bandı taşı"_s, band, page, size_t(place));
}

void DesignCommands::addPage() {
  editor_.insert(u"Sayfa ekle"_s, editor_.root(), editor_.page()->index() + 1, newPage(freeName(editor_.document(), NodeKind::Page)));
}

void DesignCommands::removePage(ReportNode& page) { editor_.remove(u"Sayfayı sil"_s, {&page}); }

void DesignCommands::emptyPage() {
  std::vector<ReportNode*> all;
  for (const auto& child : editor_.page()->children())
    if (child->kind() != NodeKind::Foreign) all.push_back(child.get());
  editor_.remove(u"Sayfayı boşalt"_s, all);
}

void DesignCommands::setSelected(const QString& property, const PropertyValue& value) {
  PropertyChanges changes;
  QString caption;
  for (ReportNode* node : editor_.selection()) {
    const auto place = findProperty(node->kind(), property);
    if (!place) continue;
    caption = propertiesOf(node->kind())[*place].caption;
    changes.push_back({node, property, value});
  }
  editor_.change(caption, std::move(changes));
}

void DesignCommands::selectAll() {
  std::vector<ReportNode*> all;
  for (const auto& child : editor_.page()->children()) {
    if (isObject(child->kind())) all.push_back(child.get());
    for (const auto& object : child->children())
      if (isObject(object->kind())) all.push_back(object.get());
  }
  editor_.select(std::move(all));
}

bool DesignCommands::selectNext(bool isBack) {
  const PagePlaces here = places();
  std::vector<ReportNode*> order;
  for (const auto& child : editor_.page()->children()) {
    if (isObject(child->kind())) order.push_back(child.get());
    for (const auto& object : child->children())
      if (isObject(object->kind())) order.push_back(object.get());
  }
  std::stable_sort(order.begin(), order.end(), [&](const ReportNode* one, const ReportNode* other) {
    const QPointF first = here.rectOf(*one).topLeft();
    const QPointF second = here.rectOf(*other).topLeft();
    return first.y() != second.y() ? first.y() < second.y() : first.x() < second.x();
  });
  if (order.empty()) return false;
  const std::vector<ReportNode*> objects = editor_.selectedObjects();
  if (objects.empty()) {
    editor_.select(isBack ? order.back() : order.front());
    return true;
  }
  const auto found = std::find(order.begin(), order.end(), objects.back());
  if (isBack ? found == order.begin() : found + 1 == order.end()) return false;
  editor_.select(isBack ? *(found - 1) : *(found + 1));
  return true;
}
