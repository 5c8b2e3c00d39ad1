#pragma once

#include "base/data/my_query.h"
#include "service/slip_store.h"

/// What one slip consists of, for comparing with what is stored.
struct SlipContent {
  QString number;
  QString customer;
  QStringList parts;
  QByteArray picture;
  QString note;

  /// The rows of all four tables that make up the slip, in the form of storedRows().
  QStringList rows() const;
};

/// A new slip with two lines, a picture of 100 kB and a note.
SlipContent sampleSlip(int number);

/// Every row of teknikservis, malzeme, foto and notlar as one text each, sorted; a row without its slip lacks the number.
QStringList storedRows(TMyConnection& connection);

/// Waits until the server has ended that connection and taken back what it had open; false after ten seconds.
bool waitForEnd(TMyConnection& observer, qint64 connectionId);

/// A slip as it stands on a screen: its queries and what was typed. Runs what the slip editor runs.
class ScreenSlip {
 public:
  /// A new one with that content, or what is stored under a key. Throw EDatabaseError.
  ScreenSlip(TMyConnection& connection, const SlipContent& content);
  ScreenSlip(TMyConnection& connection, qint64 id);

  /// Writes what was typed. Throws EMyError.
  std::optional<SaveFailure> save();
  void remove() { store_.deleteSlip(); }

 private:
  explicit ScreenSlip(TMyConnection& connection);
  void addLine(int line, const QString& part);

  TMyQuery qServis_;
  TMyQuery qMalzeme_;
  TMyQuery pGetQ_;
  SlipStore store_;
  SlipContent typed_;
  bool isNew_ = false;
};
