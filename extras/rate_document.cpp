#include "extras/rate_document.h"

#include "base/date_text.h"

#include <pugixml.hpp>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

QString textOf(const pugi::xml_node& row, const char* element) { return QString::fromUtf8(row.child(element).child_value()); }

/// By its code, letter for letter.
std::optional<Currency> currencyOf(const QString& code) {
  if (code == u"USD"_s) return Currency::Dollar;
  if (code == u"EUR"_s) return Currency::Euro;
  if (code == u"GBP"_s) return Currency::Sterling;
  return std::nullopt;
}

/// How a text of the service reads in a message: its beginning.
QString shown(const QString& text) {
  constexpr qsizetype most = 40;
  return text.size() <= most ? text : text.left(most) + u'…';
}

}  // namespace

RateDocument RateDocument::read(const QByteArray& bytes) {
  if (bytes.size() > longest) throw EWireError(u"Kur belgesi çok büyük."_s);
  pugi::xml_document document;
  if (!document.load_buffer(bytes.constData(), size_t(bytes.size()))) throw EWireError(u"Kur belgesi okunamıyor."_s);
  const auto isElement = [](const pugi::xml_node& node) { return node.type() == pugi::node_element; };
  const pugi::xml_node root = document.document_element();
  const pugi::xml_node first = root.find_child(isElement);
  if (!first) throw EWireError(u"Kur belgesinde satır yok."_s);

  RateDocument rates;
  rates.headDate = textOf(first, "ALIS");
  for (pugi::xml_node row = first; row; row = row.next_sibling()) {
    const QString selling = textOf(row, "SATIS").trimmed();
    if (selling.isEmpty()) continue;
    if (const auto currency = currencyOf(textOf(row, "ADI")))
      rates.sellings.push_back({*currency, QString(selling).replace(u'.', u',')});
  }
  return rates;
}

QDate RateDocument::day() const {
  QString text = headDate;
  text.replace(u'/', u'.').replace(u'-', u'.');
  const auto date = text.contains(u'.') ? DateText::toDate(text) : std::nullopt;
  if (!date) throw EConvertError(u"Kur belgesinin tarihi okunamıyor: \"%1\""_s.arg(shown(headDate)));
  return *date;
}
