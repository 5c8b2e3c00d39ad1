#include "cards/card_editor.h"

#include "app/editors/qcx_db_editors.h"
#include "base/exceptions.h"
#include "base/guard.h"
#include "toolkit/shell/command_bar.h"

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
  auto* area = new QWidget(this);
  placeBoxes(*area, fields);
  column->addWidget(area);
  auto* bar = new CommandBar(this);
  column->addWidget(bar, 0, Qt::AlignRight);
  aKaydet = bar->addCommand(u"aKaydet"_s, u"F2 » Tamam"_s, u"dialog-ok-apply"_s, Qt::Key_F2);
  aVazgec = bar->addCommand(u"aVazgec"_s, u"F3 » Vazgeç"_s, u"dialog-cancel"_s, Qt::Key_F3);
  connectGuarded(aKaydet, &QAction::triggered, this, [this] { save(); });
  connectGuarded(aVazgec, &QAction::triggered, this, [this] { giveUp(); });
}

CardEditor::~CardEditor() {
  for (qcxDBTextEdit* each : boxes_) each->fieldLink().bind(nullptr, {});
}

void CardEditor::placeBoxes(QWidget& area, const std::vector<CardField>& fields) {
  int x = 0;
  int y = 0;
  int height = 0;
  for (const CardField& field : fields) {
    auto* edit = new qcxDBTextEdit(&area);
    edit->setObjectName(field.column);
    edit->setCaption(field.caption);
    edit->setCharCase(CharCase::Upper);
    edit->fieldLink().bind(&cards_, field.column);
    boxes_.push_back(edit);
    height = edit->oneLineHeight();
    const int width = field.isWide ? wideBox : boxWidth;
    if (x + width > wideBox) {
      x = 0;
      y += height + rowGap;
    }
    edit->setGeometry(x, y, width, height);
    x += width + gap;
  }
  area.setFixedSize(wideBox, y + height + rowGap);
}

qcxDBTextEdit* CardEditor::box(const QString& column) const {
  const auto found = std::ranges::find(boxes_, column, [](const qcxDBTextEdit* each) { return each->objectName(); });
  if (found == boxes_.end()) throw Exception(u"the editor has no box "_s + column);
  return *found;
}

int CardEditor::showCard() {
  dropTyped();
  for (qcxDBTextEdit* each : boxes_) {
    each->setErrorText({});
    each->setMaxLength(int(cards_.FieldByName(each->objectName()).info().size));
  }
  boxes_.front()->line()->setFocus();
  boxes_.front()->line()->selectAll();
  return exec();
}

bool CardEditor::takeTyped() {
  for (qcxDBTextEdit* each : boxes_) {
    try {
      each->fieldLink().updateRecord();
    } catch (const EUnstorableValue& error) {
      balloon_.showAt(each, error.message());
      return false;
    }
  }
  return true;
}

void CardEditor::dropTyped() {
  for (qcxDBTextEdit* each : boxes_) each->fieldLink().refresh();
}

void CardEditor::widenWhileFocused(const QString& column) {
  qcxDBTextEdit* widened = box(column);
  connectGuarded(widened, &EditBox::entered, this, [widened] {
    widened->resize(wideBox, widened->height());
    widened->raise();
  });
  connectGuarded(widened, &EditBox::left, this, [widened] { widened->resize(boxWidth, widened->height()); });
}

void CardEditor::reject() {
  guarded(this, [this] { giveUp(); });
}
