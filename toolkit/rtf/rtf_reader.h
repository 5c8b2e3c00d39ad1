#pragma once

#include "toolkit/report/rich_text.h"
#include "toolkit/rtf/rtf_tokens.h"

/// Rich text files as word processors write them. Headers, footers, footnotes and what else is no part of the text's flow are
/// passed over.
namespace RtfReader {

/// Throws ERtfFile when the bytes are no rich text, or one that is damaged or larger than any letter.
RichText read(const QByteArray& bytes);
/// Throws EInOutError with the file's name, when it cannot be opened or as read does.
RichText load(const QString& file);

}  // namespace RtfReader
