#pragma once

#include <QStatusBar>

class QLabel;

/// Four key states of the status bar, "CAPS", "NUM", "SCRL" and "OVR" or "INS"; those that are off are pale. Follows the
/// key events of the whole program.
class KeyStatePanel : public QWidget {
  Q_OBJECT
 public:
  explicit KeyStatePanel(QWidget* parent = nullptr);
  /// Reads the states anew.
  void refresh();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void show(QLabel* label, bool on);

  QLabel* caps_;
  QLabel* num_;
  QLabel* scroll_;
  QLabel* insert_;
  bool overwrite_ = false;
};
