#pragma once

#include <QDialog>

class DateEdit;
class MemoEdit;
class TimeEdit;

/// The reminder of a slip. One dialog serves all slip editors, and its boxes are where the values stand until a slip is
/// saved, so that the slip opened last owns them: meant. Closing is not cancelling.
class TfHatirlat : public QDialog {
  Q_OBJECT
 public:
  TfHatirlat();
  ~TfHatirlat() override;

  /// Shows the dialog modally on behalf of a slip editor. The values stay as the user leaves them.
  void Giris(QWidget* caller);
  void clear();
  void done(int result) override;

  DateEdit* TS_HATIRLATMA_TARIH;
  TimeEdit* TS_HATIRLATMA_SAAT;
  MemoEdit* TS_HATIRLATMA_NOTU;

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void buildDate();
  void buildTime();
  void buildNote();

  const QWidget* caller_ = nullptr;
};

/// The one instance; null before it is created.
extern TfHatirlat* fHatirlat;
