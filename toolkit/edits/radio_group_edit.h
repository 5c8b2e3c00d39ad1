#pragma once

#include "toolkit/edits/edit_frame.h"

#include <QButtonGroup>

#include <vector>

class QGridLayout;
class QRadioButton;

/// One of a few values that all stand on the screen, under a heading. One stop in the tab order: arrows choose, ENTER moves
/// on. Its value is the chosen one's number, NULL when none is chosen.
class RadioGroupEdit : public EditFrame {
  Q_OBJECT
 public:
  /// columns: choices that stand side by side.
  explicit RadioGroupEdit(int columns, QWidget* parent = nullptr);

  /// Heading, which also names the group for assistive software.
  void setCaption(const QString& caption);
  void addChoice(const QString& caption, int value);
  /// Position of the chosen one, from 0; -1 for none.
  int itemIndex() const { return group_.checkedId(); }

  Value editValue() const override;
  /// A number that none of the choices has leaves none chosen.
  void setEditValue(const Value& value) override;
  void resetEdit(int maximumLength) override;

 Q_SIGNALS:
  /// The user chose another one.
  void chosen(int index);

 protected:
  QWidget* inner() const override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void choose(int index);

  QGridLayout* grid_;
  QButtonGroup group_;
  std::vector<int> values_;
  int columns_;
};
