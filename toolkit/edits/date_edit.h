#pragma once

#include "toolkit/edits/parsed_edit.h"

class DropDown;
class QCalendarWidget;

/// The date with its day (part 0), month or year changed by so many; invalid outside the years 1 to 9999.
QDate steppedDate(QDate date, int part, int by);

/// A date, "dd.MM.yyyy", that can be empty; typed with or without points, or taken from a calendar. Button 0 is the arrow
/// of the calendar, which F4 and Alt+Down open; what keys moved to in it is taken when it closes, unless Escape closes it.
class DateEdit : public ParsedEdit {
  Q_OBJECT
 public:
  explicit DateEdit(QWidget* parent = nullptr);

  /// Invalid when empty. Throws EConvertError for a text that is no date.
  QDate date() const;
  void setDate(QDate date);
  bool keepsKey(const QKeyEvent& key) const override;

  void dropDown();
  bool isDropDownOpen() const;

 Q_SIGNALS:
  /// The user took a date from the calendar, or emptied the box there.
  void dateTaken(QDate date);

 protected:
  Value parsed(const QString& text) const override;
  QString shown(const Value& value) const override;
  QString complaintOf(const QString& text) const override;
  bool takes(QChar character) const override;
  Value stepped(const Value& from, int part, int by) const override;
  Value firstStep(int by) const override;
  void keyDown(int& key, Qt::KeyboardModifiers modifiers) override;
  void leaving() override;

 private:
  void take(QDate date);
  void dismiss();
  bool moveInCalendar(int key);
  void buildCalendar();

  DropDown* dropDown_ = nullptr;
  QCalendarWidget* calendar_ = nullptr;
  bool movedByKey_ = false;  ///< in the open calendar
};
