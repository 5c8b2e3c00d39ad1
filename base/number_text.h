#pragma once

#include <QString>

#include <optional>

/// Numbers as the program shows and reads them: "," as decimal mark, "." for thousands.
namespace NumberText {

/// Shortest text that reads back as the same number, without thousands marks: "1250,5".
QString fromDouble(double number);

/// The number in a text: "1.250,50", "1250,5"; a single "." that cannot be a thousands mark is a decimal mark, so that
/// "12.50" is 12.5 and "1.250" is 1250. Nothing for a text that is no number, or is empty.
std::optional<double> toDouble(const QString& text);

/// As toDouble, as exact plain text: "-1250.50".
std::optional<QString> toDecimal(const QString& text);

/// A number by a display format: up to three parts, joined by ";", for positive, negative and zero. In a part, "," stands
/// for thousands marks, "0" for a digit that is always shown, "#" for one that is shown when it is there, "." for the
/// decimal mark; the rest is text. Without a negative part a minus stands in front.
QString formatted(const QString& format, double number);

}  // namespace NumberText
