#pragma once

#include <QString>

class TMyQuery;

/// Statements of the slip's outside-service dialog: the firms by name.
class OutsideServiceStore {
 public:
  static constexpr qint64 noFirm = -1;

  /// qServis must outlive the store.
  explicit OutsideServiceStore(TMyQuery& qServis);

  /// Reads all firms. Throws EDatabaseError.
  void open();
  /// Key of the firm with exactly that name; noFirm for a name that none has, and for an empty one.
  qint64 findFirm(const QString& name) const;
  qint64 firmAt(int row) const;
  /// A firm with nothing but its name. Throws EDatabaseError, and leaves nothing behind then.
  void addFirm(const QString& name);
  /// Throws EDatabaseError, and leaves the firm as it was then; nothing happens when the firm is not among those read.
  void renameFirm(qint64 firm, const QString& name);

 private:
  void postName(const QString& name);

  TMyQuery& qServis_;
};
