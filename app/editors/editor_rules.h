#pragma once

#include <QString>

/// The two properties by which the program's editors choose among typed characters.
struct EditorProperties {
  QString onlyChars;  ///< when not empty: the only characters that can come in
  int dataSize = 0;   ///< currency: most digits; 0 is unlimited

  /// Takes away what is not among onlyChars.
  void keepOnlyChars(QString& characters) const;
  /// The reason why pasted may not come in; empty when it may.
  QString refusal(const QString& pasted) const;
};
