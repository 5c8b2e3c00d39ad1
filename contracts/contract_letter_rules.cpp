#include "contracts/contract_letter_rules.h"

#include "base/date_text.h"

#include <QStringList>

#include <cstdlib>

using namespace Qt::StringLiterals;

std::vector<LetterReplacement> ContractLetterRules::replacements(const LetterValues& values) {
  const QString days = values.start.isValid() && values.end.isValid() ? QString::number(std::abs(values.start.daysTo(values.end))) : QString();
  std::vector<LetterReplacement> made{
      {u"$musteri$"_s, values.customer},
      {u"$firma$"_s, values.firm},
      {u"$firmaadres$"_s, values.address + u' ' + values.district + u' ' + values.city},
      {u"$firmatelefon$"_s, u"Tel: "_s + values.telephone},
      {u"$firmafaks$"_s, u"Fax: "_s + values.fax},
      {u"$sozbastar$"_s, DateText::date(values.start)},
      {u"$sozbittar$"_s, DateText::date(values.end)},
      {u"$tarih$"_s, DateText::date(values.today)},
      {u"$tutar$"_s, values.price + u" TL"_s},
      {u"$sozsure$"_s, days + u" GÜN"_s},
  };
  // By the position among the choices, where the column holds their codes, so that letters tell another period than the
  // contract has and from the weekly one on keep the placeholder: meant.
  const QStringList periods{u"Birkez"_s, u"Hergün"_s, u"Haftalık"_s, u"Aylık"_s, u"Yıllık"_s};
  if (values.period && *values.period >= 0 && *values.period < periods.size()) made.push_back({u"$donem$"_s, periods[*values.period]});
  return made;
}
