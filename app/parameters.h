#pragma once

#include "app/parameter_files.h"

#include <QDialog>

#include <functional>

class CheckListModel;
class ComboEdit;
class QPushButton;
class StatusModel;

/// "Parametreler": behaviour switches, printers and status colours of this workstation. Its controls are what the other
/// screens read, at the moment they need a value: a change counts at once, and giving up does not undo it. That is meant.
class TfParametreler : public QDialog {
  Q_OBJECT
 public:
  using StatusRow = ParameterFiles::StatusRow;

  explicit TfParametreler(QWidget* parent = nullptr);
  ~TfParametreler() override;

  static constexpr int Saved = 6;
  static constexpr int GivenUp = 2;

  /// Reads the files beside the program; what is missing keeps its default. Needs the utilities object.
  void Load();
  /// Shows the form modally; Saved or GivenUp.
  int Giris();

  /// A switch of ParamList by its index, see ParameterFiles::Switch; false for an index that is none.
  bool isChecked(int index) const;
  const std::vector<StatusRow>& islemColor() const;
  /// First row of that status; none for a text that is no status.
  std::optional<StatusRow> statusRow(const QString& status) const;

  ComboEdit* yBarkodPrinter;
  ComboEdit* yBarkodPrinterCopyNum;
  ComboEdit* VarsayilanPrinter;
  ComboEdit* VarsayilanPrinterCopyNum;
  QPushButton* btnPost;
  QPushButton* btnCancel;

  /// Names of the system's printers; tests put their own in place.
  std::function<QStringList()> systemPrinters;

  void reject() override { done(GivenUp); }

 private:
  void buildForm();
  QWidget* buildSwitches();
  QWidget* buildPrinters();
  QWidget* buildStatuses();
  void loadSwitches();
  void loadPrinters();
  void btnPostClick();

  CheckListModel* ParamList_;
  StatusModel* islemColor_;
};

/// The one instance; null before it is created and after it is gone.
extern TfParametreler* fParametreler;
