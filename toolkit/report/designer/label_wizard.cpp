#include "toolkit/report/designer/label_wizard.h"

#include "base/environment.h"
#include "base/exceptions.h"
#include "base/guard.h"
#include "toolkit/edits/currency_edit.h"
#include "toolkit/report/designer/arranging.h"
#include "toolkit/report/paged_output.h"
#include "toolkit/report/report_layout.h"
#include "toolkit/shell/screen_room.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {

const QSize mostPicture(360, 260);
constexpr int usualSheet = 2;
constexpr double barcodeShare = 0.36;  ///< of the label's height
constexpr double firstShare = 1.6;     ///< height of the first line against the others
constexpr double mostLine = 8;         ///< mm
constexpr double pointsPerMillimetre = 72 / 25.4;
constexpr double leastSide = 10;      ///< mm of a label of one's own size
constexpr double mostSide = 500;
constexpr double ownMargin = 2;
const QSizeF ownSize(60, 40);

}  // namespace

ReportDocument makeLabel(const LabelSheet& sheet, const QStringList& names, const QString& barcode, const DesignSample& sample) {
  ReportDocument document;
  document.root().setValue(u"name", u"Etiket"_s);
  ReportNode* page = document.root().append(std::make_unique<ReportNode>(NodeKind::Page));
  page->setValue(u"name", u"Etiket"_s);
  applySheet(sheet, *page);
  const QSizeF cell = ReportSheet(*page).cell;
  const double barHeight = barcode.isEmpty() ? 0 : cell.height() * (names.isEmpty() ? 1 : barcodeShare);
  const double room = cell.height() - barHeight;
  const double line = names.isEmpty() ? 0 : std::min(mostLine, room / (firstShare + double(names.size()) - 1));
  double y = 0;
  const auto place = [&](ReportNode& object, double height) {
    object.setValue(u"top", Arranging::rounded(y));
    object.setValue(u"width", Arranging::rounded(cell.width()));
    object.setValue(u"height", Arranging::rounded(height));
    y += height;
  };
  for (const QString& name : names) {
    ReportNode* text = page->append(std::make_unique<ReportNode>(NodeKind::Text));
    const double height = names.front() == name ? line * firstShare : line;
    text->setValue(u"name", freeName(document, NodeKind::Text));
    text->setValue(u"font", ReportFont{.points = std::max(5.0, std::floor(height * 0.75 * pointsPerMillimetre * 2) / 2), .bold = names.front() == name});
    text->setValue(u"valign", u"middle"_s);
    text->setValue(u"wrap", false);
    text->setValue(u"fit", true);
    text->setValue(u"padding", 0.0);
    text->setValue(u"text", u'[' + name + u']');
    place(*text, height);
  }
  if (barcode.isEmpty()) return document;
  ReportNode* bars = page->append(std::make_unique<ReportNode>(NodeKind::Barcode));
  const bool isPutIn = sample.barcodes.contains(barcode);
  bars->setValue(u"name", isPutIn ? barcode : freeName(document, NodeKind::Barcode));
  if (!isPutIn) bars->setValue(u"text", u'[' + barcode + u']');
  y = cell.height() - barHeight;
  place(*bars, barHeight);
  return document;
}

LabelWizard::LabelWizard(QWidget* owner, const DesignSample& sample)
    : QDialog(owner),
      sample_(sample),
      size_(new QComboBox(this)),
      width_(new CurrencyEdit(this)),
      height_(new CurrencyEdit(this)),
      barcode_(new QComboBox(this)),
      names_(new QListWidget(this)),
      picture_(new QLabel(this)) {
  setWindowTitle(u"Sihirbaz: Yeni Etiket"_s);
  size_->setObjectName(u"labelSize"_s);
  size_->setAccessibleName(u"Etiketin boyu"_s);
  for (const LabelSheet& each : usualLabelSheets()) size_->addItem(each.caption);
  size_->addItem(u"Kendi ölçüm"_s);
  size_->setCurrentIndex(usualSheet);
  const auto addSide = [](CurrencyEdit& box, const QString& name, const QString& caption, double value) {
    box.setObjectName(name);
    nameBox(box, caption);
    box.setDisplayFormat(u"0.##"_s);
    box.setValue(value);
  };
  addSide(*width_, u"labelWidth"_s, u"Genişlik (mm)"_s, ownSize.width());
  addSide(*height_, u"labelHeight"_s, u"Yükseklik (mm)"_s, ownSize.height());
  barcode_->setObjectName(u"labelBarcode"_s);
  barcode_->setAccessibleName(u"Barkod"_s);
  barcode_->addItem(u"Barkod yok"_s);
  QStringList barcodes = sample.barcodes.keys();
  barcodes.sort();
  for (const QString& each : barcodes) {
    const QString now = sample.barcodes.value(each);
    barcode_->addItem(now.isEmpty() ? each : u"%1 (%2)"_s.arg(each, now), each);
  }
  for (const ReportVariable& each : sample.data.variables())
    barcode_->addItem(each.explanation.isEmpty() ? each.name : each.explanation, each.name);
  barcode_->setCurrentIndex(barcodes.isEmpty() ? 0 : 1);
  names_->setObjectName(u"labelNames"_s);
  names_->setAccessibleName(u"Etikette görünecekler"_s);
  names_->setDragDropMode(QAbstractItemView::InternalMove);
  for (const ReportVariable& each : sample.data.variables()) {
    auto* item = new QListWidgetItem(each.explanation.isEmpty() ? each.name : u"%1 (%2)"_s.arg(each.explanation, each.name), names_);
    item->setData(Qt::UserRole, each.name);
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable | Qt::ItemIsDragEnabled);
    item->setCheckState(names_->count() == 1 ? Qt::Checked : Qt::Unchecked);
  }
  picture_->setFixedSize(pictureWithinScreen(*this, mostPicture));
  picture_->setAlignment(Qt::AlignCenter);
  picture_->setFrameShape(QFrame::StyledPanel);
  auto* form = new QFormLayout;
  form->addRow(u"Etiketin boyu"_s, size_);
  form->addRow(width_->accessibleName(), width_);
  form->addRow(height_->accessibleName(), height_);
  form->addRow(u"Barkod"_s, barcode_);
  auto* left = new QVBoxLayout;
  left->addLayout(form);
  left->addWidget(new QLabel(u"Etikette görünecekler, yukarıdan aşağıya:"_s, this));
  left->addWidget(names_, 1);
  auto* order = new QHBoxLayout;
  const std::tuple<QString, QString, QString, int> moves[] = {{u"Yukarı (Alt+↑)"_s, u"go-up"_s, u"Alt+Up"_s, -1},
                                                              {u"Aşağı (Alt+↓)"_s, u"go-down"_s, u"Alt+Down"_s, 1}};
  for (const auto& [caption, icon, key, by] : moves) {
    auto* button = new QToolButton(this);
    button->setText(caption);
    button->setAccessibleName(caption);
    button->setIcon(QIcon::fromTheme(icon));
    button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    button->setShortcut(QKeySequence(key));
    button->setFocusPolicy(Qt::TabFocus);
    order->addWidget(button);
    connectGuarded(button, &QToolButton::clicked, this, [this, by = by] { moveCurrent(by); });
  }
  order->addStretch(1);
  left->addLayout(order);
  auto* right = new QVBoxLayout;
  right->addWidget(picture_);
  auto* told = new QLabel(u"Yeni etiket şu anki tasarımın yerine geçer. Geri alınabilir; dosya kaydedince değişir."_s, this);
  told->setWordWrap(true);
  right->addWidget(told);
  right->addStretch(1);
  auto* row = new QHBoxLayout;
  row->addLayout(left, 1);
  row->addLayout(right);
  auto* buttons = new QDialogButtonBox(this);
  make_ = buttons->addButton(u"Etiketi hazırla"_s, QDialogButtonBox::AcceptRole);
  buttons->addButton(u"Vazgeç"_s, QDialogButtonBox::RejectRole);
  auto* column = new QVBoxLayout(this);
  column->addLayout(row, 1);
  column->addWidget(buttons);
  connectGuarded(buttons, &QDialogButtonBox::accepted, this, [this] { accept(); });
  connectGuarded(buttons, &QDialogButtonBox::rejected, this, [this] { reject(); });
  const auto anew = [this] { showLabel(); };
  connectGuarded(size_, &QComboBox::currentIndexChanged, this, anew);
  connectGuarded(barcode_, &QComboBox::currentIndexChanged, this, anew);
  connectGuarded(width_, &CurrencyEdit::textChanged, this, anew);
  connectGuarded(height_, &CurrencyEdit::textChanged, this, anew);
  connectGuarded(names_, &QListWidget::itemChanged, this, [this](QListWidgetItem* item) {
    if (isMoving_) return;
    // The list is in the midst of telling; rows move when it is done.
    if (item->checkState() == Qt::Checked) return postGuarded(this, [this, item] { gather(item); });
    showLabel();
  });
  connectGuarded(names_->model(), &QAbstractItemModel::rowsMoved, this, anew);
  resize(withinScreen(*this, QSize(820, 480)));
  showLabel();
}

std::optional<LabelSheet> LabelWizard::sheet() const {
  const auto index = size_t(std::max(0, size_->currentIndex()));
  if (index < usualLabelSheets().size()) return usualLabelSheets()[index];
  try {
    const QSizeF size(width_->value(), height_->value());
    if (std::min(size.width(), size.height()) < leastSide || std::max(size.width(), size.height()) > mostSide) return {};
    return LabelSheet{size_->currentText(), size.width(), size.height(), ownMargin, ownMargin, ownMargin, ownMargin};
  } catch (const EConvertError&) {
    return {};
  }
}

ReportDocument LabelWizard::document() const {
  QStringList names;
  for (int row = 0; row < names_->count(); ++row)
    if (names_->item(row)->checkState() == Qt::Checked) names += names_->item(row)->data(Qt::UserRole).toString();
  return makeLabel(sheet().value_or(usualLabelSheets().front()), names, barcode_->currentData().toString(), sample_);
}

void LabelWizard::gather(QListWidgetItem* chosen) {
  int place = 0;
  for (int row = 0; row < names_->count(); ++row)
    if (names_->item(row) != chosen && names_->item(row)->checkState() == Qt::Checked) place = row + 1;
  const int from = names_->row(chosen);
  if (from > place) {
    const QScopedValueRollback quiet(isMoving_, true);
    names_->insertItem(place, names_->takeItem(from));
  }
  showLabel();
}

void LabelWizard::moveCurrent(int by) {
  const int row = names_->currentRow();
  const int to = row + by;
  if (row < 0 || to < 0 || to >= names_->count()) return;
  {
    const QScopedValueRollback quiet(isMoving_, true);
    names_->insertItem(to, names_->takeItem(row));
    names_->setCurrentRow(to);
  }
  showLabel();
}

void LabelWizard::showLabel() {
  const bool isOwn = size_->currentIndex() == size_->count() - 1;
  width_->setEnabled(isOwn);
  height_->setEnabled(isOwn);
  make_->setEnabled(sheet().has_value());
  if (!sheet()) return picture_->setText(u"Etiketin kenarları %1 ile %2 mm arasında olmalı."_s.arg(leastSide).arg(mostSide));
  const ReportPagedDocument pages(layoutReport(filledWith(document(), sample_), sample_.data, {}, environment().now()));
  if (pages.pageCount() == 0) return;
  const QSizeF size = pages.pageSize(0);
  const double dots = std::min((picture_->width() - 8) / size.width(), (picture_->height() - 8) / size.height()) * 25.4 * devicePixelRatioF();
  QPixmap picture = QPixmap::fromImage(pagePicture(pages, 0, dots, true));
  picture.setDevicePixelRatio(devicePixelRatioF());
  picture_->setPixmap(picture);
}
