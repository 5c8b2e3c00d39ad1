#pragma once

#include <QList>
#include <QString>

#include <exception>
#include <functional>

class CheckTree;
class QWidget;
class Report;
struct DesignSample;

template <class Signature>
class Port;

/// One function that the program fills in at its start. An empty place is passed over: it gives an empty value.
template <class Result, class... Arguments>
class Port<Result(Arguments...)> {
 public:
  template <class Function>
  Port& operator=(Function function) {
    function_ = std::move(function);
    return *this;
  }
  explicit operator bool() const { return static_cast<bool>(function_); }
  Result operator()(Arguments... arguments) const {
    if (function_) return function_(std::forward<Arguments>(arguments)...);
    return Result();
  }

 private:
  std::function<Result(Arguments...)> function_;
};

/// What subsystems need of each other and of the workspace, so that none includes another one's screens. fillPorts of
/// app/application.h puts the functions here; who only calls them needs no more than this header.
struct Ports {
  // Log and account
  /// A line of the log file; error may be null.
  Port<void(const QString& message, const std::exception* error)> log;
  /// A line of the log file that is shown to nobody: name and text of its mark, and what went wrong.
  Port<void(const QString& name, const QString& text, const std::exception& error)> logMark;
  /// The current user's name, as the login form holds it.
  Port<QString()> userName;
  /// The rights that nodes are checked in; null while there is no workspace.
  Port<const CheckTree*()> rights;

  // Workspace
  /// Shows editor as a child window with a tab, in front, under that caption; an editor that has its window keeps it. False
  /// while there is no workspace.
  Port<bool(QWidget* editor, const QString& caption)> showChild;
  /// Editors in child windows, first to last.
  Port<QList<QWidget*>()> childWindows;
  /// Runs work in the frame of a slip window that comes up: nothing is painted, the hourglass stands as cursor.
  Port<void(const std::function<void()>& work)> inSlipFrame;
  /// The one report that all papers are made of; null while there is no workspace.
  Port<Report*()> report;
  /// Opens a template in the designer, with the data that it is shown with; what was kept of how the designer was left is
  /// forgotten first.
  Port<void(const QString& file, const DesignSample& sample)> designReport;
  /// The status bar's first panel.
  Port<void(const QString& text)> setStatusText;

  // Slips
  /// A new slip in a window of its own.
  Port<void()> newSlip;
  /// The slip with that id in a window of its own. Throws EDatabaseError, and Exception for a picture that cannot be read.
  Port<void(qint64 id)> openSlip;
  /// Answers a refused write by the newest slip that is open, see SlipWindows::answerConflict.
  Port<void(const QString& className, const QString& message)> answerSlipConflict;

  // Company and cards
  /// Reads the shop's own data into the boxes that receipts and letters take it from.
  Port<void()> openCompany;
  /// Text of one of its boxes by the column's name.
  Port<QString(const QString& column)> companyText;
  /// Reads the service types that every slip chooses from.
  Port<void()> openServiceTypes;

  // Reminders
  /// The window of what is due, with the rows of today.
  Port<void()> showReminders;

  // Communication and extras
  /// Reads what is kept of gateways and mail into the settings screens.
  Port<void()> loadMessageSettings;
  /// Bulk SMS with numbers in its list, parted as CardRules::joinedNumbers parts them.
  Port<void(const QString& numbers)> openBulkSms;
  /// A call came in: the list of calls, where it is on the screen, reads them anew.
  Port<void()> refreshCalls;
  Port<void(const QString& customer)> openCustomerStatistics;
  Port<void(const QString& serial)> openSerialStatistics;
};

Ports& ports();

/// Shorthand for the port that everybody uses.
inline void logMessage(const QString& message, const std::exception* error = nullptr) { ports().log(message, error); }
/// The same for a failure of which the user is told in general words only: a query's error has its name and statement in a
/// line of their own.
void logFailure(const QString& message, const std::exception& error);
