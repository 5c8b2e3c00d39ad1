#pragma once

#include "extras/rate_document.h"

#include <array>
#include <optional>

/// Rates of a day.
struct DayRates {
  QString date;  ///< as it is displayed; empty for none
  std::array<double, std::size(Currencies)> selling{};  ///< by Currency
};

/// What the load works on: the screen, the stored row and the service.
class RateScreen {
 public:
  virtual ~RateScreen() = default;
  /// The screen's date, as it is displayed.
  virtual QString date() const = 0;
  virtual void setDate(const QString& date) = 0;
  virtual void setRate(Currency currency, double rate) = 0;
  /// A text that is no number, as it stands; storing refuses it.
  virtual void setUnreadableRate(Currency currency, const QString& text) = 0;
  virtual void setHourglass(bool on) = 0;
  /// First panel of the status bar.
  virtual void setStatusText(const QString& text) = 0;

  /// The one row; nothing when the table has none. Throws EDatabaseError.
  virtual std::optional<DayRates> storedRates() = 0;
  /// Brings the service's document into the file; false when that failed.
  virtual bool download(const QString& file) = 0;
  /// Stores what the screen shows, in a transaction. Throws Exception, with everything rolled back.
  virtual void store() = 0;
};

namespace RateLoad {

/// Loads the rates of a day: from the stored row when it is of that day, from the service otherwise. date is displayed as the
/// screen's date at first, today in its place once the service has answered. file is the working file, which is gone afterwards.
/// A rate that is no number is shown, and then nothing is stored and nobody told.
/// Throws EDatabaseError, and EWireError or EConvertError for a document that is none or has no date.
void load(const QString& date, const QString& today, const QString& file, RateScreen& screen);

}  // namespace RateLoad
