#pragma once

#include "toolkit/shell/hourglass.h"
#include "toolkit/shell/window_place.h"

#include <QWidget>

#include <memory>
#include <optional>

class CommandBar;
class DataGrid;
class DateEdit;
class QAction;
class QTabWidget;
class TMyQuery;

/// "Günlük Hatırlatmalar": what needs attention on a day: reminders of slips, due contracts, jobs overdue outside. Not modal;
/// closing hides it. Nothing is kept of what has been seen.
class TfHatirlaForm : public QWidget {
  Q_OBJECT
  struct Queries;
  const std::unique_ptr<Queries> queries_;

 public:
  /// mainForm: whose lower right corner is the window's first place.
  explicit TfHatirlaForm(QWidget* mainForm = nullptr);
  /// Keeps the columns of the contracts and the window's place.
  ~TfHatirlaForm() override;

  /// Shows the window with the rows of today, or brings the one that shows to the front.
  void Show();
  /// Reads the slips again if the window shows. Throws EDatabaseError.
  void refreshIfShown();

  TMyQuery& qServis;  ///< of the pages 0 and 2, which share it
  TMyQuery& qBakim;
  QTabWidget* RzPageControl1;
  DataGrid* tvFis;
  DataGrid* tvBakim;
  DataGrid* tvDisServis;
  DateEdit* GunHatirlatTarih;
  DateEdit* bakimTarih;
  QAction* Action1 = nullptr;     ///< "F8 » Güncelle" of the slips
  QAction* Action2 = nullptr;     ///< "F9 » Yazdır" of the slips
  QAction* aGuncelle = nullptr;   ///< the same of the contracts
  QAction* aYazdir = nullptr;

 protected:
  void showEvent(QShowEvent* event) override;
  /// Escape that nothing within uses closes the window, as it does dialogs.
  void keyPressEvent(QKeyEvent* event) override;

 private:
  enum Page { SlipPage, ContractPage, OverduePage };
  CommandBar* addPage(const QString& caption, DataGrid* grid, DateEdit* day);
  void buildPages();
  void addSms(CommandBar& bar, DataGrid& grid, TMyQuery& query, const QString& name, const QString& field);
  void followDate(DateEdit& box);
  void takeDate(DateEdit& box);
  void prepare();
  void RzPageControl1Change();
  void openSlip();
  void preview(DataGrid& grid, const QString& header, const QString& documentName);

  WindowPlace place_;
  QHash<DateEdit*, QString> readFor_;  ///< what each box held when rows were read
  std::optional<Hourglass> hourglass_;
};

extern TfHatirlaForm* fHatirlaForm;
