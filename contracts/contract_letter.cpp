#include "contracts/contract_letter.h"

#include "app/parameters.h"
#include "app/ports.h"
#include "app/quendUtils.h"
#include "base/data/my_query.h"
#include "base/data/value.h"
#include "base/environment.h"
#include "contracts/contract_editor.h"
#include "contracts/contract_letter_rules.h"
#include "toolkit/edits/query_lookup.h"
#include "toolkit/report/report_output.h"
#include "toolkit/rtf/rich_replace.h"
#include "toolkit/rtf/rtf_reader.h"

using namespace Qt::StringLiterals;

namespace {

LetterValues letterValues(const ContractQueries& queries) {
  const auto column = [&](const QString& name) { return queries.qSozlesme.FieldByName(name).value(); };
  const auto company = [](const QString& box) { return ports().companyText(box); };
  const Value period = column(u"SOZ_HATIRLA_DONEM"_s);
  return {.customer = queries.customers.textOfKey(column(u"SOZ_CA_ID_REF"_s)),
          .firm = company(u"SIRKET_ADI"_s),
          .address = company(u"SIRKET_ADRES"_s),
          .district = company(u"SIRKET_ILCE"_s),
          .city = company(u"SIRKET_IL"_s),
          .telephone = company(u"SIRKET_TEL"_s),
          .fax = company(u"SIRKET_FAX"_s),
          .start = column(u"SOZ_BAS_TARIH"_s).toDate(),
          .end = column(u"SOZ_BIT_TARIH"_s).toDate(),
          .price = column(u"SOZ_TUTAR"_s).toText(),
          .period = period.isNull() ? std::nullopt : std::optional(int(period.toInteger())),
          .today = environment().today()};
}

}  // namespace

void ContractLetter::print(QWidget* owner, const ContractQueries& queries) {
  Report& report = *ports().report();
  const QString folder = QuendUtil->programFolder + u"rapor/"_s;
  const QString text = u"Rich1"_s;
  report.loadIfThere(folder + u"bakim.fr3"_s);  // without one the report before is printed: meant
  if (report.hasRichText(text)) {
    RichText letter = RtfReader::load(folder + u"bakim.rtf"_s);
    for (const LetterReplacement& each : ContractLetterRules::replacements(letterValues(queries)))
      replaceInRichText(letter, each.placeholder, each.value);
    report.setRichText(text, std::move(letter));
  }
  const QString paper = u"Sözleşme formu"_s;
  const QString name = u"%1 %2"_s.arg(paper, queries.qSozlesme.FieldByName(u"SOZ_NO"_s).value().toText()).trimmed();
  if (fParametreler->isChecked(ParameterFiles::PreviewReceipt)) return showReport(owner, report, name);
  if (printReport(report, name)) ports().setStatusText(u"%1 %2 yazıcısına gönderildi..."_s.arg(paper, printerName(report)));
}
