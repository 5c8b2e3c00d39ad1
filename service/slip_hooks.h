#pragma once

#include <functional>

class QString;
class TfServisFis;

/// Work that other subsystems do at its place in the slip editor. Each puts its own function here when the program starts;
/// an empty place is passed over, and a menu entry without its function is disabled.
struct SlipHooks {
  /// SMS to the customer, before anything is written; false ends the save. The status has been looked at already.
  std::function<bool(TfServisFis&)> sendIntakeSms;
  std::function<bool(TfServisFis&)> sendCompletionSms;
  /// E-mail to the customer, after an existing slip was written.
  std::function<void(TfServisFis&)> sendCompletionMail;

  /// A slip with a reminder of today was written.
  std::function<void()> refreshReminderList;
  /// What is known of an outer serial number.
  std::function<void(const QString& serial)> showSerialStatistics;

  std::function<void(TfServisFis&)> printReceipt;
  std::function<void(TfServisFis&)> designReceipt;
  std::function<void(TfServisFis&)> printLabel;
  std::function<void(TfServisFis&)> designLabel;
};

SlipHooks& slipHooks();
