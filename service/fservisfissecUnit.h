#pragma once

#include <QDialog>

#include <vector>

/// "Servis Fişleri": the slips of the database, newest first, to choose from. Created once, reads anew at each opening.
class TfservisfisSec : public QDialog {
  Q_OBJECT
 public:
  explicit TfservisfisSec(QWidget* parent = nullptr);
  ~TfservisfisSec() override;

  /// Shows the list modally; ids receives the keys (TS_ID) of the chosen slips, none when nothing was chosen. Throws
  /// EDatabaseError.
  void Giris(std::vector<QString>& ids);
};

extern TfservisfisSec* fservisfisSec;
