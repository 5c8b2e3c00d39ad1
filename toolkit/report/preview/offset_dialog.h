#pragma once

#include <QDialog>

class CurrencyEdit;
class QComboBox;

/// Sets how far a printer's pages are moved, in mm, for printers that do not begin where their paper does, and how many dots
/// per inch it has.
class OffsetDialog : public QDialog {
  Q_OBJECT
 public:
  /// printers is not empty; current is the one shown first, when it is among them.
  OffsetDialog(QWidget* owner, const QStringList& printers, const QString& current);

 private:
  void showPrinter();
  void save();

  QComboBox* printer_;
  CurrencyEdit* right_;
  CurrencyEdit* down_;
  CurrencyEdit* dots_;
};
