#pragma once

#include "toolkit/edits/balloon.h"

#include <QDialog>

#include <functional>
#include <vector>

class EditBox;
class EditFrame;
class Exception;
class LinkedBox;
class QAction;
class TMyQuery;
class Value;

/// One box of a card's editor. A box that is not wide shares its line with the next one that is not.
struct CardField {
  QString column;
  QString caption;
  bool isWide = false;
  QString box = {};  ///< name of the box; the column's own when empty
  /// Makes the box, which has to be a LinkedBox; a text in Turkish capitals when empty.
  std::function<EditFrame*(QWidget* area)> make = {};
};

/// The modal editor of one card: a column of captioned boxes on the current row of the list's own query, texts in Turkish
/// capitals, and the two commands that end it.
class CardEditor : public QDialog {
  Q_OBJECT
 public:
  static constexpr int Saved = 6;

  QAction* aKaydet;  ///< "F2 » Tamam"
  QAction* aVazgec;  ///< "F3 » Vazgeç"

  /// The one-line box of that name. Throws Exception when there is none.
  EditBox* box(const QString& name) const;

 protected:
  /// The query must outlive the editor.
  CardEditor(TMyQuery& cards, const QString& objectName, const QString& title, const std::vector<CardField>& fields,
             QWidget* parent);
  ~CardEditor() override;

  TMyQuery& cards() const { return cards_; }
  Balloon& balloon() { return balloon_; }
  /// Shows the row in edit modally and gives the dialog's result.
  int showCard();
  /// Writes what the boxes hold into the row in edit. False for what a field cannot take, after refused().
  bool takeTyped();
  /// What the boxes hold, and the same put into them again as if it had been typed.
  std::vector<Value> typed() const;
  void typeAgain(const std::vector<Value>& values);
  /// Drops what was typed and not yet written into the row.
  void dropTyped();
  /// Gives a box the room of two while it has the keyboard.
  void widenWhileFocused(const QString& name);
  /// The input of that name, of whichever kind. Throws Exception when there is none.
  EditFrame* frame(const QString& name) const;
  /// Tells in the balloon at a box what holds the card back, and puts the cursor there.
  void pointAt(EditFrame& box, const QString& text);
  /// What was typed is no value of its field: when its box was left, and again when the card is to be written.
  virtual void refused(EditFrame& box, const Exception& error);
  /// What the two commands do; Escape and the window's frame give up as well.
  virtual void save() = 0;
  virtual void giveUp() = 0;

 private:
  EditFrame* addBox(QWidget& area, const CardField& field);
  void placeBoxes(QWidget& area, const std::vector<CardField>& fields);
  void reject() override;

  TMyQuery& cards_;
  Balloon balloon_;
  struct Box {
    EditFrame* frame;
    LinkedBox* link;
    QString column;
  };
  std::vector<Box> boxes_;
};
