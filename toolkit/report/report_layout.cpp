#include "toolkit/report/report_layout.h"

#include "toolkit/report/band_layout.h"

#include <QPageSize>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr size_t mostPages = 3000;
constexpr qint64 mostSteps = 30'000'000;
constexpr size_t mostFaults = 1000;
constexpr double tolerance = 0.01;

/// The rows that belong together at one depth of grouping.
struct GroupLevel {
  const LayoutBand* header = nullptr;
  const LayoutBand* footer = nullptr;
  QString expression;
};

/// A band of rows with its groups' headers and footers, outermost first.
struct RowsBlock {
  const LayoutBand* rows = nullptr;
  std::vector<GroupLevel> levels;
};

/// One page of a template, read once.
struct PagePlan : ReportSheet {
  explicit PagePlan(const ReportNode& node) : ReportSheet(node), page(&node) {
    for (const auto& child : node.children()) {
      if (isObject(child->kind())) objects.emplace_back(*child);
      if (child->kind() == NodeKind::Band) bands.emplace_back(*child);
    }
  }

  const ReportNode* page;
  std::vector<LayoutObject> objects;
  std::vector<LayoutBand> bands;
};

/// Thrown inside when a template would go on without end.
struct TooManyPages {};

class LayoutRun {
 public:
  LayoutRun(const ReportData& data, const RichTexts& richTexts, const QDateTime& now, int pageCount)
      : data_(data), richTexts_(richTexts), pageCount_(pageCount) {
    context_.data = &data;
    context_.now = now;
    context_.pageCount = pageCount;
    context_.stepsLeft = &stepsLeft_;
    for (const ReportDataSet& set : data.dataSets()) all_.push_back({-1, 0, set.rows->rowCount()});
    printed_.assign(all_.size(), 0);
    pageFirst_ = printed_;
  }

  void run(std::vector<PagePlan>& plans) {
    try {
      for (const PagePlan& plan : plans) runPage(plan);
    } catch (const TooManyPages&) {
      addFault({.object = {}, .reason = u"Rapor %1 sayfayı aştı, gerisi basılmadı"_s.arg(mostPages)});
    }
    context_.pageCount = int(result.pages.size());
    for (ReportPage& page : result.pages) resolvePending(page);
    impose();
  }

  /// True when a text whose size hangs on the number of pages was laid out before that was known.
  bool needsPageCount = false;
  ReportPages result;

 private:
  void addFault(const ReportFault& fault) {
    if (result.faults.size() < mostFaults) result.faults.push_back(fault);
  }

  BandBox boxOf(const LayoutBand& band, const std::vector<RowPlace>& places) {
    context_.places = &places;
    context_.page = int(result.pages.size());
    for (const LayoutObject& object : band.objects)
      needsPageCount |= object.usesPageCount && (object.grows || object.shrinks) && pageCount_ == 0;
    BandBox box = layoutBand(band, context_, &richTexts_);
    context_.places = nullptr;
    return box;
  }

  void put(BandBox&& box, double y) {
    ReportPage& page = result.pages.back();
    for (Primitive& primitive : box.primitives) {
      moveBy(primitive, origin_.x(), origin_.y() + y);
      page.primitives.push_back(std::move(primitive));
    }
    for (ReportFault& fault : box.faults) {
      fault.page = int(result.pages.size());
      addFault(fault);
    }
  }

  // Pages

  void runPage(const PagePlan& plan) {
    plan_ = &plan;
    origin_ = plan.isSheet() ? QPointF() : QPointF(plan.margins.left(), plan.margins.top());
    isFirstOfPlan_ = true;
    repeated_.clear();
    firstOfPlan_ = result.pages.size();
    beginPage();
    for (const LayoutBand& band : plan.bands)
      if (band.kind == u"title") placeOnce(band);
    isFirstOfPlan_ = false;
    for (size_t place = 0; place < plan.bands.size(); ++place) {
      const LayoutBand& band = plan.bands[place];
      if (band.kind == u"summary") placeOnce(band);
      if (band.kind == u"rows") placeRows(blockOf(place));
    }
    endPage();
    plannedPages_.push_back({&plan, result.pages.size() - firstOfPlan_});
  }

  void beginPage() {
    if (result.pages.size() >= mostPages) throw TooManyPages();
    result.pages.push_back({plan_->isSheet() ? plan_->cell : plan_->paper, {}});
    context_.page = int(result.pages.size());
    context_.places = &all_;
    put(layoutObjects(plan_->objects, plan_->cell.height(), context_, &richTexts_), 0);
    context_.places = nullptr;
    y_ = 0;
    std::vector<RowPlace> before = all_;
    for (size_t set = 0; set < before.size(); ++set) before[set].behind = printed_[set];
    for (const LayoutBand& band : plan_->bands) {
      if (band.kind != u"pageheader" || (isFirstOfPlan_ && !band.flag(u"firstpage"))) continue;
      BandBox box = boxOf(band, before);
      const double height = box.height;
      put(std::move(box), y_);
      y_ += height;
    }
    footerHeight_ = 0;
    for (const LayoutBand& band : plan_->bands)
      if (hasFooter(band)) footerHeight_ += boxOf(band, all_).height;
    bottom_ = plan_->cell.height() - footerHeight_;
    pageFirst_ = printed_;
    for (const auto& [band, places] : repeated_) {
      BandBox box = boxOf(*band, places);
      const double height = box.height;
      put(std::move(box), y_);
      y_ += height;
    }
    isFresh_ = true;
  }

  bool hasFooter(const LayoutBand& band) const {
    return band.kind == u"pagefooter" && (band.flag(u"firstpage") || result.pages.size() > firstOfPlan_ + 1);
  }

  void endPage() {
    std::vector<RowPlace> here = all_;
    for (size_t set = 0; set < here.size(); ++set) {
      here[set].first = pageFirst_[set];
      here[set].behind = printed_[set];
    }
    double y = bottom_;
    for (const LayoutBand& band : plan_->bands) {
      if (!hasFooter(band)) continue;
      BandBox box = boxOf(band, here);
      const double height = box.height;
      put(std::move(box), y);
      y += height;
    }
  }

  void nextPage() {
    endPage();
    beginPage();
  }

  // Bands

  void placeOnce(const LayoutBand& band) { placeBand(band, all_); }

  void placeBand(const LayoutBand& band, const std::vector<RowPlace>& places, bool isTinted = false) {
    BandBox box = boxOf(band, places);
    if (box.height <= 0 && box.primitives.empty()) return;
    if (band.flag(u"newpage") && !isFresh_) {
      nextPage();
      box = boxOf(band, places);
    }
    const QColor tint = band.node->color(u"alternate");
    if (isTinted && tint.isValid())
      box.primitives.insert(box.primitives.begin(), BoxMark{.rect = QRectF(0, 0, plan_->cell.width(), box.height), .fill = tint});
    // Only what has grown is cut.
    const bool keeps = band.flag(u"keeptogether") || band.flag(u"atbottom") || box.height <= band.height + tolerance;
    if (keeps && !isFresh_ && box.height > bottom_ - y_ + tolerance) nextPage();
    placeBox(std::move(box), band);
  }

  void placeBox(BandBox&& box, const LayoutBand& band) {
    while (box.height > bottom_ - y_ + tolerance || !box.pageStarts.empty()) {
      if (box.height <= bottom_ - y_ + tolerance && box.pageStarts.front() >= box.height) break;
      const double room = std::min(box.height, bottom_ - y_);
      double cut = cutPlace(box, room, false);
      // What is kept together and higher than a page is divided after all.
      if (cut <= tolerance && isFresh_) cut = cutPlace(box, room, true);
      if (cut <= tolerance && isFresh_ && (box.pageStarts.empty() || box.pageStarts.front() > tolerance)) {
        addFault({.object = band.node->name(), .reason = u"Bir sayfaya sığmıyor"_s, .page = int(result.pages.size()), .isNotice = true});
        break;
      }
      if (cut > tolerance) {
        put(takeUpper(box, cut), y_);
        isFresh_ = false;
      } else if (!box.pageStarts.empty() && box.pageStarts.front() <= tolerance) {
        box.pageStarts.erase(box.pageStarts.begin());
        if (isFresh_) continue;
      }
      if (box.primitives.empty() && box.pageStarts.empty()) {
        y_ = bottom_;
        return;
      }
      nextPage();
    }
    if (band.flag(u"atbottom")) y_ = std::max(y_, bottom_ - box.height);
    const double height = box.height;
    put(std::move(box), y_);
    y_ += height;
    isFresh_ = false;
  }

  // Rows

  /// The rows' band at that place with the group bands around it, up to the next band of rows.
  RowsBlock blockOf(size_t place) const {
    const auto& bands = plan_->bands;
    RowsBlock block{&bands[place], {}};
    size_t from = place;
    while (from > 0 && bands[from - 1].kind != u"rows") --from;
    for (size_t each = from; each < place; ++each)
      if (bands[each].kind == u"groupheader")
        block.levels.push_back({&bands[each], nullptr, bands[each].node->text(u"group").trimmed()});
    for (size_t each = place + 1; each < bands.size() && bands[each].kind != u"rows" && bands[each].kind != u"groupheader"; ++each) {
      if (bands[each].kind != u"groupfooter") continue;
      const QString expression = bands[each].node->text(u"group").trimmed();
      const auto level = std::find_if(block.levels.begin(), block.levels.end(),
                                      [&](const GroupLevel& made) { return made.expression == expression && !made.footer; });
      if (level != block.levels.end())
        level->footer = &bands[each];
      else
        block.levels.push_back({nullptr, &bands[each], expression});
    }
    return block;
  }

  void placeRows(const RowsBlock& block) {
    const QString& name = block.rows->node->text(u"data");
    if (name.isEmpty()) return placeOnce(*block.rows);
    const int set = data_.findRows(ReportData::folded(name));
    if (set < 0) {
      addFault({.object = block.rows->node->name(), .reason = u"“%1” adlı veri kümesi yok"_s.arg(name), .page = int(result.pages.size())});
      return;
    }
    const auto place = size_t(set);
    const int count = all_[place].behind;
    const std::vector<std::vector<int>> ends = groupEnds(block, place, count);
    std::vector<RowPlace> places = all_;
    const auto atGroup = [&](size_t level, int row, int first) { places[place] = {row, first, ends[level][size_t(first)]}; };
    std::vector<int> firsts(block.levels.size(), 0);
    for (int row = 0; row < count; ++row) {
      size_t opened = block.levels.size();
      for (size_t level = block.levels.size(); level-- > 0;)
        if (row == 0 || ends[level][size_t(firsts[level])] == row) opened = level;
      for (size_t level = opened; level < block.levels.size(); ++level) firsts[level] = row;
      if (opened < block.levels.size()) openGroups(block, opened, place, row, ends);
      places[place] = {row, 0, count};
      placeBand(*block.rows, places, row % 2 == 1);
      printed_[place] = row + 1;
      for (size_t level = block.levels.size(); level-- > 0;) {
        if (ends[level][size_t(firsts[level])] != row + 1) continue;
        atGroup(level, row, firsts[level]);
        if (block.levels[level].footer) placeBand(*block.levels[level].footer, places);
        std::erase_if(repeated_, [&](const auto& each) { return each.first == block.levels[level].header; });
      }
    }
    repeated_.clear();
  }

  /// Headers of the groups that begin at a row. They do not stand alone at the end of a page.
  void openGroups(const RowsBlock& block, size_t opened, size_t set, int row, const std::vector<std::vector<int>>& ends) {
    double needed = 0;
    std::vector<std::vector<RowPlace>> places(block.levels.size(), all_);
    for (size_t level = opened; level < block.levels.size(); ++level) {
      places[level][set] = {row, row, ends[level][size_t(row)]};
      if (block.levels[level].header) needed += boxOf(*block.levels[level].header, places[level]).height;
    }
    std::vector<RowPlace> first = all_;
    first[set].row = row;
    needed += std::min(boxOf(*block.rows, first).height, plan_->cell.height() / 4);
    if (!isFresh_ && needed > bottom_ - y_ + tolerance) nextPage();
    for (size_t level = opened; level < block.levels.size(); ++level) {
      const LayoutBand* header = block.levels[level].header;
      if (!header) continue;
      placeBand(*header, places[level]);
      if (header->flag(u"repeat")) repeated_.emplace_back(header, places[level]);
    }
  }

  /// For each level and each row that a group begins at, the row behind the group's last.
  std::vector<std::vector<int>> groupEnds(const RowsBlock& block, size_t set, int count) {
    std::vector<std::vector<int>> ends(block.levels.size(), std::vector<int>(size_t(count) + 1, count));
    std::vector<RowPlace> places = all_;
    std::vector<Expression> expressions;
    for (const GroupLevel& level : block.levels) expressions.emplace_back(level.expression.isEmpty() ? u"''"_s : level.expression);
    std::vector<int> firsts(block.levels.size(), 0);
    std::vector<QString> before(block.levels.size());
    for (int row = 0; row < count; ++row) {
      places[set].row = row;
      context_.places = &places;
      bool changes = false;
      for (size_t level = 0; level < block.levels.size(); ++level) {
        const QString key = ReportValues::toText(expressions[level].evaluate(context_));
        changes |= row > 0 && key != before[level];
        before[level] = key;
        if (!changes) continue;
        ends[level][size_t(firsts[level])] = row;
        firsts[level] = row;
      }
      context_.places = nullptr;
    }
    return ends;
  }

  // What is left when all pages are there

  void resolvePending(ReportPage& page) {
    std::vector<Primitive> finished;
    for (Primitive& primitive : page.primitives) {
      auto* waiting = std::get_if<std::shared_ptr<PendingText>>(&primitive);
      if (!waiting) {
        finished.push_back(std::move(primitive));
        continue;
      }
      PendingText& text = **waiting;
      text.context.pageCount = context_.pageCount;
      text.context.places = &text.places;
      MeasuredObject measured = measure(*text.object, text.context, &richTexts_);
      if (!measured.isVisible) continue;
      place(measured, text.rect, finished);
      for (const QString& reason : measured.faults) addFault({text.object->name, reason, text.context.page});
      for (const QString& notice : measured.notices) addFault({text.object->name, notice, text.context.page, true});
    }
    page.primitives = std::move(finished);
  }

  /// Puts labels onto their sheets, each as often as its page says.
  void impose() {
    std::vector<ReportPage> sheets;
    size_t next = 0;
    for (const auto& [plan, count] : plannedPages_) {
      const int repeat = plan->page->integer(u"repeat");
      const int perSheet = plan->columns * plan->rows;
      int cell = 0;
      for (size_t label = next; label < next + count; ++label)
        for (int time = 0; time < repeat; ++time, ++cell) {
          if (cell % perSheet == 0) {
            if (sheets.size() >= mostPages) break;
            sheets.push_back({plan->paper, {}});
          }
          putLabel(sheets.back(), result.pages[label], *plan, cell % perSheet);
        }
      next += count;
    }
    // Pages that were begun when the run was broken off have no plan to their end.
    for (; next < result.pages.size(); ++next) sheets.push_back(std::move(result.pages[next]));
    result.pages = std::move(sheets);
  }

  static void putLabel(ReportPage& sheet, const ReportPage& label, const PagePlan& plan, int cell) {
    const QPointF place = plan.cellPlace(cell);
    for (Primitive primitive : label.primitives) {
      if (plan.isSheet()) moveBy(primitive, place.x(), place.y());
      sheet.primitives.push_back(std::move(primitive));
    }
  }

  const ReportData& data_;
  const RichTexts& richTexts_;
  int pageCount_;
  qint64 stepsLeft_ = mostSteps;
  EvaluationContext context_;
  std::vector<RowPlace> all_;      ///< per data set: at no row, over all of them
  std::vector<int> printed_;       ///< per data set: rows that have ended; a row counts for the page that it ends on
  std::vector<int> pageFirst_;     ///< the same when the page began
  const PagePlan* plan_ = nullptr;
  size_t firstOfPlan_ = 0;
  bool isFirstOfPlan_ = true;
  bool isFresh_ = true;            ///< nothing but headers stands on the page
  QPointF origin_;
  double y_ = 0;
  double bottom_ = 0;
  double footerHeight_ = 0;
  std::vector<std::pair<const LayoutBand*, std::vector<RowPlace>>> repeated_;
  std::vector<std::pair<const PagePlan*, size_t>> plannedPages_;
};

}  // namespace

QSizeF paperSize(const ReportNode& page) {
  static const QHash<QString, QPageSize::PageSizeId> papers = {
      {u"A3"_s, QPageSize::A3}, {u"A4"_s, QPageSize::A4}, {u"A5"_s, QPageSize::A5},         {u"A6"_s, QPageSize::A6},
      {u"B5"_s, QPageSize::B5}, {u"Letter"_s, QPageSize::Letter}, {u"Legal"_s, QPageSize::Legal}};
  const QString& paper = page.text(u"paper");
  const QSizeF size = papers.contains(paper) ? QPageSize(papers.value(paper)).size(QPageSize::Millimeter)
                                             : QSizeF(page.millimetres(u"width"), page.millimetres(u"height"));
  return page.text(u"orientation") == u"landscape" ? size.transposed() : size;
}

ReportSheet::ReportSheet(const ReportNode& page)
    : paper(paperSize(page)),
      margins(page.millimetres(u"marginleft"), page.millimetres(u"margintop"), page.millimetres(u"marginright"),
              page.millimetres(u"marginbottom")),
      columns(page.integer(u"columns")),
      rows(page.integer(u"rows")),
      columnGap(page.millimetres(u"columngap")),
      rowGap(page.millimetres(u"rowgap")) {
  const QRectF inside = QRectF(QPointF(), paper).marginsRemoved(margins);
  cell = QSizeF(std::max(1.0, (inside.width() - (columns - 1) * columnGap) / columns),
                std::max(1.0, (inside.height() - (rows - 1) * rowGap) / rows));
}

QPointF ReportSheet::cellPlace(int index) const {
  return {margins.left() + (index % columns) * (cell.width() + columnGap), margins.top() + double(index / columns) * (cell.height() + rowGap)};
}

ReportPages layoutReport(const ReportDocument& document, const ReportData& data, const RichTexts& richTexts, const QDateTime& now) {
  std::vector<PagePlan> plans;
  for (const auto& child : document.root().children())
    if (child->kind() == NodeKind::Page) plans.emplace_back(*child);
  const ReportNode emptySheet(NodeKind::Page);  // what is previewed and printed of a report without pages
  if (plans.empty()) plans.emplace_back(emptySheet);
  int pageCount = 0;
  // A text that grows with the number of pages may change it: three turns settle every case that can be settled.
  for (int turn = 0; turn < 3; ++turn) {
    LayoutRun run(data, richTexts, now, pageCount);
    run.run(plans);
    const int found = int(run.result.pages.size());
    if ((!run.needsPageCount && pageCount == 0) || found == pageCount || turn == 2) return std::move(run.result);
    pageCount = found;
  }
  return {};
}
