#pragma once

#include "base/exceptions.h"

#include <QByteArrayView>

/// A file that cannot be read as rich text. The message names the line and the reason.
class ERtfFile : public EInOutError {
 public:
  ERtfFile(int line, const QString& reason);
  QString className() const override;
  QString parentClassName() const override;
};

struct RtfToken {
  enum Kind {
    Open,
    Close,
    Word,    ///< a control word with its number, if any
    Symbol,  ///< a control character
    Byte,    ///< a letter written in hex
    Text,
    Binary,
    End,
  };
  Kind kind = End;
  QByteArrayView bytes;     ///< the word's name, the symbol, the letters, the binary data
  int value = 0;            ///< the word's number, the byte
  bool hasValue = false;
};

/// Cuts a rich text file into its tokens. The bytes must outlive it.
class RtfTokens {
 public:
  explicit RtfTokens(QByteArrayView bytes) : bytes_(bytes) {}

  /// Throws ERtfFile for broken hex and for binary data beyond the file's end.
  RtfToken next();
  /// An error at the place of the last token.
  ERtfFile fault(const QString& reason) const;

 private:
  RtfToken word();
  RtfToken hexByte();
  char at(qsizetype place) const { return place < bytes_.size() ? bytes_[place] : '\0'; }

  QByteArrayView bytes_;
  qsizetype place_ = 0;
};
