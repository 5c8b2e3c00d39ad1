#pragma once

class SlipScreen;

/// The papers of a slip: what stands on the screen is printed, saved or not.
namespace SlipPrinting {

/// The receipt of the slip's status, printed or shown as the workstation wants it. Throws EReportFile for a damaged template.
void printReceipt(SlipScreen& slip);
/// The label for the device, always printed. Throws EReportFile, and EConvertError for an amount that is no number.
void printLabel(SlipScreen& slip);

/// The templates of the two, in the designer, shown with what stands on the screen.
void designReceipt(SlipScreen& slip);
void designLabel(SlipScreen& slip);

}  // namespace SlipPrinting
