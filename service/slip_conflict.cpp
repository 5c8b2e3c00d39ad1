#include "service/slip_conflict.h"

#include "base/conflict_text.h"
#include "app/ports.h"
#include "app/quendUtils.h"
#include "service/fservisfis_unit.h"
#include "service/slip_rules.h"

#include <QApplication>

using namespace Qt::StringLiterals;

void answerSlipConflict(TfServisFis* editor, const QString& className, const QString& message) {
  QWidget* owner = editor != nullptr ? editor : QApplication::activeWindow();
  switch (SlipRules::answerTo(className, message)) {
    case SaveFailureAnswer::AskWhetherRowIsThere:
      // Goes by the number on the screen, so that a slip whose number was changed counts as deleted: meant.
      if (editor == nullptr || !editor->isNumberStored())
        QuendUtil->ErrorMesaj(owner, ConflictText::deletedMeanwhile());
      else if (QuendUtil->Mesaj(owner, ConflictText::changedMeanwhile()) == TQuendUtil::Confirmed)
        editor->saveOverOthers();
      break;
    case SaveFailureAnswer::TellDeleted:
      QuendUtil->ErrorMesaj(owner, ConflictText::deletedMeanwhile());
      break;
    case SaveFailureAnswer::TellDuplicateNumber: {
      const QString taken = ConflictText::duplicateValue(u"FİŞ NO"_s);
      if (editor != nullptr)
        editor->QuendHint(editor->control(u"TS_NO"_s), 0, taken);
      else
        QuendUtil->ErrorMesaj(owner, taken);
      break;
    }
    case SaveFailureAnswer::SayNothing:
      logMessage(className + u": "_s + message);
      break;
  }
}
