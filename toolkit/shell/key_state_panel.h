#pragma once

#include <QWidget>

class QLabel;

/// Property of a control that has work of its own for the Insert key: there it does not switch between INS and OVR.
inline constexpr const char* insertKeyTaken = "insertKeyTaken";

/// Four key states of the status bar: "CAPS", "NUM" and "SCRL", pale while off, and "OVR" or "INS". Follows the key
/// events of the whole program.
class KeyStatePanel : public QWidget {
  Q_OBJECT
 public:
  explicit KeyStatePanel(QWidget* parent = nullptr);
  /// Reads the states anew.
  void refresh();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  static bool isInsertTaken();
  void setOn(QLabel* label, bool on);

  QLabel* caps_;
  QLabel* num_;
  QLabel* scroll_;
  QLabel* insert_;
  bool overwrite_ = false;
};
