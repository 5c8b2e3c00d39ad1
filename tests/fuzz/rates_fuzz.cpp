// Throws damaged rate documents at their reader. KVTK_FUZZ_SECONDS says how long, KVTK_FUZZ_SEED which.
#include "extras/rate_document.h"
#include "tests/fuzz/damage.h"

#include <iostream>

namespace {

const QByteArrayList samples{
    "<DOVIZ><KUR><ADI>T</ADI><ALIS>05/03/2026</ALIS><SATIS/></KUR><KUR><ADI>USD</ADI><ALIS>41.1</ALIS><SATIS>41.25</SATIS></KUR>"
    "<KUR><ADI>EUR</ADI><SATIS> 48.5 </SATIS></KUR></DOVIZ>",
    "<?xml version=\"1.0\" encoding=\"UTF-16\"?><a><b><ALIS>1-2-2026</ALIS></b><b><ADI>GBP</ADI><SATIS><![CDATA[54.9375]]></SATIS></b></a>",
    "<!DOCTYPE a [<!ENTITY x \"1\">]><a><b><ALIS>&x;</ALIS><ADI>USD</ADI><SATIS>&#49;&x;</SATIS></b></a>",
    QByteArray("<a>").repeated(5000) + QByteArray("</a>").repeated(5000),
    {},
};
const QByteArrayList marks{"<KUR>", "</KUR>", "<!--", "-->", "<![CDATA[", "]]>", "&#0;", "&lt;", "<?x ?>", "\"", "\xFF\xFE", "<ADI>EUR</ADI>",
                           "<SATIS>1e400</SATIS>", "-", "99999999999999999999", ","};

void check(const QByteArray& bytes, const QByteArray&) {
  try {
    const RateDocument document = RateDocument::read(bytes);
    for (const RateDocument::Selling& selling : document.sellings) ASSERT_FALSE(selling.text.isEmpty() || selling.text.contains(u'.'));
    ASSERT_TRUE(document.day().isValid());
  } catch (const EWireError&) {
  } catch (const EConvertError&) {
  }
}

}  // namespace

TEST(RatesFuzz, TheReaderHoldsForDamagedDocuments) { std::cout << Damage::run(samples, marks, check) << " documents\n"; }
