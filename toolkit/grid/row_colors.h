#pragma once

#include <QColor>

class QPalette;

/// Colours of a grid's rows that can be read in a light and in a dark look.
namespace RowColors {

/// Contrast that a text needs on what is behind it (WCAG 2.1, success criterion 1.4.3).
constexpr double leastContrast = 4.5;

/// Contrast of two colours as WCAG 2.1 defines it, from 1 to 21.
double contrast(const QColor& one, const QColor& other);

/// Background of a selected row: a tint of the palette's selection on which the colours of rows stay themselves.
QColor selection(const QPalette& palette);

/// The wanted colour of a row's text as it can be read on every background that a row has: plain, every other one and
/// selected. One that can be stays as it is. Any other one keeps its hue and becomes as dark or light as need be and a little
/// more, the farther off the more, so that two colours of one hue do not become one.
QColor readable(const QColor& wanted, const QPalette& palette);

}  // namespace RowColors
