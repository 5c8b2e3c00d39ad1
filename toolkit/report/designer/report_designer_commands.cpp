#include "base/guard.h"
#include "toolkit/report/designer/fault_list.h"
#include "toolkit/report/designer/inspector.h"
#include "toolkit/report/designer/report_designer.h"

#include <QAction>
#include <QTabWidget>

using namespace Qt::StringLiterals;

/// The table of the designer's commands. Menus and bars are made of their names in report_designer.cpp.

void ReportDesigner::addFileCommands() {
  actions_->add({u"save"_s, u"Kaydet"_s, u"document-save"_s, QKeySequence(u"Ctrl+S"_s), [this] { save(); }});
  actions_->add({u"open"_s, u"Aç…"_s, u"document-open"_s, QKeySequence(u"Ctrl+O"_s), [this] { openAnother(); }, [this] { return file_ != nullptr; }});
  actions_->add({u"versions"_s, u"Önceki sürümler…"_s, u"view-history"_s, {}, [this] { showVersions(); }});
  actions_->add({u"delivered"_s, u"Teslim edilen şablonu geri getir"_s, u"edit-reset"_s, {}, [this] { bringBackDelivered(); },
                 [this] { return file_ && !file_->deliveredFile().isEmpty(); }});
  actions_->add({u"pageSetup"_s, u"Sayfa düzeni…"_s, u"document-page-setup"_s, QKeySequence(u"Ctrl+Shift+P"_s), [this] { setUpPage(); }});
  actions_->add({u"preview"_s, u"Önizleme"_s, u"document-preview"_s, QKeySequence(Qt::Key_F5), [this] { preview(); }});
  actions_->add({u"testPrint"_s, u"Deneme baskısı…"_s, u"document-print"_s, {}, [this] { testPrint(); }});
  actions_->add({u"wizard"_s, u"Sihirbaz: yeni etiket…"_s, u"tools-wizard"_s, {}, [this] { runWizard(); }});
  actions_->add({u"close"_s, u"Kapat"_s, u"window-close"_s, QKeySequence(u"Ctrl+F4"_s), [this] { Q_EMIT closeAsked(); }});
}

void ReportDesigner::addEditCommands() {
  const auto isSelected = [this] { return !editor_.selection().empty() && editor_.selection().front()->kind() != NodeKind::Page; };
  QUndoStack& steps = editor_.steps();
  QAction* undo = actions_->add({u"undo"_s, u"Geri al"_s, u"edit-undo"_s, QKeySequence::Undo, [&steps] { steps.undo(); }, [&steps] { return steps.canUndo(); }});
  QAction* redo = actions_->add({u"redo"_s, u"Yinele"_s, u"edit-redo"_s, QKeySequence(u"Ctrl+Y"_s), [&steps] { steps.redo(); }, [&steps] { return steps.canRedo(); }});
  redo->setShortcuts({redo->shortcut(), QKeySequence(u"Ctrl+Shift+Z"_s)});
  connectGuarded(&steps, &QUndoStack::undoTextChanged, undo, [undo](const QString& name) { undo->setText(name.isEmpty() ? u"Geri al"_s : u"Geri al: "_s + name); });
  connectGuarded(&steps, &QUndoStack::redoTextChanged, redo, [redo](const QString& name) { redo->setText(name.isEmpty() ? u"Yinele"_s : u"Yinele: "_s + name); });
  actions_->add({u"cut"_s, u"Kes"_s, u"edit-cut"_s, QKeySequence::Cut, [this] { commands_.cut(); }, isSelected});
  actions_->add({u"copy"_s, u"Kopyala"_s, u"edit-copy"_s, QKeySequence::Copy, [this] { commands_.copy(); }, isSelected});
  actions_->add({u"paste"_s, u"Yapıştır"_s, u"edit-paste"_s, QKeySequence::Paste, [this] { commands_.paste(); }});
  actions_->add({u"duplicate"_s, u"Çoğalt"_s, u"edit-duplicate"_s, QKeySequence(u"Ctrl+D"_s), [this] { commands_.duplicate(); }, isSelected});
  actions_->add({u"remove"_s, u"Sil"_s, u"edit-delete"_s, QKeySequence(Qt::Key_Delete), [this] { commands_.remove(); }, isSelected});
  actions_->add({u"selectAll"_s, u"Tümünü seç"_s, u"edit-select-all"_s, QKeySequence::SelectAll, [this] { commands_.selectAll(); }});
  actions_->add({u"editText"_s, u"Metni yaz"_s, u"edit-rename"_s, {}, [this] { canvas_->editText(*editor_.selection().front()); },
                 [this] { return editor_.selectedObjects().size() == 1 && findProperty(editor_.selection().front()->kind(), u"text"); }});
  actions_->add({u"lock"_s, u"Kilitle"_s, u"object-locked"_s, QKeySequence(u"Ctrl+L"_s), [this] { commands_.toggleLock(); },
                 [this] { return hasObjects(); },
                 [this] { return hasObjects() && editor_.selection().front()->flag(u"locked"); }});
}

void ReportDesigner::addArrangeCommands() {
  using Arranging::Edge;
  const std::tuple<QString, QString, QString, Edge> edges[] = {
      {u"alignLeft"_s, u"Sola hizala"_s, u"align-horizontal-left"_s, Edge::Left},
      {u"alignCenter"_s, u"Ortaya hizala"_s, u"align-horizontal-center"_s, Edge::Center},
      {u"alignRight"_s, u"Sağa hizala"_s, u"align-horizontal-right"_s, Edge::Right},
      {u"alignTop"_s, u"Üste hizala"_s, u"align-vertical-top"_s, Edge::Top},
      {u"alignMiddle"_s, u"Dikeyde ortala"_s, u"align-vertical-center"_s, Edge::Middle},
      {u"alignBottom"_s, u"Alta hizala"_s, u"align-vertical-bottom"_s, Edge::Bottom}};
  for (const auto& [name, caption, icon, edge] : edges)
    actions_->add({name, caption, icon, {}, [this, edge = edge] { commands_.align(edge); }, [this] { return hasObjects(); }});
  actions_->add({u"distributeAcross"_s, u"Yatayda eşit aralık"_s, u"distribute-horizontal-gaps"_s, {}, [this] { commands_.distribute(true); },
                 [this] { return hasObjects(3); }});
  actions_->add({u"distributeDown"_s, u"Dikeyde eşit aralık"_s, u"distribute-vertical-gaps"_s, {}, [this] { commands_.distribute(false); },
                 [this] { return hasObjects(3); }});
  actions_->add({u"sameWidth"_s, u"Aynı genişlik"_s, u"resizecol"_s, {}, [this] { commands_.sameSize(true, false); }, [this] { return hasObjects(2); }});
  actions_->add({u"sameHeight"_s, u"Aynı yükseklik"_s, u"resizerow"_s, {}, [this] { commands_.sameSize(false, true); }, [this] { return hasObjects(2); }});
  actions_->add({u"sameSize"_s, u"Aynı boyut"_s, u"transform-scale"_s, {}, [this] { commands_.sameSize(true, true); }, [this] { return hasObjects(2); }});
  using Arranging::Order;
  const std::tuple<QString, QString, QString, QString, Order> orders[] = {
      {u"front"_s, u"En öne getir"_s, u"object-order-front"_s, u"Ctrl+Shift+PgUp"_s, Order::Front},
      {u"forward"_s, u"Öne getir"_s, u"object-order-raise"_s, u"Ctrl+PgUp"_s, Order::Forward},
      {u"backward"_s, u"Arkaya gönder"_s, u"object-order-lower"_s, u"Ctrl+PgDown"_s, Order::Backward},
      {u"back"_s, u"En arkaya gönder"_s, u"object-order-back"_s, u"Ctrl+Shift+PgDown"_s, Order::Back}};
  for (const auto& [name, caption, icon, key, order] : orders)
    actions_->add({name, caption, icon, QKeySequence(key), [this, order = order] { commands_.reorder(order); }, [this] { return hasObjects(); }});
}

void ReportDesigner::addInsertCommands() {
  const auto addTool = [this](const QString& name, const QString& caption, const QString& icon, const QString& key, std::optional<NodeKind> kind) {
    QAction* action = actions_->add({name, caption, icon, QKeySequence(key), [this, kind] {
                                       canvas_->setTool(kind);
                                       canvas_->setFocus();
                                     }, {}, [this, kind] { return canvas_->tool() == kind; }});
    // Letters belong to the page alone: elsewhere they are written.
    removeAction(action);
    canvas_->addAction(action);
    action->setShortcutContext(Qt::WidgetShortcut);
  };
  addTool(u"toolSelect"_s, u"Seç"_s, u"edit-select"_s, u"S"_s, {});
  addTool(u"toolText"_s, u"Metin"_s, u"draw-text"_s, u"M"_s, NodeKind::Text);
  addTool(u"toolBarcode"_s, u"Barkod"_s, u"view-barcode"_s, u"B"_s, NodeKind::Barcode);
  addTool(u"toolLine"_s, u"Çizgi"_s, u"draw-line"_s, u"C"_s, NodeKind::Line);
  addTool(u"toolRectangle"_s, u"Dikdörtgen"_s, u"draw-rectangle"_s, u"D"_s, NodeKind::Rectangle);
  addTool(u"toolPicture"_s, u"Resim"_s, u"insert-image"_s, u"R"_s, NodeKind::Picture);
  addTool(u"toolCheckMark"_s, u"Onay kutusu"_s, u"checkbox"_s, u"O"_s, NodeKind::CheckMark);
  addTool(u"toolRichText"_s, u"Zengin metin"_s, u"text-x-generic"_s, u"Z"_s, NodeKind::RichText);
  for (const PropertyChoice& kind : propertiesOf(NodeKind::Band)[*findProperty(NodeKind::Band, u"kind")].choices)
    actions_->add({u"band_"_s + kind.word, kind.caption, u"view-list-text"_s, {}, [this, word = kind.word] { commands_.addBand(word); }});
  actions_->add({u"addPage"_s, u"Sayfa ekle"_s, u"document-new"_s, {}, [this] { commands_.addPage(); }});
  actions_->add({u"removePage"_s, u"Sayfayı sil"_s, u"edit-delete-remove"_s, {}, [this] { commands_.removePage(*editor_.page()); },
                 [this] { return editor_.pages().size() > 1; }});
  actions_->add({u"emptyPage"_s, u"Sayfayı boşalt"_s, u"edit-clear-all"_s, {}, [this] { commands_.emptyPage(); },
                 [this] { return editor_.page() && !editor_.page()->children().empty(); }});
}

void ReportDesigner::addViewCommands() {
  constexpr double step = 1.25;
  actions_->add({u"zoomIn"_s, u"Yakınlaştır"_s, u"zoom-in"_s, QKeySequence(u"Ctrl++"_s), [this] { canvas_->zoomTo(canvas_->zoom() * step); }});
  actions_->add({u"zoomOut"_s, u"Uzaklaştır"_s, u"zoom-out"_s, QKeySequence(u"Ctrl+-"_s), [this] { canvas_->zoomTo(canvas_->zoom() / step); }});
  actions_->add({u"zoomPage"_s, u"Sayfayı sığdır"_s, u"zoom-fit-best"_s, QKeySequence(u"Ctrl+0"_s), [this] { canvas_->fitPage(); }});
  actions_->add({u"zoomWidth"_s, u"Genişliğe sığdır"_s, u"zoom-fit-width"_s, QKeySequence(u"Ctrl+1"_s), [this] { canvas_->fitWidth(); }});
  actions_->add({u"zoomFull"_s, u"Gerçek boyut"_s, u"zoom-original"_s, QKeySequence(u"Ctrl+2"_s), [this] { canvas_->zoomTo(1); }});
  actions_->add({u"grid"_s, u"Izgara"_s, u"view-grid"_s, QKeySequence(u"Ctrl+G"_s), [this] { canvas_->showGrid(!canvas_->isGridShown()); }, {},
                 [this] { return canvas_->isGridShown(); }});
  actions_->add({u"snap"_s, u"Hizaya yapış"_s, u"snap-orthogonal"_s, QKeySequence(u"Ctrl+H"_s), [this] { canvas_->snap(!canvas_->snaps()); }, {},
                 [this] { return canvas_->snaps(); }});
  actions_->add({u"data"_s, u"Verilerle göster"_s, u"view-visible"_s, QKeySequence(Qt::Key_F6), [this] { canvas_->showSample(!canvas_->showsData()); }, {},
                 [this] { return canvas_->showsData(); }});
  actions_->add({u"example"_s, u"Örnek verilerle"_s, u"view-refresh"_s, {}, [this] {
                   showsExample_ = !showsExample_;
                   sample_ = showsExample_ ? exampleOf(given_) : given_;
                   canvas_->showSample(canvas_->showsData());
                   faults_->search();
                 }, {}, [this] { return showsExample_; }});
  const auto hasPages = [this] { return editor_.pages().size() > 1; };
  actions_->add({u"nextPage"_s, u"Sonraki sayfa"_s, u"go-next"_s, QKeySequence(u"Alt+PgDown"_s), [this] { showNextPage(1); }, hasPages});
  actions_->add({u"previousPage"_s, u"Önceki sayfa"_s, u"go-previous"_s, QKeySequence(u"Alt+PgUp"_s), [this] { showNextPage(-1); }, hasPages});
  const std::tuple<QString, QString, QString> lists[] = {{u"dataPane"_s, u"Veri listesi"_s, u"Alt+1"_s},
                                                         {u"objectPane"_s, u"Nesne listesi"_s, u"Alt+2"_s},
                                                         {u"faultPane"_s, u"Hata listesi"_s, u"Alt+3"_s}};
  int place = 0;
  for (const auto& [name, caption, key] : lists) {
    actions_->add({name, caption, {}, QKeySequence(key), [this, place] { showList(place); }});
    ++place;
  }
  actions_->add({u"lists"_s, u"Soldaki listeler"_s, u"sidebar-collapse-left"_s, QKeySequence(Qt::Key_F8), [this] { showPane(lists_, !lists_->isVisibleTo(this)); }, {},
                 [this] { return lists_ && lists_->isVisibleTo(this); }});
  actions_->add({u"inspector"_s, u"Sağdaki özellikler"_s, u"sidebar-collapse-right"_s, QKeySequence(Qt::Key_F9), [this] { showPane(inspector_, !inspector_->isVisibleTo(this)); }, {},
                 [this] { return inspector_->isVisibleTo(this); }});
  actions_->add({u"nextPane"_s, u"Sonraki bölme"_s, {}, QKeySequence(Qt::Key_F7), [this] { focusNextPane(false); }});
  actions_->add({u"previousPane"_s, u"Önceki bölme"_s, {}, QKeySequence(u"Shift+F7"_s), [this] { focusNextPane(true); }});
  actions_->add({u"inspect"_s, u"Özellikler"_s, u"document-properties"_s, QKeySequence(Qt::Key_F4), [this] {
                   if (inspector_->isVisible()) return inspector_->edit(u"text");
                   showPane(inspector_, true);
                   postGuarded(this, [this] { inspector_->edit(u"text"); });  // when it has its place
                 }});
}
