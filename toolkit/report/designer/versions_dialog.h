#pragma once

#include "toolkit/report/designer/design_sample.h"
#include "toolkit/report/designer/template_file.h"

#include <QDialog>

class QLabel;
class QListWidget;
class QPushButton;

/// Earlier states of a template, each with a picture of its first page.
class VersionsDialog : public QDialog {
  Q_OBJECT
 public:
  VersionsDialog(QWidget* owner, std::vector<TemplateFile::Version> versions, const DesignSample& sample);
  QString chosenFile() const;

 private:
  void showVersion();

  std::vector<TemplateFile::Version> versions_;
  const DesignSample& sample_;
  QListWidget* list_;
  QLabel* picture_;
  QPushButton* bringBack_;
};
