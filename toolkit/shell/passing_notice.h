#pragma once

#include <QObject>
#include <QPointer>
#include <QTimer>

class QSystemTrayIcon;
class QWidget;

/// A notice with title and body that passes by itself: the tray's balloon where there is a tray that shows some, otherwise a
/// window of its own at the screen's bottom right, which never takes the keyboard and goes with a click. A notice takes the
/// place of the one before. Any text is shown as plain text and cut to what a notice holds.
class PassingNotice : public QObject {
  Q_OBJECT
 public:
  /// window: the main window, whose screen the notice is shown on; tray: null where the system has none.
  PassingNotice(QWidget* window, QSystemTrayIcon* tray);
  ~PassingNotice() override;

  void show(const QString& title, const QString& body, int milliseconds);
  bool isUp() const { return isUp_; }
  /// The notice's own window; null while the tray shows it or none is up.
  QWidget* panel() const { return panel_; }

 Q_SIGNALS:
  /// The last notice has passed.
  void passed();

 private:
  void pass();

  QWidget* window_;
  QPointer<QSystemTrayIcon> tray_;
  QPointer<QWidget> panel_;
  QTimer pause_;
  bool isUp_ = false;
};
