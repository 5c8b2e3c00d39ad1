#pragma once

#include "toolkit/report/designer/design_sample.h"

#include "toolkit/report/designer/page_setup_dialog.h"

#include <optional>

class CurrencyEdit;
class QComboBox;
class QLabel;
class QListWidget;
class QListWidgetItem;
class QPushButton;

/// A new label in one go: its size, what it shows, done. A picture shows what comes out.
class LabelWizard : public QDialog {
  Q_OBJECT
 public:
  LabelWizard(QWidget* owner, const DesignSample& sample);
  ReportDocument document() const;

 private:
  /// Nothing while the own size is none.
  std::optional<LabelSheet> sheet() const;
  void showLabel();
  /// Brings what was chosen behind what was chosen before it.
  void gather(QListWidgetItem* chosen);
  void moveCurrent(int by);

  const DesignSample& sample_;
  QComboBox* size_;
  CurrencyEdit* width_;
  CurrencyEdit* height_;
  QComboBox* barcode_;
  QListWidget* names_;
  QLabel* picture_;
  QPushButton* make_;
  bool isMoving_ = false;
};

/// What a label shows: texts of variables one below the other, the first one large, and a barcode at the bottom whose text is
/// an expression, or is put in by the program when it is a name of the sample's barcodes. Empty for none.
ReportDocument makeLabel(const LabelSheet& sheet, const QStringList& names, const QString& barcode, const DesignSample& sample);
