#pragma once

#include "toolkit/report/report_document.h"

#include <QDialog>

class CurrencyEdit;
class QComboBox;
class QLabel;

/// Paper, margins and labels of a page: usual sheets and rolls to choose from, every measure to be set, a picture of what
/// comes out.
class PageSetupDialog : public QDialog {
  Q_OBJECT
 public:
  PageSetupDialog(QWidget* owner, const ReportNode& page);

  /// What was set, by property.
  std::vector<std::pair<QString, PropertyValue>> values() const;

 private:
  void choosePreset(int index);
  void choosePaper();
  void showChoices();
  void showSheet();
  /// Which usual sheet it is.
  void showPreset();
  void acceptIfRight();

  std::unique_ptr<ReportNode> page_;  ///< a copy that follows what is set
  QComboBox* preset_;
  QComboBox* paper_;
  QComboBox* orientation_;
  std::vector<std::pair<QString, CurrencyEdit*>> numbers_;  ///< by property
  QLabel* picture_;
  QLabel* told_;
};

/// A usual sheet of labels or roll.
struct LabelSheet {
  QString caption;
  double width;       ///< of the paper, mm
  double height;
  double marginLeft;
  double marginTop;
  double marginRight;
  double marginBottom;
  int columns = 1;
  int rows = 1;
  double columnGap = 0;
  double rowGap = 0;
};
const std::vector<LabelSheet>& usualLabelSheets();
/// Sets a page to a sheet.
void applySheet(const LabelSheet& sheet, ReportNode& page);
/// The sheet with its labels, for a label on the screen.
QPixmap sheetPicture(const ReportNode& page, QSize room, double pixelRatio);
