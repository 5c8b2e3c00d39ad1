#pragma once

#include <QStringList>

#include <functional>
#include <optional>
#include <vector>

/// A message that belongs beside one control of the slip; control is the column's name.
struct FieldMessage {
  QString control;
  QString text;
};

/// One text of the slip as it stands on the screen.
struct SlipText {
  QString control;
  QString caption;
  QString text;
  qint64 maximumLength = 0;  ///< characters that the column holds; 0 = as many as there are
};

/// The outside-service block, which has no controls of its own. Dates are texts as the dialog takes them.
struct OutsideService {
  QString firm;
  QString exitDate;
  QString returnDate;
  QString note;
  int deliveryDays = 0;
};

/// Decisions of the slip screen; plain values in and out.
namespace SlipRules {

/// The column whose value no two slips share: what the server's refusal holds, and the caption of its box.
inline const QString numberClash = QStringLiteral("'TS_NO'");
inline const QString numberCaption = QStringLiteral("FİŞ NO");

/// The first message that keeps the slip from being saved: the mandatory fields in their order, then any text that the
/// database cannot hold. Nothing when it may be saved. A mandatory field that is not among texts counts as empty.
std::optional<FieldMessage> validate(const std::vector<SlipText>& texts);

/// Why a text cannot be stored: a character that the database lacks, or more of them than fit. Nothing when it can.
std::optional<FieldMessage> unstorableText(const SlipText& field);

/// Number for TS_NO: the increment of the highest one found, "100" when there is none and nothing was typed, otherwise
/// what was typed. highest: as the server gave it, empty for none.
QString proposedNumber(const QString& highest, const QString& typed);

/// A new serial number: two letters (never I, O or Z) and the seconds since 1970.
QString generatedSerial();

/// The sum that TS_TUTAR shows; added in this order.
double total(double service, double labour, double parts);

QString newSlipTitle();
QString slipTitle(const QString& number);

/// Statuses that the slip's list offers: all but the passive ones. An existing slip keeps the last one in any case; meant.
QStringList offeredStatuses(const std::function<bool(const QString& status)>& isPassive, bool isNewSlip);

/// True when picking that item of a list of count statuses delivers the device: goes by the place, whatever status stands
/// there; meant.
bool isDelivery(int item, int count);

/// The item that a confirmed outside service selects: goes by the place as well; meant.
constexpr int outsideServiceItem = 7;

/// Hint of the status control for a slip that is or was at an outside service: of a slip that was opened, and of a dialog
/// that was confirmed. They differ in a word; meant.
QString storedOutsideServiceHint(const OutsideService& service);
QString confirmedOutsideServiceHint(const OutsideService& service);
/// Exit date that the dialog begins with: the slip's, otherwise today.
QString proposedExitDate(const OutsideService& service);
/// Days of a text; 0 when it is no number.
int deliveryDays(const QString& text);

}  // namespace SlipRules
