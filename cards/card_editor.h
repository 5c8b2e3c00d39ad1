#pragma once

#include "toolkit/edits/balloon.h"

#include <QDialog>

#include <vector>

class QAction;
class QToolButton;
class TMyQuery;
class qcxDBTextEdit;

/// One box of a card's editor. A box that is not wide shares its line with the next one that is not.
struct CardField {
  QString column;
  QString caption;
  bool isWide = false;
};

/// The modal editor of one card: a column of captioned boxes on the current row of the list's own query, all in Turkish
/// capitals, and the two commands that end it.
class CardEditor : public QDialog {
  Q_OBJECT
 public:
  static constexpr int Saved = 6;

  QAction* aKaydet;  ///< "F2 » Tamam"
  QAction* aVazgec;  ///< "F3 » Vazgeç"

  /// The box of a column. Throws Exception when there is none.
  qcxDBTextEdit* box(const QString& column) const;

 protected:
  /// The query must outlive the editor.
  CardEditor(TMyQuery& cards, const QString& objectName, const QString& title, const std::vector<CardField>& fields,
             QWidget* parent);
  ~CardEditor() override;

  TMyQuery& cards() const { return cards_; }
  Balloon& balloon() { return balloon_; }
  /// Shows the row in edit modally and gives the dialog's result.
  int showCard();
  /// Writes what the boxes hold into the row in edit. False, with a balloon at the box, for what the database cannot hold.
  bool takeTyped();
  /// Drops what was typed and not yet written into the row.
  void dropTyped();
  /// Gives a box the room of two while it has the keyboard.
  void widenWhileFocused(const QString& column);
  /// What the two commands do; Escape and the window's frame give up as well.
  virtual void save() = 0;
  virtual void giveUp() = 0;

 private:
  void placeBoxes(QWidget& area, const std::vector<CardField>& fields);
  void reject() override;

  TMyQuery& cards_;
  Balloon balloon_;
  std::vector<qcxDBTextEdit*> boxes_;
};
