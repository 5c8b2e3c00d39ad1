#pragma once

#include "service/slip_rules.h"

#include <QHash>

#include <functional>
#include <optional>

class TMyConnection;
class TMyQuery;

/// What a save writes beside the controls.
struct SlipExtras {
  QString userName;
  OutsideService outsideService;
  QByteArray picture;  ///< the picture file's bytes; empty for none
  QString note;
};

/// What broke a save; everything was taken back.
struct SaveFailure {
  QString errorClass;
  QString message;
};

/// A row of a device and the customer that it belongs to, by column name.
using NamedTexts = QHash<QString, QString>;

/// Every statement of the slip screen and what runs it. Throws EDatabaseError and its children unless told otherwise.
class SlipStore {
 public:
  /// Copies the screen into the row in edit.
  using RowFiller = std::function<void()>;

  /// pGetQ: the query that all screens share. All of them must outlive the store.
  SlipStore(TMyConnection& connection, TMyQuery& qServis, TMyQuery& qMalzeme, TMyQuery& pGetQ);

  /// Opens the slip and its lines as empty sets.
  void openEmpty();
  /// Opens the slip and its lines; false when there is no such slip.
  bool open(qint64 id);
  /// The highest number that begins with prefix, any when it is empty; as the server's text, empty for none.
  QString highestNumber(TMyQuery& query, const QString& prefix);

  /// Writes a new slip in one transaction. Nothing is told when it was written; otherwise nothing of it stays behind.
  std::optional<SaveFailure> saveNew(const RowFiller& fillRow, const SlipExtras& extras);
  /// Reads the slip's row again; throws "Refresh failed. Found 0 records" when it is gone.
  void refreshRow();
  /// Writes the open slip in one transaction.
  std::optional<SaveFailure> saveExisting(const RowFiller& fillRow, const SlipExtras& extras);
  /// True when a slip with that number is there.
  bool numberExists(const QString& number);
  /// Deletes the slip's picture, its note and itself, each by itself.
  void deleteSlip();

  /// Bytes of the slip's picture; empty when it has none. Those that are known already do not come over the line again.
  QByteArray picture(qint64 id, const QByteArray& known);
  /// Nothing when the slip has no note row.
  std::optional<QString> note(qint64 id);
  OutsideService outsideService();
  /// The device with that inner serial and its customer; nothing when it is not known.
  std::optional<NamedTexts> deviceBySerial(const QString& serial);

  /// Opens the other slips with the same outer serial, or of the same customer.
  void openSerialHistory(TMyQuery& qSeri, const QString& serial);
  void openCustomerHistory(TMyQuery& qSeri, const QString& customer);

 private:
  std::optional<SaveFailure> save(const RowFiller& fillRow, const SlipExtras& extras, bool isNew);
  void setSaveColumns(const SlipExtras& extras);
  void holdRow(qint64 id);
  void writePicture(qint64 id, const QByteArray& picture);
  void writeNote(qint64 id, const QString& note);
  void writeNewLines(qint64 id);

  TMyConnection& connection_;
  TMyQuery& qServis_;
  TMyQuery& qMalzeme_;
  TMyQuery& pGetQ_;
};
