#pragma once

#include "service/slip_hooks.h"
#include "service/slip_store.h"
#include "toolkit/edits/balloon.h"

#include <QWidget>

#include <memory>

class DataGrid;
class MemoEdit;
class QAction;
class QTabWidget;
class QToolButton;
class SlipFieldsPage;
class SlipLookUps;
class SlipPicturePage;
class TMyQuery;

/// Editor of one service slip; several may be open at once as child windows of the workspace.
class TfServisFis : public QWidget, public SlipScreen {
  Q_OBJECT
  struct Queries;
  const std::unique_ptr<Queries> queries_;

 public:
  /// Works on DM's connection.
  explicit TfServisFis(QWidget* parent = nullptr);
  ~TfServisFis() override;

  enum class Mode { Browse, Edit, Insert };
  enum Page { FieldsPage, LinesPage, NotesPage, PicturePage, SerialHistoryPage, CustomerHistoryPage };

  /// Opens a new slip: empty controls, proposed number, today's date. Throws EDatabaseError.
  void Insert();
  /// Opens the slip with that key; a slip that is gone is told, and the window closes. Throws EDatabaseError, and
  /// Exception for a picture that cannot be read, everything else being shown then.
  void Edit(qint64 TS_ID);

  /// Closes the window that the editor stands in.
  void closeWindow();

  /// Shows a balloon beside control; nothing happens while one is up. column: of a table, unused by other controls.
  void QuendHint(QWidget* control, int column, const QString& text) override;

  /// Answers a refused write, see answerRowConflict.
  void updateDeleteException(const QString& className, const QString& message);
  /// The box of a column; null for a column that has none on the first page.
  QWidget* control(const QString& column) const override;

  /// The outside-service block, which stands in no control; hint is what the status box tells of it.
  const OutsideService& outsideService() const { return outsideService_; }
  void setOutsideService(const OutsideService& service, const QString& hint);
  /// Text of a column's box on the first page.
  QString text(const QString& column) const override;
  QString noteText() const override;
  int statusIndex() const override;
  const TMyQuery& lines() const override { return qMalzeme; }
  QWidget* dialogOwner() override { return this; }

  QSize sizeHint() const override;

  Mode EditorMode = Mode::Browse;
  TMyQuery& qServis;
  TMyQuery& qMalzeme;
  TMyQuery& qCari;
  TMyQuery& qCihaz;
  TMyQuery& qServisTip;
  TMyQuery& qDetay;
  TMyQuery& qSeri;

  QAction* aKaydet;
  QAction* aVazgec;
  QAction* aSil;
  QAction* aYazdir;
  QAction* aHatirlat;
  QAction* aCikis;
  QAction* MakbuzBask1;
  QAction* MakbuzDzenle1;

 protected:
  bool event(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  void buildCommands();
  void buildPages();
  QWidget* buildLinesPage();
  QWidget* buildNotesPage();
  QWidget* buildHistoryPage(const QString& caption);
  void buildPrintMenu();
  void buildSerialMenu();
  void connectFields();

  void setMode(Mode mode);
  void setHistoryVisible(bool visible);
  void setTitle(TfServisFis* editor, const QString& title);
  void resetFields();
  void proposeNumber();
  void fillSerial();
  void findDevice();
  void offerStatuses(bool isNewSlip);
  void askOutsideService();
  void showReminder();
  void loadHistory(int page);
  void openFromHistory(int row);

  void save();
  bool isReadyToSave();
  bool isConfirmed(const QString& question);
  bool notifyBySms();
  void pointAt(QWidget* box, const QString& text);
  bool showFieldMessage(const std::optional<FieldMessage>& message);
  std::vector<SlipText> textsToSave() const;
  SlipExtras extrasToSave() const;
  void fillRow();
  void saveNew();
  bool saveExisting();
  void saveDone();
  void deleteSlip();

  SlipStore store_;
  Balloon balloon_;
  OutsideService outsideService_;
  bool closed_ = false;

  QToolButton* saveButton_ = nullptr;
  QToolButton* reminderButton_ = nullptr;
  QTabWidget* pages_ = nullptr;
  SlipFieldsPage* fields_ = nullptr;
  std::unique_ptr<SlipLookUps> lookUps_;
  DataGrid* lines_ = nullptr;
  MemoEdit* note_ = nullptr;
  SlipPicturePage* picture_ = nullptr;
};

/// The newest editor that is open; null when there is none.
extern TfServisFis* fServisFis;
