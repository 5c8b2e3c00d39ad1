#include "toolkit/report/designer/design_faults.h"

#include "toolkit/report/designer/page_places.h"

#include <QHash>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr double tolerance = 0.3;  ///< mm that things may overlap unseen
constexpr int mostRows = 50;
constexpr int shownLetters = 30;

bool overlaps(const QRectF& one, const QRectF& other) {
  const QRectF common = one & other;
  return common.width() > tolerance && common.height() > tolerance;
}

class FaultSearch {
 public:
  FaultSearch(const DesignSample& sample) : sample_(sample) {}

  void search(const ReportNode& page) {
    const PagePlaces places(page);
    searchObjects(page, places);
    for (const auto& child : page.children()) {
      if (child->kind() != NodeKind::Band) continue;
      for (const QStringView property : {u"visible", u"group"}) checkExpression(*child, child->text(property));
      if (child->millimetres(u"height") > places.cell().height() + tolerance) add(*child, u"Bant sayfadan yüksek"_s, true);
      const QString& data = child->text(u"data");
      if (!data.isEmpty() && sample_.data.findRows(ReportData::folded(data)) < 0) add(*child, u"“%1” adlı veri kümesi yok"_s.arg(data));
      searchObjects(*child, places);
    }
    searchCovers(page);
  }

  std::vector<DesignFault> found;

 private:
  struct Shown {
    const ReportNode* node;
    std::vector<QRectF> texts;
    std::vector<QRectF> covers;
    QRectF bounds;
  };

  void add(const ReportNode& node, const QString& reason, bool isNotice = false) {
    const bool isKnown = std::any_of(found.begin(), found.end(), [&](const DesignFault& each) { return each.node == &node && each.reason == reason; });
    if (!isKnown) found.push_back({&node, reason, isNotice});
  }

  void checkExpression(const ReportNode& node, const QString& text) {
    if (text.isEmpty()) return;
    const Expression expression(text);
    if (!expression.fault().isEmpty()) add(node, expression.fault());
    for (const QString& reason : expression.unknownNames(sample_.data)) add(node, reason);
  }

  void searchObjects(const ReportNode& parent, const PagePlaces& places) {
    for (const auto& child : parent.children()) {
      if (!isObject(child->kind())) continue;
      checkTexts(*child);
      checkPlace(*child, places.rectOf(*child), places);
      checkRows(*child);
    }
  }

  /// What comes later on the paper covers what came before: the page's own objects, then the bands with the data that there
  /// are, of rows the first two.
  void searchCovers(const ReportNode& page) {
    QHash<const ReportNode*, std::vector<BandBox>> boxes;
    const auto heightOf = [&](const ReportNode& band) {
      std::vector<BandBox>& made = boxes[&band];
      if (made.empty()) {
        const bool isTwice = band.text(u"kind") == u"rows" && SampleContext(sample_, band).rowCount() > 1;
        for (int row = 0; row < (isTwice ? 2 : 1); ++row) made.push_back(printedParts(band, sample_, row));
      }
      double height = 0;
      for (const BandBox& each : made) height += each.height;
      return height;
    };
    const PagePlaces printed(page, heightOf);
    std::vector<Shown> shown;
    addShown(shown, printedParts(page, sample_), printed.cell().topLeft());
    for (const PagePlaces::Band& band : printed.bands()) {
      QPointF place = band.rect.topLeft();
      for (const BandBox& each : boxes[band.node]) {
        addShown(shown, each, place);
        place.ry() += each.height;
      }
    }
    for (size_t upper = 1; upper < shown.size(); ++upper)
      for (size_t lower = 0; lower < upper; ++lower) checkCover(shown[lower], shown[upper]);
  }

  void checkTexts(const ReportNode& object) {
    checkExpression(object, object.text(u"visible"));
    if (findProperty(object.kind(), u"checked")) checkExpression(object, object.text(u"checked"));
    if (!findProperty(object.kind(), u"text")) return;
    for (const QString& reason : ExpressionText(object.text(u"text")).faults(sample_.data)) add(object, reason);
  }

  void checkPlace(const ReportNode& object, const QRectF& rect, const PagePlaces& places) {
    const QRectF room = places.sheet().isSheet() ? places.cell() : QRectF(QPointF(), places.sheet().paper);
    const bool isAside = rect.left() < room.left() - tolerance || rect.right() > room.right() + tolerance;
    const bool isAbove = rect.top() < room.top() - tolerance;
    // What reaches below its band makes the band higher; on the page itself nothing does.
    const bool isBelow = object.parent()->kind() == NodeKind::Page && rect.bottom() > room.bottom() + tolerance;
    if (isAside || isAbove || isBelow)
      add(object, places.sheet().isSheet() ? u"Etiketin dışına taşıyor"_s : u"Kâğıdın dışına taşıyor"_s);
  }

  void checkRows(const ReportNode& object) {
    const int rows = std::clamp(SampleContext(sample_, object).rowCount(), 1, mostRows);
    for (int row = 0; row < rows; ++row) {
      const DesignedObject printed = printedObject(object, sample_, row);
      for (const QString& reason : printed.faults) add(object, reason);
      for (const QString& reason : printed.notices) add(object, reason, true);
    }
  }

  static void addShown(std::vector<Shown>& shown, const BandBox& box, QPointF place) {
    for (size_t object = 0; object < box.starts.size(); ++object) {
      const auto& [node, first] = box.starts[object];
      const size_t behind = object + 1 < box.starts.size() ? box.starts[object + 1].second : box.primitives.size();
      Shown& made = shown.emplace_back(Shown{node, {}, {}, {}});
      for (size_t each = first; each < behind; ++each) {
        const Primitive& primitive = box.primitives[each];
        const QRectF bounds = boundsOf(primitive).translated(place);
        const auto* filled = std::get_if<BoxMark>(&primitive);
        const bool isText = std::holds_alternative<TextMark>(primitive);
        if (isText) made.texts.push_back(bounds);
        if (isText || (filled && filled->fill.isValid()) || std::holds_alternative<PictureMark>(primitive) || std::holds_alternative<BarsMark>(primitive))
          made.covers.push_back(bounds);
        made.bounds |= bounds;
      }
    }
  }

  void checkCover(const Shown& lower, const Shown& upper) {
    if (!overlaps(lower.bounds, upper.bounds)) return;
    for (const QRectF& text : lower.texts)
      for (const QRectF& cover : upper.covers)
        if (overlaps(text, cover)) return add(*lower.node, u"Metninin üstüne %1 geliyor"_s.arg(shownName(*upper.node)), true);
    // Bars that a text stands on are not read any more.
    if (lower.node->kind() != NodeKind::Barcode) return;
    for (const QRectF& bars : lower.covers)
      for (const QRectF& cover : upper.covers)
        if (overlaps(bars, cover)) return add(*lower.node, u"Barkodun üstüne %1 geliyor"_s.arg(shownName(*upper.node)), true);
  }

  const DesignSample& sample_;
};

}  // namespace

std::vector<DesignFault> findFaults(const ReportDocument& document, const DesignSample& sample) {
  FaultSearch search(sample);
  for (const auto& child : document.root().children())
    if (child->kind() == NodeKind::Page) search.search(*child);
  return std::move(search.found);
}

QString shownName(const ReportNode& node) {
  if (!node.name().isEmpty()) return node.name();
  const bool hasText = findProperty(node.kind(), u"text").has_value();
  const QString text = hasText ? node.text(u"text").simplified() : QString();
  if (text.isEmpty()) return kindCaption(node.kind());
  return u"%1 “%2”"_s.arg(kindCaption(node.kind()), text.size() > shownLetters ? text.left(shownLetters) + u'…' : text);
}
