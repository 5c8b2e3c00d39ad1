#pragma once

#include "toolkit/edits/edit_box.h"

#include <QStringList>

class DropDown;
class QListWidget;
class QTimer;

/// A choice from a fixed list, 16 rows of it shown. A text that the list does not have is shown and kept, with no item
/// chosen. Button 0 is the arrow; F4, Alt+Down and a click open the list, arrows and typed first letters choose. Delete
/// goes to the empty item; in a list without one it takes the choice away only where that was asked for.
/// What keys moved to in the open list is chosen when it closes, unless Escape closes it.
class ComboEdit : public EditBox {
  Q_OBJECT
 public:
  explicit ComboEdit(QWidget* parent = nullptr);

  void addItem(const QString& text, int objectNumber = 0);
  void setItems(const QStringList& texts);
  void clearItems();
  /// The shown text stays when the chosen item is removed.
  void removeItem(int index);
  QStringList items() const;
  int itemCount() const { return int(items_.size()); }
  /// First item with exactly this text, -1 when there is none.
  int indexOf(const QString& text) const;
  int objectNumber(int index) const { return items_.at(size_t(index)).objectNumber; }
  int itemIndex() const { return itemIndex_; }
  /// -1 is no selection and empties the text.
  void setItemIndex(int index);
  /// Not 0: the value is the chosen item's object number, else its text.
  int Tag() const { return tag_; }
  void setTag(int tag) { tag_ = tag; }
  /// Whether Delete takes the choice away from a list that has no empty item; off at first.
  void setCanBeEmpty(bool on) { canBeEmpty_ = on; }

  void setText(const QString& text) override;
  Value editValue() const override;
  void setEditValue(const Value& value) override;
  void resetEdit(int maximumLength) override;
  bool keepsKey(const QKeyEvent& key) const override;

  void dropDown();
  /// Closes the list with nothing chosen.
  void closeUp();
  bool isDropDownOpen() const;

 Q_SIGNALS:
  /// The user chose another item; -1 when the choice was taken away.
  void itemChanged(int index);

 protected:
  void keyDown(int& key, Qt::KeyboardModifiers modifiers) override;
  void keyPress(QString& characters) override;
  bool wheelSteps(int steps) override;
  void lineClicked() override { dropDown(); }
  void leaving() override;

 private:
  struct Item {
    QString text;
    int objectNumber;
  };
  void buildDropDown();
  void dismiss();
  void choose(int index);
  void highlight(int index);
  void moveTo(int index);

  std::vector<Item> items_;
  int itemIndex_ = -1;
  int tag_ = 0;
  bool canBeEmpty_ = false;
  QString typed_;  ///< first letters typed so far
  QTimer* typedPause_;
  DropDown* dropDown_ = nullptr;
  QListWidget* list_ = nullptr;
  bool movedByKey_ = false;  ///< the mark in the open list; the mouse passes over items without choosing them
};
