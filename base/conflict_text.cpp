#include "base/conflict_text.h"

using namespace Qt::StringLiterals;

QString ConflictText::deletedMeanwhile() {
  // Two blanks and two points: meant.
  return u"Değişiklik yapmakta olduğunuz kaydın bilgileri siz  işlem yaparken bir başka kullanıcı tarafından silinmiştir..\r\n\r\n"
         u"İşleminiz bu nedenle gerçekleştirilemiyor."_s;
}

QString ConflictText::changedMeanwhile() {
  return u"Değişiklik yapmakta olduğunuz kaydın bilgileri siz işlem yaparken bir başka kullanıcı tarafından değiştirilmiştir.\r\n\r\n"
         u"İşleme devam etmeniz durumunda diğer kullanıcı tarafından yapılmış olan değişiklikler geçersiz duruma gelebilir.\r\n\r\n"
         u"İşleme devam etmek istiyor musunuz?"_s;
}

QString ConflictText::duplicateValue(const QString& caption) {
  return u"\"%1\" alanı mükerrer değer kabul etmiyor."_s.arg(caption);
}
