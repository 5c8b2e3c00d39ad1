#pragma once

#include "base/data/filter_expression.h"
#include "service/slip_look_ups.h"

#include <QColor>
#include <QDialog>

#include <memory>
#include <optional>

class CommandBar;
class DataGrid;
class QAction;
class SlipBrowserStore;
class TMyQuery;
struct GridSort;

/// "Servis Fişleri": the slips of the database to choose from, to delete, to print and to export. Created once, reads anew
/// at each opening.
class TfservisfisSec : public QDialog {
  Q_OBJECT
  struct Queries;
  const std::unique_ptr<Queries> queries_;

 public:
  /// Works on DM's connection.
  explicit TfservisfisSec(QWidget* parent = nullptr);
  ~TfservisfisSec() override;

  /// Shows the list modally; ids receives the keys (TS_ID) of the chosen slips, none when nothing was chosen. Throws
  /// EDatabaseError.
  void Giris(std::vector<QString>& ids);

  /// Keeps the columns' layout beside the program.
  void done(int result) override;

  TMyQuery& qServis;
  TMyQuery& qDisServis;

  QAction* aSec;
  QAction* aGuncelle;
  QAction* aYazdir;
  QAction* aFisSil;

 private:
  void buildCommands();
  void buildGrid();
  void buildForm();
  void openList();
  void narrow(const std::optional<FilterExpression>& filter);
  void sortAtServer(const std::vector<GridSort>& order);
  QColor statusColor(int row) const;
  QStringList selectedTexts(const QString& field) const;

  void choose();
  void deleteSlips();
  void readAnew();
  void print();
  void exportToExcel(QWidget* preview);

  std::unique_ptr<SlipBrowserStore> store_;
  QueryLookup firms_;
  CommandBar* bar_ = nullptr;
  DataGrid* grid_ = nullptr;
  bool isOpen_ = false;  ///< the grid's filter concerns the query
  std::vector<QString> chosen_;
};

extern TfservisfisSec* fservisfisSec;
