#pragma once

#include "toolkit/report/designer/design_canvas.h"
#include "toolkit/report/designer/designer_actions.h"
#include "toolkit/report/designer/template_file.h"

class FaultList;
class Inspector;
class DataList;
class QLabel;
class QMenu;
class QSplitter;
class QTabBar;
class QTabWidget;
class QTimer;
class QToolButton;

/// The template designer as one widget: commands above, tools, data and lists at the left, the page in the middle, the
/// properties of what is selected at the right. Opens a file, writes over it, and keeps what was there.
class ReportDesigner : public QWidget {
  Q_OBJECT
 public:
  explicit ReportDesigner(QWidget* parent = nullptr);
  ~ReportDesigner() override;

  /// Opens a template with the data that it is shown with, and offers work under way that was left behind. Throws EInOutError,
  /// EReportFile.
  void open(const QString& file, DesignSample sample);
  /// Where other templates are looked for.
  void setOpenFolder(const QString& folder) { openFolder_ = folder; }
  /// Asks what to do with changes that are not saved. False: the user stays.
  bool mayLeave();
  /// Ends the work on the file.
  void close();
  /// Writes over the file, after a question where another one saved it meanwhile. False when it was not written; the reason
  /// has been shown.
  bool save();

  ReportEditor& editor() { return editor_; }
  DesignCanvas& canvas() { return *canvas_; }
  DesignerActions& actions() { return *actions_; }
  FaultList& faults() { return *faults_; }
  Inspector& inspector() { return *inspector_; }
  DataList& dataList() { return *data_; }
  /// How often work under way is kept, in milliseconds.
  void setDraftPause(int milliseconds);
  /// What a screen keeps of how the designer was left; restoreState takes it back.
  QByteArray state() const;
  void restoreState(const QByteArray& state);

 Q_SIGNALS:
  /// The window's title: file, and whether it is changed.
  void titleChanged(const QString& title);
  void closeAsked();

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void addFileCommands();
  void addEditCommands();
  void addArrangeCommands();
  void addInsertCommands();
  void addViewCommands();
  void build();
  QWidget* buildBars();
  QMenu* bandMenu(QWidget* owner);
  QWidget* buildTools();
  QWidget* buildLists();
  QWidget* buildMiddle();
  QWidget* buildStatus();
  void showPages();
  void showTitle();
  void tell(const QString& text) const;
  /// Takes over what is being written, on the page or among the properties.
  void settle();
  void menuAt(QPoint global);
  /// For the selected picture, from a file.
  void choosePicture();
  void preview();
  void testPrint();
  void setUpPage();
  void runWizard();
  void openAnother();
  void showVersions();
  void bringBackDelivered();
  void keepDraft();
  void offerDraft();
  void focusNextPane(bool isBack);
  /// Brings one of the lists at the left to the front and gives it the keyboard.
  void showList(int place);
  /// Folds or unfolds the lists at the left, or the properties at the right.
  void showPane(QWidget* pane, bool isShown);
  /// Until the user does so, the panes take what the page can spare.
  void arrangePanes();
  QToolButton* foldButton(const QString& action);
  void showNextPage(int by);
  bool hasObjects(size_t least = 1) const { return editor_.selectedObjects().size() >= least; }

  ReportEditor editor_;
  DesignSample given_;    ///< the data that the screen gave
  DesignSample sample_;   ///< what is shown: those, or made-up ones
  bool showsExample_ = false;
  DesignCommands commands_;
  std::unique_ptr<TemplateFile> file_;
  QString openFolder_;
  DesignerActions* actions_;
  DesignCanvas* canvas_ = nullptr;
  Inspector* inspector_ = nullptr;
  DataList* data_ = nullptr;
  FaultList* faults_ = nullptr;
  QTabWidget* lists_ = nullptr;
  QTabBar* pages_ = nullptr;
  QLabel* place_ = nullptr;
  QLabel* message_ = nullptr;
  QLabel* zoomText_ = nullptr;
  QSplitter* parts_ = nullptr;
  bool arePanesChosen_ = false;
  QTimer* draftTimer_;
};
