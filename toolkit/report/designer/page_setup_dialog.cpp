#include "toolkit/report/designer/page_setup_dialog.h"

#include "base/exceptions.h"
#include "base/guard.h"
#include "base/number_text.h"
#include "toolkit/edits/currency_edit.h"
#include "toolkit/report/report_layout.h"
#include "toolkit/shell/screen_room.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QPainter>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const QSize pictureRoom(150, 212);
constexpr int boxWidth = 90;

const PropertyInfo& info(const QString& property) { return propertiesOf(NodeKind::Page)[*findProperty(NodeKind::Page, property)]; }

}  // namespace

const std::vector<LabelSheet>& usualLabelSheets() {
  static const std::vector<LabelSheet> sheets = {
      {u"Rulo etiket 40 × 20 mm"_s, 40, 20, 1.5, 1, 1.5, 1},
      {u"Rulo etiket 50 × 30 mm"_s, 50, 30, 2, 1.5, 2, 1.5},
      {u"Rulo etiket 58 × 40 mm"_s, 58, 40, 2, 2, 2, 2},
      {u"Rulo etiket 100 × 50 mm"_s, 100, 50, 3, 3, 3, 3},
      {u"Rulo etiket 100 × 150 mm"_s, 100, 150, 4, 4, 4, 4},
      {u"Rulo, ikili 50 × 25 mm"_s, 104, 25, 1, 1, 1, 1, 2, 1, 2, 0},
      {u"A4, 2 × 7 (99,1 × 38,1 mm)"_s, 210, 297, 4.65, 15.15, 4.65, 15.15, 2, 7, 2.5, 0},
      {u"A4, 3 × 7 (63,5 × 38,1 mm)"_s, 210, 297, 7.25, 15.15, 7.25, 15.15, 3, 7, 2.5, 0},
      {u"A4, 3 × 8 (70 × 37 mm)"_s, 210, 297, 0, 0.5, 0, 0.5, 3, 8, 0, 0},
      {u"A4, 4 × 10 (48,5 × 25,4 mm)"_s, 210, 297, 8, 21.5, 8, 21.5, 4, 10, 0, 0},
      {u"A4, 5 × 13 (38,1 × 21,2 mm)"_s, 210, 297, 4.75, 10.7, 4.75, 10.7, 5, 13, 2.5, 0}};
  return sheets;
}

void applySheet(const LabelSheet& sheet, ReportNode& page) {
  const bool isA4 = sheet.width == 210 && sheet.height == 297;
  page.setValue(u"paper", isA4 ? u"A4"_s : u"own"_s);
  page.setValue(u"orientation", u"portrait"_s);
  page.setValue(u"width", sheet.width);
  page.setValue(u"height", sheet.height);
  page.setValue(u"marginleft", sheet.marginLeft);
  page.setValue(u"margintop", sheet.marginTop);
  page.setValue(u"marginright", sheet.marginRight);
  page.setValue(u"marginbottom", sheet.marginBottom);
  page.setValue(u"columns", sheet.columns);
  page.setValue(u"rows", sheet.rows);
  page.setValue(u"columngap", sheet.columnGap);
  page.setValue(u"rowgap", sheet.rowGap);
}

QPixmap sheetPicture(const ReportNode& page, QSize room, double pixelRatio) {
  const ReportSheet sheet(page);
  QPixmap picture(room * pixelRatio);
  picture.setDevicePixelRatio(pixelRatio);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  const double scale = std::min((room.width() - 6) / sheet.paper.width(), (room.height() - 6) / sheet.paper.height());
  painter.translate((room.width() - sheet.paper.width() * scale) / 2, (room.height() - sheet.paper.height() * scale) / 2);
  const auto scaled = [&](const QRectF& rect) { return QRectF(rect.topLeft() * scale, rect.size() * scale); };
  painter.fillRect(scaled(QRectF(QPointF(), sheet.paper)).translated(2, 2), QColor(0, 0, 0, 50));
  painter.fillRect(scaled(QRectF(QPointF(), sheet.paper)), Qt::white);
  painter.setPen(QPen(QColor(0x1b, 0x66, 0xa8), 1));
  painter.setBrush(QColor(0x1b, 0x66, 0xa8, 25));
  for (int cell = 0; cell < sheet.columns * sheet.rows; ++cell) painter.drawRect(scaled(QRectF(sheet.cellPlace(cell), sheet.cell)));
  return picture;
}

PageSetupDialog::PageSetupDialog(QWidget* owner, const ReportNode& page)
    : QDialog(owner),
      page_(page.clone()),
      preset_(new QComboBox),
      paper_(new QComboBox),
      orientation_(new QComboBox),
      picture_(new QLabel(this)),
      told_(new QLabel(this)) {
  setWindowTitle(u"Sayfa Düzeni"_s);
  const auto named = [](QWidget* box, const QString& caption) {
    nameBox(*box, caption);
    return box;
  };
  preset_->setObjectName(u"preset"_s);
  preset_->addItem(u"Kendi ölçülerim"_s);
  for (const LabelSheet& each : usualLabelSheets()) preset_->addItem(each.caption);
  for (const PropertyChoice& each : info(u"paper"_s).choices) paper_->addItem(each.caption, each.word);
  for (const PropertyChoice& each : info(u"orientation"_s).choices) orientation_->addItem(each.caption, each.word);
  // Boxes come to their parent here, in the order of Tab.
  auto* content = new QWidget(this);
  auto* row = new QHBoxLayout(content);
  auto* filled = new QVBoxLayout;
  auto* form = new QGridLayout;
  row->addLayout(filled, 1);
  filled->addLayout(form);
  int place = 2;  // two boxes to a row; the first row is the sheets'
  const auto addBox = [&](const QString& caption, QWidget* box) {
    auto* label = new QLabel(caption, content);
    label->setBuddy(named(box, caption));
    form->addWidget(label, place / 2, place % 2 * 2);
    form->addWidget(box, place / 2, place % 2 * 2 + 1);
    ++place;
  };
  for (QComboBox* box : {paper_, orientation_}) {
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box->setFixedWidth(boxWidth);
  }
  form->addWidget(new QLabel(u"Hazır etiket"_s, content), 0, 0);
  form->addWidget(named(preset_, u"Hazır etiket"_s), 0, 1, 1, 3);
  addBox(info(u"paper"_s).caption, paper_);
  addBox(info(u"orientation"_s).caption, orientation_);
  for (const QString& property : {u"width"_s, u"height"_s, u"marginleft"_s, u"marginright"_s, u"margintop"_s, u"marginbottom"_s, u"columns"_s,
                                  u"rows"_s, u"columngap"_s, u"rowgap"_s, u"repeat"_s}) {
    auto* box = new CurrencyEdit(content);
    box->setObjectName(property);
    box->setDisplayFormat(info(property).type == PropertyType::Integer ? u"0"_s : u"0.##"_s);
    const QString caption = info(property).caption + (info(property).type == PropertyType::Integer ? QString() : u" (mm)"_s);
    box->setFixedWidth(boxWidth);
    addBox(caption, box);
    numbers_.emplace_back(property, box);
    connectGuarded(box, &CurrencyEdit::textChanged, this, [this] { showSheet(); });
  }
  picture_->setFixedSize(pictureRoom);
  form->addWidget(told_, form->rowCount(), 0, 1, 4);
  auto* side = new QVBoxLayout;
  side->addWidget(picture_);
  side->addStretch(1);
  filled->addStretch(1);
  row->setContentsMargins(0, 0, 0, 0);
  row->addSpacing(12);
  row->addLayout(side);
  auto* column = new QVBoxLayout(this);
  column->addWidget(new ScreenRoom(content), 1);
  auto* buttons = new QDialogButtonBox(this);
  buttons->addButton(u"Tamam"_s, QDialogButtonBox::AcceptRole);
  buttons->addButton(u"Vazgeç"_s, QDialogButtonBox::RejectRole);
  column->addWidget(buttons);
  connectGuarded(buttons, &QDialogButtonBox::accepted, this, [this] { acceptIfRight(); });
  connectGuarded(buttons, &QDialogButtonBox::rejected, this, [this] { reject(); });
  connectGuarded(preset_, &QComboBox::activated, this, [this](int index) { choosePreset(index); });
  connectGuarded(paper_, &QComboBox::activated, this, [this] { choosePaper(); });
  connectGuarded(orientation_, &QComboBox::activated, this, [this] { showSheet(); });
  preset_->setFocus();
  showChoices();
}

void PageSetupDialog::choosePreset(int index) {
  if (index <= 0) return;
  applySheet(usualLabelSheets()[size_t(index - 1)], *page_);
  showChoices();
}

void PageSetupDialog::choosePaper() {
  // A size of one's own begins with the paper that was chosen before it.
  if (const QString paper = paper_->currentData().toString(); paper != u"own") {
    ReportNode upright(NodeKind::Page);
    upright.setValue(u"paper", paper);
    const QSizeF size = ReportSheet(upright).paper;
    for (const auto& [property, box] : numbers_) {
      const QSignalBlocker quiet(box);
      if (property == u"width") box->setValue(size.width());
      if (property == u"height") box->setValue(size.height());
    }
  }
  showSheet();
}

void PageSetupDialog::showChoices() {
  paper_->setCurrentIndex(paper_->findData(page_->text(u"paper")));
  orientation_->setCurrentIndex(orientation_->findData(page_->text(u"orientation")));
  for (const auto& [property, box] : numbers_) {
    const QSignalBlocker quiet(box);
    const PropertyValue& value = page_->value(property);
    box->setValue(info(property).type == PropertyType::Integer ? std::get<int>(value) : std::get<double>(value));
  }
  showSheet();
}

void PageSetupDialog::showPreset() {
  const auto& sheets = usualLabelSheets();
  const auto fits = [this](const LabelSheet& sheet) {
    ReportNode page(NodeKind::Page);
    applySheet(sheet, page);
    return std::all_of(numbers_.begin(), numbers_.end(), [&](const auto& each) { return each.first == u"repeat" || page.value(each.first) == page_->value(each.first); }) &&
           page.value(u"paper") == page_->value(u"paper") && page.value(u"orientation") == page_->value(u"orientation");
  };
  const auto found = std::find_if(sheets.begin(), sheets.end(), fits);
  preset_->setCurrentIndex(found == sheets.end() ? 0 : int(found - sheets.begin()) + 1);
}

void PageSetupDialog::showSheet() {
  try {
    for (auto& [property, value] : values()) page_->setValue(property, value);
    showPreset();
    picture_->setPixmap(sheetPicture(*page_, pictureRoom, devicePixelRatioF()));
    const ReportSheet sheet(*page_);
    const QString cell = u"%1 × %2 mm"_s.arg(NumberText::fromDouble(std::round(sheet.cell.width() * 10) / 10), NumberText::fromDouble(std::round(sheet.cell.height() * 10) / 10));
    told_->setText(sheet.isSheet() ? u"Bir yaprakta %1 etiket, her biri %2"_s.arg(sheet.columns * sheet.rows).arg(cell) : u"Yazılabilir alan %1"_s.arg(cell));
  } catch (const EConvertError& error) {
    told_->setText(error.message());
  }
  for (const auto& [property, box] : numbers_)
    if (property == u"width" || property == u"height") box->setEnabled(paper_->currentData().toString() == u"own");
}

std::vector<std::pair<QString, PropertyValue>> PageSetupDialog::values() const {
  std::vector<std::pair<QString, PropertyValue>> all = {{u"paper"_s, paper_->currentData().toString()},
                                                        {u"orientation"_s, orientation_->currentData().toString()}};
  for (const auto& [property, box] : numbers_) {
    try {
      all.emplace_back(property, propertyFromText(info(property), QString::number(box->value(), 'g', QLocale::FloatingPointShortest)));
    } catch (const EConvertError& error) {
      throw EConvertError(u"%1: %2"_s.arg(info(property).caption, error.message()));
    }
  }
  return all;
}

void PageSetupDialog::acceptIfRight() {
  try {
    values();
    accept();
  } catch (const EConvertError& error) {
    told_->setText(error.message());
  }
}
