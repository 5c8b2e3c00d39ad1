#pragma once

#include "app/data/my_query.h"

#include <QDialog>

class QLabel;
class QTimer;
class QueryTable;
class TextEdit;

/// "Servis Fişleri": the slips of the database, newest first, to choose from. Created once, reads anew at each opening.
class TfservisfisSec : public QDialog {
  Q_OBJECT
 public:
  /// Works on DM's connection.
  explicit TfservisfisSec(QWidget* parent = nullptr);
  ~TfservisfisSec() override;

  /// Shows the list modally; ids receives the keys (TS_ID) of the chosen slips, none when nothing was chosen. Throws
  /// EDatabaseError.
  void Giris(std::vector<QString>& ids);

  TMyQuery qServis;

 private:
  QAction* addCommand(const QString& name, const QString& caption, const QString& icon, QKeySequence key);
  void buildForm();
  void search();
  void choose();

  TextEdit* search_;
  QTimer* searchPause_;
  QueryTable* table_;
  QLabel* count_;
  std::vector<QString> chosen_;
};

extern TfservisfisSec* fservisfisSec;
