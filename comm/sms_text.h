#pragma once

#include <QString>
#include <QStringList>

#include <optional>

/// What may be typed into messages and numbers, and how numbers are written for a gateway.
namespace SmsText {

constexpr qsizetype bulkLimit = 612;  ///< four parts of 153

/// Whether a typed character passes into a template. Backspace (8), paste (22) and ENTER (13) pass unchecked, so that a
/// pasted text is not filtered; meant.
bool templateKeyPasses(QChar key);

/// The character that a key gives in a bulk message that holds length characters: Turkish letters go to small ASCII ones;
/// nothing when the key is dropped.
std::optional<QChar> bulkKey(QChar key, qsizetype length);

/// Whether a typed character passes into the recipients: digits, comma and TAB only; backspace and paste do not, meant.
bool recipientKeyPasses(QChar key);

/// Items between the commas; none in an empty text, and an empty one behind a comma at the end.
QStringList recipients(const QString& text);

/// The items trimmed, in double quotes, joined by commas: 1,2 as "1","2".
QString quotedRecipients(const QString& text);

/// Markers that a template may hold, in the order in which the slip's values replace them.
QStringList markers();

/// The template with every occurrence of markers[i] replaced by values[i], one marker after the other, by exact case.
QString withMarkers(QString text, const QStringList& markers, const QStringList& values);

}  // namespace SmsText
