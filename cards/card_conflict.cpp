#include "cards/card_conflict.h"

#include "base/conflict_text.h"
#include "base/data/my_query.h"
#include "app/ports.h"
#include "app/dmUnit.h"
#include "base/exceptions.h"
#include "app/quendUtils.h"
#include "cards/card_rules.h"
#include "cards/card_store.h"
#include "toolkit/edits/balloon.h"
#include "toolkit/edits/edit_box.h"

using namespace Qt::StringLiterals;

namespace {

/// A row that was written without the check does not know its new version: its next save would meet this one.
void readNewVersion(TMyQuery& cards) {
  try {
    cards.RefreshRecord();
  } catch (const Exception& error) {
    logMessage(error.message(), &error);  // the save itself is done
  }
}

/// Saves without the check for changes by others; it is on from then on, whether it was before or not: meant.
void saveOverOthers(const ConflictingCard& card) {
  card.cards.Options.CheckRowVersion = false;
  try {
    card.saveAgain();
  } catch (...) {
    card.cards.Options.CheckRowVersion = true;
    throw;
  }
  card.cards.Options.CheckRowVersion = true;
  if (card.cards.state() == QueryState::Browse) readNewVersion(card.cards);
}

}  // namespace

bool answerCardConflict(const ConflictingCard& card, const QString& className, const QString& message) {
  const QString column = card.uniqueBox->objectName();
  switch (CardRules::failureOf(className, message, column)) {
    case CardFailure::AskWhetherRowIsThere:
      // Goes by the text that the box holds now, so that a card whose name was changed counts as deleted: meant.
      if (!CardStore::exists(DM->pGetQ, card.table, column, card.uniqueBox->text())) {
        QuendUtil->ErrorMesaj(card.editor, ConflictText::deletedMeanwhile());
        return false;
      }
      if (QuendUtil->Mesaj(card.editor, ConflictText::changedMeanwhile()) == TQuendUtil::Confirmed) saveOverOthers(card);
      return true;
    case CardFailure::TellDeleted:
      QuendUtil->ErrorMesaj(card.editor, ConflictText::deletedMeanwhile());
      return false;
    case CardFailure::TellDuplicate:
      card.balloon.showAt(card.uniqueBox, ConflictText::duplicateValue(card.uniqueCaption));
      return false;
    case CardFailure::SayNothing:
      logMessage(className + u": "_s + message);
      return true;
  }
  Q_UNREACHABLE();
}
