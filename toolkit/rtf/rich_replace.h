#pragma once

#include "toolkit/report/rich_text.h"

/// Puts value in the place of every occurrence of placeholder, in paragraphs and tables, however many runs it is cut into;
/// gives back how many there were. Case is not told apart, and "I", "ı", "İ" and "i" are one. The value is text, takes the
/// format of the placeholder's first letter, and is not searched itself.
int replaceInRichText(RichText& text, const QString& placeholder, const QString& value);
