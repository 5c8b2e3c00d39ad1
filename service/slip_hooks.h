#pragma once

#include <functional>

class QString;
class QWidget;
class TMyQuery;

/// A slip on the screen, as other subsystems see it.
class SlipScreen {
 public:
  /// Text of a column's box on the first page.
  virtual QString text(const QString& column) const = 0;
  /// The box of a column; null for a column that has none on the first page.
  virtual QWidget* control(const QString& column) const = 0;
  /// Shows a balloon beside control; nothing happens while one is up. column: of a table, unused by other controls.
  virtual void QuendHint(QWidget* control, int column, const QString& text) = 0;
  /// The note, which stands on a page of its own.
  virtual QString noteText() const = 0;
  /// Place of the status in the list that is offered; -1 for none of it.
  virtual int statusIndex() const = 0;
  /// The parts, with those that are not saved yet.
  virtual const TMyQuery& lines() const = 0;
  /// What dialogs stand over.
  virtual QWidget* dialogOwner() = 0;

 protected:
  ~SlipScreen() = default;
};

/// Work that other subsystems do at its place in the slip editor. Each puts its own function here when the program starts;
/// an empty place is passed over, and a menu entry without its function is disabled.
struct SlipHooks {
  /// SMS to the customer, before anything is written; false ends the save. The status has been looked at already.
  std::function<bool(SlipScreen&)> sendIntakeSms;
  std::function<bool(SlipScreen&)> sendCompletionSms;
  /// E-mail to the customer, after an existing slip was written.
  std::function<void(SlipScreen&)> sendCompletionMail;

  /// A slip with a reminder of today was written.
  std::function<void()> refreshReminderList;

  std::function<void(SlipScreen&)> printReceipt;
  std::function<void(SlipScreen&)> designReceipt;
  std::function<void(SlipScreen&)> printLabel;
  std::function<void(SlipScreen&)> designLabel;
};

SlipHooks& slipHooks();
