// Commands and pages of the slip editor.
#include "app/dmUnit.h"
#include "app/ports.h"
#include "base/guard.h"
#include "service/fservisfis_unit.h"
#include "service/slip_fields.h"
#include "service/slip_fields_page.h"
#include "service/slip_hooks.h"
#include "service/slip_look_ups.h"
#include "service/slip_picture_page.h"
#include "service/slip_tables.h"
#include "toolkit/edits/memo_edit.h"
#include "toolkit/grid/data_grid.h"
#include "toolkit/shell/command_bar.h"

#include <QAction>
#include <QBoxLayout>
#include <QKeyEvent>
#include <QMenu>
#include <QScrollArea>
#include <QShortcut>
#include <QTabWidget>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {

/// Gives the keyboard to the first control of a page that takes it by TAB.
void focusFirst(QWidget& page) {
  for (QWidget* next = page.nextInFocusChain(); next != &page; next = next->nextInFocusChain()) {
    const bool takesTab = next->isEnabled() && (next->focusPolicy() & Qt::TabFocus) != 0;
    if (takesTab && page.isAncestorOf(next)) {
      next->setFocus(Qt::TabFocusReason);
      return;
    }
  }
}

}  // namespace

void TfServisFis::buildCommands() {
  auto* bar = new CommandBar(this);
  aKaydet = bar->addCommand(u"aKaydet"_s, u"F2 » Kaydet"_s, u"document-save"_s, Qt::Key_F2);
  aVazgec = bar->addCommand(u"aVazgec"_s, u"F3 » Vazgeç"_s, u"dialog-cancel"_s, Qt::Key_F3);
  aSil = bar->addCommand(u"aSil"_s, u"F6 » Fiş Sil"_s, u"edit-delete"_s, Qt::Key_F6);
  aYazdir = bar->addCommand(u"aYazdir"_s, u"Yazdır/Tasarla"_s, u"document-print"_s, {});
  aHatirlat = bar->addCommand(u"aHatirlat"_s, u"Hatırlatma Ekle"_s, u"appointment-new"_s, {});
  // Has a key and does nothing: meant.
  aCikis = new QAction(QIcon::fromTheme(u"window-close"_s), u"ESC » Çıkış"_s, this);
  aCikis->setObjectName(u"aCikis"_s);
  aCikis->setShortcut(Qt::Key_Escape);
  aCikis->setShortcutContext(Qt::WidgetWithChildrenShortcut);
  addAction(aCikis);
  connectGuarded(aKaydet, &QAction::triggered, this, [this] { save(); });
  connectGuarded(aVazgec, &QAction::triggered, this, [this] {
    if (isConfirmed(u"Ekran kapatılacak onaylıyor musunuz?"_s)) closeWindow();
  });
  connectGuarded(aSil, &QAction::triggered, this, [this] { deleteSlip(); });
  connectGuarded(aHatirlat, &QAction::triggered, this, [this] { showReminder(); });

  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(6, 6, 6, 6);
  column->setSpacing(6);
  column->addWidget(bar);
  saveButton_ = bar->button(aKaydet);
  reminderButton_ = bar->button(aHatirlat);
  bar->button(aYazdir)->setPopupMode(QToolButton::InstantPopup);
  buildPrintMenu();
}

/// Before its first save a slip cannot be printed.
void TfServisFis::buildPrintMenu() {
  auto* menu = new QMenu(this);
  MakbuzBask1 = menu->addAction(QIcon::fromTheme(u"document-print"_s), u"Makbuz Baskı"_s);
  MakbuzBask1->setObjectName(u"MakbuzBask1"_s);
  MakbuzBask1->setEnabled(false);
  MakbuzDzenle1 = menu->addAction(QIcon::fromTheme(u"document-edit"_s), u"Makbuz Tasarla"_s);
  MakbuzDzenle1->setObjectName(u"MakbuzDzenle1"_s);
  MakbuzDzenle1->setEnabled(slipHooks().designReceipt != nullptr);
  connectGuarded(MakbuzBask1, &QAction::triggered, this, [this] { slipHooks().printReceipt(*this); });
  connectGuarded(MakbuzDzenle1, &QAction::triggered, this, [this] { slipHooks().designReceipt(*this); });
  aYazdir->setMenu(menu);
}

void TfServisFis::buildPages() {
  pages_ = new QTabWidget(this);
  pages_->setObjectName(u"pages"_s);
  pages_->setDocumentMode(true);
  layout()->addWidget(pages_);
  // A page scrolls by itself where it does not fit, so that the workspace never scrolls around it.
  const auto scrolled = [this](QWidget* page) {
    auto* scroller = new QScrollArea(pages_);
    scroller->setFrameShape(QFrame::NoFrame);
    scroller->setWidgetResizable(true);
    scroller->setFocusPolicy(Qt::NoFocus);
    scroller->setWidget(page);
    return scroller;
  };
  fields_ = new SlipFieldsPage(pages_);
  lookUps_ = std::make_unique<SlipLookUps>(*fields_, qCari, qCihaz, qServisTip);
  picture_ = new SlipPicturePage([this] { return fields_->text(u"TS_C_AD"_s); }, pages_);

  pages_->addTab(scrolled(fields_), u"Fiş Bilgileri"_s);
  pages_->addTab(buildLinesPage(), u"Malzemeler"_s);
  pages_->addTab(buildNotesPage(), u"Notlar"_s);
  pages_->addTab(scrolled(picture_), u"Fotoğraf"_s);
  pages_->addTab(buildHistoryPage(u"Seri No Geçmişi"_s), u"Seri No Geçmişi"_s);
  pages_->addTab(buildHistoryPage(u"Müşteri Geçmişi"_s), u"Müşteri Geçmişi"_s);
  connectGuarded(pages_, &QTabWidget::currentChanged, this, [this](int page) { loadHistory(page); });

  const auto turnPage = [this](QKeySequence key, int by) {
    auto* shortcut = new QShortcut(key, this);
    shortcut->setContext(Qt::WidgetWithChildrenShortcut);
    connectGuarded(shortcut, &QShortcut::activated, this, [this, by] {
      const int page = pages_->currentIndex() + by;
      if (page < 0 || page >= pages_->count() || !pages_->isTabVisible(page)) return;
      pages_->setCurrentIndex(page);
      focusFirst(*pages_->currentWidget());
    });
  };
  turnPage(Qt::CTRL | Qt::Key_PageDown, 1);
  turnPage(Qt::CTRL | Qt::Key_PageUp, -1);
}

QWidget* TfServisFis::buildLinesPage() {
  auto* page = new QWidget(pages_);
  auto* column = new QVBoxLayout(page);
  column->setContentsMargins(8, 8, 8, 8);
  lines_ = new DataGrid(qMalzeme, SlipTables::lineColumns(), u"Malzemeler"_s, page);
  lines_->setObjectName(u"lines"_s);
  lines_->setEditing(GridEditing::Append);
  column->addWidget(lines_);
  connectGuarded(lines_, &DataGrid::rejected, this, [this](const QString& message) { QuendHint(lines_, 0, message); });
  return page;
}

QWidget* TfServisFis::buildNotesPage() {
  auto* page = new QWidget(pages_);
  auto* column = new QVBoxLayout(page);
  column->setContentsMargins(8, 8, 8, 8);
  note_ = new MemoEdit(page);
  note_->setObjectName(u"SF_NOT"_s);
  note_->setAccessibleName(u"Notlar"_s);
  note_->editor()->setAccessibleName(u"Notlar"_s);
  column->addWidget(note_);
  return page;
}

QWidget* TfServisFis::buildHistoryPage(const QString& caption) {
  auto* page = new QWidget(pages_);
  auto* column = new QVBoxLayout(page);
  column->setContentsMargins(8, 8, 8, 8);
  auto* table = new DataGrid(qSeri, SlipTables::historyColumns(), caption, page);
  table->setEmptyText(u"<Kayıt yok!>"_s);
  column->addWidget(table);
  connectGuarded(table, &DataGrid::rowChosen, this, [this](int row) { openFromHistory(row); });
  return page;
}

void TfServisFis::connectFields() {
  const auto onButton = [this](const QString& column, int button, auto work) {
    connectGuarded(fields_->edit<EditBox>(column), &EditBox::buttonClicked, this, [button, work](int index) {
      if (index == button) work();
    });
  };
  onButton(u"TS_NO"_s, 1, [this] { proposeNumber(); });
  onButton(u"TS_C_RAFNO"_s, 1, [this] { findDevice(); });

  onButton(u"TS_TURU"_s, outsideServiceButtonIndex, [this] { askOutsideService(); });
  auto* status = fields_->edit<EditBox>(u"TS_TURU"_s);
  status->setKeyFilter([status](const QKeyEvent& key) {
    const bool isAsked = key.key() == Qt::Key_Return && key.modifiers() == Qt::ControlModifier;
    if (isAsked) status->pressButton(outsideServiceButtonIndex);
    return isAsked;
  });
  onButton(u"TS_C_SERINO"_s, serialLabelIndex, [this] {
    const QString serial = text(u"TS_C_SERINO"_s);
    if (!serial.isEmpty()) ports().openSerialStatistics(serial);
  });
  buildSerialMenu();
}

void TfServisFis::buildSerialMenu() {
  auto* serial = fields_->edit<EditBox>(u"TS_C_SERINO"_s);
  auto* menu = new QMenu(serial);
  const auto addEntry = [&](const QString& name, const QString& icon, const QString& caption) {
    QAction* entry = menu->addAction(QIcon::fromTheme(icon), caption);
    entry->setObjectName(name);
    return entry;
  };
  QAction* print = addEntry(u"BarkodYazdr1"_s, u"document-print"_s, u"Barkod Yazdır"_s);
  QAction* design = addEntry(u"BarkodDzenle1"_s, u"document-edit"_s, u"Barkod Düzenle"_s);
  QAction* newSerial = addEntry(u"YeniSeriNo1"_s, u"list-add"_s, u"Yeni Seri No"_s);
  print->setEnabled(slipHooks().printLabel != nullptr);
  design->setEnabled(slipHooks().designLabel != nullptr);
  connectGuarded(print, &QAction::triggered, this, [this] { slipHooks().printLabel(*this); });
  connectGuarded(design, &QAction::triggered, this, [this] { slipHooks().designLabel(*this); });
  connectGuarded(newSerial, &QAction::triggered, this, [this] { fillSerial(); });
  connectGuarded(serial, &EditBox::buttonClicked, this, [serial, menu](int index) {
    if (index != serialMenuIndex) return;
    const QToolButton* button = serial->button(serialMenuIndex);
    menu->popup(button->mapToGlobal(QPoint(0, button->height())));
  });
}
