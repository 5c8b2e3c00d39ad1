#include "app/parameters.h"

#include "base/environment.h"
#include "base/exceptions.h"
#include "base/guard.h"
#include "base/log_file.h"
#include "app/parameter_models.h"
#include "base/program_paths.h"
#include "app/quendUtils.h"
#include "toolkit/edits/combo_edit.h"

#include <QBoxLayout>
#include <QFile>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QListView>
#include <QPrinterInfo>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QTableView>

#include <algorithm>

using namespace Qt::StringLiterals;

TfParametreler* fParametreler = nullptr;

namespace {

constexpr QSize preferredSize(1000, 620);
constexpr int mostCopies = 9;
const QString settingsName = u"Parametreler"_s;
const QString printerSection = u"Printer"_s;
const QString nothingKept = u"-1"_s;

QString switchesFile() { return QuendUtil->programFolder + u"Parametreler.dat"_s; }
QString statusesFile() { return QuendUtil->programFolder + u"islemrenk.dat"_s; }

QString kept(const ComboEdit* edit) {
  return QuendUtil->load_inifile(settingsName, printerSection, nothingKept, edit->objectName());
}

/// What the start does not trouble the user with.
void logLine(const QString& text) {
  LogFile::append(logFileName(), LogFile::messageEntry(environment().now(), text, nullptr));
}

/// The file's bytes; nothing when it is missing or, with a line in the log, cannot be read.
std::optional<QByteArray> loadOrLog(const QString& file) {
  try {
    return ParameterFiles::load(file);
  } catch (const EInOutError& error) {
    logLine(error.message());
    return {};
  }
}

}  // namespace

TfParametreler::TfParametreler(QWidget* parent)
    : QDialog(parent),
      systemPrinters(&QPrinterInfo::availablePrinterNames),
      ParamList_(new CheckListModel(this)),
      islemColor_(new StatusModel(this)) {
  setObjectName(u"fParametreler"_s);
  setWindowTitle(u"Parametreler"_s);
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  ParamList_->setItems(ParameterFiles::defaultSwitches());
  islemColor_->setRows(ParameterFiles::defaultStatuses());
  buildForm();
  resize(preferredSize.boundedTo(screen()->availableSize()));
  connectGuarded(btnPost, &QPushButton::clicked, this, [this] { btnPostClick(); });
  connectGuarded(btnCancel, &QPushButton::clicked, this, [this] { done(GivenUp); });
  fParametreler = this;
}

TfParametreler::~TfParametreler() {
  if (fParametreler == this) fParametreler = nullptr;
}

void TfParametreler::buildForm() {
  auto* lists = new QHBoxLayout;
  lists->addWidget(buildSwitches(), 4);
  lists->addWidget(buildStatuses(), 5);
  auto* printers = buildPrinters();

  btnPost = new QPushButton(u"Kaydet"_s);
  btnPost->setObjectName(u"btnPost"_s);
  btnPost->setDefault(true);
  btnCancel = new QPushButton(u"Vazgeç"_s);
  btnCancel->setObjectName(u"btnCancel"_s);
  btnCancel->setAutoDefault(false);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(btnPost);
  buttons->addWidget(btnCancel);

  auto* all = new QVBoxLayout(this);
  all->addLayout(lists, 1);
  all->addWidget(printers);
  all->addLayout(buttons);
}

QWidget* TfParametreler::buildSwitches() {
  auto* list = new QListView(this);
  list->setObjectName(u"ParamList"_s);
  list->setAccessibleName(u"Kullanıcı Parametreleri"_s);
  list->setModel(ParamList_);
  list->setSpacing(2);
  list->setWordWrap(true);
  list->setResizeMode(QListView::Adjust);
  list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  list->setCurrentIndex(ParamList_->index(1));
  return list;
}

QWidget* TfParametreler::buildStatuses() {
  auto* table = new QTableView(this);
  table->setObjectName(u"islemColor"_s);
  table->setAccessibleName(u"İşlem Renkleri"_s);
  table->setModel(islemColor_);
  table->setItemDelegate(new StatusDelegate(table));
  table->setTabKeyNavigation(false);
  table->setEditTriggers(QTableView::EditKeyPressed | QTableView::AnyKeyPressed);
  table->setSelectionMode(QTableView::SingleSelection);
  table->verticalHeader()->hide();
  table->verticalHeader()->setDefaultSectionSize(table->fontMetrics().height() + 10);
  QHeaderView* header = table->horizontalHeader();
  header->setHighlightSections(false);
  header->setSectionResizeMode(StatusModel::State, QHeaderView::Fixed);
  header->resizeSection(StatusModel::Colour, table->fontMetrics().horizontalAdvance(u"Zeytin Yeşili  0x00000000"_s) + 60);
  header->resizeSection(StatusModel::State, table->fontMetrics().horizontalAdvance(u"PASİF"_s) + 60);
  // Every status is readable in full.
  table->resizeColumnToContents(StatusModel::Name);
  const int width = header->sectionSize(StatusModel::Name) + header->sectionSize(StatusModel::Colour) + header->sectionSize(StatusModel::State) +
                    table->verticalScrollBar()->sizeHint().width() + 2 * table->frameWidth();
  header->setSectionResizeMode(StatusModel::Name, QHeaderView::Fixed);
  header->setSectionResizeMode(StatusModel::Colour, QHeaderView::Stretch);
  table->setMinimumWidth(std::min(width, screen()->availableSize().width() / 2));
  table->setCurrentIndex(islemColor_->index(0, StatusModel::Colour));
  connectGuarded(table, &QTableView::clicked, this, [table](const QModelIndex& index) {
    if (index.flags().testFlag(Qt::ItemIsEditable)) table->edit(index);
  });
  return table;
}

QWidget* TfParametreler::buildPrinters() {
  auto* group = new QGroupBox(u"Yazıcılar"_s, this);
  auto* grid = new QGridLayout(group);
  grid->setColumnStretch(1, 1);
  const auto add = [&](const QString& name, const QString& caption, int row, int column) {
    auto* edit = new ComboEdit(group);
    edit->setObjectName(name);
    edit->setAccessibleName(caption);
    edit->line()->setAccessibleName(caption);
    edit->setEnterMovesOn(true);
    auto* label = new QLabel(caption, group);
    label->setBuddy(edit);
    grid->addWidget(label, row, column);
    grid->addWidget(edit, row, column + 1);
    return edit;
  };
  const auto addCopies = [&](const QString& name, int row) {
    ComboEdit* edit = add(name, u"Kopya Sayısı"_s, row, 2);
    for (int copies = 1; copies <= mostCopies; ++copies) edit->addItem(QString::number(copies));
    edit->setItemIndex(0);
    edit->setFixedWidth(80);
    return edit;
  };
  const auto addPrinters = [&](const QString& name, const QString& caption, int row) {
    ComboEdit* edit = add(name, caption, row, 0);
    edit->setCanBeEmpty(true);
    return edit;
  };
  yBarkodPrinter = addPrinters(u"yBarkodPrinter"_s, u"Barkod Yazıcı"_s, 0);
  yBarkodPrinterCopyNum = addCopies(u"yBarkodPrinterCopyNum"_s, 0);
  VarsayilanPrinter = addPrinters(u"VarsayilanPrinter"_s, u"Varsayılan Yazıcı"_s, 1);
  VarsayilanPrinterCopyNum = addCopies(u"VarsayilanPrinterCopyNum"_s, 1);
  return group;
}

void TfParametreler::Load() {
  if (const auto bytes = loadOrLog(statusesFile())) {
    std::vector<StatusRow> rows = islemColor_->rows();
    ParameterFiles::readStatuses(*bytes, rows);
    islemColor_->setRows(std::move(rows));
  }
  loadSwitches();
  loadPrinters();
}

void TfParametreler::loadSwitches() {
  const auto bytes = loadOrLog(switchesFile());
  if (!bytes) return;
  std::vector<ParameterFiles::CheckItem> items = ParamList_->items();
  if (ParameterFiles::takeSwitches(*bytes, items))
    ParamList_->setItems(std::move(items));
  else if (!QFile::remove(switchesFile()))
    logLine(u"%1 dosyası silinemedi."_s.arg(switchesFile()));
}

void TfParametreler::loadPrinters() {
  for (ComboEdit* edit : {yBarkodPrinter, VarsayilanPrinter}) {
    edit->clearItems();
    edit->setItems(systemPrinters());
    edit->setItemIndex(edit->indexOf(kept(edit)));
  }
  for (ComboEdit* edit : {yBarkodPrinterCopyNum, VarsayilanPrinterCopyNum}) {
    const QString copies = kept(edit);
    if (copies.isEmpty() || copies == nothingKept)
      edit->setItemIndex(0);
    else
      edit->setText(copies);  // also a number that the list does not have
  }
}

int TfParametreler::Giris() { return exec(); }

bool TfParametreler::isChecked(int index) const {
  const auto& items = ParamList_->items();
  return index >= 0 && size_t(index) < items.size() && items[size_t(index)].state == ParameterFiles::CheckState::Checked;
}

const std::vector<TfParametreler::StatusRow>& TfParametreler::islemColor() const { return islemColor_->rows(); }

std::optional<TfParametreler::StatusRow> TfParametreler::statusRow(const QString& status) const {
  for (const StatusRow& row : islemColor())
    if (row.islemColorIslemAdi == status) return row;
  return {};
}

void TfParametreler::btnPostClick() {
  try {
    for (const ComboEdit* edit : {yBarkodPrinter, yBarkodPrinterCopyNum, VarsayilanPrinter, VarsayilanPrinterCopyNum})
      QuendUtil->save_inifile(settingsName, printerSection, edit->text(), edit->objectName());
    ParameterFiles::save(switchesFile(), ParameterFiles::writeCheckList(ParamList_->items()));
    ParameterFiles::save(statusesFile(), ParameterFiles::writeStatuses(islemColor_->rows()));
  } catch (const EInOutError& error) {
    QuendUtil->ErrorMesaj(this, error.message());
    return;
  }
  done(Saved);
}
