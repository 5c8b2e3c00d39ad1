#pragma once

#include <functional>

class QString;
class QWidget;
class TfServisFis;

/// A slip on the screen, as other subsystems see it.
class SlipScreen {
 public:
  /// Text of a column's box on the first page.
  virtual QString text(const QString& column) const = 0;
  /// The box of a column; null for a column that has none on the first page.
  virtual QWidget* control(const QString& column) const = 0;
  /// Shows a balloon beside control; nothing happens while one is up. column: of a table, unused by other controls.
  virtual void QuendHint(QWidget* control, int column, const QString& text) = 0;
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

  std::function<void(TfServisFis&)> printReceipt;
  std::function<void(TfServisFis&)> designReceipt;
  std::function<void(TfServisFis&)> printLabel;
  std::function<void(TfServisFis&)> designLabel;
};

SlipHooks& slipHooks();
