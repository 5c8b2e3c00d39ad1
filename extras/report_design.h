#pragma once

#include "toolkit/report/report.h"

#include <QDialog>

class ReportDesigner;
struct DesignSample;

/// Opens one of the program's report files in the designer, which stands in the form itself and writes over the file.
class TfRaporTasarla : public QDialog {
  Q_OBJECT
 public:
  TfRaporTasarla();
  ~TfRaporTasarla() override;

  /// The one entry: a template's full path, and the data that it is shown with. A missing file gives a message and nothing
  /// else; so does one that cannot be read.
  void Giris(const QString& file, const DesignSample& sample);

  /// Folder in which templates are looked for; that of the file opened last.
  const QString& openFolder() const { return openFolder_; }
  /// Forgets how the designer was left on this workstation.
  static void forgetState();

  Report frxReport1;  ///< the file as it was opened
  ReportDesigner* frxDesigner1 = nullptr;  ///< stands in frxPreview1 from the first file on
  QWidget* frxPreview1;  ///< fills the form

 protected:
  void reject() override;
  void keyPressEvent(QKeyEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  void startDesigner();
  void keepState();

  QString openFolder_;
};

extern TfRaporTasarla* fRaporTasarla;
