#include "toolkit/edits/date_edit.h"

#include "base/data/value.h"
#include "base/date_text.h"
#include "base/environment.h"
#include "base/guard.h"
#include "toolkit/edits/drop_down.h"

#include <QCalendarWidget>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>
#include <QPushButton>
#include <QSpinBox>
#include <QTextCharFormat>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// A chevron that points left or right, in three sizes' worth of pixels.
QIcon chevron(const QColor& colour, bool left) {
  constexpr int Size = 16;
  QPixmap pixmap(QSize(Size, Size) * 3);
  pixmap.setDevicePixelRatio(3);
  pixmap.fill(Qt::transparent);
  QPainter painter(&pixmap);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(colour, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  const double tip = left ? 5.5 : 10.5;
  const double ends = left ? 10 : 6;
  painter.drawPolyline(QPolygonF{{ends, 3.5}, {tip, 8}, {ends, 12.5}});
  return pixmap;
}

/// The theme's arrows are dark and would not be seen on the calendar's coloured bar.
void showArrows(QCalendarWidget& calendar) {
  const QColor colour = calendar.palette().color(QPalette::HighlightedText);
  for (const bool left : {true, false})
    if (auto* button = calendar.findChild<QToolButton*>(left ? u"qt_calendar_prevmonth"_s : u"qt_calendar_nextmonth"_s))
      button->setIcon(chevron(colour, left));
}

}  // namespace

QDate steppedDate(QDate date, int part, int by) {
  const QDate next = part == 0 ? date.addDays(by) : part == 1 ? date.addMonths(by) : date.addYears(by);
  return next.year() >= 1 && next.year() <= 9999 ? next : QDate();
}

DateEdit::DateEdit(QWidget* parent) : ParsedEdit(parent) {
  auto arrow = arrowButton();
  arrow.hint = u"Takvimi Aç"_s;
  addButton(arrow);
  connectGuarded(this, &EditBox::buttonClicked, this, [this](int index) {
    if (index == 0) dropDown();
  });
}

QDate DateEdit::date() const { return editValue().toDate(); }

void DateEdit::setDate(QDate date) { setText(DateText::date(date)); }

Value DateEdit::parsed(const QString& text) const { return DateText::toDate(text).value_or(QDate()); }

QString DateEdit::shown(const Value& value) const { return DateText::date(value.toDate()); }

QString DateEdit::complaintOf(const QString& text) const { return u"%1 geçerli bir tarih değil."_s.arg(quoted(text)); }

bool DateEdit::takes(QChar character) const { return (character >= u'0' && character <= u'9') || u"./-"_s.contains(character); }

Value DateEdit::stepped(const Value& from, int part, int by) const { return steppedDate(from.toDate(), part, by); }

Value DateEdit::firstStep(int) const { return environment().today(); }

void DateEdit::keyDown(int& key, Qt::KeyboardModifiers modifiers) {
  const bool alt = modifiers.testFlag(Qt::AltModifier);
  if (key == Qt::Key_F4 || (alt && (key == Qt::Key_Down || (key == Qt::Key_Up && isDropDownOpen())))) {
    key = 0;
    return dropDown();
  }
  if (isDropDownOpen() && (modifiers & ~Qt::KeypadModifier) == Qt::NoModifier && moveInCalendar(key)) {
    key = 0;
    return;
  }
  ParsedEdit::keyDown(key, modifiers);
}

bool DateEdit::keepsKey(const QKeyEvent& key) const {
  return isDropDownOpen() && DropDown::worksWith(key, {Qt::Key_Left, Qt::Key_Right});
}

/// Does in the open calendar what a key means there; false when it means nothing.
bool DateEdit::moveInCalendar(int key) {
  constexpr int week = 7;
  QDate date = calendar_->selectedDate();
  switch (key) {
    case Qt::Key_Left:
      date = date.addDays(-1);
      break;
    case Qt::Key_Right:
      date = date.addDays(1);
      break;
    case Qt::Key_Up:
      date = date.addDays(-week);
      break;
    case Qt::Key_Down:
      date = date.addDays(week);
      break;
    case Qt::Key_PageUp:
      date = date.addMonths(-1);
      break;
    case Qt::Key_PageDown:
      date = date.addMonths(1);
      break;
    case Qt::Key_Home:
      date = QDate(date.year(), date.month(), 1);
      break;
    case Qt::Key_End:
      date = QDate(date.year(), date.month(), date.daysInMonth());
      break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      take(date);
      return true;
    case Qt::Key_Escape:
      dropDown_->hide();
      return true;
    default:
      return false;
  }
  calendar_->setSelectedDate(date);
  movedByKey_ = true;
  return true;
}

bool DateEdit::isDropDownOpen() const { return dropDown_ && dropDown_->isVisible(); }

void DateEdit::dropDown() {
  if (isReadOnly() || !isEnabled()) return;
  if (!dropDown_) buildCalendar();
  if (isDropDownOpen()) return dismiss();
  setFocus(Qt::OtherFocusReason);
  const QDate typed = DateText::toDate(text()).value_or(QDate());
  calendar_->setSelectedDate(typed.isValid() ? typed : environment().today());
  dropDown_->openUnder(dropDown_->sizeHint());
  movedByKey_ = false;
}

/// Closes the calendar as the user goes on to something else.
void DateEdit::dismiss() {
  if (!isDropDownOpen()) return;
  if (movedByKey_)
    take(calendar_->selectedDate());
  else
    dropDown_->hide();
}

void DateEdit::leaving() {
  dismiss();
  ParsedEdit::leaving();
}

void DateEdit::buildCalendar() {
  auto* content = new QWidget;
  calendar_ = new QCalendarWidget(content);
  calendar_->setLocale(QLocale(QLocale::Turkish, QLocale::Turkey));
  calendar_->setFirstDayOfWeek(Qt::Monday);
  calendar_->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
  calendar_->setHorizontalHeaderFormat(QCalendarWidget::ShortDayNames);
  calendar_->setDateEditEnabled(false);
  calendar_->setAccessibleName(u"Takvim"_s);
  showArrows(*calendar_);
  auto* today = new QPushButton(u"Bugün"_s, content);
  auto* empty = new QPushButton(u"Temizle"_s, content);

  auto* column = new QVBoxLayout(content);
  column->setContentsMargins(4, 4, 4, 4);
  column->addWidget(calendar_);
  auto* row = new QHBoxLayout;
  row->addWidget(today);
  row->addWidget(empty);
  column->addLayout(row);
  for (auto* part : content->findChildren<QWidget*>()) part->setFocusPolicy(Qt::NoFocus);
  // The days follow the year while it is being changed; by itself the calendar waits until the year's box is left.
  if (auto* year = calendar_->findChild<QSpinBox*>(u"qt_calendar_yearedit"_s))
    connectGuarded(year, &QSpinBox::valueChanged, this, [this](int shown) { calendar_->setCurrentPage(shown, calendar_->monthShown()); });

  dropDown_ = new DropDown(this, content, false);
  connectGuarded(dropDown_, &DropDown::dismissed, this, [this] { dismiss(); });
  // The marked day comes along to another month, so that Enter takes what is seen.
  connectGuarded(calendar_, &QCalendarWidget::currentPageChanged, this, [this](int year, int month) {
    const QDate first(year, month, 1);
    calendar_->setSelectedDate(first.addDays(std::min(calendar_->selectedDate().day(), first.daysInMonth()) - 1));
  });
  connectGuarded(calendar_, &QCalendarWidget::clicked, this, [this](QDate date) { take(date); });
  connectGuarded(calendar_, &QCalendarWidget::activated, this, [this](QDate date) { take(date); });
  connectGuarded(today, &QPushButton::clicked, this, [this] { take(environment().today()); });
  connectGuarded(empty, &QPushButton::clicked, this, [this] { take({}); });
}

/// A click tells of itself twice (clicked, activated): the second finds the calendar closed.
void DateEdit::take(QDate date) {
  if (!isDropDownOpen()) return;
  dropDown_->hide();
  setDate(date);
  line()->selectAll();
  Q_EMIT textEdited(text());
  Q_EMIT dateTaken(date);
}
