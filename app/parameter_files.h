#pragma once

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

/// The files of a workstation's behaviour switches and status colours: what is in them, without their screen.
namespace ParameterFiles {

/// Switches by their place in the list; the heading counts as well.
enum Switch {
  UserHeading,
  AskAtEachStep,
  PreviewReceipt,
  FillSerialNumber,
  NotifyBySms,
  NotifyByMail,
  ListSlipsOfTheDay,
  ReceiptPerStatus,
  HideRibbonAtSlip,
  SlipFillsWorkspace,
};

enum class CheckState { Unchecked, Checked, Greyed };

/// One line of a check list.
struct CheckItem {
  QString text;  ///< with "//" in front it is a heading
  CheckState state = CheckState::Unchecked;
  bool enabled = true;
  std::optional<int> imageIndex = {};  ///< 0 to 999
  std::optional<int> disabledImageIndex = {};

  bool operator==(const CheckItem&) const = default;
};

/// One job status of the workstation. An active one is offered by the slips' list.
struct StatusRow {
  QString islemColorIslemAdi;  ///< the status
  QString islemColorRenkSec;   ///< colour as "0x00RRGGBB", empty for none
  bool active = true;

  bool operator==(const StatusRow&) const = default;
};

/// All switches, unchecked and enabled.
std::vector<CheckItem> defaultSwitches();
/// All statuses, active and without a colour.
std::vector<StatusRow> defaultStatuses();

/// The check list in a file's bytes, a line per item; takes any bytes. A line has one of three forms: "@" with all of an
/// item, the older "&" without images, and any other one, which is an item's text alone. UTF-8, or else the Turkish code
/// page that older files are in.
std::vector<CheckItem> readCheckList(const QByteArray& bytes);
/// In the form with "@", UTF-8, each line ended by CR LF.
QByteArray writeCheckList(const std::vector<CheckItem>& items);
/// Sum over the texts of all items. Files with another one come from a program with other switches.
int signature(const std::vector<CheckItem>& items);

/// Puts what a file's bytes tell of the switches into items, by place; their texts stay. False, and nothing taken, for a
/// file with another signature.
bool takeSwitches(const QByteArray& bytes, std::vector<CheckItem>& items);

/// Puts colours and states of a file's bytes into rows, by status; takes any bytes. What is no status of rows is left out,
/// the first of several lines of one status counts, and a damaged colour or state leaves what the row had.
void readStatuses(const QByteArray& bytes, std::vector<StatusRow>& rows);
/// A line per row: status, colour and state parted by tabs; UTF-8.
QByteArray writeStatuses(const std::vector<StatusRow>& rows);

QString activeWord();   ///< "AKTİF"
QString passiveWord();  ///< "PASİF"

/// Red, green and blue as 0xRRGGBB of a colour text; none for an empty text and for one that is no colour.
std::optional<quint32> rgbOf(const QString& colour);

struct NamedColour {
  QString name;
  QString colour;  ///< as in StatusRow
};
/// The colours to choose from; the first one is no colour.
const std::vector<NamedColour>& namedColours();
/// The colour's name; the text itself when it is none of the list.
QString nameOf(const QString& colour);

/// The bytes of a file, nothing for a missing one. Throws EInOutError for one that is there and cannot be read.
std::optional<QByteArray> load(const QString& file);
/// Replaces the file in one step. Throws EInOutError.
void save(const QString& file, const QByteArray& bytes);

}  // namespace ParameterFiles
