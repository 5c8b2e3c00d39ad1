#pragma once

#include "base/data/field_codec.h"

#include <QByteArrayView>

#include <compare>
#include <optional>

/// Order of two texts in latin5 bytes by the Turkish alphabet, without regard to case.
std::strong_ordering compareTexts(QByteArrayView left, QByteArrayView right);

/// The same of any two texts.
std::strong_ordering compareTexts(const QString& left, const QString& right);

/// Order of two cells of one column: numbers as numbers, dates as dates, texts as compareTexts; NULL comes first.
std::strong_ordering compareCells(const FieldInfo& field, std::optional<QByteArrayView> left, std::optional<QByteArrayView> right);
