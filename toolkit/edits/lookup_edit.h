#pragma once

#include "toolkit/edits/edit_box.h"
#include "toolkit/edits/lookup_source.h"

class DropDown;
class LookupModel;
class QTableView;

/// Free text with a drop-down of known entries in several columns. Typing narrows the list to entries that begin with the
/// text, then those that hold it, by Turkish letters without regard to case; nothing is taken by typing alone, so that a
/// new text can stand. Arrows choose, Enter, Tab or a click take. Button 0 is the arrow; F4 and Alt+Down open the list.
///
/// A list that the user opened or moved in is closed on its marked entry or on none, whatever closes it. Escape takes back
/// what was typed and tells of nothing: that is meant, everything else that closes the list decides.
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
  /// Closes the list with nothing decided.
  void closeUp();
  bool isDropDownOpen() const;

  void setText(const QString& text) override;
  /// Empty with no selection.
  void resetEdit(int maximumLength) override;
  bool keepsKey(const QKeyEvent& key) const override;

 Q_SIGNALS:
  /// The user took an entry by Enter, Tab or a click; told behind entryTaken. row is the source's.
  void entryChosen(int row);
  /// The text stands for an entry: chosen, closed on, or typed and left.
  void entryTaken(int row);
  /// The text stands for none: the list was closed on none, the text was emptied or is no entry, or an empty box was left.
  void entryDropped();

 protected:
  void keyDown(int& key, Qt::KeyboardModifiers modifiers) override;
  void leaving() override;

 private:
  void buildDropDown();
  void open(const QString& filter);
  int markedRow() const;
  void choose(int row);
  void take(int row);
  void drop();
  void takeBack();
  void dismiss();
  void moveHighlight(int by);
  void settle();

  LookupSourcePointer source_;
  LookupModel* model_ = nullptr;
  DropDown* dropDown_ = nullptr;
  QTableView* table_ = nullptr;
  bool decides_ = false;  ///< the open list, when it closes
  QString settledText_;  ///< what has been told of, by a signal or by the program
};
