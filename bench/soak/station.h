#pragma once

#include "bench/soak/hands.h"

#include <QByteArray>
#include <QString>

#include <atomic>
#include <vector>

/// What a station tells the ledger on its standard output: words parted by tabs, the second one the time in milliseconds. An
/// attempt on a slip begins with "begins" and ends with "saved", "refused" or, where the line died meanwhile, with nothing known.
class Telling {
 public:
  /// kind: "new", "change" or "delete"; serial: the slip's, by which it is known; token: what a change leaves in it; parts: that it
  /// adds; picture: its fingerprint, empty for none.
  static void begins(const QString& kind, const QString& serial, const QString& token, int parts, const QString& picture);
  static void ends(const QString& word);
  static void line(const QStringList& words);
};

/// What the roads and who cuts the line know of each other.
struct LineState {
  std::atomic<bool> isCut = false;   ///< the line to the server is dead
  std::atomic<bool> isBusy = false;  ///< a slip is being written
};

/// The roads of one station through its program. Works on a thread of its own.
class Roads {
 public:
  /// name: of the station and its life, begins every token.
  Roads(QString name, unsigned seed, LineState& line);

  /// Goes one road, and comes home. Throws NotReached.
  void goOne();
  bool hasGoneAll() const;

 private:
  struct Road;
  static const std::vector<Road>& all();

  void takeIn();
  void change();
  void remove();
  void lookAtSlips();
  void lookAtCards(const QString& command);
  void changeCustomer();
  void lookAtStatistics();
  void writeContract();
  void lookAtReminders();
  void takeCall();
  void signIn();
  void sendToMany();
  void tryMail();
  void previewReceipt();
  void openAndClose(const QString& command);
  void arrangeWindows();

  /// A slip of any station, opened; its serial number. Empty when there is none.
  QString openAny();
  /// Saves the slip in front and tells how it went; true when it is written.
  bool save();
  int addParts(const QString& token);
  QString nextToken();

  QString name_;
  Chance chance_;
  LineState& line_;
  int tokens_ = 0;
  int gone_ = 0;
};
