#pragma once

#include "toolkit/edits/parsed_edit.h"

/// A date and a time of day, "dd.MM.yyyy HH:mm:ss", that can be empty; a date alone stands for its midnight.
class DateTimeEdit : public ParsedEdit {
  Q_OBJECT
 public:
  explicit DateTimeEdit(QWidget* parent = nullptr);

  /// Invalid when empty. Throws EConvertError for a text that is no date with time.
  QDateTime dateTime() const;
  void setDateTime(const QDateTime& moment);
  void setEditValue(const Value& value) override;

 protected:
  Value parsed(const QString& text) const override;
  QString shown(const Value& value) const override;
  QString complaintOf(const QString& text) const override;
  bool takes(QChar character) const override;
  Value stepped(const Value& from, int part, int by) const override;
  Value firstStep(int by) const override;
};
