#pragma once

#include "toolkit/edits/edit_box.h"
#include "toolkit/edits/lookup_source.h"

class DropDown;
class LookupModel;
class QTableView;

/// Free text with a drop-down of known entries in several columns. Typing narrows the list to entries that begin with the
/// text, then those that hold it, by Turkish letters without regard to case; nothing is taken by typing alone, so that a
/// new text can stand. Arrows choose, Enter, Tab or a click take. Button 0 is the arrow; F4 and Alt+Down open the list.
class LookupEdit : public EditBox {
  Q_OBJECT
 public:
  explicit LookupEdit(QWidget* parent = nullptr);
  ~LookupEdit() override;

  /// The source is not owned and may end before the box; null takes it away.
  void setSource(const LookupSource* source);
  /// To be called when the source has other rows.
  void sourceChanged();
  /// Row of the source whose column 0 equals text without regard to case; -1 when there is none.
  int findEntry(const QString& text) const;

  void dropDown();
  void closeUp();
  bool isDropDownOpen() const;

  void setText(const QString& text) override;
  /// Empty with no selection.
  void resetEdit(int maximumLength) override;

 Q_SIGNALS:
  /// The user took an entry, or left the box with its very text typed; row is the source's.
  void entryTaken(int row);
  /// The user emptied the text, or left the box with a text that is no entry.
  void entryDropped();

 protected:
  void keyDown(int& key, Qt::KeyboardModifiers modifiers) override;
  void leaving() override;

 private:
  void buildDropDown();
  void open(const QString& filter);
  void take(int row);
  void moveHighlight(int by);
  void settle();

  LookupSourcePointer source_;
  LookupModel* model_ = nullptr;
  DropDown* dropDown_ = nullptr;
  QTableView* table_ = nullptr;
  QString settledText_;  ///< what has been told of, by a signal or by the program
};
