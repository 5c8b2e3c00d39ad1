#include "toolkit/report/designer/report_designer.h"

#include "base/environment.h"
#include "base/exceptions.h"
#include "base/guard.h"
#include "toolkit/edits/task_dialog.h"
#include "toolkit/report/designer/data_list.h"
#include "toolkit/report/designer/fault_list.h"
#include "toolkit/report/designer/format_bar.h"
#include "toolkit/report/designer/inspector.h"
#include "toolkit/report/designer/object_tree.h"
#include "toolkit/report/designer/ruler.h"

#include <QAction>
#include <QBoxLayout>
#include <QFileInfo>
#include <QGridLayout>
#include <QLabel>
#include <QLocale>
#include <QMenuBar>
#include <QSplitter>
#include <QTabBar>
#include <QTabWidget>
#include <QTableView>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int draftPauseMs = 60'000;
constexpr double paneShare = 0.22;   ///< of the window's width
constexpr int longestTab = 160;
constexpr int leastTabs = 50;
constexpr int leastPane = 170;
constexpr int mostPane = 300;
constexpr int leastWithLists = 560;  ///< width of a window that has room for the lists beside the page
constexpr int leastWithBoth = 760;

}  // namespace

ReportDesigner::ReportDesigner(QWidget* parent)
    : QWidget(parent), editor_(this), commands_(editor_), actions_(new DesignerActions(this, [this] { settle(); })), draftTimer_(new QTimer(this)) {
  setObjectName(u"frxDesigner1"_s);
  setAccessibleName(u"Rapor tasarımı"_s);
  canvas_ = new DesignCanvas(editor_, sample_, this);
  inspector_ = new Inspector(editor_, sample_, this);
  addFileCommands();
  addEditCommands();
  addArrangeCommands();
  addInsertCommands();
  addViewCommands();
  build();
  const auto update = [this] { actions_->update(); };
  connectGuarded(&editor_, &ReportEditor::selectionChanged, this, update);
  connectGuarded(&editor_.steps(), &QUndoStack::indexChanged, this, update);
  connectGuarded(canvas_, &DesignCanvas::toolChanged, this, update);
  connectGuarded(&editor_.steps(), &QUndoStack::cleanChanged, this, [this] { showTitle(); });
  connectGuarded(&editor_, &ReportEditor::pagesChanged, this, [this] { showPages(); });
  connectGuarded(&editor_, &ReportEditor::pageShown, this, [this] { showPages(); });
  connectGuarded(canvas_, &DesignCanvas::menuAsked, this, [this](QPoint global) { menuAt(global); });
  connectGuarded(canvas_, &DesignCanvas::pictureAsked, this, [this] { postGuarded(this, [this] { choosePicture(); }); });
  connectGuarded(canvas_, &DesignCanvas::told, this, [this](const QString& text) { tell(text); });
  connectGuarded(inspector_, &Inspector::refused, this, [this](const QString& reason) { tell(reason); });
  draftTimer_->setInterval(draftPauseMs);
  connectGuarded(draftTimer_, &QTimer::timeout, this, [this] { keepDraft(); });
  actions_->update();
}

ReportDesigner::~ReportDesigner() {
  // What looks at the document goes before it.
  editor_.steps().disconnect(this);
  for (QWidget* part : findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) delete part;
}

// Building

void ReportDesigner::build() {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(buildBars());
  QWidget* tools = buildTools();  // made first: the keyboard goes to what was
  parts_ = new QSplitter(this);
  parts_->addWidget(buildLists());
  parts_->addWidget(buildMiddle());
  parts_->addWidget(inspector_);
  parts_->setStretchFactor(1, 1);
  parts_->setChildrenCollapsible(false);
  connectGuarded(parts_, &QSplitter::splitterMoved, this, [this] { arePanesChosen_ = true; });
  auto* row = new QHBoxLayout;
  row->setSpacing(0);
  row->addWidget(tools);
  row->addWidget(parts_, 1);
  column->addLayout(row, 1);
  column->addWidget(buildStatus());
  showPages();
}

QMenu* ReportDesigner::bandMenu(QWidget* owner) {
  auto* menu = new QMenu(u"Bant"_s, owner);
  menu->setIcon(QIcon::fromTheme(u"view-list-text"_s));
  for (const PropertyChoice& kind : propertiesOf(NodeKind::Band)[*findProperty(NodeKind::Band, u"kind")].choices)
    menu->addAction(actions_->action(u"band_"_s + kind.word));
  return menu;
}

QWidget* ReportDesigner::buildBars() {
  auto* bars = new QWidget(this);
  auto* column = new QVBoxLayout(bars);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  auto* menus = new QMenuBar(bars);
  const auto addMenu = [&](const QString& caption, const QStringList& names) {
    auto* menu = menus->addMenu(caption);
    actions_->fill(*menu, names);
    return menu;
  };
  addMenu(u"&Dosya"_s, {u"open"_s, u"save"_s, {}, u"pageSetup"_s, u"preview"_s, u"testPrint"_s, {}, u"wizard"_s, u"emptyPage"_s, {}, u"versions"_s, u"delivered"_s, {}, u"close"_s});
  addMenu(u"D&üzen"_s, {u"undo"_s, u"redo"_s, {}, u"cut"_s, u"copy"_s, u"paste"_s, u"duplicate"_s, u"remove"_s, {}, u"selectAll"_s, u"editText"_s, u"inspect"_s});
  QMenu* insert = addMenu(u"&Ekle"_s, {u"toolText"_s, u"toolBarcode"_s, u"toolLine"_s, u"toolRectangle"_s, u"toolPicture"_s, u"toolCheckMark"_s,
                                       u"toolRichText"_s, {}});
  insert->addMenu(bandMenu(insert));
  actions_->fill(*insert, {u"addPage"_s, u"removePage"_s, u"emptyPage"_s});
  const QStringList arranging = {u"alignLeft"_s, u"alignCenter"_s, u"alignRight"_s, u"alignTop"_s, u"alignMiddle"_s, u"alignBottom"_s};
  QMenu* arrange = addMenu(u"&Yerleşim"_s, arranging);
  actions_->fill(*arrange, {{}, u"distributeAcross"_s, u"distributeDown"_s, {}, u"sameWidth"_s, u"sameHeight"_s, u"sameSize"_s, {}, u"front"_s,
                            u"forward"_s, u"backward"_s, u"back"_s, {}, u"lock"_s});
  addMenu(u"&Görünüm"_s, {u"zoomIn"_s, u"zoomOut"_s, u"zoomPage"_s, u"zoomWidth"_s, u"zoomFull"_s, {}, u"grid"_s, u"snap"_s, {}, u"data"_s,
                          u"example"_s, {}, u"lists"_s, u"inspector"_s, {}, u"nextPage"_s, u"previousPage"_s, {}, u"dataPane"_s, u"objectPane"_s, u"faultPane"_s, u"nextPane"_s, u"previousPane"_s});
  column->addWidget(menus);
  auto* row = new QHBoxLayout;
  row->setContentsMargins(0, 0, 0, 0);
  auto* bar = new QToolBar(bars);
  bar->setIconSize(QSize(18, 18));
  actions_->fill(*bar, {u"save"_s, u"preview"_s, {}, u"undo"_s, u"redo"_s, {}, u"cut"_s, u"copy"_s, u"paste"_s, {}});
  for (const QString& name : {u"save"_s, u"preview"_s})
    static_cast<QToolButton*>(bar->widgetForAction(actions_->action(name)))->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  row->addWidget(bar);
  row->addWidget(new FormatBar(editor_, bars));
  auto* places = new QToolBar(bars);
  places->setIconSize(QSize(18, 18));
  actions_->fill(*places, arranging);
  actions_->fill(*places, {{}, u"distributeAcross"_s, u"distributeDown"_s, u"sameSize"_s, {}, u"front"_s, u"back"_s, u"lock"_s, {}, u"grid"_s, u"snap"_s,
                           u"data"_s});
  row->addWidget(places, 1);
  column->addLayout(row);
  // What has no room stands behind this button; the style's own sign is black in every look.
  for (QToolButton* more : bars->findChildren<QToolButton*>(u"qt_toolbar_ext_button"_s)) more->setIcon(QIcon::fromTheme(u"arrow-right-double"_s));
  return bars;
}

QWidget* ReportDesigner::buildTools() {
  auto* tools = new QToolBar(this);
  tools->setOrientation(Qt::Vertical);
  tools->setIconSize(QSize(22, 22));
  actions_->fill(*tools, {u"toolSelect"_s, {}, u"toolText"_s, u"toolBarcode"_s, u"toolLine"_s, u"toolRectangle"_s, u"toolPicture"_s, u"toolCheckMark"_s,
                          u"toolRichText"_s, {}});
  auto* bands = new QToolButton(tools);
  bands->setObjectName(u"bandButton"_s);
  bands->setIcon(QIcon::fromTheme(u"table"_s));
  bands->setToolTip(u"Bant ekle"_s);
  bands->setAccessibleName(u"Bant ekle"_s);
  bands->setAutoRaise(true);
  bands->setPopupMode(QToolButton::InstantPopup);
  bands->setMenu(bandMenu(bands));
  tools->addWidget(bands);
  return tools;
}

QWidget* ReportDesigner::buildLists() {
  lists_ = new QTabWidget(this);
  lists_->setDocumentMode(true);
  lists_->setUsesScrollButtons(false);
  lists_->setElideMode(Qt::ElideRight);
  data_ = new DataList(lists_);
  faults_ = new FaultList(*canvas_, sample_, lists_);
  lists_->addTab(data_, u"Veri"_s);
  lists_->addTab(new ObjectTree(*canvas_, lists_), u"Nesneler"_s);
  lists_->addTab(faults_, u"Hatalar"_s);
  for (int place = 0; place < lists_->count(); ++place) lists_->setTabToolTip(place, lists_->tabText(place));
  connectGuarded(data_, &DataList::nameChosen, this, [this](const QString& name, bool isBarcode) {
    const NodeKind kind = isBarcode ? NodeKind::Barcode : NodeKind::Text;
    const std::vector<ReportNode*> selected = editor_.selectedObjects();
    // What has been drawn and shows nothing yet waits for it.
    const QString format = usualFormat(name, sample_);
    if (selected.size() == 1 && waitsForText(*selected.front(), sample_) && (!isBarcode || selected.front()->kind() == kind))
      return commands_.fill(*selected.front(), name, format);
    canvas_->ensureSeen(*commands_.addName(kind, commands_.freePlace(kind), name, format));
  });
  connectGuarded(faults_, &FaultList::searched, this, [this](int count) {
    lists_->setTabText(2, count == 0 ? u"Hatalar"_s : u"Hatalar (%1)"_s.arg(count));
  });
  return lists_;
}

QWidget* ReportDesigner::buildMiddle() {
  auto* middle = new QWidget(this);
  auto* grid = new QGridLayout(middle);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setSpacing(0);
  grid->addWidget(new Ruler(*canvas_, Qt::Horizontal, middle), 0, 1);
  grid->addWidget(new Ruler(*canvas_, Qt::Vertical, middle), 1, 0);
  grid->addWidget(canvas_, 1, 1);
  pages_ = new QTabBar(middle);
  pages_->setObjectName(u"pages"_s);
  pages_->setAccessibleName(u"Sayfalar"_s);
  pages_->setShape(QTabBar::RoundedSouth);
  pages_->setExpanding(false);
  pages_->setUsesScrollButtons(true);
  pages_->setElideMode(Qt::ElideRight);
  pages_->setMinimumWidth(leastTabs);
  auto* add = new QToolButton(middle);
  add->setDefaultAction(actions_->action(u"addPage"_s));
  add->setAutoRaise(true);
  auto* below = new QHBoxLayout;
  below->setContentsMargins(0, 0, 0, 0);
  below->addWidget(foldButton(u"lists"_s));
  below->addWidget(pages_);
  below->addWidget(add);
  below->addStretch(1);
  below->addWidget(foldButton(u"inspector"_s));
  grid->addLayout(below, 2, 0, 1, 2);
  connectGuarded(pages_, &QTabBar::currentChanged, this, [this](int place) {
    const std::vector<ReportNode*> all = editor_.pages();
    if (place >= 0 && size_t(place) < all.size()) editor_.showPage(*all[size_t(place)]);
  });
  return middle;
}

QWidget* ReportDesigner::buildStatus() {
  auto* line = new QWidget(this);
  auto* row = new QHBoxLayout(line);
  row->setContentsMargins(8, 2, 8, 2);
  message_ = new QLabel(line);
  message_->setObjectName(u"designerMessage"_s);
  message_->setTextFormat(Qt::PlainText);
  message_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);  // a long message does not widen the window
  place_ = new QLabel(line);
  zoomText_ = new QLabel(line);
  zoomText_->setMinimumWidth(fontMetrics().horizontalAdvance(u"%0000"_s));
  row->addWidget(message_, 1);
  row->addWidget(place_);
  row->addWidget(zoomText_);
  const auto number = [](double millimetres) { return QLocale(QLocale::Turkish).toString(millimetres, 'f', 1); };
  connectGuarded(canvas_, &DesignCanvas::pointed, this, [this, number](QPointF place) {
    const QPointF inside = place - canvas_->places().cell().topLeft();
    place_->setText(u"%1 × %2 mm"_s.arg(number(inside.x()), number(inside.y())));
  });
  connectGuarded(canvas_, &DesignCanvas::zoomChanged, this, [this] { zoomText_->setText(u"%%1"_s.arg(qRound(canvas_->zoom() * 100))); });
  return line;
}

void ReportDesigner::showPages() {
  const QSignalBlocker quiet(pages_);
  const std::vector<ReportNode*> all = editor_.pages();
  while (pages_->count() > int(all.size())) pages_->removeTab(pages_->count() - 1);
  while (pages_->count() < int(all.size())) pages_->addTab({});
  for (int place = 0; place < pages_->count(); ++place) {
    const ReportNode* page = all[size_t(place)];
    const QString name = page->name().isEmpty() ? u"Sayfa %1"_s.arg(place + 1) : page->name();
    pages_->setTabText(place, fontMetrics().elidedText(name, Qt::ElideRight, longestTab));
    pages_->setTabToolTip(place, name);
    if (page == editor_.page()) pages_->setCurrentIndex(place);
  }
  actions_->update();
}

void ReportDesigner::showTitle() {
  if (file_) Q_EMIT titleChanged(QFileInfo(file_->file()).fileName() + (editor_.isChanged() ? u" *"_s : QString()));
  actions_->update();
}

void ReportDesigner::settle() {
  inspector_->endEdit();
  canvas_->endText();
}

void ReportDesigner::tell(const QString& text) const {
  message_->setText(text);
  message_->setToolTip(text);
}

void ReportDesigner::menuAt(QPoint global) {
  QMenu menu(this);
  actions_->fill(menu, {u"editText"_s, u"inspect"_s, {}, u"cut"_s, u"copy"_s, u"paste"_s, u"duplicate"_s, u"remove"_s, {}});
  actions_->fill(*menu.addMenu(u"Hizala"_s), {u"alignLeft"_s, u"alignCenter"_s, u"alignRight"_s, u"alignTop"_s, u"alignMiddle"_s, u"alignBottom"_s, {},
                                              u"distributeAcross"_s, u"distributeDown"_s});
  actions_->fill(menu, {u"front"_s, u"back"_s, u"lock"_s, {}});
  menu.addMenu(bandMenu(&menu));
  actions_->fill(menu, {u"pageSetup"_s});
  menu.exec(global);
}

void ReportDesigner::focusNextPane(bool isBack) {
  std::vector<QWidget*> panes = {canvas_};
  if (inspector_->isVisible()) panes.push_back(inspector_->table());
  if (lists_->isVisible()) panes.push_back(lists_->currentWidget());
  size_t now = 0;
  for (size_t pane = 0; pane < panes.size(); ++pane)
    if (panes[pane]->hasFocus() || panes[pane]->isAncestorOf(focusWidget())) now = pane;
  const size_t next = (now + (isBack ? panes.size() - 1 : 1)) % panes.size();
  panes[next] == lists_->currentWidget() ? showList(lists_->currentIndex()) : panes[next]->setFocus(Qt::ShortcutFocusReason);
}

void ReportDesigner::showPane(QWidget* pane, bool isShown) {
  if (pane->isVisibleTo(this) == isShown) return;
  arePanesChosen_ = true;
  if (!isShown && pane->isAncestorOf(focusWidget())) canvas_->setFocus();
  pane->setVisible(isShown);
  actions_->update();
}

void ReportDesigner::arrangePanes() {
  if (arePanesChosen_) return;
  const int side = std::clamp(static_cast<int>(width() * paneShare), leastPane, mostPane);
  lists_->setVisible(width() >= leastWithLists);
  inspector_->setVisible(width() >= leastWithBoth);
  parts_->setSizes({side, width() - 2 * side, side});
  actions_->update();
}

void ReportDesigner::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  guarded(this, [&] { arrangePanes(); });
}

QToolButton* ReportDesigner::foldButton(const QString& action) {
  auto* button = new QToolButton(this);
  button->setDefaultAction(actions_->action(action));
  button->setAutoRaise(true);
  button->setAccessibleName(actions_->action(action)->text());
  return button;
}

void ReportDesigner::showList(int place) {
  showPane(lists_, true);
  lists_->setCurrentIndex(place);
  QWidget* list = lists_->widget(place) == data_ ? data_->list() : lists_->widget(place);
  list->setFocus(Qt::ShortcutFocusReason);
}

void ReportDesigner::showNextPage(int by) {
  const std::vector<ReportNode*> all = editor_.pages();
  const auto now = std::find(all.begin(), all.end(), editor_.page()) - all.begin();
  editor_.showPage(*all[size_t(now + by + std::ssize(all)) % all.size()]);
}

QByteArray ReportDesigner::state() const { return parts_->saveState() + char('0' + lists_->isVisibleTo(this) + 2 * inspector_->isVisibleTo(this)); }

void ReportDesigner::restoreState(const QByteArray& state) {
  if (state.isEmpty() || !parts_->restoreState(state.chopped(1))) return;
  arePanesChosen_ = true;
  lists_->setVisible((state.back() - '0') & 1);
  inspector_->setVisible((state.back() - '0') & 2);
  actions_->update();
}

void ReportDesigner::setDraftPause(int milliseconds) { draftTimer_->setInterval(milliseconds); }
