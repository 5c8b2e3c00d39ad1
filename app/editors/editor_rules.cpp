#include "app/editors/editor_rules.h"

#include <algorithm>

using namespace Qt::StringLiterals;

void EditorProperties::keepOnlyChars(QString& characters) const {
  if (onlyChars.isEmpty()) return;
  characters.removeIf([this](QChar c) { return !onlyChars.contains(c); });
}

QString EditorProperties::refusal(const QString& pasted) const {
  if (onlyChars.isEmpty() || std::all_of(pasted.begin(), pasted.end(), [this](QChar c) { return onlyChars.contains(c); }))
    return {};
  return u"Bu alana yalnızca şu karakterler girilebilir: %1"_s.arg(onlyChars);
}
