#pragma once

#include "toolkit/report/designer/design_sample.h"

#include <QDialog>

class QLabel;
class QListWidget;
class QPushButton;

/// What there is to pick from, and how the dialog asks.
struct TemplatePick {
  struct Entry {
    QString caption;
    QString file;
  };
  QString title;
  QString explanation;
  QString nothing;         ///< said when there are no entries
  QString button;          ///< that picks
  std::vector<Entry> entries;
  QString current = {};    ///< file that is shown first; otherwise the first one
};

/// Picks one of several templates: earlier states, other ones of a folder. Each shows a picture of its first page.
class TemplatePicker : public QDialog {
  Q_OBJECT
 public:
  TemplatePicker(QWidget* owner, TemplatePick pick, const DesignSample& sample);
  /// Empty while nothing can be picked.
  QString file() const;

 private:
  void showPicture();

  std::vector<TemplatePick::Entry> entries_;
  const DesignSample& sample_;
  QListWidget* list_;
  QLabel* picture_;
  QPushButton* button_;
};
