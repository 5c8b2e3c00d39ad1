#include "app/row_conflict.h"

#include "app/ports.h"
#include "app/quendUtils.h"
#include "base/conflict_text.h"
#include "base/data/row_version_off.h"
#include "base/exceptions.h"
#include "base/save_conflict.h"

using namespace Qt::StringLiterals;

namespace {

void saveOverOthers(const RowConflict& row) {
  {
    const RowVersionOff unchecked(*row.rows);
    row.saveAgain();
  }
  if (row.rows->state() != QueryState::Browse) return;
  try {
    row.rows->RefreshRecord();  // brings what others wrote into the other columns
  } catch (const Exception& error) {
    logMessage(u"Kaydedilen satır yeniden okunamadı"_s, &error);  // the save itself is done
  }
}

}  // namespace

bool answerRowConflict(const RowConflict& row, const QString& className, const QString& message) {
  switch (saveConflictOf(className, message, row.clashMark)) {
    case SaveConflict::RowNotFound:
      if (!row.isThere || !row.isThere()) break;
      if (QuendUtil->Mesaj(row.owner, ConflictText::changedMeanwhile()) == TQuendUtil::Confirmed) saveOverOthers(row);
      return true;
    case SaveConflict::RowGone:
      break;
    case SaveConflict::ValueTaken: {
      const QString taken = ConflictText::duplicateValue(row.uniqueCaption);
      if (row.tellAtBox)
        row.tellAtBox(taken);
      else
        QuendUtil->ErrorMesaj(row.owner, taken);
      return false;
    }
    case SaveConflict::None:
      logMessage(className + u": "_s + message);
      return true;
  }
  QuendUtil->ErrorMesaj(row.owner, ConflictText::deletedMeanwhile());
  return false;
}
