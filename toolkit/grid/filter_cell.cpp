#include "toolkit/grid/filter_cell.h"

#include "base/environment.h"
#include "base/guard.h"
#include "base/turkish_text.h"
#include "toolkit/edits/lookup_edit.h"
#include "toolkit/grid/filter_row.h"

#include <QKeyEvent>
#include <QMenu>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {

constexpr int signWidth = 18;

}  // namespace

FilterCell::FilterCell(FilterRow* row, const GridColumn& column, int number, FieldType type)
    : QWidget(row), row_(row), number_(number), type_(type), values_(column.values), comparison_(GridConditions::usual(type)), sign_(new QToolButton(this)) {
  setObjectName(column.field + u"_filter"_s);
  const QString name = u"%1 filtresi"_s.arg(column.caption.trimmed());
  sign_->setAutoRaise(true);
  sign_->setFocusPolicy(Qt::NoFocus);
  sign_->setAccessibleName(u"%1 karşılaştırması"_s.arg(column.caption.trimmed()));
  connectGuarded(sign_, &QToolButton::clicked, this, [this] { openComparisons(); });
  if (column.choices != nullptr) {
    lookUp_ = new LookupEdit(this);
    lookUp_->setSource(column.choices);
    lookUp_->setEnterMovesOn(false);
    line_ = lookUp_->line();
    refreshChoices_ = column.refreshChoices;
    connectGuarded(lookUp_->button(0), &QToolButton::pressed, lookUp_, [this] { refreshChoices(); });
    connectGuarded(lookUp_, &LookupEdit::entryChosen, this, [this] {
      choose(FilterOperator::Equal, lookUp_->text());
      // On to the rows, unless Tab took the entry and goes to the next cell.
      postGuarded(this, [this] {
        if (line_->hasFocus()) row_->leave(number_);
      });
    });
    connectGuarded(lookUp_, &EditBox::textEdited, this, [this](const QString& text) { typed(text, false); });
    lookUp_->setAccessibleName(name);
  } else {
    line_ = new QLineEdit(this);
    line_->setFrame(false);
    connectGuarded(line_, &QLineEdit::textEdited, this, [this](const QString& text) { typed(text, false); });
  }
  line_->setAccessibleName(name);
  line_->setMaxLength(255);
  line_->installEventFilter(this);
  show(GridCondition{comparison_, {}});
}

void FilterCell::show(const GridCondition& condition) {
  comparison_ = condition.comparison;
  sign_->setText(GridConditions::sign(comparison_));
  sign_->setToolTip(GridConditions::caption(comparison_));
  if (line_->text() == condition.text) return;
  if (lookUp_ != nullptr)
    lookUp_->setText(condition.text);
  else
    line_->setText(condition.text);
}

void FilterCell::setWrong(const QString& reason) {
  QPalette colors = row_->palette();
  if (!reason.isEmpty()) colors.setColor(QPalette::Text, QColor(0xb0, 0x1e, 0x1e));
  line_->setPalette(colors);
  line_->setToolTip(reason);
}

void FilterCell::refreshChoices() {
  if (!refreshChoices_) return;
  refreshChoices_();
  lookUp_->sourceChanged();
}

void FilterCell::typed(const QString& text, bool atOnce) {
  QString searched = TurkishText::composed(text);
  if (row_->upperCase()) searched = TurkishText::BuyukHarf(searched);
  if (searched != text) {
    const auto behind = text.size() - line_->cursorPosition();
    line_->setText(searched);
    line_->setCursorPosition(int(searched.size() - behind));
  }
  const bool needsNoText = comparison_ == FilterOperator::Empty || comparison_ == FilterOperator::NotEmpty;
  // An entry of the list is searched for as a whole; what is typed after it was taken away is not.
  const bool entryIsGone = lookUp_ != nullptr && searched.isEmpty();
  if ((needsNoText && !searched.isEmpty()) || entryIsGone) comparison_ = GridConditions::usual(type_);
  sign_->setText(GridConditions::sign(comparison_));
  row_->edited(number_, {comparison_, searched}, atOnce);
}

void FilterCell::choose(FilterOperator comparison, const QString& text) {
  const bool needsNoText = comparison == FilterOperator::Empty || comparison == FilterOperator::NotEmpty;
  const GridCondition condition{comparison, needsNoText ? QString() : text};
  show(condition);
  row_->edited(number_, condition, true);
  line_->setFocus();
}

void FilterCell::openComparisons() {
  QMenu menu(this);
  for (const FilterOperator each : GridConditions::offered(type_)) {
    QAction* action = menu.addAction(u"%1   %2"_s.arg(GridConditions::sign(each), GridConditions::caption(each)));
    action->setCheckable(true);
    action->setChecked(each == comparison_);
    connectGuarded(action, &QAction::triggered, this, [this, each] { choose(each, line_->text()); });
  }
  if (!values_.empty()) menu.addSeparator();
  for (const GridListValue& each : values_)
    connectGuarded(menu.addAction(each.shown.isEmpty() ? u"<boş>"_s : each.shown), &QAction::triggered, this, [this, each] {
      choose(each.shown.isEmpty() ? FilterOperator::Empty : FilterOperator::Equal, each.shown);
    });
  if (type_ == FieldType::Date || type_ == FieldType::DateTime) {
    menu.addSeparator();
    for (const GridConditions::Period& period : GridConditions::periods(environment().today()))
      connectGuarded(menu.addAction(period.caption), &QAction::triggered, this,
                     [this, text = period.text] { choose(FilterOperator::Equal, text); });
  }
  menu.addSeparator();
  QAction* empty = menu.addAction(u"Hücreyi temizle"_s);
  connectGuarded(empty, &QAction::triggered, this, [this] { choose(GridConditions::usual(type_), {}); });
  menu.exec(mapToGlobal(QPoint(0, height())));
}

bool FilterCell::eventFilter(QObject* watched, QEvent* event) {
  if (watched == line_ && (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut)) row_->updatePrompt();
  if (watched == line_ && event->type() == QEvent::FocusIn) Q_EMIT row_->entered(number_);
  if (watched != line_ || event->type() != QEvent::KeyPress) return QWidget::eventFilter(watched, event);
  const auto* press = static_cast<QKeyEvent*>(event);
  const bool listOpen = lookUp_ != nullptr && lookUp_->isDropDownOpen();
  bool used = true;
  guarded(this, [&] {
    switch (press->key()) {
      case Qt::Key_Down:
        if (press->modifiers() & Qt::AltModifier && lookUp_ == nullptr)
          openComparisons();
        else if (lookUp_ == nullptr)
          row_->leave(number_);
        else
          used = false;
        if (lookUp_ != nullptr && !listOpen) refreshChoices();
        return;
      case Qt::Key_Return:
      case Qt::Key_Enter:
        used = !listOpen;
        if (used) goToRows();
        return;
      case Qt::Key_Escape:
        if (line_->text().isEmpty() || listOpen) {
          used = false;
          return;
        }
        choose(GridConditions::usual(type_), {});
        return;
      default:
        used = false;
    }
  });
  return used || QWidget::eventFilter(watched, event);
}

void FilterCell::goToRows() {
  row_->edited(number_, {comparison_, line_->text()}, true);
  row_->leave(number_);
}

void FilterCell::setSignShown(bool shown) {
  if (shown == signShown_) return;
  signShown_ = shown;
  place();
}

void FilterCell::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  place();
}

void FilterCell::place() {
  const int sign = signShown_ && width() > 3 * signWidth ? signWidth : 0;
  sign_->setVisible(sign > 0);
  sign_->setGeometry(0, 0, sign, height());
  QWidget* box = lookUp_ != nullptr ? static_cast<QWidget*>(lookUp_) : line_;
  box->setGeometry(sign, 0, width() - sign - 1, height() - 1);
}
