#include "cards/card_editor.h"

#include "app/editors/qcx_db_editors.h"
#include "base/data/my_query.h"
#include "base/data/value.h"
#include "base/exceptions.h"
#include "base/guard.h"
#include "toolkit/shell/command_bar.h"
#include "toolkit/shell/screen_room.h"

#include <QAction>
#include <QBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int boxWidth = 225;
constexpr int gap = 6;
/// A box over both columns; also the width of a box that widens while it has the focus.
constexpr int wideBox = 2 * boxWidth + gap;
constexpr int rowGap = 4;
constexpr int margin = 10;

}  // namespace

CardEditor::CardEditor(TMyQuery& cards, const QString& objectName, const QString& title, const std::vector<CardField>& fields,
                       QWidget* parent)
    : QDialog(parent),
      cards_(cards),
      balloon_(this) {
  setObjectName(objectName);
  setWindowTitle(title);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(margin, margin, margin, margin);
  column->setSizeConstraint(QLayout::SetFixedSize);
  auto* area = new QWidget;
  placeBoxes(*area, fields);
  column->addWidget(new ScreenRoom(area));
  auto* bar = new CommandBar(this);
  column->addWidget(bar, 0, Qt::AlignRight);
  aKaydet = bar->addCommand(u"aKaydet"_s, u"F2 » Tamam"_s, u"dialog-ok-apply"_s, Qt::Key_F2);
  aVazgec = bar->addCommand(u"aVazgec"_s, u"F3 » Vazgeç"_s, u"dialog-cancel"_s, Qt::Key_F3);
  connectGuarded(aKaydet, &QAction::triggered, this, [this] { save(); });
  connectGuarded(aVazgec, &QAction::triggered, this, [this] { giveUp(); });
}

CardEditor::~CardEditor() = default;

EditFrame* CardEditor::addBox(QWidget& area, const CardField& field) {
  EditFrame* frame = nullptr;
  if (field.make) {
    frame = field.make(&area);
  } else {
    auto* text = new qcxDBTextEdit(&area);
    text->setCharCase(CharCase::Upper);
    frame = text;
  }
  frame->setObjectName(field.box.isEmpty() ? field.column : field.box);
  if (auto* line = dynamic_cast<EditBox*>(frame)) line->setCaption(field.caption);
  auto* link = dynamic_cast<LinkedBox*>(frame);
  if (link == nullptr) throw Exception(u"the box has no field: "_s + frame->objectName());
  link->fieldLink().onRefused = [this, frame](const Exception& error) { refused(*frame, error); };
  link->fieldLink().bind(&cards_, field.column);
  boxes_.push_back({frame, link, field.column});
  return frame;
}

void CardEditor::placeBoxes(QWidget& area, const std::vector<CardField>& fields) {
  int x = 0;
  int y = 0;
  int height = 0;  // of the line
  for (const CardField& field : fields) {
    EditFrame* frame = addBox(area, field);
    const int width = field.isWide ? wideBox : boxWidth;
    if (x + width > wideBox) {
      x = 0;
      y += height + rowGap;
      height = 0;
    }
    height = std::max(height, frame->sizeHint().height());
    frame->setGeometry(x, y, width, frame->sizeHint().height());
    x += width + gap;
  }
  area.setFixedSize(wideBox, y + height + rowGap);
}

EditFrame* CardEditor::frame(const QString& name) const {
  const auto found = std::ranges::find(boxes_, name, [](const Box& each) { return each.frame->objectName(); });
  if (found == boxes_.end()) throw Exception(u"the editor has no box "_s + name);
  return found->frame;
}

EditBox* CardEditor::box(const QString& name) const {
  if (auto* line = dynamic_cast<EditBox*>(frame(name))) return line;
  throw Exception(u"no one-line box: "_s + name);
}

int CardEditor::showCard() {
  dropTyped();
  for (const Box& each : boxes_) {
    each.frame->setErrorText({});
    const FieldInfo& field = cards_.FieldByName(each.column).info();
    if (auto* line = dynamic_cast<EditBox*>(each.frame); line != nullptr && field.type == FieldType::Text)
      line->setMaxLength(int(field.size));
  }
  if (auto* first = dynamic_cast<EditBox*>(boxes_.front().frame)) {
    first->line()->setFocus();
    first->line()->selectAll();
  }
  return exec();
}

bool CardEditor::takeTyped() {
  const auto refusing = std::ranges::find_if_not(boxes_, [](const Box& each) { return each.link->fieldLink().leave(); });
  if (refusing != boxes_.end()) refusing->frame->setFocus();
  return refusing == boxes_.end();
}

void CardEditor::pointAt(EditFrame& box, const QString& text) {
  box.setFocus();
  balloon_.showAt(&box, text);
}

void CardEditor::refused(EditFrame& box, const Exception& error) {
  const auto* line = dynamic_cast<EditBox*>(&box);
  const auto* unstorable = dynamic_cast<const EUnstorableValue*>(&error);
  // The user knows the column by its caption.
  const QString text = line != nullptr && unstorable != nullptr ? unstorable->messageFor(line->caption().trimmed()) : error.message();
  box.setErrorText(text);
  balloon_.hide();  // the box that is told of last is the one that holds the card back
  balloon_.showAt(&box, text);
}

std::vector<Value> CardEditor::typed() const {
  std::vector<Value> values;
  for (const Box& each : boxes_) values.push_back(each.frame->editValue());
  return values;
}

void CardEditor::typeAgain(const std::vector<Value>& values) {
  for (size_t i = 0; i < boxes_.size(); ++i) {
    if (boxes_[i].frame->editValue().toText() == values[i].toText()) continue;
    boxes_[i].frame->setEditValue(values[i]);
    boxes_[i].link->fieldLink().markChanged();
  }
}

void CardEditor::dropTyped() {
  for (const Box& each : boxes_) each.link->fieldLink().refresh();
}

void CardEditor::widenWhileFocused(const QString& name) {
  EditBox* widened = box(name);
  connectGuarded(widened, &EditBox::entered, this, [widened] {
    widened->resize(wideBox, widened->height());
    widened->raise();
  });
  connectGuarded(widened, &EditBox::left, this, [widened] { widened->resize(boxWidth, widened->height()); });
}

void CardEditor::reject() {
  guarded(this, [this] { giveUp(); });
}
