#include "app/backup_rules.h"

using namespace Qt::StringLiterals;

namespace {
constexpr qint64 bearableSeconds = 3 * 24 * 60 * 60;

QString ageText(const BackupState& state) {
  if (!state.lastCopy.isValid()) return u"hiç yedek alınmadı"_s;
  const qint64 days = state.lastCopy.date().daysTo(state.now.date());
  return u"son yedek: %1"_s.arg(state.lastCopy.toString(u"dd.MM.yyyy"_s)) + (days > 0 ? u" (%1 gün önce)"_s.arg(days) : QString());
}
}  // namespace

QString BackupRules::warning(const std::optional<BackupState>& state) {
  if (!state) return {};
  if (state->failure == "ROOM"_L1) return u"Yedek alınamadı: diskte yer yok, "_s + ageText(*state);
  if (state->failure == "COPY"_L1) return u"Yedek alınamadı, "_s + ageText(*state);
  const QDateTime last = state->lastCopy.isValid() ? state->lastCopy : state->since;
  if (last.secsTo(state->now) >= bearableSeconds) return u"Yedek eski: "_s + ageText(*state);
  if (!state->failure.isEmpty()) return u"Yedeğin ikinci kopyası alınamadı: ikinci yer takılı değil ya da dolu"_s;
  return {};
}
