#pragma once

#include <QString>

#include <exception>

/// Root of the program's errors. The message is what a user may be shown.
class Exception : public std::exception {
 public:
  explicit Exception(QString message);
  /// Name of this error's class and of the class above it; the log and the conflict rules go by them.
  virtual QString className() const;
  virtual QString parentClassName() const;
  const QString& message() const { return message_; }
  /// The message as UTF-8.
  const char* what() const noexcept override { return utf8_.constData(); }

 private:
  QString message_;
  QByteArray utf8_;
};

/// A text that is no number, date or time where one is asked for.
class EConvertError : public Exception {
 public:
  using Exception::Exception;
  QString className() const override;
  QString parentClassName() const override;
};

/// A file or folder operation that failed.
class EInOutError : public Exception {
 public:
  using Exception::Exception;
  QString className() const override;
  QString parentClassName() const override;
};

/// Ends what was under way without a word: whoever raises it has told the user already.
class EAbort : public Exception {
 public:
  EAbort() : Exception(QStringLiteral("Operation aborted")) {}
  QString className() const override;
  QString parentClassName() const override;
};

/// An error of a dataset. Carries the query that it comes from, when there is one.
class EDatabaseError : public Exception {
 public:
  explicit EDatabaseError(QString message, QString queryName = {}, QString queryText = {});
  QString className() const override;
  QString parentClassName() const override;
  bool hasQuery() const { return !queryText_.isEmpty(); }
  const QString& queryName() const { return queryName_; }
  /// Full statement text with its parameter names, never their values.
  const QString& queryText() const { return queryText_; }

 private:
  QString queryName_;
  QString queryText_;
};

/// A text or number that the column cannot hold, found before anything was sent.
class EUnstorableValue : public EDatabaseError {
 public:
  /// field: column or parameter name; character: the one at fault, empty when the length or range is.
  EUnstorableValue(QString message, QString field, QString character = {});
  QString className() const override;
  QString parentClassName() const override;
  const QString& field() const { return field_; }
  /// The message with the caption that the user knows the field by.
  QString messageFor(const QString& caption) const;
  const QString& character() const { return character_; }

 private:
  QString field_;
  QString character_;
};

/// A refusal by the server. The message begins with "#", the five-letter SQL state and the server's text.
class EMyError : public EDatabaseError {
 public:
  EMyError(unsigned code, QString state, QString serverText, QString queryName = {}, QString queryText = {});
  QString className() const override;
  QString parentClassName() const override;
  /// The server's or the client library's error number.
  unsigned code() const { return code_; }
  const QString& state() const { return state_; }

 private:
  unsigned code_;
  QString state_;
};
