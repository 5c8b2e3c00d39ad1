#include "service/slip_rules.h"

#include "base/data/latin5.h"
#include "base/date_text.h"
#include "base/environment.h"
#include "base/text_tools.h"
#include "service/slip_lists.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const QString* findText(const std::vector<SlipText>& texts, const QString& control) {
  const auto found = std::find_if(texts.begin(), texts.end(), [&](const SlipText& text) { return text.control == control; });
  return found == texts.end() ? nullptr : &found->text;
}

std::optional<FieldMessage> missingField(const std::vector<SlipText>& texts) {
  static const struct {
    QString control;
    QString caption;
  } mandatory[] = {{u"TS_NO"_s, u"Fiş No"_s},
                   {u"TS_MUSTERI"_s, u"Müşteri Adı"_s},
                   {u"TS_C_AD"_s, u"Cihaz Tanımı"_s},
                   {u"TS_C_SERINO"_s, u"Seri No"_s}};
  QString trimmed;
  for (const auto& field : mandatory) {
    const QString* text = findText(texts, field.control);
    trimmed = text == nullptr ? QString() : text->trimmed();
    if (trimmed.isEmpty()) return FieldMessage{field.control, u"\"%1\" alanı için değer girmelisiniz."_s.arg(field.caption)};
  }
  if (trimmed.size() <= 2) return FieldMessage{u"TS_C_SERINO"_s, u"\"Seri No\" alanı için en az 3 karater girmelisiniz."_s};
  return std::nullopt;
}

QString outsideServiceLines(const OutsideService& service) {
  return u"Dış Servis: "_s + service.firm + u"\nÇık. Tarih: "_s + service.exitDate + u"\nGir. Tarih: "_s + service.returnDate +
         u"\nAçıklama: "_s + service.note + u"\nTeslim Süre: "_s + QString::number(service.deliveryDays);
}

}  // namespace

namespace SlipRules {

std::optional<FieldMessage> validate(const std::vector<SlipText>& texts) {
  if (auto missing = missingField(texts)) return missing;
  for (const SlipText& text : texts)
    if (auto message = unstorableText(text)) return message;
  return std::nullopt;
}

std::optional<FieldMessage> unstorableText(const SlipText& field) {
  if (const auto character = Latin5::firstUnstorable(field.text))
    return FieldMessage{field.control, u"\"%1\" alanındaki %2 karakteri kaydedilemez."_s.arg(field.caption, Latin5::named(*character))};
  if (field.maximumLength > 0 && field.text.size() > field.maximumLength)
    return FieldMessage{field.control,
                        u"\"%1\" alanına en fazla %2 karakter girebilirsiniz."_s.arg(field.caption).arg(field.maximumLength)};
  return std::nullopt;
}

QString proposedNumber(const QString& highest, const QString& typed) {
  if (!highest.isEmpty() && highest != u"0"_s) return TextTools::Numarator(highest);
  return typed.isEmpty() ? u"100"_s : typed;
}

QString generatedSerial() {
  const auto letter = [] {
    const QChar drawn(char16_t(u'A' + environment().randomBelow(25)));
    return drawn == u'O' || drawn == u'I' ? QChar(u'P') : drawn;
  };
  const QChar first = letter();
  const QChar second = letter();
  return QString(first) + second + QString::number(environment().now().toSecsSinceEpoch());
}

double total(double service, double labour, double parts) { return service + labour + parts; }

QString newSlipTitle() { return u"Yeni Servis Fişi"_s; }

QString slipTitle(const QString& number) { return u"("_s + number + u") Servis Fişi"_s; }

QStringList offeredStatuses(const std::function<bool(const QString&)>& isPassive, bool isNewSlip) {
  const QStringList& all = SlipLists::statuses();
  const qsizetype tested = isNewSlip ? all.size() : all.size() - 1;
  QStringList offered;
  for (qsizetype i = 0; i < all.size(); ++i)
    if (i >= tested || !isPassive(all[i])) offered.append(all[i]);
  return offered;
}

bool isDelivery(int item, int count) { return item >= 0 && item == count - 1; }

QString storedOutsideServiceHint(const OutsideService& service) {
  return outsideServiceLines(service) + u"Gün"_s;  // no blank before it: meant
}

QString confirmedOutsideServiceHint(const OutsideService& service) {
  return service.firm.isEmpty() ? QString() : outsideServiceLines(service);
}

QString proposedExitDate(const OutsideService& service) {
  return service.exitDate.isEmpty() ? DateText::date(environment().today()) : service.exitDate;
}

int deliveryDays(const QString& text) {
  bool isNumber = false;
  const int days = text.toInt(&isNumber);
  return isNumber ? days : 0;
}

}  // namespace SlipRules
