#pragma once

#include <QDialog>

class QLabel;

/// The splash at the start and, later, the about box.
class TfAbout : public QDialog {
  Q_OBJECT
 public:
  TfAbout();
  ~TfAbout() override;

  /// Shows the box modally, with a system menu, and what program and computer this is. Needs the utilities object.
  void Giris();

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QLabel* version_;
  QLabel* system_;
  QLabel* computer_;
  QWidget* buttons_;
};

/// The newest of the two; null when there is none.
extern TfAbout* fAbout;
