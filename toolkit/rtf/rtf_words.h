#pragma once

#include "toolkit/rtf/rtf_state.h"
#include "toolkit/rtf/rtf_tokens.h"

/// The words that change what holds. Each function is false for a word that is none of its kind.
namespace RtfWords {

bool setCharacters(RtfState& state, const RtfTables& tables, const RtfToken& word);
bool setParagraph(RtfState& state, const RtfTables& tables, const RtfToken& word);

/// What a row of a table looks like, while its words come in.
struct RowWords {
  RowPlan plan;
  RowPlan::Cell cell;  ///< the one whose right side has not come yet
  QString side;        ///< of its border that is told about
};
/// A word that begins one kind of border ends the words about the other kinds.
void chooseBorder(RtfState& state, RowWords& row, QByteArrayView word);
bool setRow(RowWords& row, const RtfTables& tables, const RtfToken& word);

/// The letter that a word stands for; 0 for none.
char16_t letterOf(QByteArrayView word);

/// Everything of the letters as a file begins with.
void resetCharacters(RtfState& state, const RtfTables& tables);

}  // namespace RtfWords
