#include "comm/caller_text.h"

#include "base/text_tools.h"
#include "comm/http_exchange.h"

using namespace Qt::StringLiterals;

CallerText::Notice CallerText::notice(const QByteArray& datagram) {
  const QString text = answerText({0, {}, datagram});
  const auto field = [&text](int index) { return TextTools::GetValue(text, index); };
  const QString moment = field(1) + u' ' + field(2);
  if (field(5) == u"0"_s) return {u"Gelen Çağrı"_s, moment + u"\r\n"_s + grouped(field(4))};
  // The whole body goes through the grouping, whose lengths it hardly ever has; meant.
  return {field(6), grouped(field(4) + u"\r\n\r\n"_s + moment)};
}

QString CallerText::grouped(QString number) {
  switch (number.size()) {
    case 7: return number.insert(3, u' ');
    case 10: return number.insert(0, u'(').insert(4, u") "_s).insert(9, u' ');
    case 11: return number.insert(1, u'(').insert(5, u") "_s).insert(10, u' ');
    default: return number;
  }
}
