#pragma once

#include "toolkit/edits/parsed_edit.h"

/// The time with its hours (part 0), minutes or seconds changed by so many, round the clock.
QTime steppedTime(QTime time, int part, int by);

/// A time of day, "HH:mm", that can be empty; typed with or without the colon. Seconds of a stored time are shown when
/// they are not zero.
class TimeEdit : public ParsedEdit {
  Q_OBJECT
 public:
  explicit TimeEdit(QWidget* parent = nullptr);

  /// Invalid when empty. Throws EConvertError for a text that is no time.
  QTime time() const;
  void setTime(QTime time);
  /// The time that an empty box is stepped from; without one the first step brings the present time.
  void setStart(QTime time) { start_ = time; }

 protected:
  Value parsed(const QString& text) const override;
  QString shown(const Value& value) const override;
  QString complaintOf(const QString& text) const override;
  bool takes(QChar character) const override;
  Value stepped(const Value& from, int part, int by) const override;
  Value firstStep(int by) const override;

 private:
  QTime start_;
};
