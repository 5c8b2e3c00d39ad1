#include "service/slip_fields_page.h"

#include "base/data/value.h"
#include "base/environment.h"
#include "base/exceptions.h"
#include "base/guard.h"
#include "base/platform/shell_open.h"
#include "service/slip_fields.h"
#include "service/slip_lists.h"
#include "toolkit/edits/combo_edit.h"
#include "toolkit/edits/currency_edit.h"
#include "toolkit/edits/date_edit.h"
#include "toolkit/edits/memo_edit.h"

#include <QKeyEvent>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr int boxWidth = 225;
constexpr int gap = 6;
/// A box over two columns; also the width of a box that widens while it has the focus.
constexpr int wideBox = 2 * boxWidth + gap;
constexpr int inset = 10;
constexpr int margin = 8;
constexpr int rowGap = 4;
constexpr int halfWidth = wideBox + 2 * inset;
constexpr int sideWidth = boxWidth + 2 * inset;
constexpr int widestSide = 360;
constexpr int widestSideBelow = 560;  ///< where the customer stands below, so that little room is left empty
/// What stands left of the amounts, with the customer beside the slip or below it.
constexpr int wideLeft = margin + halfWidth + margin + halfWidth + margin;
constexpr int narrowLeft = margin + halfWidth + margin;
constexpr int fullRows = 6;  ///< of the groups in the upper line
constexpr int deviceRows = 5;
constexpr int recordRows = 2;

bool isWide(int width) { return width >= wideLeft + sideWidth + margin; }

}  // namespace

SlipFieldsPage::SlipFieldsPage(QWidget* parent) : QWidget(parent) {
  for (const SlipField& field : slipFields()) {
    Group& group = groups_[field.group];
    if (group.box == nullptr) group.box = new QGroupBox(groupCaption(field.group), this);
    group.fields.push_back(&field);
    frames_.insert(field.column, createSlipEditor(field, group.box));
  }
  fillLists();
  connectAids();
  setMinimumSize(narrowLeft + sideWidth + margin, sizeHint().height());
  QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
  policy.setHeightForWidth(true);
  setSizePolicy(policy);
}

QSize SlipFieldsPage::sizeHint() const {
  constexpr int width = wideLeft + sideWidth + margin;
  return {width, heightForWidth(width)};
}

int SlipFieldsPage::heightForWidth(int width) const {
  const int upper = margin + groupHeight(fullRows);
  return (isWide(width) ? upper : 2 * upper) + margin + groupHeight(deviceRows) + margin;
}

void SlipFieldsPage::fillLists() {
  edit<ComboEdit>(u"TS_HIZMET_TIP"_s)->setItems(SlipLists::warrantyStates());
  edit<ComboEdit>(u"TS_ODEME_SEKLI"_s)->setItems(SlipLists::paymentWays());
  offerStatuses(SlipLists::statuses());
}

void SlipFieldsPage::offerStatuses(const QStringList& statuses) {
  auto* status = edit<ComboEdit>(u"TS_TURU"_s);
  const QString shown = status->text();
  status->setItems(statuses);
  status->setText(shown);
}

void SlipFieldsPage::removeOutsideServiceButton() {
  auto* status = edit<ComboEdit>(u"TS_TURU"_s);
  if (status->buttonCount() > outsideServiceButtonIndex) status->removeButton(outsideServiceButtonIndex);
}

void SlipFieldsPage::chooseStatus(int item) {
  auto* status = edit<ComboEdit>(u"TS_TURU"_s);
  if (item >= status->itemCount()) return;
  status->setItemIndex(item);
  statusChosen(item);
}

void SlipFieldsPage::statusChosen(int item) {
  if (SlipRules::isDelivery(item, edit<ComboEdit>(u"TS_TURU"_s)->itemCount()))
    edit<DateEdit>(u"TS_TESLIM_TARIH"_s)->setDate(environment().today());
}

EditFrame* SlipFieldsPage::frame(const QString& column) const {
  if (EditFrame* found = findFrame(column)) return found;
  throw Exception(u"no box: "_s + column);
}

QString SlipFieldsPage::text(const QString& column) const {
  if (const auto* memo = dynamic_cast<MemoEdit*>(frame(column))) return memo->text();
  return edit<EditBox>(column)->text();
}

void SlipFieldsPage::setText(const QString& column, const QString& text) {
  if (auto* memo = dynamic_cast<MemoEdit*>(frame(column)))
    memo->setText(text);
  else
    edit<EditBox>(column)->setText(text);
}

std::vector<SlipText> SlipFieldsPage::texts() const {
  std::vector<SlipText> texts;
  for (const SlipField& field : slipFields())
    if (field.editor != SlipEditor::Date && field.editor != SlipEditor::Currency && field.editor != SlipEditor::ReadOnlyText)
      texts.push_back({field.column, field.caption.trimmed(), text(field.column), field.maximumLength});
  return texts;
}

std::optional<FieldMessage> SlipFieldsPage::unreadableField() const {
  for (const SlipField& field : slipFields()) {
    try {
      frame(field.column)->editValue();
    } catch (const EConvertError& error) {
      return FieldMessage{field.column, error.message()};
    }
  }
  return std::nullopt;
}

int SlipFieldsPage::rowStep() const { return frames_[u"TS_NO"_s]->oneLineHeight() + rowGap; }

int SlipFieldsPage::groupHeight(int rows) const { return fontMetrics().height() + inset + rows * rowStep() + inset; }

void SlipFieldsPage::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  guarded(this, [&] { arrange(); });
}

void SlipFieldsPage::arrange() {
  const bool wide = isWide(width());
  const int left = wide ? wideLeft : narrowLeft;
  const int side = std::clamp(width() - left - margin, sideWidth, wide ? widestSide : widestSideBelow);
  const int sideBox = side - 2 * inset;
  const int top = groupHeight(fullRows);
  const int second = margin + top + margin;
  const int lowerTop = wide ? second : second + top + margin;
  const int lower = std::max(groupHeight(deviceRows), height() - lowerTop - margin);
  placeGroup(groups_[SlipGroup::Slip], {margin, margin, halfWidth, top}, boxWidth);
  if (wide)
    placeGroup(groups_[SlipGroup::Customer], {narrowLeft, margin, halfWidth, top}, boxWidth);
  else
    placeGroup(groups_[SlipGroup::Customer], {margin, second, halfWidth, top}, boxWidth);
  const int farWidth = wide ? wideBox : sideBox;
  placeGroup(groups_[SlipGroup::Device], {margin, lowerTop, narrowLeft + farWidth + 2 * inset - margin, lower}, boxWidth, farWidth);
  placeGroup(groups_[SlipGroup::Amounts], {left, margin, side, top}, sideBox);
  placeGroup(groups_[SlipGroup::Record], {left, second, side, wide ? lower : groupHeight(recordRows)}, sideBox);
}

/// farWidth: of the boxes behind the second column.
void SlipFieldsPage::placeGroup(const Group& group, QRect place, int width, int farWidth) {
  group.box->setGeometry(place);
  const int top = fontMetrics().height() + inset;
  const int memoStep = (place.height() - top - inset + rowGap) / 3;
  for (const SlipField* field : group.fields) {
    const bool isFar = field->gridColumn > 1;
    const int x = inset + (isFar ? halfWidth + margin : 0) + field->gridColumn % 2 * (boxWidth + gap);
    const int step = field->editor == SlipEditor::Memo ? memoStep : rowStep();
    EditFrame* frame = frames_[field->column];
    const int nearWidth = field->gridSpan == 1 && frame != widened_ ? width : wideBox;
    frame->setGeometry(x, top + field->gridRow * step, isFar ? farWidth : nearWidth, step - rowGap);
  }
}

void SlipFieldsPage::connectAids() {
  for (const QString& column : {u"TS_ACIKLAMA"_s, u"TS_TEKNISYEN"_s, u"TS_UNVAN"_s}) {
    auto* box = edit<EditBox>(column);
    connectGuarded(box, &EditBox::entered, this, [this, box] {
      widened_ = box;
      box->resize(wideBox, box->height());
      box->raise();
    });
    connectGuarded(box, &EditBox::left, this, [this, box] {
      widened_ = nullptr;
      box->resize(boxWidth, box->height());
    });
  }

  const auto spaceSetsToday = [this](const QString& pressedIn, const QString& set) {
    auto* date = edit<DateEdit>(set);
    edit<DateEdit>(pressedIn)->setKeyFilter([date](const QKeyEvent& key) {
      if (key.key() != Qt::Key_Space) return false;
      date->setDate(environment().today());
      return true;
    });
  };
  spaceSetsToday(u"TS_TARIH"_s, u"TS_TARIH"_s);
  // In the appointment's box the space bar sets the slip's date: meant.
  spaceSetsToday(u"TS_RANDEVU"_s, u"TS_TARIH"_s);
  spaceSetsToday(u"TS_TESLIM_TARIH"_s, u"TS_TESLIM_TARIH"_s);

  connectGuarded(edit<ComboEdit>(u"TS_TURU"_s), &ComboEdit::itemChanged, this, [this](int item) { statusChosen(item); });

  for (const QString& column : {u"TS_SERVIS_TUTAR"_s, u"TS_ISCILIK_TUTAR"_s, u"TS_PARCA_TUTAR"_s})
    connectGuarded(edit<CurrencyEdit>(column), &EditBox::left, this, [this] { showTotal(); });

  auto* mail = edit<EditBox>(u"TS_EPOSTA"_s);
  connectGuarded(mail, &EditBox::buttonClicked, this, [mail](int index) {
    if (index == 1 && !mail->text().isEmpty()) shellOpen(u"mailto:"_s + mail->text());
  });
}

void SlipFieldsPage::showTotal() {
  const auto amount = [this](const QString& column) { return edit<CurrencyEdit>(column)->value(); };
  try {
    const double total = SlipRules::total(amount(u"TS_SERVIS_TUTAR"_s), amount(u"TS_ISCILIK_TUTAR"_s), amount(u"TS_PARCA_TUTAR"_s));
    if (std::isfinite(total)) edit<CurrencyEdit>(u"TS_TUTAR"_s)->setValue(total);
  } catch (const EConvertError&) {
    // The box with the unreadable amount is marked, and the save will tell.
  }
}
