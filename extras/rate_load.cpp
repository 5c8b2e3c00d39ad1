#include "extras/rate_load.h"

#include "app/ports.h"
#include "base/date_text.h"
#include "base/number_text.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace {

QString loadedWords(const QString& date) { return date + u" tarihli serbest piyasa kurları yüklendi."_s; }

/// What the file holds, and no more of it than tells that it is too much.
QByteArray bytesOf(const QString& file) {
  QFile in(file);
  if (!in.open(QIODevice::ReadOnly)) throw EWireError(u"Kur belgesi okunamıyor."_s);
  return in.read(RateDocument::longest + 1);
}

/// Ends early where a step fails.
void loadFromService(const QString& today, const QString& file, RateScreen& screen) {
  const auto giveUp = [&](const QString& words) {
    screen.setHourglass(false);
    QFile::remove(file);
    screen.setStatusText(words);
  };
  if (!screen.download(file)) return giveUp(u"Günlük döviz kurları alınamadı."_s);
  if (!QFile::exists(file)) return giveUp(u"Döviz kurları dosya başlıklarına ulaşılamıyor."_s);

  const RateDocument document = RateDocument::read(bytesOf(file));
  const QString day = DateText::date(document.day());
  screen.setDate(today);
  // Rates of another day are taken as today's all the same: meant.
  if (day != today) giveUp(day + u" tarihli serbest piyasa kurları alınamadı."_s);
  for (const RateDocument::Selling& selling : document.sellings) {
    if (const auto rate = NumberText::toDouble(selling.text))
      screen.setRate(selling.currency, *rate);
    else
      screen.setUnreadableRate(selling.currency, selling.text);
  }
  screen.setStatusText(loadedWords(day));
  try {
    screen.store();
  } catch (const Exception& error) {
    logMessage(u"Döviz kurları saklanamadı"_s, &error);  // the user is not told: meant
  }
}

}  // namespace

void RateLoad::load(const QString& date, const QString& today, const QString& file, RateScreen& screen) {
  screen.setDate(date);
  for (const Currency currency : Currencies) screen.setRate(currency, 1);
  if (const auto stored = screen.storedRates(); stored && stored->date == date) {
    for (const Currency currency : Currencies) screen.setRate(currency, stored->selling[size_t(currency)]);
    screen.setStatusText(loadedWords(stored->date));
    return;
  }
  screen.setHourglass(true);
  // Whatever happened before, the words of success come last: meant.
  const auto finish = [&] {
    QFile::remove(file);
    screen.setStatusText(loadedWords(screen.date()));
    screen.setHourglass(false);
  };
  try {
    loadFromService(today, file, screen);
  } catch (...) {
    finish();
    throw;
  }
  finish();
}
