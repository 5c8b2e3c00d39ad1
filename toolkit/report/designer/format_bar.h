#pragma once

#include "toolkit/report/designer/design_commands.h"

#include <QToolBar>

class ColorButton;
class QAction;
class QComboBox;
class QFontComboBox;

/// How the selected texts look: font, size, style, alignment, colours. Shows what they have in common.
class FormatBar : public QToolBar {
  Q_OBJECT
 public:
  FormatBar(ReportEditor& editor, QWidget* parent = nullptr);

 private:
  QAction* addToggle(const QString& name, const QString& caption, const QString& icon, const QKeySequence& key);
  void showSelection();
  /// Changes the fonts of all selected nodes that have one.
  void changeFonts(const QString& name, const std::function<void(ReportFont&)>& change);
  std::vector<ReportNode*> having(QStringView property) const;

  ReportEditor& editor_;
  DesignCommands commands_;
  QFontComboBox* family_;
  QComboBox* points_;
  QAction* bold_;
  QAction* italic_;
  QAction* underline_;
  std::vector<std::pair<QString, QAction*>> alignments_;  ///< by the property's word
  ColorButton* color_;
  ColorButton* background_;
};
