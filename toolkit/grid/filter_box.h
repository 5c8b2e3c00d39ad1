#pragma once

#include <QWidget>

class QCheckBox;
class QLabel;
class QToolButton;

/// The line under a grid that spells the filter out, switches it off and on, clears it, and tells how many rows pass.
class FilterBox : public QWidget {
  Q_OBJECT
 public:
  explicit FilterBox(QWidget* parent);

  /// text: the filter in words, empty when there is none; on: it is in force; hits: rows that are shown.
  void show(const QString& text, bool on, int hits);

 Q_SIGNALS:
  void switched(bool on);
  void cleared();

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void elide();

  QCheckBox* on_;
  QLabel* words_;
  QLabel* hits_;
  QToolButton* clear_;
  QString text_;
};
