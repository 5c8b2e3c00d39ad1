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
constexpr int widestSide = 360;  ///< beside a device that has a column of its own
/// What stands left of the amounts, with the customer beside the slip or below it.
constexpr int threeLeft = margin + halfWidth + margin + halfWidth + margin;
constexpr int twoLeft = margin + halfWidth + margin;
constexpr int fullRows = 6;  ///< of all groups but these:
constexpr int deviceRows = 4;  ///< of its boxes, and at least as high are its memos beside them
constexpr int recordRows = 2;
constexpr int memoRows = 2;  ///< of each memo that stands below, at least

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
  setMinimumWidth(margin + halfWidth + margin);
  QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
  policy.setHeightForWidth(true);
  setSizePolicy(policy);
}

QSize SlipFieldsPage::sizeHint() const {
  constexpr int width = threeLeft + sideWidth + margin;
  return {width, heightForWidth(width) + rowStep()};
}

int SlipFieldsPage::heightForWidth(int width) const {
  const int upper = margin + groupHeight(fullRows);
  switch (arrangementFor({width, 0})) {
    case Arrangement::OneColumn:
      return 3 * upper + margin + groupHeight(deviceRows + 3 * memoRows) + margin;
    case Arrangement::TwoColumns:
      return 2 * upper + margin + groupHeight(deviceRows) + margin;
    default:
      return upper + margin + groupHeight(deviceRows) + margin;
  }
}

SlipFieldsPage::Arrangement SlipFieldsPage::arrangementFor(QSize room) const {
  if (room.width() < twoLeft + sideWidth + margin) return Arrangement::OneColumn;
  if (room.width() < threeLeft + sideWidth + margin) return Arrangement::TwoColumns;
  const bool hasRoom = room.width() > threeLeft + widestSide + margin && room.height() >= 2 * (margin + groupHeight(fullRows)) + margin;
  return hasRoom ? Arrangement::DeviceColumn : Arrangement::ThreeColumns;
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
  using enum SlipGroup;
  const int whole = width() - 2 * margin;
  const int upper = groupHeight(fullRows);
  const int second = margin + upper + margin;
  const int third = second + upper + margin;
  const auto toBottom = [this](int top, int rows) { return std::max(groupHeight(rows), height() - top - margin); };
  const Widths plain{boxWidth, boxWidth};
  switch (arrangementFor(size())) {
    case Arrangement::OneColumn: {
      const Widths wide{boxWidth, whole - 2 * inset - boxWidth - gap};
      const int device = groupHeight(deviceRows + 3 * memoRows);
      const int side = (whole - margin) / 2;
      const int last = third + device + margin;
      placeGroup(Slip, {margin, margin, whole, upper}, wide);
      placeGroup(Customer, {margin, second, whole, upper}, wide);
      placeGroup(Device, {margin, third, whole, device}, wide);
      placeGroup(Amounts, {margin, last, side, upper}, {side - 2 * inset});
      placeGroup(Record, {margin + side + margin, last, side, upper}, {side - 2 * inset});
      return;
    }
    case Arrangement::TwoColumns: {
      const int side = width() - twoLeft - margin;
      placeGroup(Slip, {margin, margin, halfWidth, upper}, plain);
      placeGroup(Customer, {margin, second, halfWidth, upper}, plain);
      placeGroup(Device, {margin, third, whole, toBottom(third, deviceRows)}, {boxWidth, boxWidth, side - 2 * inset});
      placeGroup(Amounts, {twoLeft, margin, side, upper}, {side - 2 * inset});
      placeGroup(Record, {twoLeft, second, side, groupHeight(recordRows)}, {side - 2 * inset});
      return;
    }
    case Arrangement::ThreeColumns: {
      const int side = width() - threeLeft - margin;
      const int lower = toBottom(second, deviceRows);
      placeGroup(Slip, {margin, margin, halfWidth, upper}, plain);
      placeGroup(Customer, {twoLeft, margin, halfWidth, upper}, plain);
      placeGroup(Device, {margin, second, threeLeft - 2 * margin, lower}, {boxWidth, boxWidth, wideBox});
      placeGroup(Amounts, {threeLeft, margin, side, upper}, {side - 2 * inset});
      placeGroup(Record, {threeLeft, second, side, lower}, {side - 2 * inset});
      return;
    }
    case Arrangement::DeviceColumn: {
      const int sideLeft = width() - margin - widestSide;
      const int device = sideLeft - margin - twoLeft;
      const int box = (device - 2 * inset - gap) / 2;
      placeGroup(Slip, {margin, margin, halfWidth, upper}, plain);
      placeGroup(Customer, {margin, second, halfWidth, toBottom(second, fullRows)}, plain);
      placeGroup(Device, {twoLeft, margin, device, height() - 2 * margin}, {box, box});
      placeGroup(Amounts, {sideLeft, margin, widestSide, upper}, {widestSide - 2 * inset});
      placeGroup(Record, {sideLeft, second, widestSide, toBottom(second, fullRows)}, {widestSide - 2 * inset});
      return;
    }
  }
}

void SlipFieldsPage::placeGroup(SlipGroup name, QRect place, Widths widths) {
  const Group& group = groups_[name];
  group.box->setGeometry(place);
  const int top = fontMetrics().height() + inset;
  const int both = widths.first + gap + widths.second;
  const bool memosBeside = widths.memo > 0;
  const int memoLeft = memosBeside ? inset + halfWidth + margin : inset;
  const int memoTop = memosBeside ? top : top + deviceRows * rowStep();
  const int memoStep = (place.height() - memoTop - inset + rowGap) / 3;
  for (const SlipField* field : group.fields) {
    EditFrame* frame = frames_[field->column];
    if (field->editor == SlipEditor::Memo) {
      frame->setGeometry(memoLeft, memoTop + field->gridRow * memoStep, memosBeside ? widths.memo : both, memoStep - rowGap);
      continue;
    }
    const bool isSecond = field->gridColumn == 1;
    int width = isSecond ? widths.second : widths.first;
    if (field->gridSpan > 1) width = both;
    if (frame == widened_) width = wideBox;
    frame->setGeometry(inset + (isSecond ? widths.first + gap : 0), top + field->gridRow * rowStep(), width, rowStep() - rowGap);
  }
}

void SlipFieldsPage::connectAids() {
  for (const QString& column : {u"TS_ACIKLAMA"_s, u"TS_TEKNISYEN"_s, u"TS_UNVAN"_s}) {
    auto* box = edit<EditBox>(column);
    connectGuarded(box, &EditBox::entered, this, [this, box] {
      widened_ = box;
      box->raise();
      arrange();
    });
    connectGuarded(box, &EditBox::left, this, [this] {
      widened_ = nullptr;
      arrange();
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
