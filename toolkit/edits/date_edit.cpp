#include "toolkit/edits/date_edit.h"

#include "base/date_text.h"
#include "base/environment.h"
#include "base/guard.h"
#include "toolkit/edits/drop_down.h"

#include <QCalendarWidget>
#include <QHBoxLayout>
#include <QPainter>
#include <QPushButton>
#include <QTextCharFormat>
#include <QToolButton>
#include <QVBoxLayout>

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

void DateEdit::setEditValue(const Value& value) { setDate(value.toDate()); }

Value DateEdit::parsed(const QString& text) const { return DateText::toDate(text).value_or(QDate()); }

QString DateEdit::shown(const Value& value) const { return DateText::date(value.toDate()); }

QString DateEdit::complaintOf(const QString& text) const { return u"%1 geçerli bir tarih değil."_s.arg(quoted(text)); }

bool DateEdit::takes(QChar character) const { return (character >= u'0' && character <= u'9') || u"./-"_s.contains(character); }

Value DateEdit::stepped(const Value& from, int part, int by) const { return steppedDate(from.toDate(), part, by); }

Value DateEdit::firstStep() const { return environment().today(); }

void DateEdit::keyDown(int& key, Qt::KeyboardModifiers modifiers) {
  if (key == Qt::Key_F4 || (key == Qt::Key_Down && modifiers.testFlag(Qt::AltModifier))) {
    key = 0;
    dropDown();
    return;
  }
  ParsedEdit::keyDown(key, modifiers);
}

bool DateEdit::isDropDownOpen() const { return dropDown_ && dropDown_->isVisible(); }

void DateEdit::dropDown() {
  if (isReadOnly() || !isEnabled()) return;
  if (!dropDown_) buildCalendar();
  if (isDropDownOpen()) return dropDown_->hide();
  if (dropDown_->hasJustClosed()) return;
  setFocus(Qt::OtherFocusReason);
  const QDate typed = DateText::toDate(text()).value_or(QDate());
  calendar_->setSelectedDate(typed.isValid() ? typed : environment().today());
  dropDown_->openUnder(dropDown_->sizeHint());
  calendar_->setFocus(Qt::PopupFocusReason);
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
  content->setFocusProxy(calendar_);

  dropDown_ = new DropDown(this, content, nullptr, false);
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
