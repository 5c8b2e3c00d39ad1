#pragma once

#include "cards/customer_devices.h"
#include "cards/customer_editor.h"
#include "cards/customer_list.h"
#include "cards/device_list.h"
#include "cards/firm_editor.h"
#include "cards/firm_list.h"
#include "cards/service_types.h"
#include "tests/support/program_test.h"

class DataGrid;
class qcxDBTextEdit;

/// The card screens of the program, worked by keys.
class CardsTest : public ProgramTest {
 protected:
  /// Types over a box of an editor and leaves it.
  static void enter(CardEditor& editor, const QString& column, const QString& text);
  /// Presses a key in a window or control, whose window is made the active one.
  static void press(QWidget& target, Qt::Key key, Qt::KeyboardModifiers modifiers = {});
  /// The list's command as the user finds it: true when it was enabled and has run.
  static bool runCommand(CardList& list, const QString& name);
  /// What is shown in a column, top to bottom.
  static QStringList shown(TMyQuery& query, const QString& column) { return TestDatabase::column(query, column); }

  Tfmusteriler customers;
  Tfcihazlar devices;
  TfDisServisler firms;
  TfDisServisEkle firmEditor{firms.qDisServis};
  TfCariEkle customerEditor{customers.qCari};
  TfServisTip serviceTypes;
  TfMusteriCihaz customerDevices;
};
