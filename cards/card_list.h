#pragma once

#include "toolkit/grid/grid_column.h"

#include <QDialog>
#include <QKeySequence>

#include <functional>
#include <memory>
#include <vector>

class CommandBar;
class DataGrid;
class QAction;
class TMyQuery;

/// What a list is, as its screen describes it.
struct CardListDescription {
  QString objectName;
  QString caption;
  QString queryName;
  QString rightPath;  ///< of the list; a command's right stands below it
  std::vector<GridColumn> columns;
};

/// One command of a list.
struct CardCommand {
  QString name;     ///< of its action
  QString caption;
  QString icon;
  QKeySequence key = {};
  std::function<void()> work;
  QString right = {};        ///< caption that its right goes by; empty when nothing guards it
  bool needsRows = true;     ///< the list has one
  bool needsRow = false;     ///< the cursor stands on one, not on a group
  std::function<bool()> alsoNeeds = {};
};

/// What a list's print preview says around the rows.
struct CardReport {
  QString header;                        ///< at the left, above the rows
  QString title;
  /// Adds a button "Excel`e Aktar" to the preview, which owns its messages; none when empty.
  std::function<void(QWidget* preview)> exportToExcel = {};
};

/// A modal list over one table: commands as rights and rows allow them, filter row in Turkish capitals, incremental search,
/// grouping, guarded delete and print preview. Reads anew at each opening.
class CardList : public QDialog {
  Q_OBJECT
 public:
  ~CardList() override;

  /// Reads the rows, switches the filter on, stands on the first row and shows the list until it is closed; then the query
  /// is closed, filter and grouping are gone. Throws EDatabaseError.
  virtual void Giris();

  DataGrid* grid() const { return grid_; }
  /// The action of that name. Throws Exception with the name when there is none.
  QAction* command(const QString& name) const;

 protected:
  /// Reads the rows as the list comes up.
  virtual void openCards();
  /// Works on DM's connection.
  CardList(const CardListDescription& description, QWidget* parent);

  TMyQuery& cards() { return *cards_; }
  /// Switches the filter on, stands on the first row and shows the list until it is closed.
  void showList();
  /// A command of the rows' menu, which has no button.
  void addRowCommand(const CardCommand& command);
  /// The toolbar, from left to right. Enter and a double click on a row run the command that opened names, if any.
  void addCommands(const std::vector<CardCommand>& commands, const QString& onRowChosen = {});
  /// The commands that lists have in common.
  CardCommand deleteCommand(const QString& question, const QString& failure);
  CardCommand refreshCommand();
  CardCommand printCommand(const QString& caption, const CardReport& report);
  /// Runs an editor's Insert; the cursor goes back to where it was when no row came.
  void insertCard(const std::function<void()>& insert);

 private:
  void addCommand(const CardCommand& command, CommandBar& bar);
  void connectCommand(QAction* action, const CardCommand& command);
  bool isEnabled(const CardCommand& command);
  void readAnew();
  void deleteSelected(const QString& question, const QString& failure);
  void preview(const CardReport& report);

  QString rightPath_;
  const std::unique_ptr<TMyQuery> cards_;
  DataGrid* grid_;
};
