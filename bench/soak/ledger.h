#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

class TMyConnection;

/// What the stations' screens said of the slips, and what the database holds of them.
class Ledger {
 public:
  /// A line of a station, its words parted by tabs; one that is none of an attempt is passed over.
  void hear(int station, const QStringList& words);
  /// A station's program is gone: how its last attempt ended is not known, and will not be heard.
  void gone(int station);

  struct Count {
    int saved = 0;      ///< slips that a screen said were written and that nobody deleted
    int unknown = 0;    ///< attempts whose end nobody saw
    QStringList missing;  ///< said to be written, whole or a change of it, and not there
    QStringList twice;    ///< slips or parts that are there more than once
    QStringList half;     ///< without a picture's or a note's row, with the note of another save, with fewer parts; rows of no slip
  };
  /// Compares with the database, which nobody writes to any more. Throws EDatabaseError.
  Count count(TMyConnection& connection) const;

 private:
  struct Attempt {
    QString kind;
    QString serial;
    QString token;
    int parts = 0;
    QString picture;
    qint64 began = 0;
    std::optional<qint64> ended;
    bool isSaved = false;
    bool isUnknown = false;
  };
  struct Stored;

  static void compare(const QString& serial, const std::vector<const Attempt*>& attempts, const std::vector<Stored>& slips, Count& count);

  std::vector<Attempt> attempts_;
  QHash<int, size_t> open_;  ///< by station: its attempt under way
};
