#include "service/slip_conflict.h"

#include "app/quendUtils.h"
#include "app/Unit14.h"
#include "service/fservisfis_unit.h"
#include "service/slip_rules.h"

#include <QApplication>

using namespace Qt::StringLiterals;

namespace {

QString deletedMeanwhile() {
  // Two blanks and two points: meant.
  return u"Değişiklik yapmakta olduğunuz kaydın bilgileri siz  işlem yaparken bir başka kullanıcı tarafından silinmiştir..\r\n\r\n"
         u"İşleminiz bu nedenle gerçekleştirilemiyor."_s;
}

QString changedMeanwhile() {
  return u"Değişiklik yapmakta olduğunuz kaydın bilgileri siz işlem yaparken bir başka kullanıcı tarafından değiştirilmiştir.\r\n\r\n"
         u"İşleme devam etmeniz durumunda diğer kullanıcı tarafından yapılmış olan değişiklikler geçersiz duruma gelebilir.\r\n\r\n"
         u"İşleme devam etmek istiyor musunuz?"_s;
}

}  // namespace

void answerSlipConflict(TfServisFis* editor, const QString& className, const QString& message) {
  QWidget* owner = editor != nullptr ? editor : QApplication::activeWindow();
  switch (SlipRules::answerTo(className, message)) {
    case SaveFailureAnswer::AskWhetherRowIsThere:
      // Goes by the number on the screen, so that a slip whose number was changed counts as deleted: meant.
      if (editor == nullptr || !editor->isNumberStored())
        QuendUtil->ErrorMesaj(owner, deletedMeanwhile());
      else if (QuendUtil->Mesaj(owner, changedMeanwhile()) == TQuendUtil::Confirmed)
        editor->saveOverOthers();
      break;
    case SaveFailureAnswer::TellDeleted:
      QuendUtil->ErrorMesaj(owner, deletedMeanwhile());
      break;
    case SaveFailureAnswer::TellDuplicateNumber: {
      const QString taken = u"\"FİŞ NO\" alanı mükerrer değer kabul etmiyor."_s;
      if (editor != nullptr)
        editor->QuendHint(editor->control(u"TS_NO"_s), 0, taken);
      else
        QuendUtil->ErrorMesaj(owner, taken);
      break;
    }
    case SaveFailureAnswer::SayNothing:
      Login_Form->Log(className + u": "_s + message);
      break;
  }
}
